#include "support/json/SchemaValidation_p.h"

// Before valijson's validator is instantiated.
#include "support/json/ValijsonPatches_p.h"

#include <CommonKit/support/core/Log.h>
#include "support/json/VariantAccess_p.h"

#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

#include <cmath>
#include <deque>
#include <map>
#include <set>
#include <stdexcept>
#include <utility>

namespace json {
namespace schema {
namespace {

// valijson resolves "$ref"s in a way of its own: it reads "id" rather than
// "$id", skips empty pointer tokens, takes names without "://" for paths in
// the current document, and keys the schemas it has built by their pointer
// alone, whichever document they come from. So it is given one made-up
// document instead: every schema a "$ref" leads to, converted, under a name
// of its own ("n0", "n1" …), and each "$ref" names one of them.
const char* const k_registry = "commonkit-schemas://validation";
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
            m_document[next.first] = convertSchema(next.second.node, next.second.base, next.second.document, 0);
        }
    }

    const std::string& start() const { return m_start; }
    const nlohmann::json& document() const { return m_document; }

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
        return std::string(k_registry) + "#/" + found->second;
    }

    nlohmann::json convertSchema(const Variant& node, const std::string& base, const std::string& document, int depth)
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
            return convertSchema(child, baseOf(child, base), document, depth + 1);
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

bool validate(const Location& schema, const Variant& value, std::string* error)
{
    nlohmann::json target;
    try {
        target = Registry::plainValue(VariantAccess::node(value), 0);
    } catch (const std::exception& e) {
        if (error)
            *error = std::string("the value cannot be validated: ") + e.what();
        return false;
    }
    try {
        const Registry registry(schema);
        const nlohmann::json root{{"$ref", registry.start()}};
        const auto fetch = [&registry](const std::string& uri) -> const nlohmann::json* {
            if (uri != k_registry)
                throw std::runtime_error("unexpected reference to " + uri);
            return &registry.document();
        };
        const auto release = [](const nlohmann::json*) {};
        valijson::Schema parsed;
        valijson::SchemaParser parser(valijson::SchemaParser::kDraft7);
        parser.populateSchema(valijson::adapters::NlohmannJsonAdapter(root), parsed, fetch, release);

        valijson::Validator validator;
        valijson::ValidationResults results;
        const bool valid = validator.validate(parsed, valijson::adapters::NlohmannJsonAdapter(target),
                                              error ? &results : nullptr);
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
        ko::LogLine(ko::Log::Warning, "json::Schema::validate") << schema.document << "#" << schema.pointer << ": "
                                                                 << e.what();
        return false;
    }
}

} // namespace schema
} // namespace json
