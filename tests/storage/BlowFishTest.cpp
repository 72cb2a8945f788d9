// ko::BlowFish against libcrypto's 64-bit CFB Blowfish run in one pass over
// the whole input with the same key and vector.

#include "testlib/LogCapture.h"
#include <CommonKit/storage/BlowFish.h>
#include <CommonKit/support/core/Log.h>

#include <gtest/gtest.h>

#include <openssl/blowfish.h>

#include <memory>
#include <random>

namespace {

using ko::BlowFish;

QByteArray randomBytes(int size, unsigned int seed)
{
    std::mt19937 generator(seed);
    QByteArray bytes(size, '\0');
    for (char& c : bytes)
        c = static_cast<char>(generator() & 0xffu);
    return bytes;
}

// One BF_cfb64_encrypt call over all of data.
QByteArray reference(const QByteArray& data, int mode)
{
    const unsigned char key[4] = {0x6b, 0x31, 0xd4, 0x0e};
    unsigned char vector[8] = {0x52, 0x9a, 0x07, 0xe3, 0x1c, 0x44, 0xb8, 0x6f};
    QByteArray out(data.size(), '\0');
    int position = 0;
    BF_KEY schedule;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    BF_set_key(&schedule, 4, key);
    BF_cfb64_encrypt(reinterpret_cast<const unsigned char*>(data.constData()),
                     reinterpret_cast<unsigned char*>(out.data()), data.size(), &schedule, vector, &position, mode);
#pragma GCC diagnostic pop
    return out;
}

TEST(BlowFish, BytesAndTextMatchOnePassOfTheCipherAcrossChunkBoundaries)
{
    for (const int size : {1, 7, 8, 9, 63, 4095, 4096, 4097, 8191, 8192, 8200, 3 * 4096 + 5}) {
        const QByteArray plain = randomBytes(size, static_cast<unsigned int>(size));
        const std::unique_ptr<QByteArray> encoded(BlowFish::blowFishEncode(plain));
        ASSERT_TRUE(encoded) << size;
        EXPECT_EQ(*encoded, reference(plain, BF_ENCRYPT)) << size;
        // Decoding arbitrary bytes is the cipher's decryption.
        const std::unique_ptr<QByteArray> decoded(BlowFish::blowFishDecode(plain));
        ASSERT_TRUE(decoded) << size;
        EXPECT_EQ(*decoded, reference(plain, BF_DECRYPT)) << size;
        // Text travels as UTF-8.
        const QString text = QString::fromLatin1(plain) + QStringLiteral("f\u00fcr \u20ac");
        const std::unique_ptr<QByteArray> encodedText(BlowFish::blowFishEncodeString(text));
        ASSERT_TRUE(encodedText) << size;
        EXPECT_EQ(*encodedText, reference(text.toUtf8(), BF_ENCRYPT)) << size;
        EXPECT_EQ(*std::unique_ptr<QString>(BlowFish::blowFishDecodeString(*encodedText)), text) << size;
    }
}

TEST(BlowFish, EmptyDataGivesNoObject)
{
    EXPECT_EQ(BlowFish::blowFishEncode(QByteArray()), nullptr);
    EXPECT_EQ(BlowFish::blowFishDecode(QByteArray()), nullptr);
    EXPECT_EQ(BlowFish::blowFishEncodeString(QString()), nullptr);

    // Decoding empty data into text is a caller's mistake: an empty string
    // rather than a crash, and a warning that names the function.
    cktest::LogCapture log(ko::Log::Warning);
    const std::unique_ptr<QString> text(BlowFish::blowFishDecodeString(QByteArray()));
    const std::unique_ptr<QString> oneByte(BlowFish::blowFishDecodeString(QByteArray(1, 'x')));
    ASSERT_TRUE(text);
    EXPECT_TRUE(text->isEmpty());
    ASSERT_TRUE(oneByte);
    EXPECT_EQ(oneByte->size(), 1);
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_TRUE(log.contains(" W [ko::BlowFish::blowFishDecodeString]")) << log.text();
}

} // namespace
