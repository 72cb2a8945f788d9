#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/json/Variant.h>

#include <boost/intrusive_ptr.hpp>

#include <QString>

#include <atomic>
#include <mutex>
#include <string>

namespace json {

/// A JSON Schema (draft 7) or a part of one.
///
/// Schema documents come from resolve(), which loads "file:" URLs, "qrc:"
/// URLs (Qt resources; ":/path" works too) and documents registered in memory
/// with registerSchema(), and caches every document it loaded. A Schema
/// object is one node of such a document: the root, or a sub-schema reached
/// with member(), items() or a "$ref".
///
/// Besides validation (by valijson) a node answers the questions a converter
/// asks about a value: whether it is a list of strings, a flat list, a date,
/// time, date-time or uuid string ("format"), binary data
/// ("contentEncoding": "base64"), and which "$ref" URI it names.
class COMMONKIT_EXPORT Schema
{
public:
    /// Schemas are shared, reference-counted and immutable.
    using Ptr = boost::intrusive_ptr<Schema>;

    /// The schema in the document at url (a fragment selects a part: a JSON
    /// pointer "#/definitions/x" or a plain name "#x" declared by "$id"),
    /// resolved against base. Null when the document cannot be loaded or
    /// parsed, or the fragment names nothing (the reason is logged).
    static Ptr resolve(const std::string& url, const std::string& base = std::string());
    /// Makes a document available under url (without fragment), replacing
    /// a cached one.
    static void registerSchema(const std::string& url, const Variant& document);
    /// A schema made from a value; it is registered under url when one is
    /// given, and under a generated "urn:" name otherwise.
    static Ptr fromVariant(const Variant& document, const std::string& url = std::string());
    /// url resolved against base, as RFC 3986 says.
    static std::string resolveUrl(const std::string& url, const std::string& base);

    /// The URL of the document this node belongs to.
    const std::string& documentUrl() const { return m_url; }
    /// The JSON pointer of this node in its document ("" for the root).
    const std::string& pointer() const { return m_pointer; }
    /// This node's schema object (or boolean schema).
    const Variant& value() const { return m_node; }

    /// Validates value against this node. On failure, *error lists the
    /// reasons, one per line ("/path/in/value: reason"), and errorString()
    /// tells the first of them. A schema that cannot be applied (a "$ref"
    /// naming nothing, "multipleOf" not above 0, nesting too deep) fails
    /// every value, with that reason.
    [[nodiscard]] bool validate(const Variant& value, std::string* error = nullptr) const;
    /// Why the last validate() on this node failed, translated: the JSON
    /// pointer of the part of the value that breaks the schema and the rule
    /// it breaks, or why the schema or the value cannot be used. Empty after
    /// a validate() that succeeded.
    QString errorString() const;

    /// The sub-schema of object member `key` ("properties", else an
    /// "additionalProperties" schema) and of list elements ("items" as one
    /// schema); "$ref"s are followed. Null when the schema says nothing.
    Ptr member(const std::string& key) const;
    /// The sub-schema of the elements of a list (see member()).
    Ptr items() const;
    /// This node with its "$ref" followed (repeatedly); itself without one.
    Ptr target() const;
    /// The absolute URI of this node's "$ref", empty without one.
    std::string ref() const;

    /// "type" when it is one name, else empty.
    std::string type() const;
    /// A list of strings: {"type": "array", "items": {"type": "string"}}.
    bool isStringList() const;
    /// A list whose items are strings, numbers, integers or booleans.
    bool isFlatList() const;
    /// A date string: {"type": "string", "format": "date"}.
    bool isDate() const;
    /// A time string: {"type": "string", "format": "time"}.
    bool isTime() const;
    /// A date-time string: {"type": "string", "format": "date-time"}.
    bool isDateTime() const;
    /// A uuid string: {"type": "string", "format": "uuid"}.
    bool isUuid() const;
    /// Binary data as text: {"type": "string", "contentEncoding": "base64"}.
    bool isBinary() const;

    /// Application data types: native types with a JSON form, each known by
    /// a type name and the URI of the schema node that describes its form
    /// (see ApplicationDataType.h; defined in ApplicationDataTypes.cpp).
    ///
    /// Registers `type` under typeName and uri, replacing an earlier
    /// registration of the name; false for an empty name or URI or a null
    /// converter.
    static bool registerApplicationDataType(const std::string& typeName, const std::string& uri,
                                            std::shared_ptr<const class ApplicationDataType> type);
    /// The JSON form of the native value at object, of the type registered
    /// under typeName; null when the name is not registered.
    static Variant variantFromApplicationDataType(const std::string& typeName, const void* object);
    /// Sets the native value at object from its JSON form; false when the
    /// name is not registered or value does not have the form.
    static bool applicationDataTypeToObject(const std::string& typeName, const Variant& value, void* object);
    /// The URI registered for typeName, empty when there is none.
    static std::string applicationDataTypeUri(const std::string& typeName);
    /// The name of the registered type this node stands for: its "$ref"
    /// names the type's URI, directly or through further references, or it
    /// is the node that URI names. Empty when it stands for none.
    std::string applicationDataType() const;

    Schema(const Schema&) = delete;
    Schema& operator=(const Schema&) = delete;

private:
    Schema(std::string url, std::string pointer, Variant root, Variant node);
    Ptr child(const std::string& segment, const Variant& node) const;
    bool hasFormat(const char* format) const;

    friend COMMONKIT_EXPORT void intrusive_ptr_add_ref(const Schema* schema);
    friend COMMONKIT_EXPORT void intrusive_ptr_release(const Schema* schema);

    std::string m_url;
    std::string m_pointer;
    Variant m_root;
    Variant m_node;
    mutable std::atomic<int> m_references{0};
    mutable std::mutex m_errorMutex;
    mutable QString m_errorString;
};

/// Counts one more Schema::Ptr to schema (for boost::intrusive_ptr).
COMMONKIT_EXPORT void intrusive_ptr_add_ref(const Schema* schema);
/// Counts one Schema::Ptr less; the last one deletes schema.
COMMONKIT_EXPORT void intrusive_ptr_release(const Schema* schema);

} // namespace json
