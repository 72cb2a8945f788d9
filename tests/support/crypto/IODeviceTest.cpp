#include <CommonKit/support/crypto/IODevice.h>
#include "testlib/ReferenceDecrypt.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QByteArray>
#include <QRandomGenerator>

namespace {

using ko::crypto::IODevice;
using ko::crypto::secure_string;

constexpr int k_chunk = 65536;
constexpr int k_sealed = k_chunk + 16;

QByteArray randomBytes(int size, quint32 seed)
{
    QRandomGenerator random(seed);
    QByteArray data(size, Qt::Uninitialized);
    for (char& c : data)
        c = static_cast<char>(random.bounded(256));
    return data;
}

// Writes `payload` through an encrypting device in pieces of `piece` bytes.
QByteArray encrypt(const QByteArray& payload, const secure_string& key, int piece = 1 << 30)
{
    QByteArray stream;
    QBuffer buffer(&stream);
    IODevice device(&buffer, key);
    EXPECT_TRUE(device.open(QIODevice::WriteOnly));
    for (int pos = 0; pos < payload.size(); pos += piece) {
        const int n = std::min(piece, payload.size() - pos);
        EXPECT_EQ(device.write(payload.constData() + pos, n), n);
    }
    device.close();
    EXPECT_FALSE(buffer.isOpen()) << "closing the device closes the wrapped one";
    return stream;
}

struct Decrypted { bool ok; QByteArray data; QString error; };

// Reads the stream back in pieces of `piece` bytes until read() reports the
// end (0) or a failure (-1).
Decrypted decrypt(QByteArray stream, const secure_string& key, int piece = 7000)
{
    QBuffer buffer(&stream);
    IODevice device(&buffer, key);
    EXPECT_TRUE(device.open(QIODevice::ReadOnly));
    Decrypted result{true, {}, {}};
    QByteArray block(piece, Qt::Uninitialized);
    for (;;) {
        // Whatever the stream size, at most one opened chunk is held.
        EXPECT_LE(device.bytesAvailable(), k_chunk);
        const qint64 n = device.read(block.data(), piece);
        if (n < 0) {
            result.ok = false;
            result.error = device.errorString();
            EXPECT_TRUE(device.hasError());
            EXPECT_EQ(device.read(block.data(), piece), -1) << "a failed stream stays failed";
            break;
        }
        if (n == 0) {
            EXPECT_TRUE(device.atEnd());
            break;
        }
        result.data.append(block.constData(), static_cast<int>(n));
    }
    return result;
}

qint64 expectedStreamSize(qint64 payload)
{
    const qint64 chunks = payload == 0 ? 1 : (payload + k_chunk - 1) / k_chunk;
    return 17 + payload + 16 * chunks;
}

TEST(AesStreamDevice, RoundTripsAroundChunkBoundaries)
{
    const std::string keyText = "a key of any length";
    const secure_string key(keyText.data(), keyText.size());
    const int sizes[] = {0, 1, 65535, 65536, 65537, 2 * 65536, 3 * 1024 * 1024 + 4321};
    for (int size : sizes) {
        SCOPED_TRACE(size);
        const QByteArray payload = randomBytes(size, static_cast<quint32>(size) + 1);
        for (int piece : {1 << 30, 1000, 65536}) {
            const QByteArray stream = encrypt(payload, key, piece);
            EXPECT_EQ(stream.size(), expectedStreamSize(size));
            // A reader of the documented format written on libcrypto alone.
            QByteArray plain;
            EXPECT_TRUE(cktest::referenceDecrypt(stream, keyText, plain) && plain == payload);
            const Decrypted back = decrypt(stream, key, piece == 1000 ? 99999 : 4096);
            ASSERT_TRUE(back.ok) << back.error.toStdString();
            EXPECT_TRUE(back.data == payload);
        }
    }

    // The same payload and key never give the same stream: the salt is fresh.
    const QByteArray payload("identical");
    const QByteArray first = encrypt(payload, key);
    const QByteArray second = encrypt(payload, key);
    EXPECT_NE(first.mid(1, 16), second.mid(1, 16));
    EXPECT_NE(first.mid(17), second.mid(17));
    EXPECT_EQ(first.indexOf(payload), -1);
}

TEST(AesStreamDevice, RejectsChangedCutAndForeignStreams)
{
    const std::string keyText = "correct key";
    const secure_string key(keyText.data(), keyText.size());
    const QByteArray payload = randomBytes(3 * k_chunk + 500, 7);
    const QByteArray stream = encrypt(payload, key);
    ASSERT_EQ(stream.size(), 17 + 4 * k_sealed - k_chunk + 500);

    // One flipped bit anywhere: header, salt, ciphertext and tags of inner
    // and last chunks.
    const int positions[] = {0, 1, 16, 17, 17 + 1000, 17 + k_chunk, 17 + k_sealed - 1, 17 + k_sealed,
                             17 + 2 * k_sealed + 12345, 17 + 3 * k_sealed, stream.size() - 17, stream.size() - 1};
    for (int pos : positions) {
        QByteArray damaged = stream;
        damaged[pos] = static_cast<char>(damaged[pos] ^ 0x10);
        const Decrypted result = decrypt(damaged, key);
        EXPECT_FALSE(result.ok) << "flipped byte at " << pos;
        EXPECT_FALSE(result.error.isEmpty());
        // Nothing of a chunk is handed out before its tag is checked, so at
        // most the chunks before the damaged one come through.
        const int intactChunks = pos < 17 ? 0 : (pos - 17) / k_sealed;
        EXPECT_LE(result.data.size(), intactChunks * k_chunk) << pos;
        EXPECT_TRUE(result.data == payload.left(result.data.size()));
        QByteArray plain;
        EXPECT_FALSE(cktest::referenceDecrypt(damaged, keyText, plain)) << pos;
    }

    const Decrypted wrongKey = decrypt(stream, secure_string("correct kez"));
    EXPECT_FALSE(wrongKey.ok);
    EXPECT_TRUE(wrongKey.data.isEmpty());
    EXPECT_TRUE(wrongKey.error.contains(QStringLiteral("wrong key"))) << wrongKey.error.toStdString();
    EXPECT_FALSE(decrypt(stream, secure_string()).ok);

    // Cut anywhere, including exactly after a complete inner chunk.
    const int cuts[] = {0, 1, 16, 17, 18, 17 + 15, 17 + k_sealed - 1, 17 + k_sealed, 17 + 2 * k_sealed,
                        17 + 3 * k_sealed, stream.size() - 1};
    for (int cut : cuts) {
        const Decrypted result = decrypt(stream.left(cut), key);
        EXPECT_FALSE(result.ok) << "cut at " << cut;
        EXPECT_LE(result.data.size(), payload.size());
    }
    const Decrypted atBoundary = decrypt(stream.left(17 + 2 * k_sealed), key);
    EXPECT_TRUE(atBoundary.error.contains(QStringLiteral("ends before its last chunk")))
        << atBoundary.error.toStdString();

    // Bytes after the last chunk, and two streams glued together.
    EXPECT_FALSE(decrypt(stream + QByteArray(1, 'x'), key).ok);
    EXPECT_FALSE(decrypt(encrypt("a", key) + encrypt("b", key), key).ok);

    // Chunks swapped or dropped keep their tags but not their positions.
    QByteArray swapped = stream;
    swapped.replace(17, k_sealed, stream.mid(17 + k_sealed, k_sealed));
    swapped.replace(17 + k_sealed, k_sealed, stream.mid(17, k_sealed));
    EXPECT_FALSE(decrypt(swapped, key).ok);
    QByteArray dropped = stream;
    dropped.remove(17 + k_sealed, k_sealed);
    EXPECT_FALSE(decrypt(dropped, key).ok);

    QByteArray otherVersion = encrypt("x", key);
    otherVersion[0] = 2;
    EXPECT_TRUE(decrypt(otherVersion, key).error.contains(QStringLiteral("version 2")));
}

TEST(AesStreamDevice, OpenModesAndReadAll)
{
    QBuffer buffer;
    IODevice both(&buffer, secure_string("k"));
    EXPECT_FALSE(both.open(QIODevice::ReadWrite));
    EXPECT_FALSE(both.open(QIODevice::WriteOnly | QIODevice::Append));
    EXPECT_FALSE(buffer.isOpen());

    // readAll() takes the whole payload; an empty stream is at its end as
    // soon as its last chunk is checked.
    for (const QByteArray& payload : {QByteArray(), randomBytes(200000, 99)}) {
        QByteArray stream = encrypt(payload, secure_string("k"));
        QBuffer source(&stream);
        IODevice reader(&source, secure_string("k"));
        ASSERT_TRUE(reader.open(QIODevice::ReadOnly));
        EXPECT_EQ(reader.atEnd(), payload.isEmpty());
        EXPECT_TRUE(reader.readAll() == payload);
        EXPECT_TRUE(reader.atEnd());
        EXPECT_FALSE(reader.hasError());
        reader.close();
        EXPECT_FALSE(source.isOpen()) << "closing the reader closes the wrapped device";
    }
}

} // namespace
