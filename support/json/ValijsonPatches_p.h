#pragma once

// Private to the JSON support library, included by SchemaValidation.cpp
// only, before valijson's validator is used: checks of valijson's validation
// visitor given anew. The validator sees nlohmann values only: member names
// checked by "propertyNames" are validated as JSON strings too (valijson
// would use a string adapter of its own, and every check here would be
// needed a second time for it).
//
// - std::regex matches by recursion on every character of the text, so a
//   long string (some 100 000 characters against "^[a-z]+$") overflows the
//   stack, and some patterns backtrack for ever. In its polynomial
//   (breadth-first) mode it needs neither. "pattern", "patternProperties"
//   and the formats "date", "time" and "date-time" use expressions in that
//   mode; what they accept is unchanged.
// - "format" applies to strings only; other values pass.
// - Schemas applied one inside the other are counted, and validation stops
//   at a bound instead of overflowing the stack.
// - "multipleOf" applies to numbers only (not to member names that look like
//   numbers); an integer divisor does not cut the fraction off a real value;
//   a real divisor accepts a value whose quotient is a whole number, however
//   large (1e-8 divides every integer).

#define VALIJSON_USE_EXCEPTIONS 1
#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/validation_visitor.hpp>

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <regex>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

namespace valijson {
namespace patches {

using RegexCache = std::unordered_map<std::string, std::regex>;

const std::regex::flag_type k_boundedSyntax = std::regex::ECMAScript | std::regex_constants::__polynomial;

inline std::regex boundedRegex(const std::string& pattern)
{
    try {
        return std::regex(pattern, k_boundedSyntax);
    } catch (const std::regex_error&) {
        // Back-references need the recursive mode (an invalid pattern
        // throws there too).
        return std::regex(pattern);
    }
}

inline const std::regex& cachedRegex(RegexCache& cache, const std::string& pattern)
{
    auto it = cache.find(pattern);
    if (it == cache.end())
        it = cache.emplace(pattern, boundedRegex(pattern)).first;
    return it->second;
}

// Each check returns nullptr when the value passes, else the reason.
template<typename Adapter>
const char* patternFailure(const Adapter& target, bool strict, RegexCache& cache, const std::string& pattern)
{
    if ((strict && !target.isString()) || !target.maybeString()
        || std::regex_search(target.asString(), cachedRegex(cache, pattern)))
        return nullptr;
    return "Failed to match regex specified by 'pattern' constraint.";
}

// Whether a month (1 to 12) has the day; February has 29 in every year.
inline bool dayFitsMonth(int month, int day)
{
    const int days = month == 2 ? 29 : month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
    return day <= days;
}

// The formats valijson knows, with its expressions.
template<typename Adapter>
const char* formatFailure(const Adapter& target, const std::string& format)
{
    static const std::regex date("^([0-9]+)-(0[1-9]|1[012])-(0[1-9]|[12][0-9]|3[01])$", k_boundedSyntax);
    static const std::regex time("^([01][0-9]|2[0-3]):([0-5][0-9]):([0-5][0-9]|60)(\\.[0-9]+)?"
                                 "(([Zz])|([\\+|\\-]([01][0-9]|2[0-3]):[0-5][0-9]))$",
                                 k_boundedSyntax);
    static const std::regex dateTime("^([0-9]+)-(0[1-9]|1[012])-(0[1-9]|[12][0-9]|3[01])[Tt]([01][0-9]|2[0-3]):"
                                     "([0-5][0-9]):([0-5][0-9]|60)(\\.[0-9]+)?(([Zz])|([\\+|\\-]([01][0-9]|2[0-3]):[0-5][0-9]))$",
                                     k_boundedSyntax);
    if (!target.isString())
        return nullptr;
    const std::string text = target.asString();
    if (format == "time")
        return std::regex_match(text, time) ? nullptr : "String should be a valid time";
    if (format != "date" && format != "date-time")
        return nullptr;
    const bool isDate = format == "date";
    std::smatch matches;
    if (std::regex_match(text, matches, isDate ? date : dateTime)
        && dayFitsMonth(std::stoi(matches[2].str()), std::stoi(matches[3].str())))
        return nullptr;
    return isDate ? "String should be a valid date" : "String should be a valid date-time";
}

template<typename Adapter>
const char* multipleOfFailure(const Adapter& target, double divisor)
{
    if (!target.isNumber())
        return nullptr;
    const double value = target.isInteger() ? static_cast<double>(target.getInteger()) : target.getDouble();
    const double quotient = value / divisor;
    if (value == 0 || std::fabs(std::remainder(value, divisor)) <= std::numeric_limits<double>::epsilon()
        || (std::isfinite(quotient) && quotient == std::floor(quotient)))
        return nullptr;
    return "Value should be a multiple of the divisor";
}

// divisor > 0: the schema is refused otherwise.
template<typename Adapter>
const char* multipleOfFailure(const Adapter& target, std::int64_t divisor)
{
    if (!target.isNumber())
        return nullptr;
    const bool whole = target.isInteger() ? target.getInteger() % divisor == 0
                                          : std::fmod(target.getDouble(), static_cast<double>(divisor)) == 0;
    return whole ? nullptr : "Value should be a multiple of the divisor";
}

// Counts the schemas being applied on this thread, one inside the other.
// A schema that applies itself to the same value ({"allOf": [{"$ref":
// "#"}]}) would recurse until the stack overflows; beyond k_maxNesting the
// validation stops with an exception instead.
class NestingGuard
{
public:
    static constexpr int k_maxNesting = 1200;

