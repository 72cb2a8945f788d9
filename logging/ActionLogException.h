#pragma once

#include <CommonKit/support/core/Export.h>

#include <QByteArray>
#include <QString>

#include <exception>

namespace ko {

/// The failures the action log raises internally and turns into signals at
/// its public entry points. All are copyable and assignable.
class COMMONKIT_EXPORT ActionLogException : public std::exception
{
public:
    explicit ActionLogException(const QString& message);
    ~ActionLogException() override;
    ActionLogException(const ActionLogException&) = default;
    ActionLogException& operator=(const ActionLogException&) = default;

    QString message() const { return m_message; }
    /// The message in the local 8-bit encoding.
    const char* what() const noexcept override;

private:
    QString m_message;
    QByteArray m_what;
};

/// A file could not be opened (type 1), written (2), backed up (3) or has an
/// invalid header (4).
class COMMONKIT_EXPORT ActionLogFileException : public ActionLogException
{
public:
    enum eType { CannotOpen = 1, WriteFailed = 2, BackupFailed = 3, InvalidHeader = 4 };

    ActionLogFileException(const QString& message, const QString& file, int type);

    QString file() const { return m_file; }
    int type() const { return m_type; }

private:
    QString m_file;
    int m_type;
};

/// The logon under the configured account failed with a system error code.
class COMMONKIT_EXPORT ActionLogImpersonateException : public ActionLogException
{
public:
    ActionLogImpersonateException(const QString& message, const QString& user, int error);

    QString user() const { return m_user; }
    int error() const { return m_error; }

private:
    QString m_user;
    int m_error;
};

/// The log file is not well-formed XML at line and column.
class COMMONKIT_EXPORT ActionLogXmlException : public ActionLogException
{
public:
    ActionLogXmlException(const QString& message, const QString& error, int line, int colum);

    QString error() const { return m_error; }
    int line() const { return m_line; }
    int colum() const { return m_colum; }

private:
    QString m_error;
    int m_line;
    int m_colum;
};

} // namespace ko
