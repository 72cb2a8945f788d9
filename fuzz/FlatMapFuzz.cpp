// libFuzzer target: arbitrary bytes as a JSON value, flattened into a
// QSettings-style key map with qVariantMapFlat and nested again with
// jsonVariantFlat. The first byte chooses the separator (bit 0: '.', else
// '/') and the settings schema (bit 1); the rest is the JSON text. Nothing
// may crash, hang or allocate without bound.

#include "fuzz/FuzzSupport.h"
#include <CommonKit/json/VariantConversion.h>
#include <CommonKit/support/json/JsonParser.h>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzzsupport::setUp();
    if (size == 0)
        return 0;
    const char separator = (data[0] & 1) ? '.' : '/';
    const json::Schema::Ptr schema = (data[0] & 2) ? fuzzsupport::settingsSchema() : json::Schema::Ptr();
    json::JsonParser parser;
    parser.parse(reinterpret_cast<const char*>(data) + 1, size - 1);
    json::Variant value = parser.parseComplete();
    if (parser.hasError())
        return 0;
    if (schema)
        value.attachSchema(schema);

    QMap<QString, QVariant> flat;
    qVariantMapFlat(flat, value, separator, QString());
    qVariantMapFlat(flat, value, separator, QStringLiteral("prefix"));
    if (fuzzsupport::namesLongList(flat, separator))
        return 0;
    const json::Variant nested = jsonVariantFlat(flat, separator, schema, true);
    nested.toJson();
    jsonVariantFlat(flat, separator, schema, false);
    return 0;
}
