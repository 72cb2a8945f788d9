// The raw peer of the AES stream device: AES-256-GCM with libcrypto's EVP
// calls over 64 KiB chunks of a memory buffer, with the device's nonces
// (chunk counter, last-chunk flag), into a preallocated buffer. Included by
// the benchmark programs that compare with it.
#pragma once

#include <QByteArray>

#include <openssl/evp.h>
#include <openssl/rand.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

struct RawGcm
{
    static constexpr int k_chunk = 65536;

    EVP_CIPHER_CTX* ctx = EVP_CIPHER_CTX_new();
    unsigned char key[32];
    RawGcm() { RAND_bytes(key, sizeof key); }
    ~RawGcm() { EVP_CIPHER_CTX_free(ctx); }

    static void nonce(std::uint64_t counter, bool last, unsigned char out[12])
    {
        std::fill(out, out + 12, 0);
        for (int i = 0; i < 8; ++i)
            out[10 - i] = static_cast<unsigned char>(counter >> (8 * i));
        out[11] = last ? 1 : 0;
    }

    QByteArray seal(const QByteArray& payload)
    {
        QByteArray out(payload.size() + 16 * (payload.size() / k_chunk + 1), Qt::Uninitialized);
        unsigned char* dst = reinterpret_cast<unsigned char*>(out.data());
        std::uint64_t counter = 0;
        for (int pos = 0; pos < payload.size(); pos += k_chunk, ++counter) {
            const int size = std::min(k_chunk, payload.size() - pos);
            unsigned char iv[12];
            nonce(counter, pos + size == payload.size(), iv);
            int n = 0;
            int m = 0;
            EVP_EncryptInit_ex(ctx, EVP_aes_256_gcm(), nullptr, key, iv);
            EVP_EncryptUpdate(ctx, dst, &n, reinterpret_cast<const unsigned char*>(payload.constData() + pos), size);
            EVP_EncryptFinal_ex(ctx, dst + n, &m);
            EVP_CIPHER_CTX_ctrl(ctx, EVP_CTRL_GCM_GET_TAG, 16, dst + size);
            dst += size + 16;
        }
        out.resize(static_cast<int>(dst - reinterpret_cast<unsigned char*>(out.data())));
        return out;
    }

    bool open(const QByteArray& sealed, QByteArray& plain)
    {
        const unsigned char* src = reinterpret_cast<const unsigned char*>(sealed.constData());
        const unsigned char* end = src + sealed.size();
        unsigned char* dst = reinterpret_cast<unsigned char*>(plain.data());
        for (std::uint64_t counter = 0; src < end; ++counter) {
            const int size = static_cast<int>(std::min<std::ptrdiff_t>(k_chunk + 16, end - src)) - 16;
            unsigned char iv[12];
            nonce(counter, src + size + 16 == end, iv);
            int n = 0;
            int m = 0;
            if (EVP_DecryptInit_ex(ctx, EVP_aes_256_gcm(), nullptr, key, iv) != 1
                || EVP_DecryptUpdate(ctx, dst, &n, src, size) != 1
                || EVP_CIPHER_CTX_ctrl(ctx, EVP_CTRL_GCM_SET_TAG, 16, const_cast<unsigned char*>(src + size)) != 1
                || EVP_DecryptFinal_ex(ctx, dst + n, &m) != 1)
                return false;
            src += size + 16;
            dst += size;
        }
        return true;
    }
};
