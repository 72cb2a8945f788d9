// ko::EncryptedFile: round trips, file layout, signatures, tampering and
// hostile trailers.

#include "testlib/LogCapture.h"
#include "testlib/TestFiles.h"
#include <CommonKit/storage/EncryptedFile.h>
#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/crypto/IODevice.h>

#include <gtest/gtest.h>

#include <QDateTime>
#include <QProcess>
#include <QRandomGenerator>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtEndian>

#include <atomic>
#include <chrono>
#include <thread>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

using cktest::readFile;
using cktest::writeFile;

using ko::EncryptedFile;
using ko::crypto::MessageDigest;
using ko::crypto::RSAKeyPair;
using ko::crypto::secure_string;

QByteArray payloadOfSize(int size)
{
    // Half random, half repetitive, so that compression has work to do.
    QByteArray data(size, Qt::Uninitialized);
    QRandomGenerator random(static_cast<quint32>(size) + 7);
    for (int i = 0; i < size; ++i)
        data[i] = static_cast<char>((i / 4096) % 2 ? random.generate() : i % 251);
    return data;
}

QByteArray bigEndian64(quint64 value)
{
    QByteArray bytes(8, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray withTrailer(const QByteArray& payload, const QByteArray& meta)
{
    return payload + meta + bigEndian64(static_cast<quint64>(meta.size()));
}

// The size of the stored payload, where the trailer starts.
int payloadEnd(const QString& file)
{
    return static_cast<int>(EncryptedFile::metaInfo(QFileInfo(file)).value("encrypted-length").toInt64());
}

// The storage setups the damage tests go through.
struct Storage { secure_string key; int compression; };
const Storage k_setups[] = {{secure_string(), 0}, {secure_string(), 6}, {secure_string("key"), 0}, {secure_string("key"), 9}};

// Reads everything; false when a read fails.
bool readAllOf(EncryptedFile& file, QByteArray* data, int piece = 70000)
{
    data->clear();
    QByteArray buffer(piece, '\0');
    for (;;) {
        const qint64 n = file.read(buffer.data(), piece);
        if (n < 0)
            return false;
        if (n == 0)
            return true;
        data->append(buffer.constData(), static_cast<int>(n));
    }
}

class EncryptedFileTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_signing = new RSAKeyPair;
        ASSERT_TRUE(s_signing->generate(2048));
        s_checking = new RSAKeyPair;
        const std::string pem = s_signing->publicKeyPem();
        ASSERT_TRUE(s_checking->loadPem(secure_string(pem.begin(), pem.end())));
        s_other = new RSAKeyPair;
        ASSERT_TRUE(s_other->generate(2048));
    }
    static void TearDownTestSuite()
    {
        delete s_signing;
        delete s_checking;
        delete s_other;
    }

    QString path(const QString& name) const { return m_dir.filePath(name); }

    bool seal(const QString& file, const QByteArray& payload, const secure_string& key, int compression,
              const RSAKeyPair& keyPair, const char* signer = "tester",
              MessageDigest::Algorithm algorithm = MessageDigest::SHA256)
    {
        EncryptedFile out;
        if (!out.create(QFileInfo(file), key, compression, algorithm))
            return false;
        // Written in uneven pieces.
        for (int at = 0; at < payload.size(); at += 40000)
            if (out.write(payload.constData() + at, std::min(40000, payload.size() - at)) < 0)
                return false;
        out.close(keyPair, signer);
        return true;
    }

    static inline RSAKeyPair* s_signing = nullptr;
    static inline RSAKeyPair* s_checking = nullptr;
    static inline RSAKeyPair* s_other = nullptr;
    QTemporaryDir m_dir;
};

