#include <CommonKit/util/EngineErrorInfo.h>

namespace ze {
namespace Engine {

ErrorInfoReceiver::~ErrorInfoReceiver() = default;

ErrorInfo::ErrorInfo(unsigned long long commandId, ESeverity severity)
    : m_commandId(commandId), m_severity(severity)
{
}

ErrorInfo::ErrorInfo(const ErrorInfo& other) = default;
ErrorInfo& ErrorInfo::operator=(const ErrorInfo& other) = default;
ErrorInfo::~ErrorInfo() = default;

std::wstring ErrorInfo::errorMessage() const
{
    return std::wstring();
}

int ErrorInfo::errorId() const
{
    return NO_ERROR_ID;
}

ConnectionErrorInfo::ConnectionErrorInfo(EConnectionErrorCategory category, ESeverity severity)
    : ErrorInfo(NO_CMD_ID, severity), m_category(category)
{
}

ConnectionErrorInfo::~ConnectionErrorInfo() = default;

ErrorInfo* ConnectionErrorInfo::clone() const
{
    return new ConnectionErrorInfo(*this);
}

void ConnectionErrorInfo::dispatch(ErrorInfoReceiver& receiver) const
{
    receiver.receive(*this);
}

std::wstring ConnectionErrorInfo::errorMessage() const
{
    return std::wstring();
}

int ConnectionErrorInfo::errorId() const
{
    return 0;
}

HttpConnectionErrorInfo::HttpConnectionErrorInfo(const std::wstring& message, EHttpConnectionErrorType type,
                                                 int errorId, bool isHttpStatusCode, ESeverity severity)
    : ConnectionErrorInfo(ConnectionErrorUnspecified, severity),
      m_message(message),
      m_errorType(type),
      m_errorId(errorId),
      m_isHttpStatusCode(isHttpStatusCode)
{
}

HttpConnectionErrorInfo::~HttpConnectionErrorInfo() = default;

std::wstring HttpConnectionErrorInfo::errorMessage() const
{
    return m_message;
}

ErrorInfo* HttpConnectionErrorInfo::clone() const
{
    return new HttpConnectionErrorInfo(*this);
}

} // namespace Engine
} // namespace ze
