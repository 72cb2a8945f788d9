#include <CommonKit/logging/LogEntryFactory.h>

#include <CommonKit/logging/LogEntry.h>

#include <algorithm>

namespace ko {

LogEntryFactory::LogEntryFactory() = default;

LogEntryFactory::LogEntryFactory(const LogEntryFactory& other)
{
    std::lock_guard<std::mutex> lock(other.m_mutex);
    m_creators = other.m_creators;
    m_names = other.m_names;
}

LogEntryFactory& LogEntryFactory::operator=(const LogEntryFactory& other)
{
    if (this == &other)
        return *this;
    QMap<FourChars, Creator> creators;
    QMap<FourChars, const char*> names;
    {
        std::lock_guard<std::mutex> lock(other.m_mutex);
        creators = other.m_creators;
        names = other.m_names;
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    m_creators = creators;
    m_names = names;
    return *this;
}

LogEntryFactory::~LogEntryFactory() = default;

void LogEntryFactory::registerCreator(const FourChars& type, Creator creator, const char* name)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_creators[type] = creator;
    m_names[type] = name;
}

LogEntry* LogEntryFactory::create(FourChars type)
{
    Creator creator = nullptr;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        creator = m_creators[type]; // insert-on-miss: an unknown code stays with a null creator
    }
    return creator ? creator() : nullptr;
}

QStringList LogEntryFactory::entryNames() const
{
    QStringList names;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        for (const char* name : m_names) {
            if (name)
                names.append(LogEntry::tr(name));
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

QList<FourChars> LogEntryFactory::types() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_creators.keys();
}

LogEntryFactory& logEntryFactory()
{
    static LogEntryFactory factory;
    return factory;
}

} // namespace ko
