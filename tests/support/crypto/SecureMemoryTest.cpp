#include <CommonKit/support/crypto/IODevice.h>
#include <CommonKit/support/crypto/LockedString.h>
#include <CommonKit/support/crypto/SecureAllocator.h>
#include "testlib/ReferenceDecrypt.h"

#include <gtest/gtest.h>

#include <QBuffer>

#include <algorithm>
#include <new>
#include <vector>

#ifndef _WIN32
#  include <sys/resource.h>
#endif

namespace {

using ko::crypto::locked_string;
using ko::crypto::secure_string;

// What the release hook saw: each block given back, and whether any of its
// bytes was still non-zero at that moment (the memory is valid during the
// call, so inspecting it is defined behaviour).
struct Released { const void* data; std::size_t size; std::size_t nonZero; };
std::vector<Released>* g_released = nullptr;

void recordRelease(const void* data, std::size_t size)
{
    if (!g_released)
        return;
    const unsigned char* bytes = static_cast<const unsigned char*>(data);
    const std::size_t nonZero = static_cast<std::size_t>(
        std::count_if(bytes, bytes + size, [](unsigned char b) { return b != 0; }));
    g_released->push_back({data, size, nonZero});
}

class SecureMemory : public ::testing::Test
{
protected:
    void SetUp() override
    {
        g_released = &m_released;
        m_previous = ko::crypto::setReleaseHook(&recordRelease);
    }
    void TearDown() override
    {
        ko::crypto::setReleaseHook(m_previous);
        g_released = nullptr;
    }
    // The release record of the block at `data`, or null.
    const Released* find(const void* data) const
    {
        const auto it =
            std::find_if(m_released.begin(), m_released.end(), [&](const Released& r) { return r.data == data; });
        return it == m_released.end() ? nullptr : &*it;
    }
    // The block at `data` went back through the allocator, every byte zero.
    void expectWiped(const void* data, std::size_t minSize = 0) const
    {
        const Released* released = find(data);
        ASSERT_NE(released, nullptr) << "the block was not released through the allocator";
        EXPECT_GE(released->size, minSize);
        EXPECT_EQ(released->nonZero, 0u);
    }

    static std::string keyBytes(std::size_t size)
    {
        std::string key(size, '\0');
        for (std::size_t i = 0; i < size; ++i)
            key[i] = static_cast<char>(0xA5 ^ (i * 7 + 1));
        return key;
    }

