#pragma once

#include <CommonKit/support/core/Export.h>

#include <QString>

#include <exception>
#include <string>

namespace ko {

/// Base of the library's exceptions: a message and an optional cause.
class COMMONKIT_EXPORT Exception : public std::exception
{
public:
    /// An exception with message (UTF-8) and the exception that caused it, if
    /// any (e.g. std::current_exception() in a catch block).
    explicit Exception(std::string message, std::exception_ptr cause = nullptr);
    /// Destroys the exception.
    ~Exception() override;

    /// The message; valid as long as the exception.
    const char* what() const noexcept override;
    /// The message as given.
    const std::string& message() const noexcept { return m_message; }
    /// The exception that led to this one, or null.
    std::exception_ptr cause() const noexcept { return m_cause; }

private:
    std::string m_message;
    std::exception_ptr m_cause;
};

/// An exception whose message is a QString (kept exactly; what() is UTF-8).
class COMMONKIT_EXPORT ExceptionQt : public Exception
{
public:
    /// An exception with message and an optional cause.
    explicit ExceptionQt(const QString& message, std::exception_ptr cause = nullptr);
    /// Destroys the exception.
    ~ExceptionQt() override;

    /// The message as given.
    QString messageQt() const { return m_messageQt; }

private:
    QString m_messageQt;
};

/// A value had another type than the one asked for.
class COMMONKIT_EXPORT UnexpectedTypeException : public ExceptionQt
{
public:
    /// The value called name had actualType where expectedType was asked
    /// for; message describes the failure, cause is optional.
    UnexpectedTypeException(const QString& name, const QString& actualType,
                            const QString& expectedType, const QString& message,
                            std::exception_ptr cause = nullptr);
    /// Destroys the exception.
    ~UnexpectedTypeException() override;

    /// The name of the value.
    QString name() const { return m_name; }
    /// The type the value had.
    QString actualType() const { return m_actualType; }
    /// The type asked for.
    QString expectedType() const { return m_expectedType; }

private:
    QString m_name;
    QString m_actualType;
    QString m_expectedType;
};

/// An argument was not acceptable; text names or shows the argument.
class COMMONKIT_EXPORT IllegalArgumentException : public ExceptionQt
{
public:
    /// The argument text was refused; message describes why, cause is
    /// optional.
    IllegalArgumentException(const QString& text, const QString& message,
                             std::exception_ptr cause = nullptr);
    /// Destroys the exception.
    ~IllegalArgumentException() override;

    /// The argument, or its name, as given.
    QString text() const { return m_text; }

private:
    QString m_text;
};

} // namespace ko