TEST_F(EncryptedFileTest, EveryCombinationRoundTrips)
{
    const secure_string noKey;
    const secure_string key("correct horse battery staple");
    const RSAKeyPair noSigner;
    const int sizes[] = {0, 1, ko::crypto::aes_context::k_chunkSize, 3 * 1024 * 1024 + 17};
    // Digests and signer names go round in turn; a name is stored as UTF-8,
    // with invalid bytes replaced.
    struct Row { MessageDigest::Algorithm algorithm; const char* name; const char* signer; const char* stored; };
    const Row rows[] = {
        {MessageDigest::SHA1, "SHA1", "Jos\xc3\xa9", "Jos\xc3\xa9"},
        {MessageDigest::SHA512, "SHA512", "Jos\xe9", "Jos\xef\xbf\xbd"},
        {MessageDigest::SHA256, "SHA256", "\xff tab\there", "\xef\xbf\xbd tab\there"},
    };
    int round = 0;
    for (const secure_string* k : {&noKey, &key}) {
        for (const int compression : {ko::ZlibDevice::k_noCompression, ko::ZlibDevice::k_defaultCompression, 9}) {
            for (const bool sign : {false, true}) {
                for (const int size : sizes) {
                    SCOPED_TRACE(::testing::Message() << "key " << !k->empty() << " compression " << compression
                                                      << " signed " << sign << " size " << size);
                    const auto& row = rows[round % 3];
                    const QString file = path(QStringLiteral("round%1").arg(round++));
                    const QByteArray payload = payloadOfSize(size);
                    const RSAKeyPair& signer = sign ? *s_signing : noSigner;
                    ASSERT_TRUE(seal(file, payload, *k, compression, signer, row.signer, row.algorithm));

                    EncryptedFile in;
                    ASSERT_TRUE(in.open(QFileInfo(file), *k));
                    // The members and their order are checked by the openssl test below;
                    // whether a signature is there, by verify().
                    const json::Variant meta = in.metaInfo();
                    EXPECT_EQ(meta.value("compression").toInt64(-99), compression);
                    EXPECT_EQ(meta.value("encrypted").toBool(), !k->empty());
                    EXPECT_EQ(meta.value("digest-algorithm").toString(), row.name);
                    EXPECT_EQ(meta.value("signer").toString(), row.stored);
                    EXPECT_EQ(meta.value("content-length").toInt64(), size);
                    EXPECT_EQ(EncryptedFile::metaInfo(QFileInfo(file)), meta);

                    // Unencrypted and uncompressed, the payload is stored as it is.
                    EXPECT_TRUE(!k->empty() || compression != 0 || readFile(file).startsWith(payload));
                    // Half the signed cases verify after reading a part (verify
                    // reads the rest), the others after reading everything.
                    QByteArray data;
                    if (sign && size % 2 == 0) {
                        EXPECT_EQ(in.read(1000), payload.left(1000));
                        EXPECT_TRUE(in.verify(*s_checking));
                    } else {
                        ASSERT_TRUE(readAllOf(in, &data, size % 3 == 0 ? 4096 : 70001));
                        EXPECT_TRUE(data == payload) << "read back " << data.size() << " bytes";
                        EXPECT_TRUE(in.atEnd());
                        EXPECT_EQ(in.verify(*s_checking), sign);
                        if (!sign) {
                            EXPECT_EQ(in.errorString(), QStringLiteral("%1 carries no signature.").arg(file));
                        }
                    }
                }
            }
        }
    }
}

