// Flat key maps (as QSettings holds them) to and from nested JSON values.

#include <CommonKit/json/VariantConversion.h>

#include "json/DateTimeForms_p.h"
#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/json/Path.h>

#include <QUuid>

#include <algorithm>
#include <charconv>
#include <utility>
#include <vector>

namespace {

using SchemaPtr = boost::intrusive_ptr<json::Schema>;

// Values nest no deeper than the parser allows; a deeper one built in code
// is cut off there rather than exhausting the stack.
const int k_maxDepth = 512;

QString joined(const QString& prefix, char separator, const QString& key)
{
    return prefix.isEmpty() ? key : prefix + QLatin1Char(separator) + key;
}

// Appends a member name (UTF-8) to a key path; most names are ASCII, which
// needs no decoding and no temporary string.
void appendName(QString& path, const std::string& name)
{
    const auto size = static_cast<int>(name.size());
    if (std::all_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        path += QLatin1String(name.data(), size);
    else
        path += QString::fromUtf8(name.data(), size);
}

// Appends a list position, counted from 1, to a key path.
void appendPosition(QString& path, std::size_t index)
{
    char digits[24];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, index + 1);
    path += QLatin1String(digits, static_cast<int>(end.ptr - digits));
}

// QString's own order (UTF-16 code units, then the shorter first), compared
// in line: sorting the flat keys is thousands of these.
bool keyLess(const QString& a, const QString& b)
{
    const int common = std::min(a.size(), b.size());
    const QChar* left = a.constData();
    const QChar* right = b.constData();
    for (int i = 0; i < common; ++i) {
        if (left[i] != right[i])
            return left[i].unicode() < right[i].unicode();
    }
    return a.size() < b.size();
}

// The Qt value of a string the schema calls a date, time, date-time or
// uuid; invalid when it is none or the text does not read as one.
QVariant formattedText(const json::Variant& value, const SchemaPtr& schema)
{
    const QString text = QString::fromStdString(value.toString());
    if (schema->isDate()) {
        const QDate date = jsonbridge::parseDate(text);
        return date.isValid() ? QVariant(date) : QVariant();
    }
    if (schema->isTime()) {
        const QTime time = jsonbridge::parseTime(text);
        return time.isValid() ? QVariant(time) : QVariant();
    }
    if (schema->isDateTime()) {
        const QDateTime dateTime = jsonbridge::parseDateTime(text);
        return dateTime.isValid() ? QVariant(dateTime) : QVariant();
    }
    if (schema->isUuid()) {
        const QUuid uuid(text);
        const bool nil = text == QLatin1String("00000000-0000-0000-0000-000000000000")
            || text == QLatin1String("{00000000-0000-0000-0000-000000000000}");
        return uuid.isNull() && !nil ? QVariant() : QVariant(uuid);
    }
    return QVariant();
}

// The Qt value of an object the schema calls an application data type;
// invalid when it is none or the object lacks the type's members.
QVariant applicationData(const json::Variant& value, const SchemaPtr& schema)
{
    const std::string name = schema->applicationDataType();
    if (name.empty())
        return QVariant();
    const int type = QMetaType::type(name.c_str());
    if (type == QMetaType::UnknownType)
        return QVariant();
    QVariant result(type, nullptr);
    if (!json::Schema::applicationDataTypeToObject(name, value, result.data()))
        return QVariant();
    return result;
}

// The flat entries in the order they are found; a later entry of the same key
// replaces an earlier one.
using Entries = std::vector<std::pair<QString, QVariant>>;

// Appends the flat entries of value, whose key is path; path is the key
// buffer of the whole walk, restored before returning. Each entry gets a
// copy of its key of its own, so that the buffer keeps its room.
void flatten(Entries& out, const json::Variant& value, const SchemaPtr& schema, char separator, QString& path,
             int depth)
{
    const auto entry = [&](QVariant&& flat) { out.emplace_back(QString(path.constData(), path.size()), std::move(flat)); };
    if (value.isNull()) {
        entry(QVariant());
        return;
    }
    if (schema && value.isList()) {
        if (schema->isStringList()) {
            entry(qStringList(json::List(value)));
            return;
        }
        if (schema->isFlatList()) {
            entry(qVariantList(json::List(value)));
            return;
        }
    }
    if (schema && value.isString()) {
        QVariant formatted = formattedText(value, schema);
        if (formatted.isValid()) {
            entry(std::move(formatted));
            return;
        }
    }
    if (schema && value.isObject()) {
        QVariant data = applicationData(value, schema);
        if (data.isValid()) {
            entry(std::move(data));
            return;
        }
    }
    // A tagged meta-type object is one value, not a group of three.
    if (value.isComposite() && !value.contains("#qdata") && depth < k_maxDepth) {
        const bool list = value.isList();
        const SchemaPtr items = schema && list ? schema->items() : SchemaPtr();
        const int mark = path.size();
        for (json::VariantIterator it(value); !it.atEnd(); it.next()) {
            // The empty key stands for the value itself: a nameless member at
            // the top has no key of its own, and taking the empty one would
            // make the rebuilt document that member instead of the object.
            if (!list && it.key().empty() && mark == 0) {
                ko::LogLine(ko::Log::Warning, "qVariantMapFlat") << "a member without a name at the top has no key; skipped";
                continue;
            }
            if (mark > 0)
                path += QLatin1Char(separator);
            if (list)
                appendPosition(path, it.index());
            else
                appendName(path, it.key());
            const SchemaPtr part = list ? items : schema ? schema->member(it.key()) : SchemaPtr();
            flatten(out, it.value(), part, separator, path, depth + 1);
            path.truncate(mark);
        }
        if (list)
            out.emplace_back(joined(path, separator, QStringLiteral("size")), static_cast<int>(value.size()));
        return;
    }
    entry(qVariant(value));
}

// The sub-schema at path: list indices lead to "items", other segments to
// members.
SchemaPtr schemaAt(SchemaPtr schema, const json::Path& path)
{
    for (const std::string& segment : path.segments()) {
        if (!schema)
            break;
        schema = schema->type() == "array" && path.listIndex(segment, nullptr) ? schema->items() : schema->member(segment);
    }
    return schema;
}

// A list length given by a "size" key: a whole number from 0 to the
// largest list index.
bool listLength(const QVariant& value, std::size_t* length)
{
    if (value.userType() == QMetaType::Bool)
        return false;
    bool ok = false;
    const qlonglong number = value.toLongLong(&ok);
    if (!ok || number < 0 || static_cast<unsigned long long>(number) > json::Path::k_maxIndex
        || value.toDouble() != static_cast<double>(number))
        return false;
    *length = static_cast<std::size_t>(number);
    return true;
}

// Handles a key ending in "size" that gives the length of the list at the
// path before it; false when the key is an ordinary member. It gives a
// length where a list already stands there, where the schema calls the
// place an array, or, when the schema says nothing, for an empty list (a
// "size" of 0 with nothing else below the path).
bool applyListSize(json::Variant& root, const json::Path& path, const QVariant& value, const SchemaPtr& schema)
{
    std::size_t length = 0;
    if (path.empty() || path.segments().back() != "size" || !listLength(value, &length))
        return false;
    const json::Path parent = path.parent();
    json::Variant list;
    // A null there is a gap a longer list left, which the length fills.
    const bool exists = parent.locate(root, &list) && !list.isNull();
    const SchemaPtr parentSchema = schemaAt(schema, parent);
    const bool arrayPlace = parentSchema ? parentSchema->type() == "array" : length == 0;
    if (exists ? !list.isList() : !arrayPlace)
        return false;
    if (exists && list.size() == length)
        return true;
    // Resize a copy of its own, so that root is not shared while it changes.
    json::Variant resized = exists ? list : json::List();
    list = json::Variant();
    resized.resize(length);
    return parent.set(root, resized);
}

// A value the schema calls a list of strings: the text of each element of a
// list, or a list of the one text.
json::Variant asStringList(const QVariant& value)
{
    const QVariantList elements = value.userType() == QMetaType::QVariantList ? value.toList() : QVariantList{value};
    json::Variant result = json::List();
    for (const QVariant& element : elements) {
        const QByteArray text = element.toString().toUtf8();
        result.append(json::Variant(text.constData(), static_cast<std::size_t>(text.size())));
    }
    return result;
}

} // namespace

