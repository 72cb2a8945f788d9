#pragma once

// Private to the JSON support library: the nlohmann tree behind a Variant.

#include <CommonKit/support/json/Variant.h>

#include <nlohmann/json.hpp>

namespace json {

using Node = nlohmann::ordered_json;

struct VariantAccess
{
    // The node of a value, or a shared null node for a null Variant.
    static const Node& node(const Variant& value);
    // The node of a value, made unique (copied when shared) so that it may be
    // changed. A null Variant gets a fresh null node.
    static Node& mutableNode(Variant& value);
    static Variant make(Node&& node);
    // A Variant sharing `child`, which lives inside the tree of `owner`.
    static Variant alias(const Variant& owner, const Node& child);
};

} // namespace json
