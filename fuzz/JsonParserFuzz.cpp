// libFuzzer target: arbitrary text through the JSON parser, whole and in two
// pieces; whatever parses must print and parse back to the same value.

#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/JsonPrinter.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

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
    if (whole.hasError())
        return 0;
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
