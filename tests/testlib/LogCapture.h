// Collects the library's log lines in tests.

#pragma once

#include <CommonKit/support/core/Log.h>

#include <algorithm>
#include <string>
#include <vector>

namespace cktest {

// Every ko::Log line written while it lives, from `threshold` up when one is
// given; the previous sink and threshold come back at the end.
class LogCapture
{
public:
    explicit LogCapture(int threshold = -1) : m_previousThreshold(ko::Log::instance().threshold())
    {
        if (threshold >= 0)
            ko::Log::instance().setThreshold(threshold);
        m_previous = ko::Log::instance().setSink([this](int, const std::string& line) { lines.push_back(line); });
    }
    ~LogCapture()
    {
        ko::Log::instance().setSink(m_previous);
        ko::Log::instance().setThreshold(m_previousThreshold);
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    bool contains(const std::string& text) const
    {
        return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) { return line.find(text) != std::string::npos; });
    }
    // The lines, each ended by a line feed.
    std::string text() const
    {
        std::string all;
        for (const std::string& line : lines)
            all += line + '\n';
        return all;
    }

    std::vector<std::string> lines;

private:
    int m_previousThreshold;
    ko::Log::Sink m_previous;
};

} // namespace cktest
