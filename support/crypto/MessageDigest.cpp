#include <CommonKit/support/crypto/MessageDigest.h>
#include "support/crypto/EvpDigest_p.h"

#include <openssl/evp.h>

#include <cctype>
#include <stdexcept>

namespace ko {
namespace crypto {

namespace {

struct AlgorithmInfo
{
    MessageDigest::Algorithm algorithm;
    const char* name;
    int size;
};

const AlgorithmInfo k_algorithms[] = {
    {MessageDigest::MD5, "MD5", 16},
    {MessageDigest::SHA1, "SHA1", 20},
    {MessageDigest::SHA224, "SHA224", 28},
    {MessageDigest::SHA256, "SHA256", 32},
    {MessageDigest::SHA384, "SHA384", 48},
    {MessageDigest::SHA512, "SHA512", 64},
};

const AlgorithmInfo* info(MessageDigest::Algorithm algorithm)
{
    for (const AlgorithmInfo& entry : k_algorithms) {
        if (entry.algorithm == algorithm)
            return &entry;
    }
    return nullptr;
}

} // namespace

struct MessageDigest::Context
{
    EVP_MD_CTX* ctx = nullptr;
};

MessageDigest::MessageDigest(Algorithm algorithm)
    : m_algorithm(info(algorithm) ? algorithm : Unknown), m_context(new Context)
{
    reset();
}

MessageDigest::MessageDigest(const MessageDigest& other)
    : m_algorithm(other.m_algorithm), m_count(other.m_count), m_context(new Context)
{
    if (other.m_context->ctx) {
        m_context->ctx = EVP_MD_CTX_new();
        if (!m_context->ctx || !EVP_MD_CTX_copy_ex(m_context->ctx, other.m_context->ctx))
            throw std::runtime_error("MessageDigest: cannot copy the digest state");
    }
}

MessageDigest& MessageDigest::operator=(const MessageDigest& other)
{
    if (this != &other) {
        MessageDigest copy(other);
        std::swap(m_algorithm, copy.m_algorithm);
        std::swap(m_count, copy.m_count);
        std::swap(m_context, copy.m_context);
    }
    return *this;
}

MessageDigest::~MessageDigest()
{
    EVP_MD_CTX_free(m_context->ctx);
    delete m_context;
}

std::string MessageDigest::algorithmName(Algorithm algorithm)
{
    const AlgorithmInfo* entry = info(algorithm);
    return entry ? entry->name : std::string();
}

MessageDigest::Algorithm MessageDigest::algorithmFromName(std::string_view name)
{
    for (const AlgorithmInfo& entry : k_algorithms) {
        const std::string_view candidate(entry.name);
        if (candidate.size() != name.size())
            continue;
        bool same = true;
        for (std::size_t i = 0; i < name.size() && same; ++i)
            same = std::toupper(static_cast<unsigned char>(name[i])) == candidate[i];
        if (same)
            return entry.algorithm;
    }
    return Unknown;
}

int MessageDigest::digestSize(Algorithm algorithm)
{
    const AlgorithmInfo* entry = info(algorithm);
    return entry ? entry->size : 0;
}

MessageDigest::Algorithm MessageDigest::algorithmForDigestSize(std::size_t size)
{
    for (const AlgorithmInfo& entry : k_algorithms) {
        if (static_cast<std::size_t>(entry.size) == size)
            return entry.algorithm;
    }
    return Unknown;
}

bool MessageDigest::isValid() const
{
    return m_context->ctx != nullptr;
}

void MessageDigest::update(const void* data, std::size_t size)
{
    if (!m_context->ctx || size == 0)
        return;
    if (!EVP_DigestUpdate(m_context->ctx, data, size))
        throw std::runtime_error("MessageDigest: digest update failed");
    m_count += size;
}

secure_string MessageDigest::digest() const
{
    if (!m_context->ctx)
        return secure_string();
    // Finish a copy, so the running digest can go on.
    EVP_MD_CTX* copy = EVP_MD_CTX_new();
    unsigned char out[EVP_MAX_MD_SIZE];
    unsigned int size = 0;
    const bool ok = copy && EVP_MD_CTX_copy_ex(copy, m_context->ctx)
                    && EVP_DigestFinal_ex(copy, out, &size);
    EVP_MD_CTX_free(copy);
    if (!ok)
        throw std::runtime_error("MessageDigest: cannot finish the digest");
    secure_string result(reinterpret_cast<const char*>(out), size);
    zeroOut(out, sizeof out);
    return result;
}

std::string MessageDigest::hexDigest() const
{
    static const char k_hex[] = "0123456789abcdef";
    const secure_string bytes = digest();
    std::string text;
    text.reserve(bytes.size() * 2);
    for (char c : bytes) {
        const unsigned char b = static_cast<unsigned char>(c);
        text += k_hex[b >> 4];
        text += k_hex[b & 15];
    }
    return text;
}

void MessageDigest::reset()
{
    m_count = 0;
    const EVP_MD* md = evpDigest(m_algorithm);
    if (!md)
        return;
    if (!m_context->ctx)
        m_context->ctx = EVP_MD_CTX_new();
    if (!m_context->ctx || !EVP_DigestInit_ex(m_context->ctx, md, nullptr)) {
        EVP_MD_CTX_free(m_context->ctx);
        m_context->ctx = nullptr;
        throw std::runtime_error("MessageDigest: cannot start the digest " + algorithmName(m_algorithm));
    }
}

secure_string MessageDigest::digest(Algorithm algorithm, const void* data, std::size_t size)
{
    MessageDigest md(algorithm);
    md.update(data, size);
    return md.digest();
}

const EVP_MD* evpDigest(MessageDigest::Algorithm algorithm)
{
    switch (algorithm) {
    case MessageDigest::MD5: return EVP_md5();
    case MessageDigest::SHA1: return EVP_sha1();
    case MessageDigest::SHA224: return EVP_sha224();
    case MessageDigest::SHA256: return EVP_sha256();
    case MessageDigest::SHA384: return EVP_sha384();
    case MessageDigest::SHA512: return EVP_sha512();
    case MessageDigest::Unknown: break;
    }
    return nullptr;
}

} // namespace crypto
} // namespace ko
