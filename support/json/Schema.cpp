#include "support/json/Schema.h"

#include "support/core/Log.h"
#include "support/json/JsonParser.h"
#include "support/json/Path.h"
#include "support/json/VariantAccess.h"

#include <QDir>
#include <QFile>
#include <QUrl>

#define VALIJSON_USE_EXCEPTIONS 1
#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

#include <map>
#include <mutex>
#include <regex>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

// std::regex matches by recursion on every character of the text, so a long
// string (some 100 000 characters against "^[a-z]+$") overflows the stack,
// and some patterns backtrack for ever. In its polynomial (breadth-first)
// mode it needs neither. valijson's checks that match values and member
// names against regular expressions ("pattern", "patternProperties" and the
// formats "date", "time" and "date-time") are given here with expressions in
// that mode; what they accept is unchanged.
namespace valijson {
namespace {

const std::regex::flag_type k_boundedSyntax = std::regex::ECMAScript | std::regex_constants::__polynomial;

std::regex boundedRegex(const std::string& pattern)
{
    try {
        return std::regex(pattern, k_boundedSyntax);
    } catch (const std::regex_error&) {
        // Back-references need the recursive mode (an invalid pattern
        // throws there too).
        return std::regex(pattern);
    }
}

const std::regex& cachedRegex(std::unordered_map<std::string, std::regex>& cache, const std::string& pattern)
{
    auto it = cache.find(pattern);
    if (it == cache.end())
        it = cache.emplace(pattern, boundedRegex(pattern)).first;
    return it->second;
}

// The formats valijson knows, with its expressions. False (and the message)
// when text does not match; for dates *month and *day are set.
bool formatMatches(const std::string& format, const std::string& text, int* month, int* day, const char** message)
{
    static const std::regex date("^([0-9]+)-(0[1-9]|1[012])-(0[1-9]|[12][0-9]|3[01])$", k_boundedSyntax);
    static const std::regex time("^([01][0-9]|2[0-3]):([0-5][0-9]):([0-5][0-9]|60)(\\.[0-9]+)?"
                                 "(([Zz])|([\\+|\\-]([01][0-9]|2[0-3]):[0-5][0-9]))$",
                                 k_boundedSyntax);
    static const std::regex dateTime("^([0-9]+)-(0[1-9]|1[012])-(0[1-9]|[12][0-9]|3[01])[Tt]([01][0-9]|2[0-3]):"
                                     "([0-5][0-9]):([0-5][0-9]|60)(\\.[0-9]+)?(([Zz])|([\\+|\\-]([01][0-9]|2[0-3]):[0-5][0-9]))$",
                                     k_boundedSyntax);
    std::smatch matches;
    if (format == "time") {
        *message = "String should be a valid time";
        return std::regex_match(text, time);
    }
    if (format != "date" && format != "date-time")
        return true;
    const bool isDate = format == "date";
    *message = isDate ? "String should be a valid date" : "String should be a valid date-time";
    if (!std::regex_match(text, matches, isDate ? date : dateTime))
        return false;
    *month = std::stoi(matches[2].str());
    *day = std::stoi(matches[3].str());
    return true;
}

} // namespace

template<>
bool ValidationVisitor<adapters::NlohmannJsonAdapter>::visit(const constraints::PatternConstraint& constraint)
{
    if ((m_strictTypes && !m_target.isString()) || !m_target.maybeString())
        return true;
    const std::string pattern(constraint.getPattern<std::string::allocator_type>());
    if (std::regex_search(m_target.asString(), cachedRegex(m_regexesCache, pattern)))
        return true;
    if (m_results)
        m_results->pushError(m_context, "Failed to match regex specified by 'pattern' constraint.");
    return false;
}

template<>
bool ValidationVisitor<adapters::StdStringAdapter>::visit(const constraints::PatternConstraint& constraint)
{
    if ((m_strictTypes && !m_target.isString()) || !m_target.maybeString())
        return true;
    const std::string pattern(constraint.getPattern<std::string::allocator_type>());
    if (std::regex_search(m_target.asString(), cachedRegex(m_regexesCache, pattern)))
        return true;
    if (m_results)
        m_results->pushError(m_context, "Failed to match regex specified by 'pattern' constraint.");
    return false;
}

template<>
bool ValidationVisitor<adapters::NlohmannJsonAdapter>::visit(const constraints::FormatConstraint& constraint)
{
    int month = -1;
    int day = -1;
    const char* message = nullptr;
    if (formatMatches(constraint.getFormat(), m_target.asString(), &month, &day, &message))
        return month < 0 || validate_date_range(month, day);
    if (m_results)
        m_results->pushError(m_context, message);
    return false;
}

template<>
bool ValidationVisitor<adapters::StdStringAdapter>::visit(const constraints::FormatConstraint& constraint)
{
    int month = -1;
    int day = -1;
    const char* message = nullptr;
    if (formatMatches(constraint.getFormat(), m_target.asString(), &month, &day, &message))
        return month < 0 || validate_date_range(month, day);
    if (m_results)
        m_results->pushError(m_context, message);
    return false;
}

template<>
template<>
bool ValidationVisitor<adapters::NlohmannJsonAdapter>::ValidatePatternPropertySubschemas::operator()(
    const constraints::PropertiesConstraint::String& patternProperty, const Subschema* subschema) const
{
    const std::string patternPropertyStr(patternProperty.c_str());
    const std::regex r = boundedRegex(patternPropertyStr);
    bool matchFound = false;
    for (const adapters::NlohmannJsonAdapter::ObjectMember m : m_object) {
        if (!std::regex_search(m.first, r))
            continue;
        matchFound = true;
        if (m_propertiesMatched)
            m_propertiesMatched->insert(m.first);
        std::vector<std::string> newContext = m_context;
        newContext.push_back("[" + m.first + "]");
        ValidationVisitor validator(m.second, newContext, m_strictTypes, m_results, m_regexesCache);
        if (validator.validateSchema(*subschema))
            continue;
        if (m_results)
            m_results->pushError(m_context, "Failed to validate against schema associated with pattern '" + patternPropertyStr + "'.");
        if (m_validated)
            *m_validated = false;
        if (!m_continueOnFailure)
            return false;
    }
    if (!matchFound && !m_continueIfUnmatched)
        return false;
    return m_continueOnSuccess;
}

} // namespace valijson

