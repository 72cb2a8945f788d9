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
    /// An exception with a translated message.
    explicit ActionLogException(const QString& message);
    ~ActionLogException() override;
    /// A copy.
    ActionLogException(const ActionLogException& other) = default;
    /// Takes other's message.
    ActionLogException& operator=(const ActionLogException& other) = default;

    /// The translated message.
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
    /// What went wrong; the numbers are those of ActionLog::errorFile().
    enum eType {
        CannotOpen = 1,   ///< the file could not be opened
        WriteFailed = 2,  ///< writing an entry failed
        BackupFailed = 3, ///< the file could not be copied aside
        InvalidHeader = 4 ///< the file is not an action log (no XML header)
    };

    /// A failure of type (an eType) on file.
    ActionLogFileException(const QString& message, const QString& file, int type);

    /// The path of the file concerned.
    QString file() const { return m_file; }
    /// An eType value.
    int type() const { return m_type; }

private:
    QString m_file;
    int m_type;
};

/// The logon under the configured account failed with a system error code.
class COMMONKIT_EXPORT ActionLogImpersonateException : public ActionLogException
{
public:
    /// The logon of user failed with the system error code error.
    ActionLogImpersonateException(const QString& message, const QString& user, int error);

    /// The account of the failed logon.
    QString user() const { return m_user; }
    /// The system error code.
    int error() const { return m_error; }

private:
    QString m_user;
    int m_error;
};

/// The log file is not well-formed XML at line and column.
class COMMONKIT_EXPORT ActionLogXmlException : public ActionLogException
{
public:
    /// The XML reader's error text, at line and column (colum) from 1.
    ActionLogXmlException(const QString& message, const QString& error, int line, int colum);

    /// The XML reader's error text.
    QString error() const { return m_error; }
    /// The line of the error, from 1.
    int line() const { return m_line; }
    /// The column of the error, from 1.
    int colum() const { return m_colum; }

private:
    QString m_error;
    int m_line;
    int m_colum;
};

} // namespace ko
