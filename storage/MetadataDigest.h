#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/crypto/MessageDigest.h>
#include <CommonKit/support/crypto/SecureAllocator.h>

#include <boost/iostreams/categories.hpp>
#include <boost/iostreams/operations.hpp>

#include <ios>

namespace json {
class Variant;
}

namespace ko {
namespace crypto {

/// A Boost.Iostreams output filter that feeds every byte written through it
/// into a running digest before passing it on.
class digesting_output_filter
{
public:
    /// The filter works on bytes.
    using char_type = char;
    /// An output filter that takes several bytes per call.
    using category = boost::iostreams::multichar_output_filter_tag;

    /// A filter feeding `digest`, which it does not own and which must
    /// outlive it.
    explicit digesting_output_filter(MessageDigest* digest) : m_digest(digest) {}

    /// Digests `size` bytes at `data` and writes them to `sink`; returns what
    /// the sink took.
    template<typename Sink>
    std::streamsize write(Sink& sink, const char* data, std::streamsize size)
    {
        m_digest->update(data, static_cast<std::size_t>(size));
        return boost::iostreams::write(sink, data, size);
    }

private:
    MessageDigest* m_digest;
};

/// Feeds the canonical text of a JSON value into a running digest: the value
/// as json::JsonPrinter prints it with one tab per indentation level (see
/// docs/container-format.md for the exact text).
COMMONKIT_EXPORT void digest(const json::Variant& value, MessageDigest* digest);

/// The digest of that text with a fresh digest of the given algorithm.
COMMONKIT_EXPORT secure_string digest(const json::Variant& value, MessageDigest::Algorithm algorithm);

} // namespace crypto
} // namespace ko
