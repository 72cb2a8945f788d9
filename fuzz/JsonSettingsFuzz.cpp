// libFuzzer target: arbitrary bytes as a JSON settings file, read with
// readJsonQSettings. An odd first byte reads with the settings schema (its
// dates, lists, uuids, binary and geometry members), an even one without; the
// rest is the file. What reads is made into a document again, printed, and
// must read back. Nothing may crash, hang or allocate without bound.

#include "fuzz/FuzzSupport.h"
#include <CommonKit/json/JsonSettings.h>

#include <QBuffer>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzzsupport::setUp();
    if (size == 0)
        return 0;
    const json::Schema::Ptr schema = (data[0] & 1) ? fuzzsupport::settingsSchema() : json::Schema::Ptr();
    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data) + 1, static_cast<int>(size - 1));
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    QMap<QString, QVariant> map;
    if (!readJsonQSettings(file, map, schema) || fuzzsupport::namesLongList(map, '/'))
        return 0;

    QByteArray written;
    QBuffer out(&written);
    out.open(QIODevice::WriteOnly);
    if (!writeJsonQSettings(out, map, schema))
        return 0; // nothing to write
    out.close();
    QBuffer in(&written);
    in.open(QIODevice::ReadOnly);
    QMap<QString, QVariant> again;
    if (!readJsonQSettings(in, again, schema))
        fuzzsupport::fail();
    return 0;
}
