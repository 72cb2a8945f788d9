// libFuzzer target: arbitrary text through the JSON parser, whole and in two
// pieces; whatever parses must print and parse back to the same value, and
// agree with the tree library's own parser: the same verdict (but for
// nesting beyond our limit), and for accepted text the same tree.

#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/JsonPrinter.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <nlohmann/json.hpp>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const char* text = reinterpret_cast<const char*>(data);
    json::JsonParser whole;
    whole.parse(text, size);
    const json::Variant value = whole.parseComplete();

    // The same text split at a point chosen by its length.
    const std::size_t split = size == 0 ? 0 : size * 7 / 13;
    json::JsonParser pieces;
    pieces.parse(text, split);
    pieces.parse(text + split, size - split);
    const json::Variant again = pieces.parseComplete();
    if (whole.hasError() != pieces.hasError() || whole.lastError() != pieces.lastError())
        std::abort();
    const std::string input(text, size);
    const nlohmann::ordered_json reference = nlohmann::ordered_json::parse(input, nullptr, false);
    // The tree library skips a byte order mark and takes a NUL byte for the
    // end of the text; we refuse both.
    const bool libraryQuirk = input.rfind("\xEF\xBB\xBF", 0) == 0 || input.find('\0') != std::string::npos;
    if (whole.hasError()) {
        if (!reference.is_discarded() && !libraryQuirk && whole.lastError().find("nesting deeper") == std::string::npos)
            std::abort();
        return 0;
    }
    if (reference.is_discarded() && !value.isNull())
        std::abort();
    if (!value.isNull() && nlohmann::ordered_json::parse(json::JsonPrinter::toString(value, "")) != reference)
        std::abort();
    if (!(value == again))
        std::abort();
    for (const char* indent : {"", "\t"}) {
        json::JsonParser printed;
        if (!printed.parse(json::JsonPrinter::toString(value, indent)))
            std::abort();
        if (!(printed.parseComplete() == value) || printed.hasError())
            std::abort();
    }
    return 0;
}
