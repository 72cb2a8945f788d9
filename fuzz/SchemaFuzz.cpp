// libFuzzer target: arbitrary JSON as a schema, a value validated against it,
// and the converter's questions asked of the schema and of its members and
// items. The input holds up to three texts separated by NUL bytes: the
// schema, the value, and a second document that "$ref"s may name as
// "other.json". Nothing may crash, hang or allocate without bound.
//
// Schemas whose "$ref"s would load local files are skipped: reading devices
// such as /dev/stdin is the caller's business, not the parser's.

#include "fuzz/FuzzSupport.h"
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/Schema.h>
#include <CommonKit/support/json/Variant.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

const char* const k_schemaUrl = "https://fuzz.invalid/schema.json";
const char* const k_otherUrl = "https://fuzz.invalid/other.json";

bool parse(const char* text, std::size_t size, json::Variant* value)
{
    json::JsonParser parser;
    parser.parse(text, size);
    *value = parser.parseComplete();
    return !parser.hasError();
}

// Whether every "$ref" stays away from the file system. A "$ref" is resolved
// against the base its "$id"s set; an "$id" resolves to a "file:" URL only
// when it is one or lies under one, so no "$id" or "$ref" may resolve to one
// against the document's URL.
bool refsStayInMemory(const json::Variant& node, const std::string& base, int depth = 0)
{
    if (depth > 600)
        return false;
    for (const char* key : {"$ref", "$id"}) {
        const json::Variant reference = node.isObject() ? node.value(key) : json::Variant();
        if (reference.isString() && json::Schema::resolveUrl(reference.toString(), base).rfind("file:", 0) == 0)
            return false;
    }
    if (!node.isComposite())
        return true;
    for (json::VariantIterator it(node); !it.atEnd(); it.next()) {
        if (!refsStayInMemory(it.value(), base, depth + 1))
            return false;
    }
    return true;
}

void ask(const json::Schema::Ptr& schema, const json::Variant& value, int depth)
{
    if (!schema || depth > 8)
        return;
    schema->type();
    schema->isStringList();
    schema->isFlatList();
    schema->isDate();
    schema->isTime();
    schema->isDateTime();
    schema->isUuid();
    schema->isBinary();
    schema->ref();
    if (value.isObject()) {
        for (json::VariantIterator it(value); !it.atEnd(); it.next())
            ask(schema->member(it.key()), it.value(), depth + 1);
    } else if (value.isList() && value.size() > 0) {
        ask(schema->items(), value.at(0), depth + 1);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzzsupport::setUp();

    const char* text = reinterpret_cast<const char*>(data);
    std::vector<std::pair<const char*, std::size_t>> parts;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= size && parts.size() < 3; ++i) {
        if (i == size || text[i] == '\0') {
            parts.emplace_back(text + start, i - start);
            start = i + 1;
        }
    }
    json::Variant schemaDocument;
    if (!parse(parts[0].first, parts[0].second, &schemaDocument) || !refsStayInMemory(schemaDocument, k_schemaUrl))
        return 0;
    json::Variant value;
    if (parts.size() > 1 && !parse(parts[1].first, parts[1].second, &value))
        return 0;
    json::Variant other = json::Variant(true);
    if (parts.size() > 2 && (!parse(parts[2].first, parts[2].second, &other) || !refsStayInMemory(other, k_otherUrl)))
        return 0;

    json::Schema::registerSchema(k_otherUrl, other);
    const json::Schema::Ptr schema = json::Schema::fromVariant(schemaDocument, k_schemaUrl);
    if (!schema)
        return 0;
    std::string error;
    const bool valid = schema->validate(value, &error);
    // Both ways of asking agree, and a failure always has a reason.
    if (schema->validate(value) != valid || valid != schema->errorString().isEmpty() || valid != error.empty())
        __builtin_trap();
    ask(schema, value, 0);
    ask(schema->target(), value, 0);
    return 0;
}
