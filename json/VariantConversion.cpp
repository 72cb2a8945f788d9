#include <CommonKit/json/VariantConversion.h>

#include "expressions/VariantStream_p.h"
#include "json/DateTimeForms_p.h"
#include <CommonKit/support/core/Log.h>

#include <QDataStream>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QPolygon>

#include <algorithm>
#include <limits>
#include <new>

namespace {

json::Variant fromText(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return json::Variant(utf8.constData(), static_cast<std::size_t>(utf8.size()));
}

void warnNumeric(const QVariant& value)
{
    ko::LogLine(ko::Log::Warning, "jsonVariant") << "numeric overflow at: " << value.toString();
}

json::Variant signedInteger(const QVariant& value)
{
    bool ok = false;
    const qlonglong number = value.toLongLong(&ok);
    if (!ok)
        warnNumeric(value);
    return json::Variant(ok ? number : 0LL);
}

json::Variant unsignedInteger(const QVariant& value)
{
    bool ok = false;
    const qulonglong number = value.toULongLong(&ok);
    if (!ok)
        warnNumeric(value);
    return json::Variant(ok ? number : 0ULL);
}

json::Variant real(const QVariant& value)
{
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (!ok)
        warnNumeric(value);
    return json::Variant(ok ? number : 0.0);
}

json::Variant fromQJson(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return json::Variant(value.toBool());
    case QJsonValue::Double:
        return json::Variant(value.toDouble());
    case QJsonValue::String:
        return fromText(value.toString());
    case QJsonValue::Array: {
        json::Variant result = json::List();
        for (const QJsonValue& element : value.toArray())
            result.append(fromQJson(element));
        return result;
    }
    case QJsonValue::Object: {
        json::Variant result = json::Object();
        const QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it)
            result.set(it.key().toStdString(), fromQJson(it.value()));
        return result;
    }
    default: // Null, Undefined
        return json::Variant();
    }
}

json::Variant fromQJsonDocument(const QJsonDocument& document)
{
    if (document.isNull() || document.isEmpty())
        return json::Variant();
    return document.isArray() ? fromQJson(document.array()) : fromQJson(document.object());
}

template<typename Map>
json::Variant fromMap(const Map& map, bool withMetaTypes)
{
    json::Variant result = json::Object();
    QStringList keys = map.keys();
    std::sort(keys.begin(), keys.end()); // a QVariantHash has no order of its own
    for (const QString& key : keys)
        result.set(key.toStdString(), jsonVariant(map.value(key), withMetaTypes));
    return result;
}

json::Variant point(const QPoint& value)
{
    return json::Schema::variantFromApplicationDataType(QVariant::typeToName(QVariant::Point), &value);
}

// Whether Qt can write the value to a stream, which a tagged object needs:
// a type registered without stream operators cannot be read back.
bool streamable(const QVariant& value)
{
    QByteArray scratch;
    QDataStream stream(&scratch, QIODevice::WriteOnly);
    return QMetaType::save(stream, value.userType(), value.constData());
}

} // namespace

int jsonVariantMetaTypeId()
{
    static const int id = [] {
        const int registered = qRegisterMetaType<json::Variant>("json::Variant");
        QMetaType::registerEqualsComparator<json::Variant>();
        return registered;
    }();
    return id;
}

namespace {
// Register the meta type when the library loads.
[[maybe_unused]] const int k_metaTypeAtLoad = jsonVariantMetaTypeId();
} // namespace

QVariant makeQVariant(const json::Variant& value)
{
    return QVariant(jsonVariantMetaTypeId(), &value);
}

