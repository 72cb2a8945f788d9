#include <CommonKit/support/json/Schema.h>

#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/json/Path.h>
#include "support/json/SchemaDocuments_p.h"
#include "support/json/SchemaValidation_p.h"

#include <QCoreApplication>

#include <atomic>
#include <string>
#include <vector>

namespace json {
namespace {

const char* const k_tag = "json::Schema::resolve";
const int k_maxRefHops = 32;

const char* const k_context = "json::Schema";
const char* const k_invalidText = QT_TRANSLATE_NOOP("json::Schema", "The value does not match the schema: %1");
const char* const k_invalidAtText = QT_TRANSLATE_NOOP("json::Schema", "The value at %1 does not match the schema: %2");
const char* const k_schemaUnusableText = QT_TRANSLATE_NOOP("json::Schema", "The schema %1 cannot be used: %2");
const char* const k_valueUnusableText = QT_TRANSLATE_NOOP("json::Schema", "The value cannot be validated: %1");

QString translated(const char* text)
{
    return QCoreApplication::translate(k_context, text);
}

// A failure as one line of validate()'s error text.
std::string reasonLine(const schema::Failure& failure)
{
    switch (failure.kind) {
    case schema::Failure::SchemaUnusable:
        return "the schema cannot be used: " + failure.reason;
    case schema::Failure::ValueUnusable:
        return "the value cannot be validated: " + failure.reason;
    case schema::Failure::Invalid:
        break;
    }
    return (failure.pointer.empty() ? std::string("<root>") : failure.pointer) + ": " + failure.reason;
}

// A failure as errorString() tells it.
QString describe(const schema::Failure& failure, const std::string& schemaUri)
{
    const QString reason = QString::fromStdString(failure.reason);
    switch (failure.kind) {
    case schema::Failure::SchemaUnusable:
        return translated(k_schemaUnusableText).arg(QString::fromStdString(schemaUri), reason);
    case schema::Failure::ValueUnusable:
        return translated(k_valueUnusableText).arg(reason);
    case schema::Failure::Invalid:
        break;
    }
    if (failure.pointer.empty())
        return translated(k_invalidText).arg(reason);
    return translated(k_invalidAtText).arg(QString::fromStdString(failure.pointer), reason);
}

} // namespace

Schema::Schema(std::string url, std::string pointer, Variant root, Variant node)
    : m_url(std::move(url)), m_pointer(std::move(pointer)), m_root(std::move(root)), m_node(std::move(node))
{
}

void intrusive_ptr_add_ref(const Schema* schema)
{
    schema->m_references.fetch_add(1, std::memory_order_relaxed);
}

void intrusive_ptr_release(const Schema* schema)
{
    if (schema->m_references.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete schema;
}

std::string Schema::resolveUrl(const std::string& url, const std::string& base)
{
    return schema::resolveReference(url, base);
}

Schema::Ptr Schema::resolve(const std::string& url, const std::string& base)
{
    const std::string absolute = resolveUrl(url, base);
    Variant root;
    if (!schema::loadDocument(schema::withoutFragment(absolute), &root))
        return Ptr();
    schema::Location found;
    if (!schema::locate(absolute, std::string(), &found)) {
        ko::LogLine(ko::Log::Warning, k_tag) << absolute << " names no part of its document";
        return Ptr();
    }
    return Ptr(new Schema(found.document, found.pointer, found.root, found.node));
}

void Schema::registerSchema(const std::string& url, const Variant& document)
{
    schema::storeDocument(schema::withoutFragment(resolveUrl(url, std::string())), document);
}

Schema::Ptr Schema::fromVariant(const Variant& document, const std::string& url)
{
    static std::atomic<int> generated{0};
    const std::string name = url.empty() ? "urn:commonkit:schema:" + std::to_string(++generated) : url;
    registerSchema(name, document);
    return resolve(schema::withoutFragment(resolveUrl(name, std::string())));
}

bool Schema::validate(const Variant& value, std::string* error) const
{
    std::vector<schema::Failure> failures;
    const bool valid = schema::validate(schema::locationOf(m_url, m_root, m_pointer, m_node), value, &failures);
    // valijson gives no reason for the schema false.
    if (!valid && failures.empty())
        failures.push_back(schema::Failure{schema::Failure::Invalid, std::string(), "No value is valid here."});
    if (error) {
        error->clear();
        for (const schema::Failure& failure : failures)
            *error += reasonLine(failure) + "\n";
    }
    const QString text = valid ? QString() : describe(failures.front(), m_url + "#" + m_pointer);
    std::lock_guard<std::mutex> lock(m_errorMutex);
    m_errorString = text;
    return valid;
}

QString Schema::errorString() const
{
    std::lock_guard<std::mutex> lock(m_errorMutex);
    return m_errorString;
}

Schema::Ptr Schema::child(const std::string& segment, const Variant& node) const
{
    // segment: the child's JSON pointer relative to this node.
    return Ptr(new Schema(m_url, m_pointer + segment, m_root, node))->target();
}

Schema::Ptr Schema::target() const
{
    Ptr current(const_cast<Schema*>(this));
    for (int hop = 0; hop < k_maxRefHops; ++hop) {
        const std::string reference = current->ref();
        if (reference.empty())
            return current;
        // Identifiers declared in the document of the "$ref" come first.
        schema::Location next;
        if (!schema::locate(reference, current->m_url, &next)) {
            ko::LogLine(ko::Log::Warning, k_tag) << reference << " names no schema";
            return Ptr();
        }
        current = Ptr(new Schema(next.document, next.pointer, next.root, next.node));
    }
    ko::LogLine(ko::Log::Warning, k_tag) << m_url << "#" << m_pointer << ": too many \"$ref\" steps";
    return Ptr();
}

std::string Schema::ref() const
{
    const Variant reference = m_node.value("$ref");
    return reference.isString()
        ? resolveUrl(reference.toString(), schema::locationOf(m_url, m_root, m_pointer, m_node).base)
        : std::string();
}

Schema::Ptr Schema::member(const std::string& key) const
{
    const Ptr self = target();
    if (!self)
        return Ptr();
    const Variant properties = self->m_node.value("properties");
    if (properties.contains(key)) {
        Path path("properties");
        path.append(key);
        return self->child(path.toJsonPointer(), properties.value(key));
    }
    const Variant additional = self->m_node.value("additionalProperties");
    if (additional.isObject())
        return self->child("/additionalProperties", additional);
    return Ptr();
}

Schema::Ptr Schema::items() const
{
    const Ptr self = target();
    if (!self)
        return Ptr();
    const Variant items = self->m_node.value("items");
    return items.isObject() ? self->child("/items", items) : Ptr();
}

std::string Schema::type() const
{
    const Ptr self = target();
    return self ? self->m_node.value("type").toString() : std::string();
}

bool Schema::isStringList() const
{
    const Ptr elements = type() == "array" ? items() : Ptr();
    return elements && elements->type() == "string";
}

bool Schema::isFlatList() const
{
    const Ptr elements = type() == "array" ? items() : Ptr();
    if (!elements)
        return false;
    const std::string elementType = elements->type();
    return elementType == "string" || elementType == "number" || elementType == "integer" || elementType == "boolean";
}

bool Schema::hasFormat(const char* format) const
{
    const Ptr self = target();
    return self && self->type() == "string" && self->m_node.value("format").toString() == format;
}

bool Schema::isDate() const
{
    return hasFormat("date");
}

bool Schema::isTime() const
{
    return hasFormat("time");
}

bool Schema::isDateTime() const
{
    return hasFormat("date-time");
}

bool Schema::isUuid() const
{
    return hasFormat("uuid");
}

bool Schema::isBinary() const
{
    const Ptr self = target();
    return self && self->type() == "string" && self->m_node.value("contentEncoding").toString() == "base64";
}

} // namespace json
