#include <CommonKit/json/JsonSettings.h>

#include <CommonKit/json/VariantConversion.h>
#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/json/Base64.h>
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/JsonPrinter.h>

#include <QDebug>
#include <QFile>
#include <QMutex>
#include <QMutexLocker>

#include <algorithm>

namespace {

const char k_separator = '/';
const int k_chunkSize = 4096;
const int k_printPrecision = 15;
const int k_maxDepth = 512;

struct Extensions
{
    QMutex mutex;
    QMap<QString, QUrl> schemas;
    QMap<QString, QSettings::Format> formats;
};

Extensions& extensions()
{
    static Extensions instance;
    return instance;
}

using SchemaPtr = boost::intrusive_ptr<json::Schema>;

// Tagged meta-type objects carry the bytes of a QDataStream, which are no
// text, so a document holds them in base64: encodes (or decodes) the "#qdata"
// of every tagged object in value; true when value changed.
bool transcodeTaggedData(json::Variant& value, bool encode, int depth)
{
    if (!value.isComposite() || depth > k_maxDepth)
        return false;
    const json::Variant data = value.value("#qdata");
    if (data.isString()) {
        std::string bytes;
        if (encode)
            bytes = json::toBase64(data.toString());
        else if (!json::fromBase64(data.toString(), &bytes))
            return false;
        value.set("#qdata", json::Variant(bytes));
        return true;
    }
    bool changed = false;
    const bool list = value.isList();
    for (json::VariantIterator it(value); !it.atEnd(); it.next()) {
        json::Variant part = it.value();
        if (!transcodeTaggedData(part, encode, depth + 1))
            continue;
        if (list)
            value.setAt(it.index(), part);
        else
            value.set(it.key(), part);
        changed = true;
    }
    return changed;
}

// Validation only warns: the value is read or written all the same.
void warnInvalid(const char* tag, const json::Variant& value, std::string reasons)
{
    ko::LogLine(ko::Log::Error, tag) << "Warning: schema validation failed!" << value.toJson();
    std::replace(reasons.begin(), reasons.end(), '\n', ' ');
    ko::LogLine(ko::Log::Warning, tag) << reasons;
}

bool isEmptyDocument(const json::Variant& value)
{
    return value.isNull() || (value.isComposite() && value.empty());
}

} // namespace

QSettings::Format registerJsonQSettingsFormat(const QString& extension, const QUrl& schemaUrl)
{
    QMutexLocker lock(&extensions().mutex);
    extensions().schemas.insert(extension, schemaUrl);
    // Qt has room for 16 formats of its own in a process; registering an
    // extension again only changes its schema.
    const auto known = extensions().formats.constFind(extension);
    if (known != extensions().formats.constEnd())
        return known.value();
    const QSettings::ReadFunc read = &readJsonQSettings;
    const QSettings::WriteFunc write = &writeJsonQSettings;
    const QSettings::Format format = QSettings::registerFormat(extension, read, write, Qt::CaseSensitive);
    if (format != QSettings::InvalidFormat)
        extensions().formats.insert(extension, format);
    return format;
}

SchemaPtr jsonFileSchema(const QString& extension)
{
    QUrl url;
    {
        QMutexLocker lock(&extensions().mutex);
        const auto found = extensions().schemas.constFind(extension);
        if (found == extensions().schemas.constEnd())
            return SchemaPtr();
        url = found.value();
    }
    if (url.isEmpty())
        return SchemaPtr();
    return json::Schema::resolve(url.toString().toStdString(), std::string());
}

SchemaPtr jsonFileSchema(const QFileInfo& info)
{
    return jsonFileSchema(info.suffix());
}

SchemaPtr jsonFileSchema(const QFileDevice& device)
{
    return jsonFileSchema(QFileInfo(device.fileName()));
}

void readJsonFromQIODevice(QIODevice& device, json::Variant& value)
{
    json::JsonParser parser;
    char chunk[k_chunkSize];
    qint64 length = 0;
    while ((length = device.read(chunk, k_chunkSize)) > 0) {
        if (!parser.parse(chunk, static_cast<std::size_t>(length))) {
            ko::LogLine(ko::Log::Error, "readJsonFromQIODevice") << parser.lastError();
            break;
        }
    }
    value = parser.parseComplete();
}

void readJsonFromQFile(const QString& fileName, json::Variant& value)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        ko::LogLine(ko::Log::Error, "readJsonFromQFile") << "cannot read " << fileName << ": " << file.errorString();
        value = json::Variant();
        return;
    }
    readJsonFromQIODevice(file, value);
}

bool readJsonQSettings(QIODevice& device, QMap<QString, QVariant>& map)
{
    const auto* file = qobject_cast<QFileDevice*>(&device);
    if (!file)
        return false;
    return readJsonQSettings(device, map, jsonFileSchema(*file));
}

bool readJsonQSettings(QIODevice& device, QMap<QString, QVariant>& map, SchemaPtr schema)
{
    json::Variant value;
    readJsonFromQIODevice(device, value);
    if (value.isNull())
        return true;
    if (value.isString()) {
        ko::LogLine(ko::Log::Error, "readJsonQSettings") << "Error: parsing failed, " << value.toString();
        return false;
    }
    if (schema) {
        value.attachSchema(schema);
        std::string error;
        if (!schema->validate(value, &error))
            warnInvalid("readJsonQSettings", value, error);
        json::decodeBase64(value);
    }
    transcodeTaggedData(value, false, 0);
    qVariantMapFlat(map, value, k_separator, QString());
    return true;
}

json::Variant makeJsonSettings(const QMap<QString, QVariant>& map, SchemaPtr schema)
{
    json::Variant value = jsonVariantFlat(map, k_separator, schema, true);
    if (schema) {
        value.attachSchema(schema);
        std::string error;
        if (!schema->validate(value, &error))
            warnInvalid("makeJsonSettings", value, error);
        json::encodeBase64(value);
    }
    transcodeTaggedData(value, true, 0);
    return value;
}

bool writeJsonSettings(QIODevice& device, json::Variant value)
{
    json::JsonPrinter printer(&PrintJsonToQIODevice, &device);
    printer.setFloatingPointPrecision(k_printPrecision);
    printer.print(value);
    return true;
}

bool writeJsonQSettings(QIODevice& device, const QMap<QString, QVariant>& map)
{
    const auto* file = qobject_cast<QFileDevice*>(&device);
    if (!file)
        return false;
    ko::LogLine(ko::Log::Information, "writeJsonQSettings") << "Writing " << file->fileName();
    return writeJsonQSettings(device, map, jsonFileSchema(*file));
}

bool writeJsonQSettings(QIODevice& device, const QMap<QString, QVariant>& map, SchemaPtr schema)
{
    const json::Variant value = makeJsonSettings(map, schema);
    if (isEmptyDocument(value))
        return false;
    return writeJsonSettings(device, value);
}

void PrintJsonToQIODevice(void* device, const char* text, int length)
{
    static_cast<QIODevice*>(device)->write(text, length);
}

void PrintJsonToQDebug(void* debug, const char* text, int length)
{
    static_cast<QDebug*>(debug)->noquote().nospace() << QString::fromUtf8(text, length);
}
