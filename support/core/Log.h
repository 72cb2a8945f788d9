#pragma once

#include <CommonKit/support/core/Export.h>

#include <functional>
#include <sstream>
#include <string>

class QString;

namespace ko {

/// The process-wide diagnostic log.
///
/// A line is written when its level is at or above the threshold (default
/// Warning; the environment variable COMMONKIT_LOG_LEVEL overrides it at first
/// use). Each line reads
///     2024-05-06T07:08:09.123Z W [tag] text
/// and goes to the installed sink, standard error by default. One mutex guards
/// each line, so lines of different threads never interleave.
class COMMONKIT_EXPORT Log
{
public:
    enum Level { Information = 1, Warning = 2, Error = 3 };

    /// Receives the complete line (prefix, tag and text, no trailing newline).
    using Sink = std::function<void(int level, const std::string& line)>;

    static Log& instance();

    int threshold() const;
    void setThreshold(int level);
    bool isEnabled(int level) const;

    /// Installs a sink and returns the previous one. An empty sink restores
    /// standard error.
    Sink setSink(Sink sink);

    void write(int level, const std::string& tag, const std::string& text);

    /// Convenience: ko::Log::write(ko::Log::Warning, "tag", "text").
    static void log(int level, const std::string& tag, const std::string& text)
    {
        instance().write(level, tag, text);
    }

    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

private:
    Log();
    ~Log();
    struct Private;
    Private* d;
};

/// Builds one log line with stream syntax and writes it when destroyed:
///     ko::LogLine(ko::Log::Warning, "ko::Persistable::load") << "text " << x;
/// Nothing is formatted when the level is disabled.
class COMMONKIT_EXPORT LogLine
{
public:
    LogLine(int level, std::string tag);
    ~LogLine();
    LogLine(const LogLine&) = delete;
    LogLine& operator=(const LogLine&) = delete;

    LogLine& operator<<(const QString& text);

    template<typename T>
    LogLine& operator<<(const T& value)
    {
        if (m_enabled)
            m_stream << value;
        return *this;
    }

private:
    int m_level;
    bool m_enabled;
    std::string m_tag;
    std::ostringstream m_stream;
};

} // namespace ko
