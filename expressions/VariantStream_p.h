#pragma once

#include <QVariant>

class QDataStream;

namespace kogen {

// Writes a QVariant exactly as QDataStream does.
void writeVariant(QDataStream& out, const QVariant& value);

// Reads a QVariant written by QDataStream, in the stream's version (for
// versions before Qt 5.0 the old type ids are mapped as Qt maps them; Qt 3
// streams are read for the types Qt 3 had). Unlike Qt's reader it never
// reserves memory for a container before its elements arrive, limits the
// nesting of lists and maps, and accepts only value types whose stream
// format is bounded by the data: numbers, texts, byte and bit arrays, dates
// and times, URLs, locales, geometry (polygons included), regular
// expressions, UUIDs, JSON values, the variant containers, key sequences,
// a few fixed-size Gui types and registered user types.
// Anything else marks the stream as corrupt and gives an invalid QVariant.
QVariant readVariant(QDataStream& in);

// Reads a QMap<QString, QVariant> written by QDataStream (a count, then
// pairs of key and value) with the same bounds; every pair is kept, as by
// Qt's reader. An empty map when the stream is cut or corrupt.
QVariantMap readVariantMap(QDataStream& in);

} // namespace kogen
