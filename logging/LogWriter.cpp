#include <CommonKit/logging/LogWriter.h>

#include <cstring>

namespace ko {

LogWriter::LogWriter(QTextStream* stream) : m_stream(stream)
{
}

void* LogWriter::getInterface(const char* name)
{
    return const_cast<void*>(static_cast<const LogWriter*>(this)->getInterface(name));
}

const void* LogWriter::getInterface(const char* name) const
{
    if (!name)
        return nullptr;
    if (std::strcmp(name, "ko::ILogWriter") == 0)
        return static_cast<const ILogWriter*>(this);
    if (std::strcmp(name, "ko::LogWriter") == 0)
        return this;
    return nullptr;
}

} // namespace ko
