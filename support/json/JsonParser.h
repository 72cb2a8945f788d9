#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/json/Variant.h>

#include <cstddef>
#include <memory>
#include <string>

namespace json {

/// Parses JSON text (RFC 8259: one value, UTF-8) that may arrive in pieces:
///
///     json::JsonParser parser;
///     while (more)
///         if (!parser.parse(piece, length)) { report(parser.lastError()); break; }
///     json::Variant value = parser.parseComplete();
///
/// Syntax errors are found as soon as the piece holding them arrives; parse()
/// then returns false and lastError() reads "line L, column C: what", counting
/// from 1, columns in characters. Nesting deeper than maxDepth() is an error
/// too, so hostile text cannot exhaust the stack of whoever walks the value.
class COMMONKIT_EXPORT JsonParser
{
public:
    /// The nesting depth allowed unless setMaxDepth() says otherwise.
    static constexpr int k_defaultMaxDepth = 512;

    /// A parser waiting for the first piece of a text.
    JsonParser();
    ~JsonParser();
    JsonParser(const JsonParser&) = delete;
    JsonParser& operator=(const JsonParser&) = delete;

    /// Adds a piece of text. False when the text so far is not JSON (also for
    /// every piece after the first error).
    bool parse(const char* data, std::size_t length);
    /// Adds a piece of text held in a string.
    bool parse(const std::string& text) { return parse(text.data(), text.size()); }

    /// Ends the text and returns its value. When the text is not JSON (a
    /// syntax error, or it ends inside a value) the result is the whole text
    /// as a string value and lastError() says why; text that is empty or only
    /// white space gives null. Afterwards the parser takes a new text;
    /// lastError() keeps describing the one just ended until the next parse().
    Variant parseComplete();

    /// Whether lastError() is set.
    bool hasError() const;
    /// Empty when there was no error.
    const std::string& lastError() const;
    /// The line of the error, from 1; 0 without an error.
    int errorLine() const;
    /// The column of the error, from 1, in characters; 0 without an error.
    int errorColumn() const;

    /// The deepest nesting of objects and lists accepted; values below 1
    /// count as 1.
    void setMaxDepth(int depth);
    /// The nesting limit in force.
    int maxDepth() const;

    /// Discards the text given so far and the last error.
    void reset();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace json
