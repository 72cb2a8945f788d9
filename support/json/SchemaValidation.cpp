#include "support/json/SchemaValidation_p.h"

// Before valijson's validator is instantiated.
#include "support/json/ValijsonPatches_p.h"

#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/json/Path.h>
#include "support/json/SchemaConversion_p.h"

#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

#include <stdexcept>

namespace json {
namespace schema {
namespace {

// valijson names the part of the value as "<root>", then "[name]" or
// "[index]" per step; member names are not escaped.
std::string pointerOf(const std::vector<std::string>& context)
{
    Path path;
    for (const std::string& step : context) {
        if (step.size() >= 2 && step.front() == '[' && step.back() == ']')
            path.append(step.substr(1, step.size() - 2));
    }
    return path.toJsonPointer();
}

} // namespace

bool validate(const Location& schema, const Variant& value, std::vector<Failure>* failures)
{
    const auto fail = [failures](Failure::Kind kind, const std::string& reason) {
        if (failures)
            failures->push_back(Failure{kind, std::string(), reason});
        return false;
    };
    nlohmann::json target;
    try {
        target = convertValue(value);
    } catch (const std::exception& e) {
        return fail(Failure::ValueUnusable, e.what());
    }
    try {
        const ConvertedSchema converted = convertSchema(schema);
        const nlohmann::json root{{"$ref", converted.start}};
        const auto fetch = [&converted](const std::string& uri) -> const nlohmann::json* {
            if (uri != k_convertedDocumentUrl)
                throw std::runtime_error("unexpected reference to " + uri);
            return &converted.document;
        };
        const auto release = [](const nlohmann::json*) {};
        valijson::Schema parsed;
        valijson::SchemaParser parser(valijson::SchemaParser::kDraft7);
        parser.populateSchema(valijson::adapters::NlohmannJsonAdapter(root), parsed, fetch, release);

        valijson::Validator validator;
        valijson::ValidationResults results;
        const bool valid = validator.validate(parsed, valijson::adapters::NlohmannJsonAdapter(target),
                                              failures ? &results : nullptr);
        valijson::ValidationResults::Error error;
        while (failures && results.popError(error))
            failures->push_back(Failure{Failure::Invalid, pointerOf(error.context), error.description});
        return valid;
    } catch (const std::exception& e) {
        ko::LogLine(ko::Log::Warning, "json::Schema::validate") << schema.document << "#" << schema.pointer << ": "
                                                                 << e.what();
        return fail(Failure::SchemaUnusable, e.what());
    }
}

} // namespace schema
} // namespace json
