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
    explicit Exception(std::string message, std::exception_ptr cause = nullptr);
    ~Exception() override;

    const char* what() const noexcept override;
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
    explicit ExceptionQt(const QString& message, std::exception_ptr cause = nullptr);
    ~ExceptionQt() override;

    QString messageQt() const { return m_messageQt; }

private:
    QString m_messageQt;
};

/// A value had another type than the one asked for.
class COMMONKIT_EXPORT UnexpectedTypeException : public ExceptionQt
{
public:
    UnexpectedTypeException(const QString& name, const QString& actualType,
                            const QString& expectedType, const QString& message,
                            std::exception_ptr cause = nullptr);
    ~UnexpectedTypeException() override;

    QString name() const { return m_name; }
    QString actualType() const { return m_actualType; }
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
    IllegalArgumentException(const QString& text, const QString& message,
                             std::exception_ptr cause = nullptr);
    ~IllegalArgumentException() override;

    QString text() const { return m_text; }

private:
    QString m_text;
};

} // namespace ko
