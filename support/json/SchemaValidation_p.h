#pragma once

// Private to the JSON support library: validation of a value against a
// schema node, by valijson.

#include "support/json/SchemaDocuments_p.h"

#include <string>
#include <vector>

namespace json {
namespace schema {

// Why a validation failed.
struct Failure
{
    enum Kind {
        Invalid,        // the value breaks the schema at `pointer`
        SchemaUnusable, // the schema cannot be applied (reason says why)
        ValueUnusable,  // the value cannot be checked (nested too deeply)
    };
    Kind kind = Invalid;
    std::string pointer; // JSON pointer of the failing part of the value
    std::string reason;  // valijson's or our own text, in English
};

// Whether value is valid against the schema at `schema`. On failure,
// *failures (when given) receives the reasons, innermost first within each
// part of the value. A schema fails to be used for a "$ref" that names
// nothing or only leads to "$ref"s in a circle, "multipleOf" not above 0,
// nesting deeper than k_maxDepth, and schemas that apply themselves to the
// same value without end.
bool validate(const Location& schema, const Variant& value, std::vector<Failure>* failures);

} // namespace schema
} // namespace json