// The trailer read without the library, and the signature checked by the
// openssl tool: plain RSA over SHA-256 of the plain payload followed by the
// metadata printed with tab indentation, without "signature".
TEST_F(EncryptedFileTest, TrailerAndSignatureCheckOutWithoutTheLibrary)
{
    const QString file = path("signed");
    const QByteArray payload = payloadOfSize(100000);
    const QDateTime before = QDateTime::currentDateTimeUtc().addSecs(-1);
    ASSERT_TRUE(seal(file, payload, secure_string("k"), 5, *s_signing, "Ana \"QA\" Lima"));
    // The trailer: the metadata as JSON, then its length in eight big-endian bytes.
    const QByteArray bytes = readFile(file);
    const qint64 metaSize = qFromBigEndian<qint64>(bytes.right(8).constData());
    ASSERT_TRUE(metaSize > 0 && metaSize < bytes.size() - 8);
    const int payloadSize = bytes.size() - 8 - int(metaSize);
    const QJsonObject meta = QJsonDocument::fromJson(bytes.mid(payloadSize, int(metaSize))).object();
    const QString opened = meta.value("opened").toString();
    EXPECT_EQ(meta.value("encrypted-length").toDouble(), payloadSize);
    // Time stamps are UTC to the second.
    QDateTime stamp = QDateTime::fromString(opened, QStringLiteral("yyyy-MM-dd'T'HH:mm:ss"));
    stamp.setTimeSpec(Qt::UTC);
    EXPECT_TRUE(before <= stamp && stamp <= QDateTime::currentDateTimeUtc().addSecs(1)) << qPrintable(opened);
    // Another key, or none, does not verify it.
    EncryptedFile again;
    ASSERT_TRUE(again.open(QFileInfo(file), secure_string("k")));
    EXPECT_FALSE(again.verify(*s_other));
    EXPECT_TRUE(again.errorString().startsWith(
        QStringLiteral("The signature of %1 is not valid: The signature does not match the digest").arg(file)));
    EXPECT_FALSE(again.verify(RSAKeyPair()));
    EXPECT_EQ(again.errorString(),
              QStringLiteral("There is no public key to check the signature of %1 with.").arg(file));

    const QString openssl = QStandardPaths::findExecutable("openssl");
    if (openssl.isEmpty())
        GTEST_SKIP() << "no openssl command";
    // The printed metadata, spelled out here from the documented form.
    const QByteArray printed = QStringLiteral(
        "{\n\t\"compression\": 5,\n\t\"encrypted\": true,\n\t\"digest-algorithm\": \"SHA256\",\n"
        "\t\"opened\": \"%1\",\n\t\"created\": \"%1\",\n\t\"signer\": \"Ana \\\"QA\\\" Lima\",\n"
        "\t\"content-length\": 100000,\n\t\"encrypted-length\": %2\n}")
        .arg(opened)
        .arg(payloadSize).toUtf8();

    const std::string publicPem = s_signing->publicKeyPem();
    writeFile(path("public.pem"), QByteArray::fromStdString(publicPem));
    writeFile(path("signature.bin"), QByteArray::fromBase64(meta.value("signature").toString().toLatin1()));
    auto run = [&](const QStringList& arguments) {
        QProcess process;
        process.start(openssl, arguments);
        EXPECT_TRUE(process.waitForFinished(60000));
        return process.exitCode() == 0 && process.exitStatus() == QProcess::NormalExit;
    };
    auto opensslVerifies = [&](const QByteArray& signedBytes) {
        writeFile(path("signed.input"), signedBytes);
        EXPECT_TRUE(run({"dgst", "-sha256", "-binary", "-out", path("digest.bin"), path("signed.input")}));
        return run({"pkeyutl", "-verify", "-pubin", "-inkey", path("public.pem"), "-pkeyopt", "digest:sha256", "-in",
                    path("digest.bin"), "-sigfile", path("signature.bin")});
    };
    EXPECT_TRUE(opensslVerifies(payload + printed));
    // And the same check fails for a digest of different bytes.
    EXPECT_FALSE(opensslVerifies(payload + printed + ' '));
}

