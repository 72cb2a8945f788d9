#pragma once

// Private to the crypto support library: libcrypto's digest for each of
// MessageDigest's algorithms.

#include <CommonKit/support/crypto/MessageDigest.h>

#include <openssl/evp.h>

namespace ko {
namespace crypto {

// Null for MessageDigest::Unknown.
const EVP_MD* evpDigest(MessageDigest::Algorithm algorithm);

} // namespace crypto
} // namespace ko
