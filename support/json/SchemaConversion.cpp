#include "support/json/SchemaConversion_p.h"

#include "support/json/VariantAccess_p.h"

#include <cmath>
#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <stdexcept>
#include <utility>

namespace json {
namespace schema {

const char* const k_convertedDocumentUrl = "commonkit-schemas://validation";

namespace {

// Schemas reached by many references are converted once per target; this
// bounds the nodes converted for one validation.
const std::size_t k_maxNodes = 1 << 21;
const std::string k_tooDeep = "nested deeper than " + std::to_string(k_maxDepth) + " levels";
const std::string k_tooLarge = "more than " + std::to_string(k_maxNodes) + " schema nodes to convert";

class Registry
{
public:
    explicit Registry(const Location& schema)
        : m_start(reference(schema))
    {
        while (!m_pending.empty()) {
            const std::pair<std::string, Location> next = m_pending.front();
            m_pending.pop_front();
            m_document[next.first] = convertNode(next.second.node, next.second.base, next.second.document, 0);
        }
    }

    ConvertedSchema take() { return ConvertedSchema{m_start, std::move(m_document)}; }

    // A value for valijson: whole reals become integers ("maxLength": 2.0,
    // 1.0 as an integer), other values stay as they are.
    static nlohmann::json plainValue(const Node& node, int depth, std::size_t* count = nullptr)
    {
        if (depth > k_maxDepth)
            throw std::runtime_error(k_tooDeep);
        if (count && ++*count > k_maxNodes)
            throw std::runtime_error(k_tooLarge);
        nlohmann::json result;
        switch (node.type()) {
        case Node::value_t::object:
            result = nlohmann::json::object();
            for (const auto& member : node.get_ref<const Node::object_t&>())
                result[member.first] = plainValue(member.second, depth + 1, count);
            return result;
        case Node::value_t::array:
            result = nlohmann::json::array();
            for (const Node& element : node.get_ref<const Node::array_t&>())
                result.push_back(plainValue(element, depth + 1, count));
            return result;
        case Node::value_t::number_float: {
            const double value = node.get<double>();
            if (value == std::floor(value) && value >= -0x1p63 && value < 0x1p63)
                return static_cast<std::int64_t>(value);
            return value;
        }
        case Node::value_t::discarded:
            return result;
        default:
            return node;
        }
    }

private:
    // The schema a "$ref" names.
    static Location referenced(const Variant& node, const std::string& base, const std::string& document)
    {
        const Variant ref = node.value("$ref");
        if (!ref.isString())
            throw std::runtime_error("\"$ref\" must be a string");
        const std::string absolute = resolveReference(ref.toString(), base);
        Location target;
        if (!locate(absolute, document, &target) || !(target.node.isObject() || target.node.isBoolean()))
            throw std::runtime_error("\"$ref\": \"" + absolute + "\" names no schema");
        return target;
    }

    // The registry's reference for the "$ref" of node; each reference is
    // followed once.
    std::string referenceFrom(const Variant& node, const std::string& base, const std::string& document)
    {
        const std::string key = document + " " + base + " " + node.value("$ref").toString();
        auto found = m_references.find(key);
        if (found == m_references.end())
            found = m_references.emplace(key, reference(referenced(node, base, document))).first;
        return found->second;
    }

    // The registry's reference to target, after any "$ref"s it leads to.
    // Every "$ref" passed on the way is remembered with the result, so that
    // long chains are followed once.
    std::string reference(Location target)
    {
        std::set<std::string> passed;
        std::string key = target.document + "#" + target.pointer;
        auto found = m_names.find(key);
        while (found == m_names.end() && target.node.isObject() && target.node.contains("$ref")) {
            if (!passed.insert(key).second)
                throw std::runtime_error("\"$ref\": \"" + key + "\" leads in a circle");
            target = referenced(target.node, target.base, target.document);
            key = target.document + "#" + target.pointer;
            found = m_names.find(key);
        }
        if (found == m_names.end()) {
            found = m_names.emplace(key, "n" + std::to_string(m_targets++)).first;
            m_pending.emplace_back(found->second, target);
        }
        for (const std::string& step : passed)
            m_names.emplace(step, found->second);
        return std::string(k_convertedDocumentUrl) + "#/" + found->second;
    }

    nlohmann::json convertNode(const Variant& node, const std::string& base, const std::string& document, int depth)
    {
        if (!node.isObject())
            return plainValue(VariantAccess::node(node), depth, &m_nodes);
        if (depth > k_maxDepth)
            throw std::runtime_error(k_tooDeep);
        if (++m_nodes > k_maxNodes)
            throw std::runtime_error(k_tooLarge);
        if (node.contains("$ref"))
            return nlohmann::json{{"$ref", referenceFrom(node, base, document)}};
        const auto schema = [&](const Variant& child) {
            return convertNode(child, baseOf(child, base), document, depth + 1);
        };
        nlohmann::json result = nlohmann::json::object();
        for (VariantIterator it(node); !it.atEnd(); it.next()) {
            const std::string& key = it.key();
            const Variant value = it.value();
            // Definitions are converted when a "$ref" reaches them; "id"
            // would change valijson's idea of the base.
            if (key == "$id" || key == "id" || key == "definitions")
                continue;
            // valijson divides integers by the divisor unchecked: 0 (and -1
            // with the smallest integer) would stop the process.
            if (key == "multipleOf" && value.isNumber() && !(value.toDouble() > 0))
                throw std::runtime_error("\"multipleOf\" must be greater than 0");
            nlohmann::json& converted = result[key];
            const Holds holds = keywordHolds(key);
            if (holds == Holds::Schema || (holds == Holds::SchemaOrList && !value.isList())) {
                converted = schema(value);
            } else if ((holds == Holds::SchemaList || holds == Holds::SchemaOrList) && value.isList()) {
                converted = nlohmann::json::array();
                for (VariantIterator element(value); !element.atEnd(); element.next())
                    converted.push_back(schema(element.value()));
            } else if ((holds == Holds::SchemaMap || holds == Holds::Dependencies) && value.isObject()) {
                converted = nlohmann::json::object();
                for (VariantIterator member(value); !member.atEnd(); member.next()) {
                    const bool names = holds == Holds::Dependencies && member.value().isList();
                    converted[member.key()] = names ? plainValue(VariantAccess::node(member.value()), depth + 2, &m_nodes)
                                                    : schema(member.value());
                }
            } else {
                converted = plainValue(VariantAccess::node(value), depth + 1, &m_nodes);
            }
        }
        return result;
    }

    std::map<std::string, std::string> m_names;      // document "#" pointer -> name (also of "$ref"s)
    std::map<std::string, std::string> m_references; // document, base and "$ref" -> reference
    std::deque<std::pair<std::string, Location>> m_pending;
    nlohmann::json m_document = nlohmann::json::object();
    std::size_t m_nodes = 0;
    std::size_t m_targets = 0;
    std::string m_start;
};

} // namespace

ConvertedSchema convertSchema(const Location& schema)
{
    return Registry(schema).take();
}

nlohmann::json convertValue(const Variant& value)
{
    return Registry::plainValue(VariantAccess::node(value), 0);
}

} // namespace schema
} // namespace json