// A byte flipped anywhere makes opening fail, reading fail or differ, or the
// signature fail; it never goes unnoticed. Bytes slipped in between the payload
// and the trailer may leave the plain bytes as they were (a compressed payload
// ends by itself), but reading and verifying each notice them.
TEST_F(EncryptedFileTest, FlippedAndAddedBytesAreNoticed)
{
    const QByteArray payload = payloadOfSize(3000);
    for (const Storage& setup : k_setups) {
        const QString original = path("original");
        ASSERT_TRUE(seal(original, payload, setup.key, setup.compression, *s_signing));
        const QByteArray bytes = readFile(original);
        const int end = payloadEnd(original);
        std::vector<int> positions;
        for (int at = 0; at < end; at += std::max(1, end / 40))
            positions.push_back(at);
        positions.push_back(end - 1);
        for (int at = end; at < bytes.size(); ++at)
            positions.push_back(at); // every byte of the trailer
        for (const int at : positions) {
            for (const char mask : {'\x01', '\x80'}) {
                QByteArray damaged = bytes;
                damaged[at] = static_cast<char>(damaged[at] ^ mask);
                const QString file = path("damaged");
                writeFile(file, damaged);
                EncryptedFile in;
                if (!in.open(QFileInfo(file), setup.key))
                    continue;
                QByteArray data;
                const bool read = readAllOf(in, &data);
                const bool noticed = !read || data != payload || !in.verify(*s_checking);
                EXPECT_TRUE(noticed) << "byte " << at << " of " << bytes.size() << " mask " << int(mask)
                                     << " compression " << setup.compression << " key " << !setup.key.empty();
            }
        }
        for (const QByteArray& extra : {QByteArray("x"), bytes.left(end)}) {
            SCOPED_TRACE(::testing::Message() << extra.size() << " bytes added, compression " << setup.compression);
            const QString file = path("extended");
            writeFile(file, bytes.left(end) + extra + bytes.mid(end));
            EncryptedFile in, again;
            ASSERT_TRUE(in.open(QFileInfo(file), setup.key) && again.open(QFileInfo(file), setup.key));
            QByteArray data;
            EXPECT_FALSE(readAllOf(in, &data) && data == payload);
            EXPECT_FALSE(again.verify(*s_checking));
            if (setup.key.empty() && setup.compression == 0) {
                EXPECT_EQ(again.errorString(), QStringLiteral("The payload of %1 is longer than recorded.").arg(file));
            }
        }
    }
}

// Files that open but cannot be read back: the wrong key, the payload cut
// short (trailer kept), trailers that describe a payload that is not there.
// Reading fails and verify gives false, whatever the recorded lengths say.
TEST_F(EncryptedFileTest, UnreadablePayloadsFailReadingAndVerifying)
{
    const QString file = path("secret");
    ASSERT_TRUE(seal(file, payloadOfSize(150000), secure_string("right"), 6, *s_signing));
    const QByteArray bytes = readFile(file);
    const int end = payloadEnd(file);
    const struct { QByteArray bytes; const char* key; } rows[] = {
        {bytes, "wrong"}, {bytes, ""}, {bytes, "righ"}, {bytes, "right "},
        {bytes.left(end / 2) + bytes.mid(end), "right"},
        {withTrailer(payloadOfSize(5000), R"({"compression":-1,"encrypted":false,"digest-algorithm":"SHA256",)"
                                          R"("content-length":1e300,"signature":"AAAA"})"), "k"},
        {withTrailer(payloadOfSize(5000), R"({"compression":0,"encrypted":true,"digest-algorithm":"MD5",)"
                                          R"("content-length":9223372036854775807,"signature":"AAAA"})"), "k"},
    };
    for (const auto& row : rows) {
        writeFile(file, row.bytes);
        EncryptedFile in;
        ASSERT_TRUE(in.open(QFileInfo(file), secure_string(row.key))) << row.key;
        QByteArray data;
        EXPECT_FALSE(readAllOf(in, &data)) << row.key << " " << row.bytes.size();
        EncryptedFile again;
        ASSERT_TRUE(again.open(QFileInfo(file), secure_string(row.key)));
        EXPECT_FALSE(again.verify(*s_checking)) << row.key << " " << row.bytes.size();
    }
}