    std::vector<Released> m_released;
    ko::crypto::ReleaseHook m_previous = nullptr;
};

TEST_F(SecureMemory, SecureStringBlocksAreWipedOnDestructionAndGrowth)
{
    const std::string key = keyBytes(200);
    const void* first = nullptr;
    const void* second = nullptr;
    {
        secure_string secret(key.data(), key.size());
        first = secret.data();
        secret.append(keyBytes(5000));
        second = secret.data();
        ASSERT_NE(first, second) << "growing past the capacity must move the bytes";
        expectWiped(first, key.size());
        EXPECT_EQ(find(second), nullptr);
    }
    expectWiped(second, 5200);

    // The allocator itself, as containers other than strings use it.
    {
        std::vector<int, ko::crypto::secure_allocator<int>> numbers(1000, 0x5A5A5A5A);
        first = numbers.data();
    }
    expectWiped(first, 1000 * sizeof(int));
}

TEST_F(SecureMemory, LockedStringIsWipedOnClearGrowthAndDestruction)
{
    const std::string key = keyBytes(64);
    const void* block = nullptr;
    {
        locked_string secret(key);
        block = secret.data();
        EXPECT_EQ(secret.view(), key);
        secret.clear();
        EXPECT_TRUE(secret.empty());
        EXPECT_STREQ(secret.c_str(), "");
    }
    expectWiped(block, key.size());

    m_released.clear();
    {
        locked_string secret(key);
        block = secret.data();
        const std::string more = keyBytes(10000);
        secret.append(more);
        EXPECT_EQ(secret.view(), key + more);
        EXPECT_EQ(secret.c_str()[secret.size()], '\0');
        expectWiped(block);
        block = secret.data();
    }
    expectWiped(block);
}

TEST_F(SecureMemory, LockedStringValueSemantics)
{
    locked_string a(std::string_view("correct horse"));
    locked_string b(a);
    EXPECT_EQ(a, b);
    EXPECT_NE(a.data(), b.data());
    b.append(" battery");
    EXPECT_EQ(a.view(), "correct horse");

    locked_string c(std::move(b));
    EXPECT_TRUE(b.empty()); // NOLINT(bugprone-use-after-move): moved-from is specified empty
    EXPECT_EQ(c.str(), secure_string("correct horse battery"));

    c.assign(c.data() + 8, 5); // from its own bytes
    EXPECT_EQ(c.view(), "horse");
    c = a;
    EXPECT_EQ(c, a);
    c.assign("", 0);
    EXPECT_TRUE(c.empty());
    EXPECT_FALSE(c.isLocked());

    const std::string binary("a\0b\0c", 5);
    locked_string withNul(binary);
    EXPECT_EQ(withNul.view(), binary);

#ifndef _WIN32
    // When the process may lock at least a page, a short secret is locked.
    rlimit limit{};
    if (getrlimit(RLIMIT_MEMLOCK, &limit) == 0 && limit.rlim_cur >= 1u << 16) {
        EXPECT_TRUE(a.isLocked());
    }
#endif
}

// The stream cipher keeps a copy of its key. Short keys live inside the
// string object (no allocator involved), so the device must wipe them itself
// before its memory goes back to the heap.
TEST_F(SecureMemory, StreamCipherWipesItsKeyCopyOfAnyLength)
{
    for (const std::size_t size : {1u, 11u, 15u, 16u, 64u}) {
        SCOPED_TRACE(size);
        const std::string key = keyBytes(size);
        alignas(ko::crypto::IODevice) unsigned char storage[sizeof(ko::crypto::IODevice)];
        auto* device = new (storage) ko::crypto::IODevice(nullptr, secure_string(key.data(), key.size()));
        ASSERT_EQ(std::string(device->key().data(), device->key().size()), key);
        const auto* held = reinterpret_cast<const unsigned char*>(device->key().data());
        const bool inObject = held >= storage && held < storage + sizeof storage;
        m_released.clear();
        device->~IODevice();
        // The storage outlives the object, so looking at where the key was
        // held is fine. (Searching the whole object for the bytes would find
        // a one-byte key by chance in any pointer.)
        if (inObject) {
            EXPECT_NE(std::string(reinterpret_cast<const char*>(held), key.size()), key)
                << "key bytes left in the destroyed device";
        } else {
            expectWiped(held);
        }
    }
}

// Besides the given key the device holds the chunk key derived from it for
// the stream's salt; found with libcrypto's own HKDF, it must be gone once the
// device is destroyed.
TEST_F(SecureMemory, StreamCipherWipesItsDerivedChunkKey)
{
    const std::string key = keyBytes(24);
    QByteArray stream;
    QBuffer buffer(&stream);
    // Zeroed first, so that searching the padding reads defined bytes.
    alignas(ko::crypto::IODevice) unsigned char storage[sizeof(ko::crypto::IODevice)] = {};
    auto* device = new (storage) ko::crypto::IODevice(&buffer, secure_string(key.data(), key.size()));
    ASSERT_TRUE(device->open(QIODevice::WriteOnly));
    ASSERT_EQ(device->write("payload", 7), 7);
    ASSERT_GE(stream.size(), 17);
    unsigned char chunkKey[32];
    ASSERT_TRUE(cktest::referenceChunkKey(stream.mid(1, 16), key, chunkKey));
    const auto holdsChunkKey = [&] {
        return std::search(storage, storage + sizeof storage, chunkKey, chunkKey + sizeof chunkKey)
               != storage + sizeof storage;
    };
    ASSERT_TRUE(holdsChunkKey()) << "the device keeps its chunk key in the object";
    device->~IODevice();
    EXPECT_FALSE(holdsChunkKey()) << "chunk key left in the destroyed device";
}

TEST(ZeroOut, ClearsExactlyTheRange)
{
    unsigned char bytes[32];
    std::fill(std::begin(bytes), std::end(bytes), 0xCC);
    ko::crypto::zeroOut(bytes + 4, 20);
    for (int i = 0; i < 32; ++i)
        EXPECT_EQ(bytes[i], (i >= 4 && i < 24) ? 0 : 0xCC) << i;
    ko::crypto::zeroOut(nullptr, 10); // tolerated
}

} // namespace
