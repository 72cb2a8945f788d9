// json::JsonParser and json::JsonPrinter.

#include "testlib/DataTable.h"
#include "testlib/JsonScalar.h"
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/JsonPrinter.h>
#include <CommonKit/support/json/Variant.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>

namespace {

using json::JsonParser;
using json::JsonPrinter;
using json::Variant;

Variant parseText(const std::string& text, std::string* error = nullptr)
{
    JsonParser parser;
    parser.parse(text);
    Variant value = parser.parseComplete();
    if (error)
        *error = parser.lastError();
    return value;
}

// Every kind of value, escapes and the extreme integers included.
const char* const k_sample = R"({"name": "caf\u00e9 \"quoted\"\n\t\\ \u0001", "min": -9223372036854775808,
    "max": 18446744073709551615, "real": 0.1, "flag": false, "none": null, "list": [1, {}, [], {"deep": -2.5e-300}]})";

TEST(JsonPrinter, PrettyFormIsFixedTextWithConfigurableIndent)
{
    const Variant value = parseText(R"({"a": 1, "b": [true, {}], "c": []})");
    EXPECT_EQ(JsonPrinter::toString(value),
              "{\n    \"a\": 1,\n    \"b\": [\n        true,\n        {}\n    ],\n    \"c\": []\n}");
    EXPECT_EQ(JsonPrinter::toString(value, ""), R"({"a":1,"b":[true,{}],"c":[]})");
    EXPECT_EQ(JsonPrinter::toString(Variant()), "null");
}

TEST(JsonPrinter, NumbersAndStrings)
{
    for (const cktest::DataRow& row : cktest::dataRows("support/json/printed-scalars.tsv", 3)) {
        const Variant value = cktest::jsonScalar(row[0]);
        EXPECT_EQ(JsonPrinter::toString(value, "    ", std::stoi(row[1])), row[2]) << row.where;
        if (!value.isReal() || std::isfinite(value.toDouble())) {
            // What is printed reads back as the same type.
            EXPECT_EQ(parseText(row[2]).type(), value.type()) << row.where;
        }
    }
}

// Bytes that are not UTF-8 cannot be written as JSON; the printer replaces
// each broken sequence with U+FFFD, so what it prints always parses, and
// prints again as the same text.
TEST(JsonPrinter, BrokenUtf8BecomesReplacementCharacters)
{
    for (const cktest::DataRow& row : cktest::dataRows("support/json/utf8-printing.tsv", 2)) {
        SCOPED_TRACE(row.where);
        const std::string& raw = row[0];
        EXPECT_EQ(JsonPrinter::toString(Variant(raw)), "\"" + row[1] + "\"");
        // The parser follows the same rules: it takes exactly the texts the
        // printer leaves as they are.
        if (raw.find('"') == std::string::npos) {
            std::string rawError;
            parseText("\"" + raw + "\"", &rawError);
            EXPECT_EQ(rawError.empty(), raw == row[1]) << rawError;
        }
        Variant object;
        object.set(raw, raw);
        for (const char* indent : {"", "\t"}) {
            const std::string text = JsonPrinter::toString(object, indent);
            std::string error;
            const Variant back = parseText(text, &error);
            ASSERT_TRUE(back.isObject()) << error;
            EXPECT_EQ(JsonPrinter::toString(back, indent), text);
        }
    }
}

// Long output reaches the callback in many pieces that join to the whole text.
TEST(JsonPrinter, HandsLongOutputToTheCallbackInPieces)
{
    json::List list;
    for (int i = 0; i < 5000; ++i)
        list.append(std::string(40, static_cast<char>('a' + i % 26)));
    list.append(std::string(100000, 'z'));
    using Pieces = std::vector<std::string>;
    Pieces pieces;
    JsonPrinter printer([](void* c, const char* data, int n) { static_cast<Pieces*>(c)->emplace_back(data, n); },
                        &pieces);
    printer.print(list);
    EXPECT_GT(pieces.size(), 10u);
    std::string text;
    for (const std::string& piece : pieces)
        text += piece;
    EXPECT_EQ(parseText(text), list);
}

TEST(JsonParser, PrintedValuesReadBackExactlyWhateverThePieces)
{
    const Variant value = parseText(k_sample);
    ASSERT_EQ(value.value("max").toUInt64(), std::numeric_limits<std::uint64_t>::max());
    for (const std::string& indent : {std::string("    "), std::string("\t"), std::string()}) {
        const std::string text = JsonPrinter::toString(value, indent);
        EXPECT_EQ(parseText(text), value) << text;
        // Every split point into two pieces.
        JsonParser parser;
        for (std::size_t split = 0; split <= text.size(); ++split) {
            EXPECT_TRUE(parser.parse(text.data(), split));
            EXPECT_TRUE(parser.parse(text.data() + split, text.size() - split));
            const Variant parsed = parser.parseComplete();
            ASSERT_EQ(parsed, value) << "split at " << split;
        }
        // One byte at a time.
        for (const char c : text)
            ASSERT_TRUE(parser.parse(&c, 1));
        EXPECT_EQ(parser.parseComplete(), value);
    }
}