TEST_F(EncryptedFileTest, HostileTrailersFailCleanly)
{
    const QByteArray good = QByteArrayLiteral(R"({"compression":0,"encrypted":false,"digest-algorithm":"SHA256"})");
    const QByteArray deep = QByteArray(100000, '[') + QByteArray(100000, ']');
    // `error` begins the reason open() gives, %1 standing for the file.
    struct Row { const char* name; QByteArray bytes; bool opens; bool metaReadable; const char* error; };
    const char* tooShort = "%1 is not a container: it is too short for a trailer.";
    const char* notJson = "%1 is not a container: its metadata is not JSON (";
    const Row rows[] = {
        {"empty file", QByteArray(), false, false, tooShort},
        {"shorter than a length", QByteArray("abc"), false, false, tooShort},
        {"length of all ones", QByteArray("payload") + bigEndian64(~0ULL), false, false,
         "%1 is not a container: its trailer claims 18446744073709551615 bytes of metadata in a file of 15 bytes."},
        {"length one beyond the file", QByteArray("xy") + good + bigEndian64(static_cast<quint64>(good.size()) + 3), false,
         false, "%1 is not a container: its trailer claims "},
        {"length above the limit", QByteArray(2 << 20, ' ') + bigEndian64(2 << 20), false, false,
         "%1 is not a container: its trailer claims 2097152 bytes of metadata, more than the 1048576 that are read."},
        {"metadata not JSON", withTrailer("p", "{\"a\":"), false, false, notJson},
        {"metadata a list", withTrailer("", "[1]"), false, false, "%1 is not a container: its metadata is not a JSON object."},
        {"metadata deeply nested", withTrailer("", deep), false, false, notJson},
        {"unknown digest", withTrailer("p", R"({"digest-algorithm":"ROT13"})"), false, true,
         "The metadata of %1 names an unknown digest algorithm \"ROT13\"."},
        {"good trailer", withTrailer("data", good), true, true, ""},
    };
    for (const Row& row : rows) {
        const QString file = path("hostile");
        writeFile(file, row.bytes);
        EncryptedFile in;
        EXPECT_EQ(in.open(QFileInfo(file), secure_string()), row.opens) << row.name;
        const json::Variant meta = EncryptedFile::metaInfo(QFileInfo(file));
        EXPECT_EQ(meta.isObject(), row.metaReadable) << row.name;
        if (row.opens) {
            QByteArray data;
            EXPECT_TRUE(readAllOf(in, &data));
            EXPECT_EQ(data, QByteArray("data"));
        } else {
            EXPECT_EQ(in.read(10), QByteArray()) << row.name;
            EXPECT_TRUE(in.errorString().startsWith(QString::fromLatin1(row.error).arg(file))) << qPrintable(in.errorString());
        }
    }
    EXPECT_EQ(EncryptedFile::metaInfo(QFileInfo(path("missing"))), json::Variant(false));
}

// Callers may add members to the metadata before close(). Up to the bound
// that open() accepts the file reads back; beyond it the writer says that it
// wrote a file that cannot be opened again.
TEST_F(EncryptedFileTest, MetadataBeyondTheReadableBoundIsReported)
{
    const struct { int noteSize; bool readable; } rows[] = {
        {1000, true}, {EncryptedFile::k_maxMetaInfoSize - 4096, true}, {EncryptedFile::k_maxMetaInfoSize, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.noteSize);
        const QString file = path("annotated");
        {
            cktest::LogCapture errors(ko::Log::Error);
            EncryptedFile out;
            ASSERT_TRUE(out.create(QFileInfo(file), secure_string(), 0, MessageDigest::SHA256));
            out.write("payload");
            out.metaInfo().set("note", std::string(static_cast<std::size_t>(row.noteSize), 'n'));
            out.close(*s_signing, "a");
            EXPECT_EQ(errors.lines.empty(), row.readable);
        }
        EncryptedFile in;
        ASSERT_EQ(in.open(QFileInfo(file), secure_string()), row.readable);
        if (row.readable) {
            EXPECT_EQ(in.readAll(), QByteArray("payload"));
            EXPECT_TRUE(in.verify(*s_checking));
        }
    }
}

