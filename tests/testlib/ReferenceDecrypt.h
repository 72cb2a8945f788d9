#pragma once

// An independent reader of the AES stream format (docs/stream-encryption.md),
// written on libcrypto alone, for tests that check what the library wrote.
// Link the test with OpenSSL::Crypto.

#include <QByteArray>

#include <openssl/core_names.h>
#include <openssl/evp.h>
#include <openssl/kdf.h>
#include <openssl/params.h>

#include <cstdint>
#include <string>

namespace cktest {

constexpr int k_sealedChunk = 65536 + 16;

// The chunk key of a stream with these 16 salt bytes: HKDF-SHA256 with info
// "CommonKit stream v1", by libcrypto's own HKDF.
inline bool referenceChunkKey(const QByteArray& salt16, const std::string& key, unsigned char chunkKey[32])
{
    EVP_KDF* kdf = EVP_KDF_fetch(nullptr, "HKDF", nullptr);
    EVP_KDF_CTX* ctx = EVP_KDF_CTX_new(kdf);
    char digest[] = "SHA256";
    char info[] = "CommonKit stream v1";
    std::string keyCopy = key;
    QByteArray salt = salt16;
    OSSL_PARAM params[] = {
        OSSL_PARAM_construct_utf8_string(OSSL_KDF_PARAM_DIGEST, digest, 0),
        OSSL_PARAM_construct_octet_string(OSSL_KDF_PARAM_KEY, keyCopy.data(), keyCopy.size()),
        OSSL_PARAM_construct_octet_string(OSSL_KDF_PARAM_SALT, salt.data(), 16),
        OSSL_PARAM_construct_octet_string(OSSL_KDF_PARAM_INFO, info, sizeof info - 1),
        OSSL_PARAM_construct_end()};
    const bool ok = ctx && salt.size() == 16 && EVP_KDF_derive(ctx, chunkKey, 32, params) == 1;
    EVP_KDF_CTX_free(ctx);
    EVP_KDF_free(kdf);
    return ok;
}

// An independent reader of the documented format, on libcrypto alone:
// version byte, 16 salt bytes, HKDF-SHA256 key, AES-256-GCM chunks with
// an 11-byte big-endian counter and a last-chunk flag as nonce.
inline bool referenceDecrypt(const QByteArray& stream, const std::string& key, QByteArray& plain)
{
    if (stream.size() < 17 + 16 || stream.at(0) != 1)
        return false;
    unsigned char chunkKey[32];
    if (!referenceChunkKey(stream.mid(1, 16), key, chunkKey))
        return false;
    plain.clear();
    EVP_CIPHER_CTX* ctx = EVP_CIPHER_CTX_new();
    bool ok = true;
    int pos = 17;
    for (std::uint64_t counter = 0; ok; ++counter) {
        const int rest = stream.size() - pos;
        const bool last = rest <= k_sealedChunk;
        const int sealed = last ? rest : k_sealedChunk;
        if (sealed < 16) {
            ok = false;
            break;
        }
        unsigned char nonce[12] = {};
        for (int i = 0; i < 8; ++i)
            nonce[10 - i] = static_cast<unsigned char>(counter >> (8 * i));
        nonce[11] = last ? 1 : 0;
        const int size = sealed - 16;
        QByteArray out(size + 16, '\0');
        QByteArray tag = stream.mid(pos + size, 16);
        int n = 0;
        int m = 0;
        ok = EVP_DecryptInit_ex(ctx, EVP_aes_256_gcm(), nullptr, chunkKey, nonce) == 1
             && EVP_DecryptUpdate(ctx, reinterpret_cast<unsigned char*>(out.data()), &n,
                                  reinterpret_cast<const unsigned char*>(stream.constData() + pos), size) == 1
             && EVP_CIPHER_CTX_ctrl(ctx, EVP_CTRL_GCM_SET_TAG, 16, tag.data()) == 1
             && EVP_DecryptFinal_ex(ctx, reinterpret_cast<unsigned char*>(out.data()) + n, &m) == 1;
        plain.append(out.constData(), n + m);
        pos += sealed;
        if (last)
            break;
    }
    EVP_CIPHER_CTX_free(ctx);
    return ok;
}

} // namespace cktest
