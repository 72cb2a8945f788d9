#include <CommonKit/logging/ActionLogException.h>

namespace ko {

ActionLogException::ActionLogException(const QString& message)
    : m_message(message), m_what(message.toLocal8Bit())
{
}

ActionLogException::~ActionLogException() = default;

const char* ActionLogException::what() const noexcept
{
    return m_what.constData();
}

ActionLogFileException::ActionLogFileException(const QString& message, const QString& file, int type)
    : ActionLogException(message), m_file(file), m_type(type)
{
}

ActionLogImpersonateException::ActionLogImpersonateException(const QString& message, const QString& user, int error)
    : ActionLogException(message), m_user(user), m_error(error)
{
}

ActionLogXmlException::ActionLogXmlException(const QString& message, const QString& error, int line, int colum)
    : ActionLogException(message), m_error(error), m_line(line), m_colum(colum)
{
}

} // namespace ko
