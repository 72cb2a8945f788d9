#pragma once

// Private to the JSON support library: schemas and values converted for
// valijson, which reads nlohmann trees.
//
// valijson resolves "$ref"s in a way of its own: it reads "id" rather than
// "$id", skips empty pointer tokens, takes names without "://" for paths in
// the current document, and keys the schemas it has built by their pointer
// alone, whichever document they come from. So it is given one made-up
// document instead: every schema a "$ref" leads to, converted, under a name
// of its own ("n0", "n1" …), and each "$ref" names one of them.

#include "support/json/SchemaDocuments_p.h"

#include <nlohmann/json.hpp>

#include <string>

namespace json {
namespace schema {

// The URL valijson asks for when it meets a "$ref" of the made-up document.
extern const char* const k_convertedDocumentUrl;

struct ConvertedSchema
{
    std::string start;     // the reference to the schema validated against
    nlohmann::json document; // every schema reached, by name
};

// The schema at `schema` and all it refers to. Throws std::runtime_error
// when a "$ref" names nothing or only leads to "$ref"s in a circle, for
// "multipleOf" not above 0, nesting deeper than k_maxDepth and too many
// nodes to convert.
ConvertedSchema convertSchema(const Location& schema);

// A value for valijson: whole reals become integers ("maxLength": 2.0, 1.0
// as an integer), other values stay as they are. Throws std::runtime_error
// for nesting deeper than k_maxDepth.
nlohmann::json convertValue(const Variant& value);

} // namespace schema
} // namespace json
