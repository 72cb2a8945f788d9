#include <CommonKit/support/json/JsonParser.h>

#include "support/json/NodeBuilder_p.h"
#include "support/json/TextClasses_p.h"
#include "support/json/Utf8_p.h"
#include "support/json/VariantAccess_p.h"

#include <cstdio>
#include <vector>

namespace json {
namespace {

enum class State { Value, FirstKeyOrEnd, Key, Colon, FirstValueOrEnd, AfterValue, Done, String, Number, Literal };
enum class Escape { None, Backslash, Hex };
enum class Number { Minus, Zero, Int, Dot, Frac, Exp, ExpSign, ExpDigits };

std::string describe(unsigned char c)
{
    char text[16];
    if (c > 0x20 && c < 0x7F)
        std::snprintf(text, sizeof text, "'%c'", c);
    else
        std::snprintf(text, sizeof text, "byte 0x%02x", c);
    return text;
}

} // namespace

// A syntax checker that consumes the text byte by byte and keeps just enough
// state (a stack of open containers, the state inside a token) to resume with
// the next piece. The complete, checked text is converted to a value at the
// end.
struct JsonParser::Private
{
    std::string text;
    std::vector<char> stack; // 'o' for objects, 'l' for lists
    int maxDepth = k_defaultMaxDepth;

    State state = State::Value;
    bool sawValue = false;
    // Inside a string.
    bool stringIsKey = false;
    Escape escape = Escape::None;
    int hexCount = 0;
    unsigned hex = 0;
    bool wantLowSurrogate = false;
    int utf8Remaining = 0;
    unsigned char utf8Low = 0x80;
    unsigned char utf8High = 0xBF;
    // Inside a number or literal.
    Number number = Number::Int;
    const char* literal = nullptr;
    std::size_t literalPos = 0;

    // Position of the byte being read.
    int line = 1;
    int column = 0;

    std::string error;
    int errorLine = 0;
    int errorColumn = 0;

    void clearText()
    {
        text.clear();
        stack.clear();
        state = State::Value;
        sawValue = false;
        escape = Escape::None;
        wantLowSurrogate = false;
        utf8Remaining = 0;
        line = 1;
        column = 0;
    }

    bool fail(const std::string& what, int atColumn)
    {
        errorLine = line;
        errorColumn = atColumn < 1 ? 1 : atColumn;
        error = "line " + std::to_string(errorLine) + ", column " + std::to_string(errorColumn) + ": " + what;
        return false;
    }
    bool fail(const std::string& what) { return fail(what, column); }

    void completeValue() { state = stack.empty() ? State::Done : State::AfterValue; }

    bool open(char kind)
    {
        if (static_cast<int>(stack.size()) >= maxDepth)
            return fail("nesting deeper than " + std::to_string(maxDepth) + " levels");
        stack.push_back(kind);
        state = kind == 'o' ? State::FirstKeyOrEnd : State::FirstValueOrEnd;
        return true;
    }

    void close()
    {
        stack.pop_back();
        completeValue();
    }

    void startString(bool isKey)
    {
        state = State::String;
        stringIsKey = isKey;
        escape = Escape::None;
        wantLowSurrogate = false;
        utf8Remaining = 0;
    }

    bool startValue(unsigned char c)
    {
        sawValue = true;
        switch (c) {
        case '{':
            return open('o');
        case '[':
            return open('l');
        case '"':
            startString(false);
            return true;
        case '-':
            state = State::Number;
            number = Number::Minus;
            return true;
        case 't':
        case 'f':
        case 'n':
            state = State::Literal;
            literal = c == 't' ? "true" : (c == 'f' ? "false" : "null");
            literalPos = 1;
            return true;
        default:
            if (isDigit(c)) {
                state = State::Number;
                number = c == '0' ? Number::Zero : Number::Int;
                return true;
            }
            return fail("unexpected " + describe(c) + " where a value should begin");
        }
    }

