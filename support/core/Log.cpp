#include <CommonKit/support/core/Log.h>

#include <QString>

#include <algorithm>
#include <atomic>
#include <climits>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <mutex>

namespace ko {

namespace {

int thresholdFromEnvironment()
{
    const char* value = std::getenv("COMMONKIT_LOG_LEVEL");
    if (!value || !*value)
        return Log::Warning;
    char* end = nullptr;
    const long level = std::strtol(value, &end, 10);
    if (*end != '\0')
        return Log::Warning;
    // Numbers beyond int keep their meaning: very high silences, very low lets all through.
    return static_cast<int>(std::clamp<long>(level, INT_MIN, INT_MAX));
}

char levelLetter(int level)
{
    switch (level) {
    case Log::Information: return 'I';
    case Log::Warning: return 'W';
    case Log::Error: return 'E';
    default: return level < Log::Information ? 'D' : 'E';
    }
}

std::string utcTimestamp()
{
    using namespace std::chrono;
    const auto now = system_clock::now();
    const std::time_t seconds = system_clock::to_time_t(now);
    const auto millis = duration_cast<milliseconds>(now.time_since_epoch()).count() % 1000;
    std::tm parts{};
#if defined(_WIN32)
    gmtime_s(&parts, &seconds);
#else
    gmtime_r(&seconds, &parts);
#endif
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ",
                  parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
                  parts.tm_hour, parts.tm_min, parts.tm_sec, static_cast<int>(millis));
    return buffer;
}

} // namespace

struct Log::Private
{
    std::atomic<int> threshold{thresholdFromEnvironment()};
    std::mutex mutex;
    Sink sink;
};

Log::Log() : d(new Private) {}

Log::~Log()
{
    delete d;
}

Log& Log::instance()
{
    // Never destroyed: static destructors of other objects may still log.
    static Log* log = new Log;
    return *log;
}

int Log::threshold() const
{
    return d->threshold.load(std::memory_order_relaxed);
}

void Log::setThreshold(int level)
{
    d->threshold.store(level, std::memory_order_relaxed);
}

bool Log::isEnabled(int level) const
{
    return level >= threshold();
}

Log::Sink Log::setSink(Sink sink)
{
    std::lock_guard<std::mutex> lock(d->mutex);
    Sink previous = std::move(d->sink);
    d->sink = std::move(sink);
    return previous;
}

void Log::write(int level, const std::string& tag, const std::string& text)
{
    if (!isEnabled(level))
        return;
    std::string line = utcTimestamp();
    line += ' ';
    line += levelLetter(level);
    line += " [";
    line += tag;
    line += "] ";
    line += text;

    std::lock_guard<std::mutex> lock(d->mutex);
    if (d->sink) {
        d->sink(level, line);
    } else {
        line += '\n';
        std::fwrite(line.data(), 1, line.size(), stderr);
        std::fflush(stderr);
    }
}

LogLine::LogLine(int level, std::string tag)
    : m_level(level), m_enabled(Log::instance().isEnabled(level)), m_tag(std::move(tag))
{
}

LogLine& LogLine::operator<<(const QString& text)
{
    if (m_enabled)
        m_stream << text.toStdString();
    return *this;
}

LogLine::~LogLine()
{
    if (m_enabled)
        Log::instance().write(m_level, m_tag, m_stream.str());
}

} // namespace ko
