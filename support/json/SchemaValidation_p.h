#pragma once

// Private to the JSON support library: validation of a value against a
// schema node, by valijson.

#include "support/json/SchemaDocuments_p.h"

#include <string>

namespace json {
namespace schema {

// Whether value is valid against the schema at `schema`. On failure *error
// lists the reasons, one per line. A schema that cannot be used fails with
// the reason: a "$ref" that names nothing or only leads to "$ref"s in a
// circle, "multipleOf" not above 0, nesting deeper than k_maxDepth.
bool validate(const Location& schema, const Variant& value, std::string* error);

} // namespace schema
} // namespace json
