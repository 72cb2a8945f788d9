#include <CommonKit/support/json/JsonPrinter.h>

#include "support/json/Utf8_p.h"
#include "support/json/VariantAccess_p.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace json {

namespace {

// The length of the well-formed UTF-8 sequence at text[at] (which is at
// least 0x80), or 0 when there is none; then *bad is the number of bytes
// that form its broken start (at least 1).
std::size_t utf8Sequence(const std::string& text, std::size_t at, std::size_t* bad)
{
    const Utf8Lead lead = utf8Lead(static_cast<unsigned char>(text[at]));
    if (lead.follow == 0) {
        *bad = 1;
        return 0;
    }
    const auto follow = static_cast<std::size_t>(lead.follow);
    unsigned char low = lead.low;
    unsigned char high = lead.high;
    std::size_t length = 1;
    while (length <= follow && at + length < text.size()) {
        const auto c = static_cast<unsigned char>(text[at + length]);
        if (c < low || c > high)
            break;
        low = 0x80;
        high = 0xBF;
        ++length;
    }
    if (length == follow + 1)
        return length;
    *bad = length;
    return 0;
}

} // namespace

// Collects the text in a buffer and hands it to the output in pieces.
struct JsonPrinter::Writer
{
    static constexpr std::size_t k_bufferSize = 8192;

    Writer(const JsonPrinter& printer) : printer(printer) { buffer.reserve(k_bufferSize); }

    void put(const char* data, std::size_t length)
    {
        if (buffer.size() + length > k_bufferSize)
            flush();
        if (length >= k_bufferSize) {
            while (length > 0) {
                const std::size_t piece = std::min(length, k_bufferSize);
                printer.m_output(printer.m_context, data, static_cast<int>(piece));
                data += piece;
                length -= piece;
            }
            return;
        }
        buffer.append(data, length);
    }
    void put(const std::string& text) { put(text.data(), text.size()); }
    void put(char c) { put(&c, 1); }

    void flush()
    {
        if (!buffer.empty())
            printer.m_output(printer.m_context, buffer.data(), static_cast<int>(buffer.size()));
        buffer.clear();
    }

    void newLine(int depth)
    {
        put('\n');
        for (int i = 0; i < depth; ++i)
            put(printer.m_indent);
    }

    void string(const std::string& text)
    {
        put('"');
        std::size_t start = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const auto c = static_cast<unsigned char>(text[i]);
            if (c >= 0x80) {
                // Text that is not UTF-8 would make the output unreadable
                // as JSON: each broken sequence becomes U+FFFD.
                std::size_t bad = 0;
                const std::size_t length = utf8Sequence(text, i, &bad);
                if (length == 0) {
                    put(text.data() + start, i - start);
                    put("\xEF\xBF\xBD", 3);
                    start = i + bad;
                }
                i += (length ? length : bad) - 1;
                continue;
            }
            if (c >= 0x20 && c != '"' && c != '\\')
                continue;
            put(text.data() + start, i - start);
            start = i + 1;
            switch (c) {
            case '"':
                put("\\\"", 2);
                break;
            case '\\':
                put("\\\\", 2);
                break;
            case '\b':
                put("\\b", 2);
                break;
            case '\f':
                put("\\f", 2);
                break;
            case '\n':
                put("\\n", 2);
                break;
            case '\r':
                put("\\r", 2);
                break;
            case '\t':
                put("\\t", 2);
                break;
            default: {
                static const char hex[] = "0123456789abcdef";
                const char escape[6] = {'\\', 'u', '0', '0', hex[c >> 4], hex[c & 0xF]};
                put(escape, sizeof escape);
            }
            }
        }
        put(text.data() + start, text.size() - start);
        put('"');
    }

    void real(double value)
    {
        if (!std::isfinite(value)) {
            put("null", 4);
            return;
        }
        char text[64];
        const std::to_chars_result result = printer.m_precision > 0
            ? std::to_chars(text, text + sizeof text, value, std::chars_format::general, printer.m_precision)
            : std::to_chars(text, text + sizeof text, value);
        const std::size_t length = static_cast<std::size_t>(result.ptr - text);
        put(text, length);
        // to_chars writes no terminator: look only at what it wrote.
        if (std::string_view(text, length).find_first_of(".eE") == std::string_view::npos)
            put(".0", 2); // reads back as an integer otherwise
    }

    template<typename T>
    void integer(T value)
    {
        char text[32];
        const std::to_chars_result result = std::to_chars(text, text + sizeof text, value);
        put(text, static_cast<std::size_t>(result.ptr - text));
    }

    void value(const Node& node, int depth)
    {
        const bool pretty = !printer.m_indent.empty();
        switch (node.type()) {
        case Node::value_t::boolean:
            node.get<bool>() ? put("true", 4) : put("false", 5);
            break;
        case Node::value_t::number_integer:
            integer(node.get<std::int64_t>());
            break;
        case Node::value_t::number_unsigned:
            integer(node.get<std::uint64_t>());
            break;
        case Node::value_t::number_float:
            real(node.get<double>());
            break;
        case Node::value_t::string:
            string(node.get_ref<const std::string&>());
            break;
        case Node::value_t::object: {
            put('{');
            bool first = true;
            for (const auto& member : node.get_ref<const Node::object_t&>()) {
                if (!first)
                    put(',');
                first = false;
                if (pretty)
                    newLine(depth + 1);
                string(member.first);
                pretty ? put(": ", 2) : put(':');
                value(member.second, depth + 1);
            }
            if (pretty && !first)
                newLine(depth);
            put('}');
            break;
        }
        case Node::value_t::array: {
            put('[');
            bool first = true;
            for (const Node& element : node.get_ref<const Node::array_t&>()) {
                if (!first)
                    put(',');
                first = false;
                if (pretty)
                    newLine(depth + 1);
                value(element, depth + 1);
            }
            if (pretty && !first)
                newLine(depth);
            put(']');
            break;
        }
        default:
            put("null", 4);
        }
    }

    const JsonPrinter& printer;
    std::string buffer;
};

JsonPrinter::JsonPrinter(Output output, void* context) : m_output(output), m_context(context) {}

JsonPrinter::~JsonPrinter() = default;

void JsonPrinter::setFloatingPointPrecision(int digits)
{
    m_precision = digits < 0 ? 0 : (digits > 17 ? 17 : digits);
}

void JsonPrinter::print(const Variant& value)
{
    Writer writer(*this);
    writer.value(VariantAccess::node(value), 0);
    writer.flush();
}

void JsonPrinter::appendToString(void* context, const char* data, int length)
{
    static_cast<std::string*>(context)->append(data, static_cast<std::size_t>(length));
}

std::string JsonPrinter::toString(const Variant& value, const std::string& indent, int precision)
{
    std::string text;
    JsonPrinter printer(&appendToString, &text);
    printer.setIndent(indent);
    printer.setFloatingPointPrecision(precision);
    printer.print(value);
    return text;
}

} // namespace json
