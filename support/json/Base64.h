#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/json/Variant.h>

#include <boost/intrusive_ptr.hpp>

#include <string>

namespace json {

class Schema;

/// Base64 (RFC 4648, standard alphabet, with padding).
COMMONKIT_EXPORT std::string toBase64(const std::string& bytes);
/// False, with *bytes unchanged, when text is not base64.
COMMONKIT_EXPORT bool fromBase64(const std::string& text, std::string* bytes);

/// Binary data in JSON documents: a string that the schema marks
/// "contentEncoding": "base64" holds arbitrary bytes in memory and their
/// base64 text in the document. encodeBase64 turns the bytes of every such
/// string in value into base64 text, decodeBase64 does the reverse. The schema
/// is the one given, else the one attached to value; without one nothing
/// changes. Schema::member() and items() lead to the parts of the value, so
/// only strings the schema reaches are touched.
///
/// decodeBase64 returns false when a marked string is not base64; that string
/// stays as it is and the others are still decoded.
COMMONKIT_EXPORT void encodeBase64(Variant& value, const boost::intrusive_ptr<Schema>& schema = nullptr);
/// The reverse of encodeBase64 (see there); false when a marked string is not
/// base64.
COMMONKIT_EXPORT bool decodeBase64(Variant& value, const boost::intrusive_ptr<Schema>& schema = nullptr);

} // namespace json