// Members keep the order of the text; a repeated key keeps its first place
// and takes the last value, also inside lists and nested objects.
TEST(JsonParser, AcceptsJsonGrammarAndKeepsMemberOrder)
{
    for (const cktest::DataRow& row : cktest::dataRows("support/json/grammar.tsv", 2)) {
        std::string error;
        EXPECT_EQ(parseText(row[0], &error).toJson(), row[1]) << row.where;
        EXPECT_EQ(error, "") << row.where;
    }

    // However many members there are.
    std::string wide = "{";
    const int count = 30000;
    for (int i = count - 1; i >= 0; --i)
        wide += "\"k" + std::to_string(i) + "\":" + std::to_string(i) + ",";
    wide += "\"k7\":-7}";
    const Variant parsed = parseText(wide);
    const std::vector<std::string> keys = parsed.keys();
    ASSERT_EQ(keys.size(), static_cast<std::size_t>(count));
    EXPECT_EQ(keys.front(), "k" + std::to_string(count - 1));
    EXPECT_EQ(keys.back(), "k0");
    EXPECT_EQ(parsed.value("k7").toInt64(), -7);
}

// Our tree, printed, reads back in the tree library as the tree it builds
// from the same text: numbers at the edges of their types, escapes, nesting.
TEST(JsonParser, ValuesAgreeWithTheTreeLibrarysParser)
{
    std::vector<std::string> texts = {k_sample, std::string(500, '[') + std::string(500, ']'),
        R"([-0, 0.1, 4.9e-324, 1e-400, -1e-400, 2.2250738585072011e-308, 1.7976931348623157e308, 0.000e99999,
            -9223372036854775809, 18446744073709551616, 1e2, 12.5E-1, 100000000000000000000000000000000000000000e-30,
            "\"\\\/\b\f\n\r\t\u0000\u00E9\uD834\uDD1E\uffff", "mixed caf\u00e9 \u2603 â tail"])"};
    for (const cktest::DataRow& row : cktest::dataRows("support/json/grammar.tsv", 2))
        texts.push_back(row[0]);
    for (const std::string& text : texts) {
        std::string error;
        const std::string printed = parseText(text, &error).toJson();
        EXPECT_EQ(error, "") << text;
        EXPECT_EQ(nlohmann::ordered_json::parse(printed), nlohmann::ordered_json::parse(text)) << text;
    }
}

TEST(JsonParser, ReportsSyntaxErrorsWithLineAndColumn)
{
    for (const cktest::DataRow& row : cktest::dataRows("support/json/syntax-errors.tsv", 3)) {
        JsonParser parser;
        parser.parse(row[0]);
        const Variant value = parser.parseComplete();
        EXPECT_TRUE(parser.hasError()) << row.where;
        EXPECT_EQ(std::to_string(parser.errorLine()), row[1]) << row.where << ": " << parser.lastError();
        EXPECT_EQ(std::to_string(parser.errorColumn()), row[2]) << row.where << ": " << parser.lastError();
        EXPECT_EQ(parser.lastError().rfind("line " + row[1] + ", column ", 0), 0u) << row.where;
        // The offending text comes back as a string.
        EXPECT_EQ(value, Variant(row[0])) << row.where;
    }
}

TEST(JsonParser, ErrorsShowAsSoonAsTheirPieceArrivesAndStick)
{
    JsonParser parser;
    EXPECT_TRUE(parser.parse("{\"a\": [1, 2"));
    EXPECT_FALSE(parser.parse("}"));
    EXPECT_FALSE(parser.parse("]}"));
    EXPECT_EQ(parser.parseComplete().toString(), "{\"a\": [1, 2}]}");
    EXPECT_EQ(parser.errorColumn(), 12);

    // The parser takes a new text afterwards.
    EXPECT_TRUE(parser.parse("[3]"));
    EXPECT_FALSE(parser.hasError());
    EXPECT_EQ(parser.parseComplete().toJson(), "[3]");

    // Incomplete, empty and blank texts.
    EXPECT_TRUE(parser.parse("{\"a\": "));
    EXPECT_EQ(parser.parseComplete(), Variant("{\"a\": "));
    EXPECT_NE(parser.lastError().find("unexpected end of input"), std::string::npos);
    for (const char* blank : {"", "  \n\t "}) {
        parser.parse(blank);
        EXPECT_TRUE(parser.parseComplete().isNull());
        EXPECT_FALSE(parser.hasError());
    }
    parser.parse("x");
    parser.reset();
    EXPECT_FALSE(parser.hasError());
}

TEST(JsonParser, RefusesNestingBeyondTheLimit)
{
    JsonParser parser;
    const std::string deep(100000, '[');
    EXPECT_FALSE(parser.parse(deep));
    EXPECT_EQ(parser.errorColumn(), JsonParser::k_defaultMaxDepth + 1);
    parser.parseComplete();

    parser.setMaxDepth(3);
    EXPECT_TRUE(parser.parse("[[[1]]]"));
    EXPECT_EQ(parser.parseComplete().toJson(), "[[[1]]]");
    EXPECT_FALSE(parser.parse("[[{\"a\":[1]}]]"));
    EXPECT_NE(parser.lastError().find("nesting deeper than 3 levels"), std::string::npos);
}

} // namespace
