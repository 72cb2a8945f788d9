#pragma once

// QSettings kept as JSON documents, with a schema per file extension. See
// docs/json-bridge.md for the file form.

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/json/Schema.h>
#include <CommonKit/support/json/Variant.h>

#include <boost/intrusive_ptr.hpp>

#include <QFileDevice>
#include <QFileInfo>
#include <QIODevice>
#include <QMap>
#include <QSettings>
#include <QString>
#include <QUrl>
#include <QVariant>

/// Registers a QSettings format for files with the extension (case-sensitive
/// keys) and records schemaUrl as the extension's schema. Registering the
/// extension again replaces the URL and returns the format registered first.
COMMONKIT_EXPORT QSettings::Format registerJsonQSettingsFormat(const QString& extension, const QUrl& schemaUrl);

/// The schema registered for an extension, resolved with json::Schema::resolve;
/// null when the extension has none, was registered with an empty URL, or its
/// schema cannot be loaded.
COMMONKIT_EXPORT boost::intrusive_ptr<json::Schema> jsonFileSchema(const QString& extension);
COMMONKIT_EXPORT boost::intrusive_ptr<json::Schema> jsonFileSchema(const QFileInfo& info);
COMMONKIT_EXPORT boost::intrusive_ptr<json::Schema> jsonFileSchema(const QFileDevice& device);

/// The read function of the formats: false when device is no file; else
/// reads with the schema of the file's extension.
COMMONKIT_EXPORT bool readJsonQSettings(QIODevice& device, QMap<QString, QVariant>& map);
/// Parses the device and adds its settings to map. An empty device is
/// success; text that is not JSON is failure. A value that fails validation
/// against schema is still read (with a logged warning).
COMMONKIT_EXPORT bool readJsonQSettings(QIODevice& device, QMap<QString, QVariant>& map,
                                        boost::intrusive_ptr<json::Schema> schema);

/// The write function of the formats: false when device is no file; else
/// writes with the schema of the file's extension.
COMMONKIT_EXPORT bool writeJsonQSettings(QIODevice& device, const QMap<QString, QVariant>& map);
/// makeJsonSettings and, unless that gives an empty value, writeJsonSettings;
/// false (with nothing written) for an empty value.
COMMONKIT_EXPORT bool writeJsonQSettings(QIODevice& device, const QMap<QString, QVariant>& map,
                                         boost::intrusive_ptr<json::Schema> schema);

/// The document of a settings map: nested JSON with meta-type tagging,
/// validated against schema (a failure only warns), binary members in base64.
COMMONKIT_EXPORT json::Variant makeJsonSettings(const QMap<QString, QVariant>& map,
                                                boost::intrusive_ptr<json::Schema> schema);
/// Prints value to device, indented, reals with 15 significant digits.
/// Always true.
COMMONKIT_EXPORT bool writeJsonSettings(QIODevice& device, json::Variant value);

/// Parses all of device (or the file) into value; text that is not JSON gives
/// the text as a string value, with an error logged.
COMMONKIT_EXPORT void readJsonFromQIODevice(QIODevice& device, json::Variant& value);
COMMONKIT_EXPORT void readJsonFromQFile(const QString& fileName, json::Variant& value);

/// json::JsonPrinter outputs: to a QIODevice*, and to a QDebug*.
COMMONKIT_EXPORT void PrintJsonToQIODevice(void* device, const char* text, int length);
COMMONKIT_EXPORT void PrintJsonToQDebug(void* debug, const char* text, int length);