    bool stringStep(unsigned char c)
    {
        if (utf8Remaining > 0) {
            if (c < utf8Low || c > utf8High)
                return fail("invalid UTF-8 in a string");
            --utf8Remaining;
            utf8Low = 0x80;
            utf8High = 0xBF;
            return true;
        }
        if (escape == Escape::Backslash) {
            if (wantLowSurrogate && c != 'u')
                return fail("a high surrogate escape must be followed by a low surrogate escape");
            switch (c) {
            case '"':
            case '\\':
            case '/':
            case 'b':
            case 'f':
            case 'n':
            case 'r':
            case 't':
                escape = Escape::None;
                return true;
            case 'u':
                escape = Escape::Hex;
                hexCount = 0;
                hex = 0;
                return true;
            default:
                return fail("invalid escape \\" + std::string(1, static_cast<char>(c)));
            }
        }
        if (escape == Escape::Hex) {
            const int digit = hexValue(c);
            if (digit < 0)
                return fail("\\u must be followed by four hexadecimal digits");
            hex = hex * 16 + static_cast<unsigned>(digit);
            if (++hexCount < 4)
                return true;
            escape = Escape::None;
            const bool low = hex >= 0xDC00 && hex <= 0xDFFF;
            if (wantLowSurrogate) {
                if (!low)
                    return fail("a high surrogate escape must be followed by a low surrogate escape");
                wantLowSurrogate = false;
            } else if (hex >= 0xD800 && hex <= 0xDBFF) {
                wantLowSurrogate = true;
            } else if (low) {
                return fail("a low surrogate escape without a high surrogate before it");
            }
            return true;
        }
        if (wantLowSurrogate && c != '\\')
            return fail("a high surrogate escape must be followed by a low surrogate escape");
        if (c == '"') {
            if (stringIsKey)
                state = State::Colon;
            else
                completeValue();
            return true;
        }
        if (c == '\\') {
            escape = Escape::Backslash;
            return true;
        }
        if (c < 0x20)
            return fail("control character " + describe(c) + " in a string (escape it)");
        if (c < 0x80)
            return true;
        const Utf8Lead lead = utf8Lead(c);
        if (lead.follow == 0)
            return fail("invalid UTF-8 in a string");
        utf8Remaining = lead.follow;
        utf8Low = lead.low;
        utf8High = lead.high;
        return true;
    }

    // Whether the number may end here.
    bool numberComplete() const
    {
        return number == Number::Zero || number == Number::Int || number == Number::Frac
            || number == Number::ExpDigits;
    }

    // Consumes c when it continues the number.
    bool numberStep(unsigned char c)
    {
        const bool exponent = c == 'e' || c == 'E';
        switch (number) {
        case Number::Minus:
            if (!isDigit(c))
                return false;
            number = c == '0' ? Number::Zero : Number::Int;
            return true;
        case Number::Zero:
        case Number::Int:
            if (number == Number::Int && isDigit(c))
                return true;
            if (c == '.')
                number = Number::Dot;
            else if (exponent)
                number = Number::Exp;
            else
                return false;
            return true;
        case Number::Dot:
            if (!isDigit(c))
                return false;
            number = Number::Frac;
            return true;
        case Number::Frac:
            if (isDigit(c))
                return true;
            if (!exponent)
                return false;
            number = Number::Exp;
            return true;
        case Number::Exp:
            if (c == '+' || c == '-') {
                number = Number::ExpSign;
                return true;
            }
            [[fallthrough]];
        case Number::ExpSign:
            if (!isDigit(c))
                return false;
            number = Number::ExpDigits;
            return true;
        case Number::ExpDigits:
            return isDigit(c);
        }
        return false;
    }

    bool step(unsigned char c)
    {
        for (;;) {
            switch (state) {
            case State::Value:
                return isSpace(c) || startValue(c);
            case State::FirstValueOrEnd:
                if (isSpace(c))
                    return true;
                if (c == ']') {
                    close();
                    return true;
                }
                return startValue(c);
            case State::FirstKeyOrEnd:
            case State::Key:
                if (isSpace(c))
                    return true;
                if (c == '"') {
                    startString(true);
                    return true;
                }
                if (c == '}' && state == State::FirstKeyOrEnd) {
                    close();
                    return true;
                }
                return fail("unexpected " + describe(c) + " where a member name should begin");
            case State::Colon:
                if (isSpace(c))
                    return true;
                if (c == ':') {
                    state = State::Value;
                    return true;
                }
                return fail("expected ':' after a member name, found " + describe(c));
            case State::AfterValue: {
                if (isSpace(c))
                    return true;
                const bool inObject = stack.back() == 'o';
                if (c == ',') {
                    state = inObject ? State::Key : State::Value;
                    return true;
                }
                if (c == (inObject ? '}' : ']')) {
                    close();
                    return true;
                }
                return fail(std::string("expected ',' or '") + (inObject ? '}' : ']') + "', found " + describe(c));
            }
            case State::Done:
                return isSpace(c) || fail("unexpected " + describe(c) + " after the value");
            case State::String:
                return stringStep(c);
            case State::Number:
                if (numberStep(c))
                    return true;
                if (!numberComplete())
                    return fail("malformed number at " + describe(c));
                completeValue();
                continue; // c belongs to what follows the number
            case State::Literal:
                if (static_cast<unsigned char>(literal[literalPos]) != c)
                    return fail("invalid literal, expected " + std::string(literal));
                if (literal[++literalPos] == '\0')
                    completeValue();
                return true;
            }
            return false;
        }
    }

