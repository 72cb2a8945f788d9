#include "support/json/SchemaDocuments_p.h"

#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/Path.h>

#include <QDir>
#include <QFile>
#include <QUrl>

#include <map>
#include <memory>
#include <mutex>

namespace json {
namespace schema {

// The draft 7 meta-schema as published (SchemaMetaSchema.cpp).
extern const char* const k_draft7MetaSchema;

namespace {

const char* const k_tag = "json::Schema::resolve";
const char* const k_draft7MetaSchemaUrl = "http://json-schema.org/draft-07/schema";
const qint64 k_maxDocumentSize = 16 << 20;
// Identifiers deep in a large document have long pointers; this bounds what
// one document's index keeps.
const std::size_t k_maxIndexSize = 64 << 20;

// The identifiers a document declares with "$id".
struct Index
{
    std::map<std::string, std::string> resources; // absolute URI -> JSON pointer
    std::map<std::string, std::string> anchors;   // absolute URI "#" name -> JSON pointer
    std::size_t size = 0;                          // characters stored
};

struct Entry
{
    Variant root;
    std::shared_ptr<const Index> index;
};

struct Cache
{
    std::mutex mutex;
    std::map<std::string, Entry> documents;
};

Cache& cache()
{
    static Cache instance;
    return instance;
}

QUrl toUrl(const std::string& text, bool reference)
{
    const QString string = QString::fromStdString(text);
    if (string.startsWith(QLatin1String(":/")))
        return QUrl(QStringLiteral("qrc") + string);
    QUrl url(string);
    if (!reference && url.scheme().isEmpty() && QDir::isAbsolutePath(string))
        return QUrl::fromLocalFile(string);
    return url;
}

// Walks the schemas of a document for "$id"s. path is the walk's position,
// extended and cut back in place.
void indexSchema(const Variant& node, const std::string& base, Path& path, int depth, Index* index)
{
    if (depth > k_maxDepth || !node.isObject() || node.contains("$ref"))
        return;
    const std::string below = baseOf(node, base);
    const Variant id = node.value("$id");
    if (id.isString() && index->size < k_maxIndexSize) {
        const std::string text = id.toString();
        const std::string absolute = resolveReference(text, base);
        const std::string pointer = path.toJsonPointer();
        if (!text.empty() && text[0] != '#' && !below.empty() && index->resources.emplace(below, pointer).second)
            index->size += below.size() + pointer.size();
        const std::string name = fragmentOf(absolute);
        if (!name.empty() && name[0] != '/' && index->anchors.emplace(withoutFragment(absolute) + "#" + name, pointer).second)
            index->size += absolute.size() + pointer.size();
        if (index->size >= k_maxIndexSize)
            ko::LogLine(ko::Log::Warning, k_tag) << "too many \"$id\"s, the rest are not indexed";
    }
    const auto enter = [&](const std::string& segment, const Variant& child) {
        path.append(segment);
        indexSchema(child, below, path, depth + 1, index);
        path.removeLast();
    };
    for (VariantIterator it(node); !it.atEnd(); it.next()) {
        const Variant value = it.value();
        const Holds holds = keywordHolds(it.key());
        if (holds == Holds::Value)
            continue;
        if (holds == Holds::Schema || (holds == Holds::SchemaOrList && !value.isList())) {
            enter(it.key(), value);
            continue;
        }
        path.append(it.key());
        if ((holds == Holds::SchemaList || holds == Holds::SchemaOrList) && value.isList()) {
            for (VariantIterator element(value); !element.atEnd(); element.next())
                enter(std::to_string(element.index()), element.value());
        } else if ((holds == Holds::SchemaMap || holds == Holds::Dependencies) && value.isObject()) {
            for (VariantIterator member(value); !member.atEnd(); member.next())
                enter(member.key(), member.value());
        }
        path.removeLast();
    }
}

std::shared_ptr<const Index> indexDocument(const std::string& url, const Variant& root)
{
    auto index = std::make_shared<Index>();
    index->resources.emplace(url, std::string());
    Path path;
    indexSchema(root, url, path, 0, index.get());
    return index;
}

bool cachedEntry(const std::string& url, Entry* entry)
{
    std::lock_guard<std::mutex> lock(cache().mutex);
    const auto found = cache().documents.find(url);
    if (found == cache().documents.end())
        return false;
    *entry = found->second;
    return true;
}

bool parseDocument(const std::string& url, const QByteArray& text, Variant* result)
{
    JsonParser parser;
    parser.parse(text.constData(), static_cast<std::size_t>(text.size()));
    *result = parser.parseComplete();
    if (text.size() > k_maxDocumentSize || parser.hasError() || !(result->isObject() || result->isBoolean())) {
        ko::LogLine(ko::Log::Warning, k_tag) << url << " is not a JSON schema"
                                             << (parser.hasError() ? ": " + parser.lastError() : std::string());
        return false;
    }
    return true;
}

// The document at url from the cache, a file, a Qt resource or the built-in
// meta-schema; what was read is cached.
bool entryFor(const std::string& url, Entry* entry)
{
    if (cachedEntry(url, entry))
        return true;
    Variant parsed;
    if (url == k_draft7MetaSchemaUrl) {
        if (!parseDocument(url, QByteArray(k_draft7MetaSchema), &parsed))
            return false;
    } else {
        const QUrl location(QString::fromStdString(url));
        QString path;
        if (location.scheme() == QLatin1String("file"))
            path = location.toLocalFile();
        else if (location.scheme() == QLatin1String("qrc"))
            path = QLatin1Char(':') + location.path();
        if (path.isEmpty()) {
            ko::LogLine(ko::Log::Warning, k_tag) << "no schema registered under " << url;
            return false;
        }
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            ko::LogLine(ko::Log::Warning, k_tag) << "cannot read " << url << ": " << file.errorString();
            return false;
        }
        if (!parseDocument(url, file.read(k_maxDocumentSize + 1), &parsed))
            return false;
    }
    storeDocument(url, parsed);
    return cachedEntry(url, entry);
}

// The base URI at the end of path's walk from the root: "$id"s apply where
// the walk is at a schema, not inside plain values. Past the end of what
// exists there is no "$id" to apply.
std::string baseAt(const std::string& url, const Variant& root, const Path& path)
{
    enum class At { Schema, SchemaList, SchemaMap, Dependencies, Value };
    const std::vector<Variant> trail = path.trail(root);
    std::string base = url;
    At at = At::Schema;
    for (std::size_t i = 0; i < trail.size(); ++i) {
        const Variant& node = trail[i];
        if (at == At::Schema) {
            // Beside a "$ref" there are no schemas.
            if (node.isObject() && node.contains("$ref"))
                return base;
            base = baseOf(node, base);
        }
        if (i + 1 == trail.size() || at == At::Value)
            return base;
        const Variant& child = trail[i + 1];
        switch (at) {
        case At::Schema:
            switch (keywordHolds(path.segments()[i])) {
            case Holds::Schema: at = At::Schema; break;
            case Holds::SchemaList: at = At::SchemaList; break;
            case Holds::SchemaOrList: at = child.isList() ? At::SchemaList : At::Schema; break;
            case Holds::SchemaMap: at = At::SchemaMap; break;
            case Holds::Dependencies: at = At::Dependencies; break;
            case Holds::Value: at = At::Value; break;
            }
            break;
        case At::SchemaList: at = node.isList() ? At::Schema : At::Value; break;
        case At::SchemaMap: at = node.isObject() ? At::Schema : At::Value; break;
        case At::Dependencies: at = node.isObject() && !child.isList() ? At::Schema : At::Value; break;
        case At::Value: break;
        }
    }
    return base;
}

} // namespace

Holds keywordHolds(const std::string& keyword)
{
    static const std::map<std::string, Holds> keywords = {
        {"additionalItems", Holds::Schema},    {"additionalProperties", Holds::Schema},
        {"contains", Holds::Schema},           {"propertyNames", Holds::Schema},
        {"not", Holds::Schema},                {"if", Holds::Schema},
        {"then", Holds::Schema},               {"else", Holds::Schema},
        {"allOf", Holds::SchemaList},          {"anyOf", Holds::SchemaList},
        {"oneOf", Holds::SchemaList},          {"items", Holds::SchemaOrList},
        {"properties", Holds::SchemaMap},      {"patternProperties", Holds::SchemaMap},
        {"definitions", Holds::SchemaMap},     {"dependencies", Holds::Dependencies},
    };
    const auto found = keywords.find(keyword);
    return found == keywords.end() ? Holds::Value : found->second;
}

std::string resolveReference(const std::string& reference, const std::string& base)
{
    if (base.empty())
        return toUrl(reference, false).toString().toStdString();
    const QUrl relative = toUrl(reference, true);
    if (!relative.scheme().isEmpty())
        return relative.toString().toStdString();
    return toUrl(base, false).resolved(relative).toString().toStdString();
}

std::string baseOf(const Variant& schema, const std::string& parentBase)
{
    if (!schema.isObject() || schema.contains("$ref"))
        return parentBase;
    const Variant id = schema.value("$id");
    const std::string changed = id.isString() ? withoutFragment(resolveReference(id.toString(), parentBase)) : std::string();
    return changed.empty() ? parentBase : changed;
}

std::string withoutFragment(const std::string& uri)
{
    const std::size_t hash = uri.find('#');
    return hash == std::string::npos ? uri : uri.substr(0, hash);
}

std::string fragmentOf(const std::string& uri)
{
    const std::size_t hash = uri.find('#');
    return hash == std::string::npos
        ? std::string()
        : QUrl::fromPercentEncoding(QByteArray::fromStdString(uri.substr(hash + 1))).toStdString();
}

bool loadDocument(const std::string& url, Variant* root)
{
    Entry entry;
    if (!entryFor(url, &entry))
        return false;
    *root = entry.root;
    return true;
}

void storeDocument(const std::string& url, const Variant& root)
{
    Entry entry{root, indexDocument(url, root)};
    std::lock_guard<std::mutex> lock(cache().mutex);
    cache().documents[url] = std::move(entry);
}

bool locatePointer(const std::string& url, const std::string& pointer, Location* result)
{
    Entry entry;
    Path path;
    Variant node;
    if (!entryFor(url, &entry) || !Path::fromJsonPointer(pointer, &path) || !path.locate(entry.root, &node))
        return false;
    *result = Location{url, path.toJsonPointer(), entry.root, node, baseAt(url, entry.root, path)};
    return true;
}

Location locationOf(const std::string& url, const Variant& root, const std::string& pointer, const Variant& node)
{
    Path path;
    Path::fromJsonPointer(pointer, &path);
    return Location{url, pointer, root, node, baseAt(url, root, path)};
}

bool locate(const std::string& uri, const std::string& context, Location* result)
{
    const std::string resource = withoutFragment(uri);
    const std::string fragment = fragmentOf(uri);
    std::string document;
    std::string pointer;
    Entry entry;
    if (!context.empty() && cachedEntry(context, &entry)) {
        const auto found = entry.index->resources.find(resource);
        if (found != entry.index->resources.end()) {
            document = context;
            pointer = found->second;
        }
    }
    if (document.empty()) {
        if (!entryFor(resource, &entry))
            return false;
        document = resource;
    }
    if (fragment.empty() || fragment[0] == '/')
        return locatePointer(document, pointer + fragment, result);
    // A plain name, declared by "$id": "#name" within the resource.
    Location named;
    if (!locatePointer(document, pointer, &named))
        return false;
    const auto found = entry.index->anchors.find(named.base + "#" + fragment);
    return found != entry.index->anchors.end() && locatePointer(document, found->second, result);
}

} // namespace schema
} // namespace json
