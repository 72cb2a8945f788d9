// json::Variant scalars written as text in the tables under tests/data.

#pragma once

#include <CommonKit/support/json/Variant.h>

#include <gtest/gtest.h>

#include <string>

namespace cktest {

// A scalar written "type:text": null, bool (true or false), int (signed 64
// bits), uint (unsigned 64 bits), double (as std::stod reads it, nan and inf
// included) or string (the rest of the field).
inline json::Variant jsonScalar(const std::string& field)
{
    const std::size_t colon = field.find(':');
    const std::string type = field.substr(0, colon);
    const std::string text = colon == std::string::npos ? std::string() : field.substr(colon + 1);
    if (type == "bool")
        return json::Variant(text == "true");
    if (type == "int")
        return json::Variant(std::stoll(text));
    if (type == "uint")
        return json::Variant(std::stoull(text));
    if (type == "double")
        return json::Variant(std::stod(text));
    if (type == "string")
        return json::Variant(text);
    EXPECT_EQ(type, "null") << "not a JSON scalar: " << field;
    return json::Variant();
}

} // namespace cktest
