#pragma once

#include <CommonKit/support/core/Export.h>

#include <string>

namespace ze {
namespace Engine {

class ConnectionErrorInfo;

/// Receives error information by double dispatch: ErrorInfo::dispatch() calls
/// the overload for the object's kind. HTTP errors arrive as connection
/// errors; a receiver that wants their details asks for
/// dynamic_cast<const HttpConnectionErrorInfo*>.
class COMMONKIT_EXPORT ErrorInfoReceiver
{
public:
    /// Destroys the receiver.
    virtual ~ErrorInfoReceiver();
    /// Called by ConnectionErrorInfo::dispatch() (HTTP errors included).
    virtual void receive(const ConnectionErrorInfo& info) = 0;
};

/// Why a command of the video engine failed: the command's id (NO_CMD_ID when
/// the failure belongs to no command), its severity, and what the subclasses
/// add. Objects are copied with clone() and examined with dispatch().
class COMMONKIT_EXPORT ErrorInfo
{
public:
    /// How bad a failure is. Stable values; docs/engine-error-info.md lists
    /// them.
    enum ESeverity {
        Information = 0, ///< nothing failed; the engine reports a state
        Warning = 1,     ///< the command went on with less than was asked
        Error = 2,       ///< the command failed
        Fatal = 3        ///< the engine or the connection cannot go on
    };

    /// The command id of an error that belongs to no command.
    static constexpr unsigned long long NO_CMD_ID = 0;
    /// The errorId() of an error without a number.
    static constexpr int NO_ERROR_ID = 0;

    /// Destroys the error information.
    virtual ~ErrorInfo();
    /// A description for people; empty in the base.
    virtual std::wstring errorMessage() const;
    /// A number for the error; NO_ERROR_ID in the base.
    virtual int errorId() const;
    /// A new copy of the same concrete class; the caller owns it.
    virtual ErrorInfo* clone() const = 0;
    /// Calls the receiver's overload for this object's kind.
    virtual void dispatch(ErrorInfoReceiver& receiver) const = 0;

    /// The id of the failed command, or NO_CMD_ID.
    unsigned long long commandId() const { return m_commandId; }
    /// How bad the failure is.
    ESeverity severity() const { return m_severity; }

protected:
    /// Information about command commandId (NO_CMD_ID for none).
    ErrorInfo(unsigned long long commandId, ESeverity severity);
    /// Copies command id and severity; copies are made through clone().
    ErrorInfo(const ErrorInfo& other);
    /// Assigns command id and severity; for subclasses.
    ErrorInfo& operator=(const ErrorInfo& other);

private:
    unsigned long long m_commandId;
    ESeverity m_severity;
};

/// What kind of connection failed to a camera or recorder. Stable values.
enum EConnectionErrorCategory {
    ConnectionErrorUnspecified = 0,  ///< no category (HTTP errors carry this one)
    ConnectionErrorHostNotFound = 1, ///< the name did not resolve
    ConnectionErrorRefused = 2,      ///< nobody listens at the address
    ConnectionErrorTimeout = 3,      ///< no answer in time
    ConnectionErrorClosed = 4,       ///< the peer closed the connection
    ConnectionErrorSecurity = 5,     ///< the TLS handshake or certificate failed
    ConnectionErrorProxy = 6         ///< the proxy refused or failed
};

/// What went wrong in an HTTP exchange. Stable values.
enum EHttpConnectionErrorType {
    HttpErrorUnspecified = 0,     ///< no particular kind
    HttpErrorStatus = 1,          ///< the server answered with an error status
    HttpErrorAuthentication = 2,  ///< the credentials were refused
    HttpErrorRedirection = 3,     ///< too many or invalid redirections
    HttpErrorInvalidResponse = 4, ///< the answer was not valid HTTP
    HttpErrorTransport = 5        ///< the connection broke during the exchange
};

/// A failed network connection. Its command id is NO_CMD_ID; it has no
/// message and no error number of its own.
class COMMONKIT_EXPORT ConnectionErrorInfo : public ErrorInfo
{
public:
    /// A connection error of category, with command id NO_CMD_ID.
    ConnectionErrorInfo(EConnectionErrorCategory category, ESeverity severity);
    /// Copies command id, severity and category.
    ConnectionErrorInfo(const ConnectionErrorInfo& other) = default;
    /// Destroys the error information.
    ~ConnectionErrorInfo() override;

    /// What kind of connection failure.
    EConnectionErrorCategory category() const { return m_category; }

    /// A new ConnectionErrorInfo equal to this one; the caller owns it.
    ErrorInfo* clone() const override;
    /// Calls receiver.receive(*this).
    void dispatch(ErrorInfoReceiver& receiver) const override;

protected:
    /// Assigns command id, severity and category; for subclasses.
    ConnectionErrorInfo& operator=(const ConnectionErrorInfo& other) = default;

private:
    std::wstring errorMessage() const override;
    int errorId() const override;

    EConnectionErrorCategory m_category;
};

/// A failed HTTP exchange: a message, what kind of failure, and a number that
/// is the HTTP status code when isHttpStatusCode() says so. Category
/// ConnectionErrorUnspecified, command id NO_CMD_ID.
class COMMONKIT_EXPORT HttpConnectionErrorInfo : public ConnectionErrorInfo
{
public:
    /// An HTTP error; errorId is the HTTP status code (e.g. 404) when
    /// isHttpStatusCode is true, another number otherwise.
    HttpConnectionErrorInfo(const std::wstring& message, EHttpConnectionErrorType type, int errorId,
                            bool isHttpStatusCode, ESeverity severity);
    /// Copies all fields.
    HttpConnectionErrorInfo(const HttpConnectionErrorInfo& other) = default;
    /// Destroys the error information.
    ~HttpConnectionErrorInfo() override;

    /// The message as given.
    std::wstring errorMessage() const override;
    /// The number as given.
    int errorId() const override { return m_errorId; }
    /// What went wrong in the exchange.
    EHttpConnectionErrorType errorType() const { return m_errorType; }
    /// Whether errorId() is an HTTP status code.
    bool isHttpStatusCode() const { return m_isHttpStatusCode; }

    /// A new HttpConnectionErrorInfo equal to this one; the caller owns it.
    ErrorInfo* clone() const override;

protected:
    /// Assigns all fields; for subclasses.
    HttpConnectionErrorInfo& operator=(const HttpConnectionErrorInfo& other) = default;

private:
    std::wstring m_message;
    EHttpConnectionErrorType m_errorType;
    int m_errorId;
    bool m_isHttpStatusCode;
};

} // namespace Engine
} // namespace ze
