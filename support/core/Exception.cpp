#include <CommonKit/support/core/Exception.h>

namespace ko {

Exception::Exception(std::string message, std::exception_ptr cause)
    : m_message(std::move(message)), m_cause(std::move(cause))
{
}

Exception::~Exception() = default;

const char* Exception::what() const noexcept
{
    return m_message.c_str();
}

ExceptionQt::ExceptionQt(const QString& message, std::exception_ptr cause)
    : Exception(message.toStdString(), std::move(cause)), m_messageQt(message)
{
}

ExceptionQt::~ExceptionQt() = default;

UnexpectedTypeException::UnexpectedTypeException(const QString& name, const QString& actualType,
                                                 const QString& expectedType,
                                                 const QString& message,
                                                 std::exception_ptr cause)
    : ExceptionQt(message, std::move(cause)),
      m_name(name),
      m_actualType(actualType),
      m_expectedType(expectedType)
{
}

UnexpectedTypeException::~UnexpectedTypeException() = default;

IllegalArgumentException::IllegalArgumentException(const QString& text, const QString& message,
                                                   std::exception_ptr cause)
    : ExceptionQt(message, std::move(cause)), m_text(text)
{
}

IllegalArgumentException::~IllegalArgumentException() = default;

} // namespace ko
