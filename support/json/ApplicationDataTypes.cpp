// The registry of application data types behind json::Schema's
// registerApplicationDataType() and its companions.

#include <CommonKit/support/json/ApplicationDataType.h>
#include <CommonKit/support/json/Schema.h>

#include <map>
#include <mutex>

namespace json {

ApplicationDataType::~ApplicationDataType() = default;

namespace {

const int k_maxRefHops = 32;

struct Entry
{
    std::string uri;
    std::shared_ptr<const ApplicationDataType> type;
    // Where the URI leads (document URL and pointer), once it could be
    // resolved.
    bool located = false;
    std::string documentUrl;
    std::string pointer;
};

struct Registry
{
    std::mutex mutex;
    std::map<std::string, Entry> types;
};

Registry& registry()
{
    static Registry instance;
    return instance;
}

std::shared_ptr<const ApplicationDataType> converter(const std::string& typeName)
{
    std::lock_guard<std::mutex> lock(registry().mutex);
    const auto found = registry().types.find(typeName);
    return found == registry().types.end() ? nullptr : found->second.type;
}

std::string nameForUri(const std::string& uri)
{
    std::lock_guard<std::mutex> lock(registry().mutex);
    for (const auto& type : registry().types) {
        if (type.second.uri == uri)
            return type.first;
    }
    return std::string();
}

// The name of the type whose URI leads to the node at pointer in the
// document at url. Only URIs into that document are resolved (once each),
// and outside the lock, since resolving may load the document.
std::string nameForLocation(const std::string& url, const std::string& pointer)
{
    std::map<std::string, std::string> unresolved;
    {
        std::lock_guard<std::mutex> lock(registry().mutex);
        for (const auto& type : registry().types) {
            if (type.second.located) {
                if (type.second.documentUrl == url && type.second.pointer == pointer)
                    return type.first;
            } else if (type.second.uri.compare(0, type.second.uri.find('#'), url) == 0) {
                unresolved.emplace(type.first, type.second.uri);
            }
        }
    }
    std::string result;
    for (const auto& type : unresolved) {
        const Schema::Ptr node = Schema::resolve(type.second);
        if (!node)
            continue;
        std::lock_guard<std::mutex> lock(registry().mutex);
        const auto found = registry().types.find(type.first);
        if (found == registry().types.end() || found->second.uri != type.second)
            continue;
        found->second.located = true;
        found->second.documentUrl = node->documentUrl();
        found->second.pointer = node->pointer();
        if (result.empty() && node->documentUrl() == url && node->pointer() == pointer)
            result = type.first;
    }
    return result;
}

} // namespace

bool Schema::registerApplicationDataType(const std::string& typeName, const std::string& uri,
                                         std::shared_ptr<const ApplicationDataType> type)
{
    if (typeName.empty() || uri.empty() || !type)
        return false;
    Entry entry;
    entry.uri = resolveUrl(uri, std::string());
    entry.type = std::move(type);
    std::lock_guard<std::mutex> lock(registry().mutex);
    registry().types[typeName] = std::move(entry);
    return true;
}

Variant Schema::variantFromApplicationDataType(const std::string& typeName, const void* object)
{
    const auto type = converter(typeName);
    return type && object ? type->toVariant(object) : Variant();
}

bool Schema::applicationDataTypeToObject(const std::string& typeName, const Variant& value, void* object)
{
    const auto type = converter(typeName);
    return type && object && type->fromVariant(value, object);
}

std::string Schema::applicationDataTypeUri(const std::string& typeName)
{
    std::lock_guard<std::mutex> lock(registry().mutex);
    const auto found = registry().types.find(typeName);
    return found == registry().types.end() ? std::string() : found->second.uri;
}

std::string Schema::applicationDataType() const
{
    Ptr node(const_cast<Schema*>(this));
    for (int hop = 0; hop < k_maxRefHops; ++hop) {
        const std::string reference = node->ref();
        if (reference.empty())
            break;
        const std::string name = nameForUri(reference);
        if (!name.empty())
            return name;
        node = resolve(reference);
        if (!node)
            return std::string();
    }
    return nameForLocation(node->documentUrl(), node->pointer());
}

} // namespace json