namespace json {
namespace {

const char* const k_tag = "json::Schema::resolve";
const int k_maxRefHops = 32;
const qint64 k_maxDocumentSize = 16 << 20;
// valijson reads a "$ref" whose document part has no "://" (and is no URN of
// its liking) as a path in the document it is reading, so "b:c", "qrc:/x"
// or "urn:x" would send it into the wrong document, or round and round in
// the same one. It is therefore given every document under this prefix
// followed by the document's URL, and the fetch callback takes it off again.
const std::string k_validatorPrefix = "commonkit-document://";

struct Cache
{
    std::mutex mutex;
    std::map<std::string, Variant> documents;
    int generated = 0;
};

Cache& cache()
{
    static Cache instance;
    return instance;
}

QUrl toUrl(const std::string& text)
{
    const QString string = QString::fromStdString(text);
    if (string.startsWith(QLatin1String(":/")))
        return QUrl(QStringLiteral("qrc") + string);
    QUrl url(string);
    if (url.scheme().isEmpty() && (string.startsWith(QLatin1Char('/')) || QDir::isAbsolutePath(string)))
        return QUrl::fromLocalFile(string);
    return url;
}

std::string withoutFragment(const std::string& url)
{
    const std::size_t hash = url.find('#');
    return hash == std::string::npos ? url : url.substr(0, hash);
}

std::string fragmentOf(const std::string& url)
{
    const std::size_t hash = url.find('#');
    return hash == std::string::npos ? std::string() : QUrl::fromPercentEncoding(QByteArray::fromStdString(url.substr(hash + 1))).toStdString();
}

// Loads (or finds) the document at an absolute URL without fragment.
bool document(const std::string& url, Variant* result)
{
    {
        std::lock_guard<std::mutex> lock(cache().mutex);
        const auto found = cache().documents.find(url);
        if (found != cache().documents.end()) {
            *result = found->second;
            return true;
        }
    }
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
    const QByteArray text = file.read(k_maxDocumentSize + 1);
    JsonParser parser;
    parser.parse(text.constData(), static_cast<std::size_t>(text.size()));
    Variant parsed = parser.parseComplete();
    if (text.size() > k_maxDocumentSize || parser.hasError() || !(parsed.isObject() || parsed.isBoolean())) {
        ko::LogLine(ko::Log::Warning, k_tag) << url << " is not a JSON schema"
                                             << (parser.hasError() ? ": " + parser.lastError() : std::string());
        return false;
    }
    std::lock_guard<std::mutex> lock(cache().mutex);
    cache().documents[url] = parsed;
    *result = parsed;
    return true;
}

std::string escapePointerSegment(const std::string& segment)
{
    std::string result;
    for (const char c : segment) {
        if (c == '~')
            result += "~0";
        else if (c == '/')
            result += "~1";
        else
            result += c;
    }
    return result;
}

// The member names and list indices of a JSON pointer ("" or "/a/0/b").
std::vector<std::string> pointerSegments(const std::string& pointer)
{
    std::vector<std::string> segments;
    std::size_t start = 1;
    while (start <= pointer.size() && !pointer.empty()) {
        std::size_t end = pointer.find('/', start);
        if (end == std::string::npos)
            end = pointer.size();
        std::string segment;
        for (std::size_t i = start; i < end; ++i) {
            if (pointer[i] == '~' && i + 1 < end) {
                segment += pointer[i + 1] == '1' ? '/' : '~';
                ++i;
            } else {
                segment += pointer[i];
            }
        }
        segments.push_back(segment);
        start = end + 1;
    }
    return segments;
}

// Walks a JSON pointer.
bool walkPointer(const Variant& root, const std::string& pointer, Variant* result)
{
    Variant node = root;
    for (const std::string& segment : pointerSegments(pointer)) {
        if (node.isObject()) {
            if (!node.contains(segment))
                return false;
            node = node.value(segment);
        } else if (node.isList()) {
            std::size_t index = 0;
            if (!Path().listIndex(segment, &index) || index >= node.size())
                return false;
            node = node.at(index);
        } else {
            return false;
        }
    }
    *result = node;
    return true;
}

// A "$ref" to the node at pointer in the document at url, written so that
// valijson finds the same node: it skips empty names and decodes "~0", "~1"
// and "%xx" in its own order, so every '%', '~' and '/' in a name is given as
// "%xx". A pointer with an empty name cannot be given at all.
std::string validatorReference(const std::string& url, const std::string& pointer)
{
    std::string result = k_validatorPrefix + url + "#";
    for (const std::string& segment : pointerSegments(pointer)) {
        if (segment.empty())
            throw std::runtime_error("\"$ref\": \"" + url + "#" + pointer + "\" names a member with an empty name");
        result += '/';
        for (const char c : segment) {
            if (c == '%')
                result += "%25";
            else if (c == '~')
                result += "%7E";
            else if (c == '/')
                result += "%2F";
            else
                result += c;
        }
    }
    return result;
}

// The pointer of the sub-schema declaring "$id": "#name" (or "...#name").
bool findAnchor(const Variant& node, const std::string& name, const std::string& pointer, int depth, std::string* found)
{
    if (depth > 64 || !node.isComposite())
        return false;
    if (node.isObject()) {
        const std::string id = node.value("$id").toString();
        const std::size_t hash = id.find('#');
        if (hash != std::string::npos && id.substr(hash + 1) == name) {
            *found = pointer;
            return true;
        }
    }
    for (VariantIterator it(node); !it.atEnd(); it.next()) {
        const std::string segment = node.isObject() ? escapePointerSegment(it.key()) : std::to_string(it.index());
        if (findAnchor(it.value(), name, pointer + "/" + segment, depth + 1, found))
            return true;
    }
    return false;
}

// The JSON pointer a fragment stands for.
bool fragmentPointer(const Variant& root, const std::string& fragment, std::string* pointer)
{
    if (fragment.empty() || fragment[0] == '/') {
        *pointer = fragment;
        return true;
    }
    return findAnchor(root, fragment, std::string(), 0, pointer);
}

// The schema document as plain nlohmann::json for valijson, with every
// "$ref" made absolute and turned into a JSON pointer, and "$id"s dropped, so
// that valijson needs no anchor or scope handling of its own.
nlohmann::json forValidation(const Node& node, const std::string& url, int depth = 0)
{
    if (depth > 512)
        return nlohmann::json();
    switch (node.type()) {
    case Node::value_t::object: {
        nlohmann::json result = nlohmann::json::object();
        for (const auto& member : node.get_ref<const Node::object_t&>()) {
            if (member.first == "$id" && member.second.is_string())
                continue;
            if (member.first == "$ref" && member.second.is_string()) {
                const std::string absolute = Schema::resolveUrl(member.second.get<std::string>(), url);
                const std::string target = withoutFragment(absolute);
                std::string pointer = fragmentOf(absolute);
                Variant targetDocument;
                if (!pointer.empty() && pointer[0] != '/' && document(target, &targetDocument))
                    fragmentPointer(targetDocument, fragmentOf(absolute), &pointer);
                // A chain of references that never reaches a schema would
                // send the validator into endless recursion, and so would a
                // reference it resolved differently.
                const Schema::Ptr reached = Schema::resolve(absolute);
                if (!reached)
                    throw std::runtime_error("\"$ref\": \"" + absolute + "\" names no schema");
                if (!reached->target())
                    throw std::runtime_error("\"$ref\": \"" + absolute + "\" leads in a circle");
                result["$ref"] = validatorReference(target, pointer);
                continue;
            }
            // valijson divides integers by the divisor unchecked: 0 (and -1
            // with the smallest integer) would stop the process.
            if (member.first == "multipleOf" && member.second.is_number() && !(member.second.get<double>() > 0))
                throw std::runtime_error("\"multipleOf\" must be greater than 0");
            result[member.first] = forValidation(member.second, url, depth + 1);
        }
        return result;
    }
    case Node::value_t::array: {
        nlohmann::json result = nlohmann::json::array();
        for (const Node& element : node.get_ref<const Node::array_t&>())
            result.push_back(forValidation(element, url, depth + 1));
        return result;
    }
    case Node::value_t::boolean:
        return node.get<bool>();
    case Node::value_t::number_integer:
        return node.get<std::int64_t>();
    case Node::value_t::number_unsigned:
        return node.get<std::uint64_t>();
    case Node::value_t::number_float:
        return node.get<double>();
    case Node::value_t::string:
        return node.get<std::string>();
    default:
        return nlohmann::json();
    }
}

// A value as plain nlohmann::json (no "$ref" rewriting).
nlohmann::json plainValue(const Node& node)
{
    nlohmann::json result;
    switch (node.type()) {
    case Node::value_t::object:
        result = nlohmann::json::object();
        for (const auto& member : node.get_ref<const Node::object_t&>())
            result[member.first] = plainValue(member.second);
        return result;
    case Node::value_t::array:
        result = nlohmann::json::array();
        for (const Node& element : node.get_ref<const Node::array_t&>())
            result.push_back(plainValue(element));
        return result;
    case Node::value_t::boolean:
        return node.get<bool>();
    case Node::value_t::number_integer:
        return node.get<std::int64_t>();
    case Node::value_t::number_unsigned:
        return node.get<std::uint64_t>();
    case Node::value_t::number_float:
        return node.get<double>();
    case Node::value_t::string:
        return node.get<std::string>();
    default:
        return result;
    }
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
    const QUrl relative = toUrl(url);
    if (base.empty() || !relative.scheme().isEmpty())
        return relative.toString().toStdString();
    return toUrl(base).resolved(relative).toString().toStdString();
}

Schema::Ptr Schema::resolve(const std::string& url, const std::string& base)
{
    const std::string absolute = resolveUrl(url, base);
    const std::string documentUrl = withoutFragment(absolute);
    Variant root;
    if (!document(documentUrl, &root))
        return Ptr();
    std::string pointer;
    Variant node;
    if (!fragmentPointer(root, fragmentOf(absolute), &pointer) || !walkPointer(root, pointer, &node)) {
        ko::LogLine(ko::Log::Warning, k_tag) << absolute << " names no part of its document";
        return Ptr();
    }
    return Ptr(new Schema(documentUrl, pointer, root, node));
}

void Schema::registerSchema(const std::string& url, const Variant& document)
{
    std::lock_guard<std::mutex> lock(cache().mutex);
    cache().documents[withoutFragment(resolveUrl(url, std::string()))] = document;
}

Schema::Ptr Schema::fromVariant(const Variant& document, const std::string& url)
{
    std::string name = url;
    if (name.empty()) {
        std::lock_guard<std::mutex> lock(cache().mutex);
        name = "urn:commonkit:schema:" + std::to_string(++cache().generated);
    }
    registerSchema(name, document);
    return resolve(withoutFragment(resolveUrl(name, std::string())));
}

bool Schema::validate(const Variant& value, std::string* error) const
{
    try {
        const nlohmann::json rootDocument = m_pointer.empty()
            ? forValidation(VariantAccess::node(m_root), m_url)
            : nlohmann::json{{"$ref", validatorReference(m_url, m_pointer)}};
        // The parser asks for a document again at every "$ref" step into it
        // and keeps only the first answer, so each document is converted
        // once and kept here until validation is over.
        std::map<std::string, nlohmann::json> fetched;
        const auto fetch = [this, &fetched](const std::string& uri) -> const nlohmann::json* {
            const std::string target = uri.compare(0, k_validatorPrefix.size(), k_validatorPrefix) == 0
                ? uri.substr(k_validatorPrefix.size())
                : withoutFragment(resolveUrl(uri, m_url));
            const auto found = fetched.find(target);
            if (found != fetched.end())
                return &found->second;
            Variant fetchedDocument;
            if (!document(target, &fetchedDocument))
                throw std::runtime_error("\"$ref\" names " + target + ", which cannot be loaded");
            return &fetched.emplace(target, forValidation(VariantAccess::node(fetchedDocument), target)).first->second;
        };
        const auto release = [](const nlohmann::json*) {};
        valijson::Schema schema;
        valijson::SchemaParser parser(valijson::SchemaParser::kDraft7);
        const valijson::adapters::NlohmannJsonAdapter schemaAdapter(rootDocument);
        parser.populateSchema(schemaAdapter, schema, fetch, release);

        const nlohmann::json target = plainValue(VariantAccess::node(value));
        const valijson::adapters::NlohmannJsonAdapter targetAdapter(target);
        valijson::Validator validator;
        valijson::ValidationResults results;
        const bool valid = validator.validate(schema, targetAdapter, error ? &results : nullptr);
        if (!valid && error) {
            error->clear();
            valijson::ValidationResults::Error failure;
            while (results.popError(failure)) {
                std::string context;
                for (const std::string& part : failure.context)
                    context += part;
                *error += context + ": " + failure.description + "\n";
            }
        }
        return valid;
    } catch (const std::exception& e) {
        if (error)
            *error = std::string("the schema cannot be used: ") + e.what();
        ko::LogLine(ko::Log::Warning, "json::Schema::validate") << m_url << ": " << e.what();
        return false;
    }
}

Schema::Ptr Schema::child(const std::string& segment, const Variant& node) const
{
    return Ptr(new Schema(m_url, m_pointer + "/" + segment, m_root, node))->target();
}

Schema::Ptr Schema::target() const
{
    Ptr current(const_cast<Schema*>(this));
    for (int hop = 0; hop < k_maxRefHops; ++hop) {
        const std::string reference = current->ref();
        if (reference.empty())
            return current;
        Ptr next = resolve(reference);
        if (!next)
            return Ptr();
        current = next;
    }
    ko::LogLine(ko::Log::Warning, k_tag) << m_url << "#" << m_pointer << ": too many \"$ref\" steps";
    return Ptr();
}

std::string Schema::ref() const
{
    const Variant reference = m_node.value("$ref");
    return reference.isString() ? resolveUrl(reference.toString(), m_url) : std::string();
}

Schema::Ptr Schema::member(const std::string& key) const
{
    const Ptr self = target();
    if (!self)
        return Ptr();
    const Variant properties = self->m_node.value("properties");
    if (properties.contains(key))
        return self->child("properties/" + escapePointerSegment(key), properties.value(key));
    const Variant additional = self->m_node.value("additionalProperties");
    if (additional.isObject())
        return self->child("additionalProperties", additional);
    return Ptr();
}

Schema::Ptr Schema::items() const
{
    const Ptr self = target();
    if (!self)
        return Ptr();
    const Variant items = self->m_node.value("items");
    return items.isObject() ? self->child("items", items) : Ptr();
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
