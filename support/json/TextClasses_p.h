#pragma once

// Private to the JSON support library: the character classes of JSON text,
// shared by the parser's checker and its tree reader, and the skipping of
// the runs of blanks that indented text is full of, eight at a time.

#include <cstdint>
#include <cstring>

namespace json {

// White space between tokens (RFC 8259).
inline bool isSpace(unsigned char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

inline bool isDigit(unsigned char c)
{
    return c >= '0' && c <= '9';
}

// The value of a hexadecimal digit, or -1.
inline int hexValue(unsigned char c)
{
    if (isDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

inline bool isSpace(char c) { return isSpace(static_cast<unsigned char>(c)); }
inline bool isDigit(char c) { return isDigit(static_cast<unsigned char>(c)); }
inline int hexValue(char c) { return hexValue(static_cast<unsigned char>(c)); }

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
