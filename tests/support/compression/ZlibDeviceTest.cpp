#include <CommonKit/resources/Translations.h>
#include <CommonKit/support/compression/ZlibDevice.h>
#include <CommonKit/support/crypto/IODevice.h>

#include <gtest/gtest.h>

#include <QBuffer>
#include <QByteArray>
#include <QRandomGenerator>

#include <zlib.h>

namespace {

using ko::ZlibDevice;

QByteArray sampleText(int size)
{
    // Compressible but not trivial: words from a small vocabulary.
    static const char* const k_words[] = {"camera ", "event ", "export ", "clip ", "user ", "group ", "\n"};
    QRandomGenerator random(42);
    QByteArray text;
    while (text.size() < size)
        text += k_words[random.bounded(7)];
    text.truncate(size);
    return text;
}

QByteArray noise(int size)
{
    QRandomGenerator random(7);
    QByteArray data(size, Qt::Uninitialized);
    for (char& c : data)
        c = static_cast<char>(random.bounded(256));
    return data;
}

QByteArray compressWithDevice(const QByteArray& data, int level, int piece = 8192)
{
    QByteArray out;
    QBuffer buffer(&out);
    ZlibDevice device(&buffer, level);
    EXPECT_TRUE(device.open(QIODevice::WriteOnly)) << device.errorString().toStdString();
    for (int pos = 0; pos < data.size(); pos += piece)
        EXPECT_EQ(device.write(data.constData() + pos, std::min(piece, data.size() - pos)),
                  std::min(piece, data.size() - pos));
    device.close();
    EXPECT_FALSE(buffer.isOpen());
    return out;
}

struct Inflated { bool ok; QByteArray data; QString error; };

Inflated decompressWithDevice(QByteArray compressed, int piece = 5000)
{
    QBuffer buffer(&compressed);
    ZlibDevice device(&buffer);
    EXPECT_TRUE(device.open(QIODevice::ReadOnly));
    Inflated result{true, {}, {}};
    QByteArray block(piece, Qt::Uninitialized);
    for (;;) {
        // However well the stream compresses, at most one buffer of output is held.
        EXPECT_LE(device.bytesAvailable(), 65536);
        const qint64 n = device.read(block.data(), piece);
        if (n < 0) {
            result.ok = false;
            result.error = device.errorString();
            break;
        }
        if (n == 0)
            break;
        result.data.append(block.constData(), static_cast<int>(n));
    }
    return result;
}

QByteArray zlibCompress(const QByteArray& data, int level)
{
    uLongf size = compressBound(static_cast<uLong>(data.size()));
    QByteArray out(static_cast<int>(size), '\0');
    EXPECT_EQ(compress2(reinterpret_cast<Bytef*>(out.data()), &size,
                        reinterpret_cast<const Bytef*>(data.constData()), static_cast<uLong>(data.size()), level),
              Z_OK);
    out.resize(static_cast<int>(size));
    return out;
}

TEST(ZlibDevice, RoundTripsAndInteroperatesAtEveryLevel)
{
    // The zeros shrink a thousandfold.
    const QByteArray inputs[] = {QByteArray(), QByteArray("x"), sampleText(300000), noise(200000),
                                 QByteArray(4 << 20, '\0')};
    for (int level = -1; level <= 9; ++level) {
        for (const QByteArray& input : inputs) {
            SCOPED_TRACE(testing::Message() << "level " << level << ", " << input.size() << " bytes");
            const QByteArray compressed = compressWithDevice(input, level);
            const Inflated back = decompressWithDevice(compressed);
            ASSERT_TRUE(back.ok) << back.error.toStdString();
            EXPECT_TRUE(back.data == input);
            // Same level, same library: the same bytes as zlib's one-shot
            // call (stored blocks follow the write pieces, so not level 0).
            if (level != ZlibDevice::k_noCompression) {
                EXPECT_TRUE(compressed == zlibCompress(input, level));
            }

            const Inflated fromZlib = decompressWithDevice(zlibCompress(input, level), 1 << 20);
            ASSERT_TRUE(fromZlib.ok);
            EXPECT_TRUE(fromZlib.data == input);
        }
    }
    const QByteArray text = sampleText(300000);
    EXPECT_GT(compressWithDevice(text, ZlibDevice::k_noCompression).size(), text.size());
}

TEST(ZlibDevice, DamagedAndTruncatedStreamsFailCleanly)
{
    const QByteArray input = sampleText(200000);
    const QByteArray compressed = compressWithDevice(input, 6);

    // The helper sets an error only when reading fails.
    Inflated result = decompressWithDevice(QByteArray("this is not zlib data"));
    EXPECT_TRUE(result.error.startsWith(QStringLiteral("The compressed stream is damaged: "))) << result.error.toStdString();

    QByteArray badCheck = compressed;
    badCheck[badCheck.size() - 1] = static_cast<char>(badCheck[badCheck.size() - 1] ^ 0xff);
    result = decompressWithDevice(badCheck); // a wrong Adler-32 value
    EXPECT_EQ(result.error.toStdString(), "The compressed stream is damaged: incorrect data check");

    for (int cut : {0, 1, 2, 100, compressed.size() / 2, compressed.size() - 4, compressed.size() - 1}) {
        result = decompressWithDevice(compressed.left(cut));
        // Cut short is not damaged: the reader says which it is.
        EXPECT_EQ(result.error.toStdString(), "The compressed stream is truncated.") << "cut at " << cut;
        EXPECT_TRUE(input.startsWith(result.data));
    }

    // Bytes after the end of the stream: within the block the device read
    // last, and after a stream that filled its block exactly.
    const QByteArray incompressible = noise(70000);
    QByteArray blockSized;
    for (int size = 65400; size < 65536 && blockSized.size() != 65536; ++size)
        blockSized = zlibCompress(incompressible.left(size), 6);
    ASSERT_EQ(blockSized.size(), 65536);
    for (const QByteArray& stream : {compressed, blockSized}) {
        result = decompressWithDevice(stream);
        EXPECT_TRUE(result.ok) << result.error.toStdString();
        for (const QByteArray& extra : {QByteArray(1, '\0'), QByteArray("more"), stream}) {
            result = decompressWithDevice(stream + extra);
            EXPECT_TRUE(result.error.contains(QStringLiteral("followed by other data")))
                << extra.size() << " bytes after a stream of " << stream.size();
        }
    }

    QBuffer buffer;
    ZlibDevice both(&buffer);
    EXPECT_FALSE(both.open(QIODevice::ReadWrite));
}

// The devices' errors go through tr() (whether both catalogues hold every
// text is checked with the translations).
TEST(ZlibDevice, DeviceErrorsAreTranslated)
{
    ASSERT_TRUE(ko::installTranslations(QLocale(QLocale::German)));
    QBuffer buffer;
    ZlibDevice zlib(&buffer, 12);
    EXPECT_FALSE(zlib.open(QIODevice::WriteOnly));
    EXPECT_EQ(zlib.errorString(), QString::fromUtf8("Ungültige Kompressionsstufe 12."));

    QByteArray cut("\x01short");
    QBuffer source(&cut);
    ko::crypto::IODevice cipher(&source, ko::crypto::secure_string("k"));
    ASSERT_TRUE(cipher.open(QIODevice::ReadOnly));
    char byte;
    EXPECT_EQ(cipher.read(&byte, 1), -1);
    EXPECT_EQ(cipher.errorString(), QString::fromUtf8("Der verschlüsselte Datenstrom endet vor seinem letzten Block."));
    ko::removeTranslations();
}

} // namespace
