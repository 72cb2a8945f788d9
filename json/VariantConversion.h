#pragma once

// Conversion between Qt variants and JSON values, nested and as the flat key
// maps QSettings holds. See docs/json-bridge.md for the tables.

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/json/Schema.h>
#include <CommonKit/support/json/Variant.h>

#include <boost/intrusive_ptr.hpp>

#include <QList>
#include <QMap>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>

/// A json::Variant travels inside a QVariant as the meta type "json::Variant"
/// (see makeQVariant); jsonVariant() hands the held value back unchanged.
Q_DECLARE_METATYPE(json::Variant)

/// The type URIs of the Qt geometry types: k_dataTypesUrl followed by
/// "#point", "#point(number)", "#dimension", "#dimension(number)",
/// "#rectangle" or "#rectangle(number)". The schema document behind them is
/// compiled into the library and registered under this URL.
COMMONKIT_EXPORT extern const char* const k_dataTypesUrl;

/// Registers QPoint, QPointF, QSize, QSizeF, QRect and QRectF as application
/// data types (keyed by their QVariant type names) and the schema document
/// that describes them. Runs when the library loads; calling it again does no
/// harm. Returns true.
COMMONKIT_EXPORT bool registerQDataTypes();

/// The meta type id of "json::Variant".
COMMONKIT_EXPORT int jsonVariantMetaTypeId();
/// value wrapped as a QVariant of type "json::Variant".
COMMONKIT_EXPORT QVariant makeQVariant(const json::Variant& value);

/// The JSON form of a Qt value, by its type. Types JSON cannot express become
/// tagged meta-type objects when withMetaTypes is true and their toString()
/// text otherwise.
COMMONKIT_EXPORT json::Variant jsonVariant(const QVariant& value, bool withMetaTypes);
/// The tagged meta-type object of value: {"#qtype": type id, "#alt-type-name":
/// type name, "#qdata": the bytes of the QVariant written to a QDataStream}.
COMMONKIT_EXPORT json::Variant jsonVariantFromMetaType(const QVariant& value);

/// The Qt value of a JSON value.
COMMONKIT_EXPORT QVariant qVariant(const json::Variant& value);
/// The QVariant read from the "#qdata" bytes of a tagged meta-type object;
/// invalid when they do not hold one.
COMMONKIT_EXPORT QVariant qVariantFromMetaType(const json::Object& object);
COMMONKIT_EXPORT QList<QVariant> qVariantList(const json::List& list);
COMMONKIT_EXPORT QMap<QString, QVariant> qVariantMap(const json::Object& object);
/// Strings as they are, other scalars as their Qt text, nested values as
/// empty strings.
COMMONKIT_EXPORT QStringList qStringList(const json::List& list);

/// Adds the flat entries of value under prefix to map: members and elements
/// get keys joined by separator, lists the QSettings array layout (one-based
/// indices and a "size" entry). The schema attached to value decides where
/// string lists, flat lists, dates, times, uuids and application data types
/// stay whole.
COMMONKIT_EXPORT void qVariantMapFlat(QMap<QString, QVariant>& map, const json::Variant& value, char separator,
                                      const QString& prefix);
/// The nested value of a flat map: the inverse of qVariantMapFlat.
COMMONKIT_EXPORT json::Variant jsonVariantFlat(const QMap<QString, QVariant>& map, char separator,
                                               boost::intrusive_ptr<json::Schema> schema, bool withMetaTypes);