void qVariantMapFlat(QMap<QString, QVariant>& map, const json::Variant& value, char separator, const QString& prefix)
{
    registerQDataTypes();
    Entries entries;
    QString path = prefix;
    flatten(entries, value, value.schema(), separator, path, 0);
    if (!map.isEmpty()) {
        for (auto& entry : entries)
            map[entry.first] = std::move(entry.second);
        return;
    }
    // Into an empty map in key order, each entry placed at the end without a
    // search; of equal keys the last one found stays.
    std::stable_sort(entries.begin(), entries.end(),
                     [](const auto& a, const auto& b) { return keyLess(a.first, b.first); });
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i + 1 < entries.size() && !keyLess(entries[i].first, entries[i + 1].first))
            continue;
        map.insert(map.constEnd(), entries[i].first, entries[i].second);
    }
}

json::Variant jsonVariantFlat(const QMap<QString, QVariant>& map, char separator,
                              boost::intrusive_ptr<json::Schema> schema, bool withMetaTypes)
{
    registerQDataTypes();
    json::Variant root;
    json::Path path;
    path.setArrayBaseIndex(1);
    path.setAutoArrayIndex(true);
    for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
        path.setPath(it.key().toStdString(), separator);
        if (applyListSize(root, path, it.value(), schema))
            continue;
        json::Variant converted = jsonVariant(it.value(), withMetaTypes);
        const SchemaPtr part = schemaAt(schema, path);
        if (part && !converted.isNull() && it.value().userType() != QMetaType::QStringList && part->isStringList())
            converted = asStringList(it.value());
        if (!path.set(root, converted))
            ko::LogLine(ko::Log::Warning, "jsonVariantFlat") << "Json - could not locate " << it.key();
    }
    return root;
}