    // Skips the bytes from p on that step() would accept without changing
    // any state but the position: the plain ASCII inside a string, the
    // digits inside a number, the white space between tokens (counting
    // lines). Skipping them in a tight loop is most of the checker's speed.
    const unsigned char* skipPlain(const unsigned char* p, const unsigned char* end)
    {
        const unsigned char* start = p;
        switch (state) {
        case State::String:
            if (escape != Escape::None || utf8Remaining > 0 || wantLowSurrogate)
                return p;
            while (p < end && *p >= 0x20 && *p < 0x80 && *p != '"' && *p != '\\')
                ++p;
            break;
        case State::Number:
            if (number != Number::Int && number != Number::Frac && number != Number::ExpDigits)
                return p;
            while (p < end && isDigit(*p))
                ++p;
            break;
        case State::Literal:
            return p;
        default:
            for (;;) {
                p = skipBlankRun(p, end);
                if (p == end || !isSpace(*p))
                    break;
                if (*p++ == '\n') {
                    ++line;
                    column = 0;
                    start = p;
                }
            }
            break;
        }
        column += static_cast<int>(p - start);
        return p;
    }

    bool feed(const char* data, std::size_t length)
    {
        const auto* p = reinterpret_cast<const unsigned char*>(data);
        const auto* end = p + length;
        while ((p = skipPlain(p, end)) < end) {
            const auto c = *p++;
            if ((c & 0xC0) != 0x80)
                ++column;
            if (!step(c))
                return false;
            if (c == '\n') {
                ++line;
                column = 0;
            }
        }
        return true;
    }

    bool finished() const
    {
        return state == State::Done || (state == State::Number && stack.empty() && numberComplete());
    }
};

JsonParser::JsonParser() : d(new Private) {}

JsonParser::~JsonParser() = default;

bool JsonParser::parse(const char* data, std::size_t length)
{
    if (d->text.empty() && d->state == State::Value)
        d->error.clear();
    const bool hadError = !d->error.empty();
    d->text.append(data, length);
    if (hadError)
        return false;
    return d->feed(data, length);
}

Variant JsonParser::parseComplete()
{
    Variant result;
    if (d->error.empty()) {
        if (!d->sawValue && d->state == State::Value) {
            d->clearText();
            return result; // nothing but white space
        }
        if (!d->finished()) {
            d->fail("unexpected end of input", d->column + 1);
        } else {
            Node node;
            std::string reason;
            if (buildNode(d->text, &node, &reason)) {
                result = VariantAccess::make(std::move(node));
                d->clearText();
                return result;
            }
            d->fail("not accepted: " + reason, d->column + 1);
        }
    }
    result = Variant(d->text);
    d->clearText();
    return result;
}

bool JsonParser::hasError() const
{
    return !d->error.empty();
}

const std::string& JsonParser::lastError() const
{
    return d->error;
}

int JsonParser::errorLine() const
{
    return d->error.empty() ? 0 : d->errorLine;
}

int JsonParser::errorColumn() const
{
    return d->error.empty() ? 0 : d->errorColumn;
}

void JsonParser::setMaxDepth(int depth)
{
    d->maxDepth = depth < 1 ? 1 : depth;
}

int JsonParser::maxDepth() const
{
    return d->maxDepth;
}

void JsonParser::reset()
{
    d->clearText();
    d->error.clear();
}

} // namespace json
