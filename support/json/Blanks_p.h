#pragma once

// Private to the JSON support library: skipping the runs of blanks that
// indented text is full of, eight at a time, for the parser's checker and
// its tree builder.

#include <cstdint>
#include <cstring>

namespace json {

// The first byte from p on that is not a blank (' '), or end.
inline const unsigned char* skipBlankRun(const unsigned char* p, const unsigned char* end)
{
    constexpr std::uint64_t k_eightBlanks = 0x2020202020202020ull;
    while (end - p >= 8) {
        std::uint64_t word;
        std::memcpy(&word, p, sizeof word);
        if (word != k_eightBlanks)
            break;
        p += 8;
    }
    while (p < end && *p == ' ')
        ++p;
    return p;
}

inline const char* skipBlankRun(const char* p, const char* end)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(p);
    return p + (skipBlankRun(bytes, reinterpret_cast<const unsigned char*>(end)) - bytes);
}

} // namespace json
