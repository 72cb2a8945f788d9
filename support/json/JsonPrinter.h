#pragma once

#include <CommonKit/support/core/Export.h>

#include <string>

namespace json {

class Variant;

/// Prints a Variant as JSON text through an output callback.
///
/// With a non-empty indent (four blanks by default) every member and element
/// goes on its own line, indented once per level, and a member reads
/// "key": value; empty objects and lists print as {} and []. With an empty
/// indent the text is compact: no blanks and no line breaks at all. There is
/// no line break after the last bracket.
///
/// Integers print exactly. Reals print with the configured number of
/// significant digits, or, with precision 0 (the default), as the shortest
/// text that reads back to the same double; a real whose text would look like
/// an integer gets ".0" appended, and infinities and NaN print as null. In
/// strings, quote, backslash and control characters are escaped (`\b` `\f`
/// `\n` `\r` `\t`, others as `\u00xx`); UTF-8 sequences and all other bytes below 0x80 are
/// copied as they are, and bytes that do not form UTF-8 are replaced by U+FFFD
/// (one per broken sequence), so the output is always text the parser accepts.
class COMMONKIT_EXPORT JsonPrinter
{
public:
    /// Receives the text in pieces; `context` is the pointer given to the
    /// constructor.
    using Output = void (*)(void* context, const char* data, int length);

    /// A printer that hands its text to output, with context passed along.
    JsonPrinter(Output output, void* context);
    ~JsonPrinter();
    JsonPrinter(const JsonPrinter&) = delete;
    JsonPrinter& operator=(const JsonPrinter&) = delete;

    /// The text of one indentation level; empty for compact output.
    void setIndent(const std::string& indent) { m_indent = indent; }
    /// The indentation level's text in force.
    const std::string& indent() const { return m_indent; }

    /// Significant digits of reals, 1 to 17; 0 for the shortest exact text.
    /// (Values outside are clamped.)
    void setFloatingPointPrecision(int digits);
    /// The significant digits in force; 0 for the shortest exact text.
    int floatingPointPrecision() const { return m_precision; }

    /// Prints the value; the output has received all of it on return.
    void print(const Variant& value);

    /// An Output that appends to the std::string given as context.
    static void appendToString(void* context, const char* data, int length);
    /// The value printed with the given indent.
    static std::string toString(const Variant& value, const std::string& indent = "    ", int precision = 0);

private:
    struct Writer;
    Output m_output;
    void* m_context;
    std::string m_indent = "    ";
    int m_precision = 0;
};

} // namespace json
