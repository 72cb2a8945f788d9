#include <CommonKit/support/json/Base64.h>

#include <CommonKit/support/json/Schema.h>

#include <QByteArray>

namespace json {

namespace {

// Values nest no deeper than the parser allows; a deeper one built in code
// is left alone below this level.
const int k_maxDepth = 512;

QByteArray bytesOf(const std::string& text)
{
    return QByteArray(text.data(), static_cast<int>(text.size()));
}

// Encodes or decodes the strings below value that schema marks binary;
// true when value changed.
bool transform(Variant& value, const Schema::Ptr& schema, bool encode, int depth, bool* allDecoded)
{
    if (!schema || depth > k_maxDepth)
        return false;
    if (value.isString()) {
        if (!schema->isBinary())
            return false;
        if (encode) {
            value = Variant(toBase64(value.toString()));
            return true;
        }
        std::string bytes;
        if (!fromBase64(value.toString(), &bytes)) {
            *allDecoded = false;
            return false;
        }
        value = Variant(bytes);
        return true;
    }
    bool changed = false;
    if (value.isObject()) {
        for (const std::string& key : value.keys()) {
            Variant member = value.value(key);
            if (transform(member, schema->member(key), encode, depth + 1, allDecoded)) {
                value.set(key, member);
                changed = true;
            }
        }
    } else if (value.isList()) {
        const Schema::Ptr items = schema->items();
        for (std::size_t i = 0; items && i < value.size(); ++i) {
            Variant element = value.at(i);
            if (transform(element, items, encode, depth + 1, allDecoded)) {
                value.setAt(i, element);
                changed = true;
            }
        }
    }
    return changed;
}

} // namespace

std::string toBase64(const std::string& bytes)
{
    return bytesOf(bytes).toBase64().toStdString();
}

bool fromBase64(const std::string& text, std::string* bytes)
{
    const auto result = QByteArray::fromBase64Encoding(bytesOf(text), QByteArray::AbortOnBase64DecodingErrors);
    if (!result)
        return false;
    *bytes = std::string(result.decoded.constData(), static_cast<std::size_t>(result.decoded.size()));
    return true;
}

void encodeBase64(Variant& value, const Schema::Ptr& schema)
{
    const Schema::Ptr attached = value.schema();
    bool allDecoded = true;
    transform(value, schema ? schema : attached, true, 0, &allDecoded);
    value.attachSchema(attached);
}

bool decodeBase64(Variant& value, const Schema::Ptr& schema)
{
    const Schema::Ptr attached = value.schema();
    bool allDecoded = true;
    transform(value, schema ? schema : attached, false, 0, &allDecoded);
    value.attachSchema(attached);
    return allDecoded;
}

} // namespace json
