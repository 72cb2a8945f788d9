// libFuzzer target: a settings file of arbitrary bytes read by the encrypted
// settings formats. The first byte chooses the form: bit 0 the JSON form
// (else the binary map form, "ini"), bit 1 the key "fuzz key" (else none),
// bit 2 the settings schema for the JSON form. The rest is the file. What
// reads must write back in the same form and read again. Nothing may crash,
// hang or allocate without bound.

#include "fuzz/FuzzSupport.h"
#include <CommonKit/json/JsonSettings.h>
#include <CommonKit/storage/EncryptedSettings.h>

#include <QBuffer>

#include <cstddef>
#include <cstdint>

namespace {

using ko::EncryptedSettings;
using ko::crypto::secure_string;

secure_string read(QIODevice& device, QMap<QString, QVariant>& map, bool json, bool keyed, const json::Schema::Ptr& schema)
{
    const secure_string key = keyed ? fuzzsupport::key() : "";
    return json ? EncryptedSettings::readJson(device, map, key, schema) : EncryptedSettings::readIni(device, map, key);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzzsupport::setUp();
    if (size == 0)
        return 0;
    const bool json = data[0] & 1;
    const bool keyed = data[0] & 2;
    const json::Schema::Ptr schema = json && (data[0] & 4) ? fuzzsupport::settingsSchema() : json::Schema::Ptr();

    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data) + 1, static_cast<int>(size - 1));
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    QMap<QString, QVariant> map;
    if (read(file, map, json, keyed, schema).empty()) {
        if (!map.isEmpty())
            fuzzsupport::fail(); // a failed read leaves the map as it was
        return 0;
    }

    if (json && fuzzsupport::namesLongList(map, '/'))
        return 0;
    QByteArray written;
    QBuffer out(&written);
    out.open(QIODevice::WriteOnly);
    const secure_string key = keyed ? fuzzsupport::key() : "";
    const json::Variant value = json ? makeJsonSettings(map, schema) : json::Variant();
    const secure_string digest = json ? EncryptedSettings::writeJson(out, value, key) : EncryptedSettings::writeIni(out, map, key);
    out.close();
    if (digest.empty())
        return 0; // an empty JSON value writes nothing
    QBuffer in(&written);
    in.open(QIODevice::ReadOnly);
    QMap<QString, QVariant> again;
    if (read(in, again, json, keyed, schema) != digest)
        fuzzsupport::fail();
    return 0;
}
