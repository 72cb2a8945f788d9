#pragma once

// Private to the JSON support library: builds the tree of a JSON text that
// JsonParser's syntax checker has accepted (the text is not checked again).
// Objects keep their members in text order; a repeated key keeps its
// first place and takes the last value. Each member is placed in amortised
// constant time, so objects with very many members build in linear time.

#include "support/json/VariantAccess_p.h"

#include <string>

namespace json {

// False with the reason in *error for a number beyond the range of a double,
// the one fault the checker leaves to this step.
bool buildNode(const std::string& text, Node* result, std::string* error);

} // namespace json
