#include "expressions/VariantStream_p.h"

#include "expressions/RegExpLimit_p.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QDataStream>
#include <QDateTime>
#include <QTimeZone>
#include <QHash>
#include <QMap>
#include <QMetaType>
#include <QPolygon>
#include <QPolygonF>
#include <QStringList>

namespace kogen {

namespace {

constexpr int kMaxNesting = 64;

bool isBoundedType(quint32 typeId)
{
    switch (typeId) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QChar:
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QBitArray:
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QDateTime:
    case QMetaType::QUrl:
    case QMetaType::QLocale:
    case QMetaType::QRect:
    case QMetaType::QRectF:
    case QMetaType::QSize:
    case QMetaType::QSizeF:
    case QMetaType::QLine:
    case QMetaType::QLineF:
    case QMetaType::QPoint:
    case QMetaType::QPointF:
    case QMetaType::QRegExp:
    case QMetaType::QRegularExpression:
    case QMetaType::QUuid:
    case QMetaType::Long:
    case QMetaType::Short:
    case QMetaType::Char:
    case QMetaType::ULong:
    case QMetaType::UShort:
    case QMetaType::UChar:
    case QMetaType::Float:
    case QMetaType::SChar:
    case QMetaType::QColor:
    // Key sequences: Qt reads at most four keys whatever count the stream
    // gives. (Not fonts: a font carries a QStringList of families, which
    // Qt's reader reserves room for by its count.)
    case QMetaType::QKeySequence:
    case QMetaType::QTransform:
    case QMetaType::QMatrix4x4:
    case QMetaType::QVector2D:
    case QMetaType::QVector3D:
    case QMetaType::QVector4D:
    case QMetaType::QQuaternion:
    // JSON values travel as JSON text in a byte array (a value as its type
    // byte and a number, text or such a document); the parser limits the
    // nesting.
    case QMetaType::QJsonValue:
    case QMetaType::QJsonObject:
    case QMetaType::QJsonArray:
    case QMetaType::QJsonDocument:
        return true;
    default:
        return false;
    }
}

bool ok(const QDataStream& in) { return in.status() == QDataStream::Ok; }

QVariant readValue(QDataStream& in, int nesting);

// Elements are appended one by one while the stream has data, so a hostile
// element count costs nothing until the elements are really there.
QVariant readList(QDataStream& in, int nesting)
{
    quint32 count = 0;
    in >> count;
    QVariantList list;
    for (quint32 i = 0; i < count && ok(in); ++i) {
        QVariant item = readValue(in, nesting + 1);
        if (!ok(in))
            return QVariantList();
        list.append(item);
    }
    return ok(in) ? list : QVariantList();
}

// A map may hold several values under one key (written by Qt from a map
// filled with insertMulti); like Qt's reader, every pair is kept.
template<typename Map, typename MultiMap>
Map readMap(QDataStream& in, int nesting)
{
    quint32 count = 0;
    in >> count;
    MultiMap map;
    for (quint32 i = 0; i < count && ok(in); ++i) {
        QString key;
        in >> key;
        QVariant value = readValue(in, nesting + 1);
        if (!ok(in))
            return Map();
        map.insert(key, value);
    }
    return ok(in) ? Map(map) : Map();
}

template<typename List, typename Item>
List readPlainList(QDataStream& in)
{
    quint32 count = 0;
    in >> count;
    List list;
    for (quint32 i = 0; i < count && ok(in); ++i) {
        Item item;
        in >> item;
        if (!ok(in))
            return List();
        list.append(item);
    }
    return ok(in) ? list : List();
}

// A time zone id that could make Qt open a file outside the zone database
// (Qt looks an id up as a path below its zone directory): an absolute path,
// one with a ".." component, or one with a zero character. No real zone has
// such an id, and a hostile one could name a device or a pipe and block the
// reader.
bool isUnsafeZoneId(QString id)
{
    if (id.contains(QChar(0)))
        return true;
    id.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return id.startsWith(QLatin1Char('/')) || id.split(QLatin1Char('/')).contains(QStringLiteral(".."));
}

enum class Peeked { Text, TooLong, Missing };

// Reads a QString at an offset into the bytes the device can give without
// consuming them. Missing when the bytes are not (yet) there or do not
// form a string (Qt's own reader then fails on them), TooLong when the
// string has more than maxBytes bytes.
Peeked peekString(QDataStream& in, int offset, quint32 maxBytes, QString* text, int* next)
{
    const QByteArray head = in.device()->peek(offset + 4);
    if (head.size() < offset + 4)
        return Peeked::Missing;
    QDataStream lengthStream(head);
    lengthStream.setByteOrder(in.byteOrder());
    lengthStream.skipRawData(offset);
    quint32 length = 0;
    lengthStream >> length;
    if (length == 0xffffffffu) {
        *text = QString();
        *next = offset + 4;
        return Peeked::Text;
    }
    if (length > maxBytes)
        return Peeked::TooLong;
    const int end = offset + 4 + static_cast<int>(length);
    const QByteArray bytes = in.device()->peek(end);
    if (bytes.size() < end)
        return Peeked::Missing;
    QDataStream textStream(bytes);
    textStream.setVersion(in.version());
    textStream.setByteOrder(in.byteOrder());
    textStream.skipRawData(offset);
    textStream >> *text;
    *next = end;
    return textStream.status() == QDataStream::Ok ? Peeked::Text : Peeked::Missing;
}

// Longer zone ids (in bytes) name no zone.
constexpr quint32 kLongestZoneId = 4096;

// Looks ahead at a QDateTime before Qt reads it: false if it is in a time
// zone whose id (or, for a zone stored by its offset, the id stored with
// it) is unsafe. Only streams from Qt 5.2 on store time zones.
bool dateTimeZoneIsSafe(QDataStream& in)
{
    if (!in.device() || in.version() < QDataStream::Qt_5_2)
        return true;
    constexpr int kDateTimeHead = 8 + 4 + 1; // Julian day, milliseconds, kind of time
    const QByteArray head = in.device()->peek(kDateTimeHead);
    if (head.size() < kDateTimeHead)
        return true; // Qt's reader runs out of data before it reads a zone
    QDataStream headStream(head);
    headStream.setByteOrder(in.byteOrder());
    qint64 julianDay = 0;
    quint32 milliseconds = 0;
    qint8 timeKind = 0;
    headStream >> julianDay >> milliseconds >> timeKind;
    if (timeKind != Qt::TimeZone)
        return true;
    QString id;
    int next = kDateTimeHead;
    for (int part = 0; part < 2; ++part) {
        switch (peekString(in, next, kLongestZoneId, &id, &next)) {
        case Peeked::Missing:
            return true; // the id is cut: Qt's reader gets an empty one
        case Peeked::TooLong:
            return false;
        case Peeked::Text:
            break;
        }
        if (isUnsafeZoneId(id))
            return false;
        if (id != QLatin1String("OffsetFromUtc"))
            return true;
    }
    return true;
}

// Looks ahead at a QRegExp before Qt reads it: Qt compiles the pattern as
// it reads it, so a pattern too complex to compile within bounds (or longer
// than any such pattern can be) is refused here.
bool regExpIsTractable(QDataStream& in)
{
    if (!in.device())
        return true;
    QString pattern;
    int next = 0;
    switch (peekString(in, 0, kLongestRegExpPattern, &pattern, &next)) {
    case Peeked::Missing:
        return true; // Qt's reader runs out of data and compiles nothing
    case Peeked::TooLong:
        return false;
    case Peeked::Text:
        break;
    }
    const QByteArray flags = in.device()->peek(next + 2); // case sensitivity, syntax
    if (flags.size() < next + 2)
        return true;
    const auto syntax = static_cast<QRegExp::PatternSyntax>(static_cast<quint8>(flags.at(next + 1)));
    return isTractableRegExp(pattern, syntax);
}

QVariant corrupt(QDataStream& in)
{
    in.setStatus(QDataStream::ReadCorruptData);
    return QVariant();
}

// A value whose type the stream names: a built-in type by its id, or any
// type (built-in ones included) by name after the id QMetaType::User.
QVariant readTypedValue(QDataStream& in, quint32 typeId, bool isNull, int nesting)
{
    QVariant value;
    switch (typeId) {
    case QMetaType::QVariantList:
        value = readList(in, nesting);
        break;
    case QMetaType::QVariantMap:
        value = readMap<QVariantMap, QMultiMap<QString, QVariant>>(in, nesting);
        break;
    case QMetaType::QVariantHash:
        value = readMap<QVariantHash, QMultiHash<QString, QVariant>>(in, nesting);
        break;
    case QMetaType::QStringList:
        value = readPlainList<QStringList, QString>(in);
        break;
    case QMetaType::QByteArrayList:
        value = QVariant::fromValue(readPlainList<QByteArrayList, QByteArray>(in));
        break;
    case QMetaType::QPolygon:
        value = QVariant::fromValue(readPlainList<QPolygon, QPoint>(in));
        break;
    case QMetaType::QPolygonF:
        value = QVariant::fromValue(readPlainList<QPolygonF, QPointF>(in));
        break;
    default:
        if (!isBoundedType(typeId))
            return corrupt(in);
        if (typeId == QMetaType::QDateTime && !dateTimeZoneIsSafe(in))
            return corrupt(in);
        if (typeId == QMetaType::QRegExp && !regExpIsTractable(in))
            return corrupt(in);
        value = QVariant(static_cast<int>(typeId), nullptr);
        if (!QMetaType::load(in, static_cast<int>(typeId), value.data()))
            return corrupt(in);
        // A date-time in an unknown time zone cannot even be written again
        // (Qt dereferences the missing zone): refuse it here.
        if (typeId == QMetaType::QDateTime) {
            const QDateTime dateTime = value.toDateTime();
            if (dateTime.timeSpec() == Qt::TimeZone && !dateTime.timeZone().isValid())
                return corrupt(in);
        }
        break;
    }
    if (!ok(in))
        return QVariant();
    if (isNull)
        return QVariant(static_cast<QVariant::Type>(typeId));
    return value;
}

// The id of a type in a stream of a version before Qt 5.0, as Qt's reader
// maps it to today's ids. False for an id that Qt's writer never gives a
// type the reader accepts.
bool currentTypeId(quint32& typeId, int version)
{
    if (version < QDataStream::Qt_4_0) {
        // The Qt 3 ids of the types that existed then.
        static const QHash<quint32, quint32> kQt3Ids = {
            {0, QMetaType::UnknownType}, {1, QMetaType::QVariantMap},  {2, QMetaType::QVariantList},
            {3, QMetaType::QString},     {4, QMetaType::QStringList},  {8, QMetaType::QRect},
            {9, QMetaType::QSize},       {10, QMetaType::QColor},      {14, QMetaType::QPoint},
            {16, QMetaType::Int},        {17, QMetaType::UInt},        {18, QMetaType::Bool},
            {19, QMetaType::Double},     {21, QMetaType::QPolygon},    {26, QMetaType::QDate},
            {27, QMetaType::QTime},      {28, QMetaType::QDateTime},   {29, QMetaType::QByteArray},
            {30, QMetaType::QBitArray},  {33, QMetaType::LongLong},    {34, QMetaType::ULongLong},
        };
        const auto found = kQt3Ids.constFind(typeId);
        if (found == kQt3Ids.constEnd())
            return false;
        typeId = found.value();
        return true;
    }
    // Qt 4: user types were 127; the types from 128 on moved down by 97
    // when Qt 5 merged them into the core types; the Gui types from
    // QSizePolicy (75) to QQuaternion (86) moved as well.
    if (typeId == 127)
        typeId = QMetaType::User;
    else if (typeId >= 128 && typeId != QMetaType::User)
        typeId -= 97;
    else if (typeId == 75)
        typeId = QMetaType::QSizePolicy;
    else if (typeId > 75 && typeId <= 86)
        typeId -= 1;
    return true;
}

QVariant readValue(QDataStream& in, int nesting)
{
    if (nesting > kMaxNesting)
        return corrupt(in);
    const int version = in.version();
    quint32 typeId = 0;
    in >> typeId;
    if (!ok(in))
        return QVariant();
    if (version < QDataStream::Qt_5_0 && !currentTypeId(typeId, version))
        return corrupt(in);
    qint8 isNull = 0;
    if (version >= QDataStream::Qt_4_2)
        in >> isNull;
    if (!ok(in))
        return QVariant();
    if (typeId == QMetaType::UnknownType) {
        // Before Qt 5.0 an invalid value is followed by an empty string.
        if (version < QDataStream::Qt_5_0) {
            QString ignored;
            in >> ignored;
        }
        return QVariant();
    }

    if (typeId == QMetaType::User) {
        QByteArray name;
        in >> name;
        if (!ok(in))
            return QVariant();
        const int namedType = QMetaType::type(name.constData());
        if (namedType == QMetaType::UnknownType)
            return corrupt(in);
        // Qt's reader accepts built-in types by name as well ("QVariantList"
        // after the user id): they get the same bounded treatment as by id.
        if (namedType < QMetaType::User)
            return readTypedValue(in, static_cast<quint32>(namedType), isNull, nesting);
        QVariant value(namedType, nullptr);
        if (!QMetaType::load(in, namedType, value.data()))
            return corrupt(in);
        return value;
    }
    return readTypedValue(in, typeId, isNull, nesting);
}

} // namespace

void writeVariant(QDataStream& out, const QVariant& value) { out << value; }

QVariant readVariant(QDataStream& in) { return readValue(in, 0); }

QVariantMap readVariantMap(QDataStream& in) { return readMap<QVariantMap, QMultiMap<QString, QVariant>>(in, 0); }

} // namespace kogen
