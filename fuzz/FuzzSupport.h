#pragma once

// Shared by the fuzz targets and the seed writer: a quiet process with a
// QCoreApplication, the settings schema the JSON targets read with, a bounded
// way to drain a device, and the input written to a file.

#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/Schema.h>

#include <QCoreApplication>
#include <QFile>
#include <QIODevice>
#include <QMap>
#include <QString>
#include <QVariant>

#include <cstdlib>
#include <string>

namespace fuzzsupport {

// The key of every keyed input; the seeds are written with it.
inline const char* key() { return "fuzz key"; }

const char* const k_schemaUrl = "https://fuzz.invalid/settings.json";

// A settings schema with a member of every kind the JSON bridge treats
// specially: string and flat lists, dates, times, uuids, binary text and the
// geometry data types.
const char* const k_schema = R"json({
  "type": "object",
  "properties": {
    "names": {"type": "array", "items": {"type": "string"}},
    "ports": {"type": "array", "items": {"type": "integer"}},
    "day": {"type": "string", "format": "date"},
    "at": {"type": "string", "format": "time"},
    "changed": {"type": "string", "format": "date-time"},
    "id": {"type": "string", "format": "uuid"},
    "blob": {"type": "string", "contentEncoding": "base64"},
    "window": {"type": "object", "properties": {
      "pos": {"$ref": "https://schemas.commonkit.invalid/datatypes.json#point"},
      "size": {"$ref": "https://schemas.commonkit.invalid/datatypes.json#dimension"},
      "area": {"$ref": "https://schemas.commonkit.invalid/datatypes.json#rectangle(number)"},
      "frame": {"$ref": "https://schemas.commonkit.invalid/datatypes.json#rectangle"}}},
    "cams": {"type": "array", "items": {"type": "object", "properties": {
      "since": {"type": "string", "format": "date"}}}}
  }
})json";

// The schema above, registered once under k_schemaUrl.
inline json::Schema::Ptr settingsSchema()
{
    static const json::Schema::Ptr schema = [] {
        json::JsonParser parser;
        parser.parse(k_schema);
        json::Schema::registerSchema(k_schemaUrl, parser.parseComplete());
        return json::Schema::resolve(k_schemaUrl);
    }();
    return schema;
}

// One QCoreApplication for the process, and the library's log silenced.
inline void setUp()
{
    static const bool done = [] {
        ko::Log::instance().setSink([](int, const std::string&) {});
        static int argc = 1;
        static char name[] = "fuzz";
        static char* argv[] = {name, nullptr};
        new QCoreApplication(argc, argv);
        return true;
    }();
    (void)done;
}

// Reads the open device to its end or its first error, in pieces of
// changing size, and no further than limit bytes. Returns the bytes read, or
// -1 when read() failed.
inline qint64 drain(QIODevice& device, qint64 limit = qint64(64) << 20)
{
    char buffer[7000];
    const qint64 sizes[] = {1, 4096, 17, 7000, 65536 % 7000};
    qint64 total = 0;
    for (int i = 0; total < limit; ++i) {
        const qint64 n = device.read(buffer, sizes[i % 5]);
        if (n < 0)
            return -1;
        if (n == 0)
            break;
        total += n;
    }
    return total;
}

// Replaces the file at `path` with the bytes; false when that fails.
inline bool writeInput(const QString& path, const char* data, std::size_t size)
{
    QFile out(path);
    return out.open(QIODevice::WriteOnly | QIODevice::Truncate) && out.write(data, static_cast<qint64>(size)) >= 0;
}

// Whether a key of a flat settings map names a list index above 4096 in
// one of its segments. Nesting such a map makes a list that long (the
// library allows indices up to 1048575, so a key of a few bytes costs a
// megabyte list); the targets skip nesting those maps so that every input
// stays well below the time limit.
inline bool namesLongList(const QMap<QString, QVariant>& map, char separator)
{
    for (auto it = map.keyBegin(); it != map.keyEnd(); ++it) {
        for (const QStringRef& segment : it->splitRef(QLatin1Char(separator))) {
            bool number = false;
            const uint index = segment.toUInt(&number);
            if (number && index > 4096)
                return true;
        }
    }
    return false;
}

// Stops the run: a property that must hold for every input did not.
[[noreturn]] inline void fail() { std::abort(); }

} // namespace fuzzsupport
