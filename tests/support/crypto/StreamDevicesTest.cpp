#include <CommonKit/support/compression/ZlibDevice.h>
#include <CommonKit/support/crypto/ClippedIODevice.h>
#include <CommonKit/support/crypto/DigestingIODevice.h>
#include <CommonKit/support/crypto/IODevice.h>

#include <gtest/gtest.h>

#include <QBuffer>
#include <QByteArray>

#include <functional>
#include <memory>

namespace {

using ko::crypto::ClippedIODevice;
using ko::crypto::DigestingIODevice;
using ko::crypto::IODevice;
using ko::crypto::MessageDigest;
using ko::crypto::secure_string;

secure_string sha256(const QByteArray& data)
{
    return MessageDigest::digest(MessageDigest::SHA256, data.constData(), static_cast<std::size_t>(data.size()));
}

QByteArray pattern(int size)
{
    QByteArray data(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i)
        data[i] = static_cast<char>((i * 131) ^ (i >> 8));
    return data;
}

TEST(DigestingIODevice, DigestsAndCountsWhatPasses)
{
    const QByteArray payload = pattern(100000);
    QByteArray target;
    QBuffer buffer(&target);
    DigestingIODevice writer(&buffer, MessageDigest::SHA256);
    ASSERT_TRUE(writer.open(QIODevice::WriteOnly));
    for (int pos = 0; pos < payload.size(); pos += 3333)
        writer.write(payload.mid(pos, 3333));
    EXPECT_EQ(writer.count(), 100000u);
    EXPECT_EQ(writer.pos(), 100000);
    EXPECT_EQ(writer.digest(), sha256(payload));
    writer.close();
    EXPECT_FALSE(buffer.isOpen());
    EXPECT_TRUE(target == payload);

    // Reading: what the caller reads, then a forward seek reads the rest.
    QBuffer source(&target);
    DigestingIODevice reader(&source, MessageDigest::SHA1);
    ASSERT_TRUE(reader.open(QIODevice::ReadOnly));
    EXPECT_TRUE(reader.read(1000) == payload.left(1000));
    EXPECT_EQ(reader.count(), 1000u);
    EXPECT_EQ(reader.pos(), 1000);
    EXPECT_FALSE(reader.seek(999)) << "seeking backwards is impossible";
    EXPECT_TRUE(reader.seek(1000));
    EXPECT_TRUE(reader.seek(60000));
    EXPECT_EQ(reader.count(), 60000u);
    EXPECT_TRUE(reader.read(10) == payload.mid(60000, 10));
    EXPECT_FALSE(reader.atEnd());
    EXPECT_FALSE(reader.seek(200000)) << "seeking past the end reads to the end and fails";
    EXPECT_TRUE(reader.atEnd());
    EXPECT_EQ(reader.count(), 100000u);
    EXPECT_EQ(reader.digest(), MessageDigest::digest(MessageDigest::SHA1, payload.constData(), 100000));

    DigestingIODevice unknown(&source, MessageDigest::Unknown);
    EXPECT_FALSE(unknown.open(QIODevice::ReadOnly));
}

TEST(ClippedIODevice, LimitsReadsFromTheStartingPosition)
{
    QByteArray data = pattern(5000);
    QBuffer buffer(&data);
    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    ASSERT_TRUE(buffer.seek(100));
    ClippedIODevice clipped(&buffer);
    clipped.setMax(1000);
    ASSERT_TRUE(clipped.open(QIODevice::ReadOnly));
    EXPECT_FALSE(clipped.isSequential());
    EXPECT_EQ(clipped.size(), 1000);
    EXPECT_EQ(clipped.bytesAvailable(), 1000);
    EXPECT_TRUE(clipped.read(300) == data.mid(100, 300));
    EXPECT_TRUE(clipped.readAll() == data.mid(400, 700));
    EXPECT_TRUE(clipped.atEnd());
    EXPECT_EQ(clipped.read(10).size(), 0);
    EXPECT_EQ(buffer.pos(), 1100) << "the wrapped device is read no further than the limit";

    ASSERT_TRUE(clipped.seek(990));
    EXPECT_TRUE(clipped.readAll() == data.mid(1090, 10));
    EXPECT_FALSE(clipped.seek(1001));

    // A limit beyond the end, no limit, and a limit of zero.
    clipped.setMax(1 << 20);
    ASSERT_TRUE(clipped.seek(0));
    EXPECT_EQ(clipped.size(), 4900);
    EXPECT_TRUE(clipped.readAll() == data.mid(100));
    clipped.setMax(-5);
    EXPECT_EQ(clipped.max(), -1);
    EXPECT_EQ(clipped.size(), 4900);
    clipped.setMax(0);
    ASSERT_TRUE(clipped.seek(0));
    EXPECT_TRUE(clipped.atEnd());
    EXPECT_EQ(clipped.readAll().size(), 0);

    ClippedIODevice writer(&buffer);
    EXPECT_FALSE(writer.open(QIODevice::WriteOnly));
    EXPECT_FALSE(writer.open(QIODevice::ReadWrite));
}

// Every filter device opens its wrapped device the same way: not twice, not
// without a wrapped device, and not over one open for the other direction;
// a closed wrapped device is opened with the filter's mode.
TEST(StreamDevices, OpeningChecksTheWrappedDeviceTheSameWay)
{
    using Make = std::function<std::unique_ptr<QIODevice>(QIODevice*)>;
    struct Case { const char* name; Make make; QIODevice::OpenMode mode; };
    const Case cases[] = {
        {"clipped", [](QIODevice* d) { return std::unique_ptr<QIODevice>(new ClippedIODevice(d)); }, QIODevice::ReadOnly},
        {"digesting", [](QIODevice* d) { return std::unique_ptr<QIODevice>(new DigestingIODevice(d, MessageDigest::SHA256)); },
         QIODevice::WriteOnly},
        {"cipher", [](QIODevice* d) { return std::unique_ptr<QIODevice>(new IODevice(d, secure_string("key"))); },
         QIODevice::WriteOnly},
        {"zlib", [](QIODevice* d) { return std::unique_ptr<QIODevice>(new ko::ZlibDevice(d)); }, QIODevice::WriteOnly},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_FALSE(c.make(nullptr)->open(c.mode));

        QBuffer otherWay;
        ASSERT_TRUE(otherWay.open(c.mode == QIODevice::ReadOnly ? QIODevice::WriteOnly : QIODevice::ReadOnly));
        std::unique_ptr<QIODevice> refused = c.make(&otherWay);
        EXPECT_FALSE(refused->open(c.mode));
        EXPECT_FALSE(refused->errorString().isEmpty());

        QBuffer closed;
        std::unique_ptr<QIODevice> filter = c.make(&closed);
        ASSERT_TRUE(filter->open(c.mode)) << filter->errorString().toStdString();
        EXPECT_EQ(closed.openMode() & QIODevice::ReadWrite, c.mode);
        EXPECT_FALSE(filter->open(c.mode));
        EXPECT_TRUE(filter->isOpen());
    }
}

} // namespace
