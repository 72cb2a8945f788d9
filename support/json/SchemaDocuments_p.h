#pragma once

// Private to the JSON support library: where schema documents come from and
// how a URI names a node in one.
//
// Documents are known by the URL they were registered or loaded under. A
// URI reference is resolved against the base URI in effect where it is
// written: the document's URL, changed by every "$id" on the way down to
// the node (RFC 3986 resolution, draft 7 rules: an "$id" beside a "$ref" is
// ignored, and so is anything inside "enum", "const" and other plain
// values). "$id"s declare identifiers: a URI without fragment names a
// resource, "#name" a plain-name anchor inside the current resource.

#include <CommonKit/support/json/Variant.h>

#include <string>

namespace json {
namespace schema {

// What the value of a draft 7 keyword holds.
enum class Holds {
    Value,        // no schemas ("enum", "const", "type", unknown keywords …)
    Schema,       // one schema ("not", "if", "additionalProperties" …)
    SchemaList,   // a list of schemas ("allOf", "anyOf", "oneOf")
    SchemaOrList, // one schema or a list of them ("items")
    SchemaMap,    // schemas by name ("properties", "definitions" …)
    Dependencies, // schemas or lists of names, by name
};
Holds keywordHolds(const std::string& keyword);

// The base URI of a schema object inside one whose base is parentBase:
// changed by its "$id", unless a "$ref" beside it makes the "$id" void.
std::string baseOf(const Variant& schema, const std::string& parentBase);

// Deeper schemas and values are refused rather than recursed into.
constexpr int k_maxDepth = 600;

// reference resolved against base as RFC 3986 says. Without a base, an
// absolute path names a local file and ":/path" a Qt resource; ":/path"
// names a resource with a base too.
std::string resolveReference(const std::string& reference, const std::string& base);
std::string withoutFragment(const std::string& uri);
// The fragment of uri, percent-decoded; empty without one.
std::string fragmentOf(const std::string& uri);

// A node of a schema document.
struct Location
{
    std::string document; // the URL the document is known by
    std::string pointer;  // JSON pointer of the node in the document
    Variant root;
    Variant node;
    std::string base;     // the node's base URI (its own "$id" applied)
};

// The document known by an absolute URL without fragment: registered, in the
// cache, loaded from "file:" or "qrc:" (and then cached), or the built-in
// draft 7 meta-schema. False (and a log line) when there is none.
bool loadDocument(const std::string& url, Variant* root);
// Makes root the document known by url, replacing one cached before.
void storeDocument(const std::string& url, const Variant& root);

// The location of node, found at pointer in root, the document known by url.
Location locationOf(const std::string& url, const Variant& root, const std::string& pointer, const Variant& node);
// The node at pointer in the document known by url.
bool locatePointer(const std::string& url, const std::string& pointer, Location* result);
// The node an absolute URI names. Resources declared by "$id" in the
// document `context` (the one the reference is written in) come before
// documents known by URL. False when nothing answers to it.
bool locate(const std::string& uri, const std::string& context, Location* result);

} // namespace schema
} // namespace json
