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
///
///     2024-05-06T07:08:09.123Z W [tag] text
///
/// and goes to the installed sink, standard error by default. One mutex guards
/// each line, so lines of different threads never interleave.
class COMMONKIT_EXPORT Log
{
public:
    /// The levels the library writes. Any int is a level: lines below
    /// Information are marked 'D', lines above Error 'E'.
    enum Level {
        Information = 1, ///< Marked 'I'.
        Warning = 2,     ///< Marked 'W'; the default threshold.
        Error = 3        ///< Marked 'E'.
    };

    /// Receives the complete line (prefix, tag and text, no trailing newline).
    /// It is called with the log's mutex held, so it must not write to the
    /// log itself.
    using Sink = std::function<void(int level, const std::string& line)>;

    /// The one log of the process, created on first use and never destroyed
    /// (so that static destructors can still log).
    static Log& instance();

    /// The lowest level written.
    int threshold() const;
    /// Sets the lowest level written; safe from any thread.
    void setThreshold(int level);
    /// Whether a line of level would be written (level >= threshold()).
    bool isEnabled(int level) const;

    /// Installs a sink and returns the previous one. An empty sink restores
    /// standard error.
    Sink setSink(Sink sink);

    /// Writes one line with the current UTC time, the level's letter, the tag
    /// (usually the calling function) and text, if level is enabled.
    void write(int level, const std::string& tag, const std::string& text);

    /// Convenience: ko::Log::write(ko::Log::Warning, "tag", "text").
    static void log(int level, const std::string& tag, const std::string& text)
    {
        instance().write(level, tag, text);
    }

    Log(const Log&) = delete;            ///< Not copyable.
    Log& operator=(const Log&) = delete; ///< Not copyable.

private:
    Log();
    ~Log();
    struct Private;
    Private* d;
};

/// Builds one log line with stream syntax and writes it when destroyed:
///
///     ko::LogLine(ko::Log::Warning, "ko::Persistable::load") << "text " << x;
///
/// Nothing is formatted when the level is disabled.
class COMMONKIT_EXPORT LogLine
{
public:
    /// A line of level with tag; whether it is enabled is decided here.
    LogLine(int level, std::string tag);
    /// Writes the line through Log::write(), if it was enabled.
    ~LogLine();
    LogLine(const LogLine&) = delete;            ///< Not copyable.
    LogLine& operator=(const LogLine&) = delete; ///< Not copyable.

    /// Appends text in UTF-8.
    LogLine& operator<<(const QString& text);

    /// Appends value as std::ostream writes it.
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
