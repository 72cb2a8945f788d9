// libFuzzer target: arbitrary bytes as the "#qdata" image of a tagged
// meta-type object, converted with qVariant(). What reads as a value is
// converted to JSON again (tagged where JSON cannot hold it) and back. Nothing
// may crash, hang or allocate without bound.

#include "fuzz/FuzzSupport.h"
#include <CommonKit/json/VariantConversion.h>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzzsupport::setUp();
    json::Variant tagged = json::Object();
    tagged.set("#qtype", 127);
    tagged.set("#alt-type-name", "fuzz");
    tagged.set("#qdata", json::Variant(reinterpret_cast<const char*>(data), size));
    const QVariant value = qVariant(tagged);
    if (!value.isValid())
        return 0;
    value.toString();
    const json::Variant back = jsonVariant(value, true);
    back.toJson();
    qVariant(back);
    return 0;
}