json::Variant jsonVariant(const QVariant& value, bool withMetaTypes)
{
    registerQDataTypes();
    const int type = value.userType();
    if (type == jsonVariantMetaTypeId())
        return *static_cast<const json::Variant*>(value.constData());
    switch (type) {
    case QMetaType::UnknownType:
        return json::Variant();
    case QMetaType::Bool:
        return json::Variant(value.toBool());
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Long:
    case QMetaType::Short:
    case QMetaType::Char:
        return signedInteger(value);
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::VoidStar:
    case QMetaType::ULong:
    case QMetaType::UShort:
    case QMetaType::UChar:
        return unsignedInteger(value);
    case QMetaType::Double:
    case QMetaType::Float:
        return real(value);
    case QMetaType::QVariantMap:
        return fromMap(*static_cast<const QVariantMap*>(value.constData()), withMetaTypes);
    case QMetaType::QVariantHash:
        return fromMap(*static_cast<const QVariantHash*>(value.constData()), withMetaTypes);
    case QMetaType::QVariantList: {
        json::Variant result = json::List();
        for (const QVariant& element : *static_cast<const QVariantList*>(value.constData()))
            result.append(jsonVariant(element, withMetaTypes));
        return result;
    }
    case QMetaType::QStringList: {
        json::Variant result = json::List();
        for (const QString& element : *static_cast<const QStringList*>(value.constData()))
            result.append(fromText(element));
        return result;
    }
    case QMetaType::QDate:
        return fromText(value.toDate().toString(jsonbridge::k_dateFormat));
    case QMetaType::QTime:
        return fromText(value.toTime().toString(jsonbridge::k_timeFormat));
    case QMetaType::QDateTime:
        return fromText(value.toDateTime().toString(jsonbridge::k_dateTimeFormat));
    case QMetaType::QPoint:
    case QMetaType::QPointF:
    case QMetaType::QSize:
    case QMetaType::QSizeF:
    case QMetaType::QRect:
    case QMetaType::QRectF:
        return json::Schema::variantFromApplicationDataType(QVariant::typeToName(type), value.constData());
    case QMetaType::QPolygon: {
        json::Variant result = json::List();
        for (const QPoint& corner : *static_cast<const QPolygon*>(value.constData()))
            result.append(point(corner));
        return result;
    }
    case QMetaType::QVariant:
        return jsonVariant(*static_cast<const QVariant*>(value.constData()), true);
    case QMetaType::QJsonValue:
        return fromQJson(*static_cast<const QJsonValue*>(value.constData()));
    case QMetaType::QJsonObject:
        return fromQJson(*static_cast<const QJsonObject*>(value.constData()));
    case QMetaType::QJsonArray:
        return fromQJson(*static_cast<const QJsonArray*>(value.constData()));
    case QMetaType::QJsonDocument:
        return fromQJsonDocument(*static_cast<const QJsonDocument*>(value.constData()));
    case QMetaType::QChar:
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QUrl:
    case QMetaType::QUuid:
        return fromText(value.toString());
    default:
        if (withMetaTypes && QMetaType::isRegistered(type) && streamable(value))
            return jsonVariantFromMetaType(value);
        return fromText(value.toString());
    }
}

json::Variant jsonVariantFromMetaType(const QVariant& value)
{
    QByteArray bytes;
    {
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << value;
    }
    // "#qtype" is Qt's type(), which is QVariant::UserType for every type
    // registered by an application; the name tells which one it is.
    const char* name = QMetaType::typeName(value.userType());
    json::Variant result = json::Object();
    result.set("#qtype", static_cast<int>(value.type()));
    result.set("#alt-type-name", name ? name : "");
    result.set("#qdata", json::Variant(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    return result;
}

QVariant qVariant(const json::Variant& value)
{
    switch (value.type()) {
    case json::Variant::Type::Boolean:
        return value.toBool();
    case json::Variant::Type::Integer:
        if (value.isUnsigned())
            return QVariant(static_cast<qulonglong>(value.toUInt64()));
        return QVariant(static_cast<qlonglong>(value.toInt64()));
    case json::Variant::Type::Real:
        return value.toDouble();
    case json::Variant::Type::String: {
        const std::string text = value.toString();
        return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
    }
    case json::Variant::Type::Object:
        if (value.contains("#qdata"))
            return qVariantFromMetaType(json::Object(value));
        return qVariantMap(json::Object(value));
    case json::Variant::Type::List:
        return qVariantList(json::List(value));
    default:
        return QVariant();
    }
}

QVariant qVariantFromMetaType(const json::Object& object)
{
    const std::string data = object.value("#qdata").toString();
    if (data.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return QVariant();
    const QByteArray bytes = QByteArray::fromRawData(data.data(), static_cast<int>(data.size()));
    QDataStream stream(bytes);
    // Not Qt's own reader: a hostile image could make it reserve memory for
    // billions of list elements, nest lists until the stack runs out, or
    // construct types that need a GUI application.
    QVariant result;
    try {
        result = kogen::readVariant(stream);
    } catch (const std::bad_alloc&) {
        stream.setStatus(QDataStream::ReadCorruptData);
    }
    if (stream.status() != QDataStream::Ok) {
        ko::LogLine(ko::Log::Warning, "qVariantFromMetaType")
            << "\"#qdata\" holds no readable value of type " << object.value("#alt-type-name").toString();
        return QVariant();
    }
    return result;
}

QList<QVariant> qVariantList(const json::List& list)
{
    QList<QVariant> result;
    result.reserve(static_cast<int>(list.size()));
    for (json::VariantIterator it(list); !it.atEnd(); it.next())
        result.append(qVariant(it.value()));
    return result;
}

QMap<QString, QVariant> qVariantMap(const json::Object& object)
{
    QMap<QString, QVariant> result;
    for (json::VariantIterator it(object); !it.atEnd(); it.next())
        result.insert(QString::fromStdString(it.key()), qVariant(it.value()));
    return result;
}

QStringList qStringList(const json::List& list)
{
    QStringList result;
    result.reserve(static_cast<int>(list.size()));
    for (json::VariantIterator it(list); !it.atEnd(); it.next()) {
        const json::Variant element = it.value();
        result.append(element.isComposite() ? QString() : qVariant(element).toString());
    }
    return result;
}
