#pragma once

// Private to the JSON support library: the UTF-8 rules of RFC 3629 (no
// overlong forms, no surrogates, nothing above U+10FFFF), shared by the
// parser, which refuses broken text, and the printer, which replaces it.

namespace json {

// What a byte of 0x80 or above announces when it starts a sequence: the
// number of continuation bytes (0 when it cannot start one) and the range
// the first of them must lie in; the others lie in 0x80 to 0xBF.
struct Utf8Lead
{
    int follow = 0;
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
};

inline Utf8Lead utf8Lead(unsigned char lead)
{
    Utf8Lead result;
    if (lead >= 0xC2 && lead <= 0xDF) {
        result.follow = 1;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        result.follow = 2;
        if (lead == 0xE0)
            result.low = 0xA0;
        else if (lead == 0xED)
            result.high = 0x9F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        result.follow = 3;
        if (lead == 0xF0)
            result.low = 0x90;
        else if (lead == 0xF4)
            result.high = 0x8F;
    }
    return result;
}

} // namespace json