    NestingGuard()
    {
        if (++depth() > k_maxNesting) {
            --depth();
            throw std::runtime_error("schemas applied more than " + std::to_string(k_maxNesting)
                                     + " levels deep (a schema that applies itself to the same value?)");
        }
    }
    ~NestingGuard() { --depth(); }
    NestingGuard(const NestingGuard&) = delete;
    NestingGuard& operator=(const NestingGuard&) = delete;

private:
    static int& depth()
    {
        static thread_local int value = 0;
        return value;
    }
};

inline bool report(const char* failure, ValidationResults* results, const std::vector<std::string>& context)
{
    if (failure && results)
        results->pushError(context, failure);
    return !failure;
}

} // namespace patches

using PatchedVisitor = ValidationVisitor<adapters::NlohmannJsonAdapter>;

template<>
inline bool PatchedVisitor::validateSchema(const Subschema& subschema)
{
    const patches::NestingGuard guard;
    if (subschema.getAlwaysInvalid())
        return false;
    Subschema::ApplyFunction fn(std::bind(validationCallback, std::placeholders::_1, std::ref(*this)));
    return m_results ? subschema.apply(fn) : subschema.applyStrict(fn);
}

template<>
inline bool PatchedVisitor::visit(const constraints::PatternConstraint& constraint)
{
    return patches::report(patches::patternFailure(m_target, m_strictTypes, m_regexesCache,
                                                   constraint.getPattern<std::string::allocator_type>()),
                           m_results, m_context);
}

template<>
inline bool PatchedVisitor::visit(const constraints::FormatConstraint& constraint)
{
    return patches::report(patches::formatFailure(m_target, constraint.getFormat()), m_results, m_context);
}

template<>
inline bool PatchedVisitor::visit(const constraints::MultipleOfDoubleConstraint& constraint)
{
    return patches::report(patches::multipleOfFailure(m_target, constraint.getDivisor()), m_results, m_context);
}

template<>
inline bool PatchedVisitor::visit(const constraints::MultipleOfIntConstraint& constraint)
{
    return patches::report(patches::multipleOfFailure(m_target, constraint.getDivisor()), m_results, m_context);
}

template<>
inline bool PatchedVisitor::visit(const constraints::PropertyNamesConstraint& constraint)
{
    if ((m_strictTypes && !m_target.isObject()) || !m_target.maybeObject())
        return true;
    bool valid = true;
    for (const adapters::NlohmannJsonAdapter::ObjectMember m : m_target.asObject()) {
        const nlohmann::json name = m.first;
        const adapters::NlohmannJsonAdapter target(name);
        std::vector<std::string> context = m_context;
        context.push_back("[" + m.first + "]");
        PatchedVisitor validator(target, context, m_strictTypes, nullptr, m_regexesCache);
        if (validator.validateSchema(*constraint.getSubschema()))
            continue;
        valid = false;
        if (!m_results)
            break;
        m_results->pushError(context, "Member name '" + m.first + "' does not match the 'propertyNames' schema.");
    }
    return valid;
}

template<>
template<>
inline bool PatchedVisitor::ValidatePatternPropertySubschemas::operator()(
    const constraints::PropertiesConstraint::String& patternProperty, const Subschema* subschema) const
{
    const std::string patternPropertyStr(patternProperty.c_str());
    const std::regex r = patches::boundedRegex(patternPropertyStr);
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