#ifndef _WIN32
// Only a regular file can hold a trailer. Opening a pipe for reading would
// wait for a writer; should that happen, the watcher plays the writer so
// that the test ends, and reports it.
TEST_F(EncryptedFileTest, PipesAndDirectoriesAreNotContainers)
{
    const QByteArray fifo = QFile::encodeName(path("pipe"));
    ASSERT_EQ(::mkfifo(fifo.constData(), 0600), 0);
    std::atomic<bool> done{false};
    std::atomic<bool> blocked{false};
    std::thread watcher([&] {
        for (int i = 0; i < 20 && !done; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        while (!done) {
            blocked = true;
            const int fd = ::open(fifo.constData(), O_WRONLY | O_NONBLOCK);
            if (fd >= 0)
                ::close(fd);
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
    });
    EncryptedFile in;
    EXPECT_FALSE(in.open(QFileInfo(QFile::decodeName(fifo)), secure_string()));
    EXPECT_EQ(EncryptedFile::metaInfo(QFileInfo(QFile::decodeName(fifo))), json::Variant(false));
    done = true;
    watcher.join();
    EXPECT_FALSE(blocked) << "opening the pipe waited for a writer";

    const QFileInfo directory(path(QString()));
    EXPECT_FALSE(in.open(directory, secure_string()));
    EXPECT_EQ(EncryptedFile::metaInfo(directory), json::Variant(false));
}
#endif

TEST_F(EncryptedFileTest, CreateFailsCleanly)
{
    EncryptedFile out;
    const QString missingDirectory = path("no/such/dir/file");
    EXPECT_FALSE(out.create(QFileInfo(missingDirectory), secure_string(), 0, MessageDigest::SHA256));
    EXPECT_EQ(out.write("x", 1), -1);
    QFile reference(missingDirectory);
    ASSERT_FALSE(reference.open(QIODevice::WriteOnly));
    EXPECT_EQ(out.errorString().toStdString(),
              QStringLiteral("Cannot create %1: %2").arg(missingDirectory, reference.errorString()).toStdString());
    EncryptedFile badLevel;
    EXPECT_FALSE(badLevel.create(QFileInfo(path("level")), secure_string(), 42, MessageDigest::SHA256));
    EXPECT_EQ(badLevel.errorString(),
              QStringLiteral("Cannot open the device stack of %1: Invalid compression level 42.").arg(path("level")));
    EXPECT_FALSE(badLevel.verify(*s_checking));
    EXPECT_EQ(badLevel.errorString().toStdString(), "The container is not open for reading.");
}

#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)
// Peak resident memory of the process in KiB.
long peakResidentKiB()
{
    rusage usage{};
    return getrusage(RUSAGE_SELF, &usage) == 0 ? usage.ru_maxrss : -1;
}

TEST_F(EncryptedFileTest, LargePayloadsStreamInFlatMemory)
{
    const QString file = path("large");
    const QByteArray block = payloadOfSize(1 << 20);
    const int blocks = 96;
    const long before = peakResidentKiB();
    ASSERT_GT(before, 0);
    {
        EncryptedFile out;
        ASSERT_TRUE(out.create(QFileInfo(file), secure_string("k"), 1, MessageDigest::SHA256));
        for (int i = 0; i < blocks; ++i)
            ASSERT_EQ(out.write(block), block.size());
        out.close(*s_signing, "big");
    }
    EncryptedFile in;
    ASSERT_TRUE(in.open(QFileInfo(file), secure_string("k")));
    QByteArray buffer(1 << 20, '\0');
    for (int i = 0; i < blocks; ++i) {
        ASSERT_EQ(in.read(buffer.data(), buffer.size()), buffer.size());
        ASSERT_TRUE(buffer == block) << "block " << i;
    }
    EXPECT_TRUE(in.verify(*s_checking));
    // 96 MiB went through each way; the peak may grow by buffers, not by that.
    EXPECT_LT(peakResidentKiB() - before, 24 * 1024);
}
#endif

} // namespace
