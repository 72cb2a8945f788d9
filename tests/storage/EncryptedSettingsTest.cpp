#include "storage/EncryptedSettings.h"
#include "support/ReferenceDecrypt.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QCryptographicHash>
#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

using ko::EncryptedSettings;
using ko::crypto::secure_string;

QByteArray bytesOf(const secure_string& s)
{
    return QByteArray(s.data(), static_cast<int>(s.size()));
}

QByteArray sha256(const QByteArray& data)
{
    return QCryptographicHash::hash(data, QCryptographicHash::Sha256);
}

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

// The settings every test writes: nested keys and values of several types.
QMap<QString, QVariant> sampleSettings()
{
    return {{QStringLiteral("camera/name"), QStringLiteral("Gate Ünterführung")},
            {QStringLiteral("camera/port"), 554},
            {QStringLiteral("camera/ptz"), true},
            {QStringLiteral("recorder/hosts"), QStringList{QStringLiteral("a"), QStringLiteral("b")}},
            {QStringLiteral("ratio"), 0.75}};
}

// What QDataStream makes of a map at its default version, made without the
// library.
QByteArray dataStreamImage(const QMap<QString, QVariant>& map)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << map;
    return bytes;
}

class EncryptedSettingsTest : public ::testing::Test
{
protected:
    void SetUp() override { EncryptedSettings::clearEncryptionKey(); }
    void TearDown() override { EncryptedSettings::clearEncryptionKey(); }

    QString path(const QString& name) const { return m_dir.filePath(name); }

    static void write(const QString& file, QSettings::Format format, const QMap<QString, QVariant>& values)
    {
        QSettings settings(file, format);
        for (auto it = values.begin(); it != values.end(); ++it)
            settings.setValue(it.key(), it.value());
        settings.sync();
        EXPECT_EQ(settings.status(), QSettings::NoError);
    }

    // Reads a copy under a name not used before: QSettings keeps the
    // contents of files it has seen and does not read a file again whose
    // size and time stamp look unchanged.
    QSettings::Status read(const QString& file, QSettings::Format format, QMap<QString, QVariant>* values)
    {
        const QString copy = path(QStringLiteral("read%1.%2").arg(++m_reads).arg(QFileInfo(file).suffix()));
        writeFile(copy, fileBytes(file));
        QSettings settings(copy, format);
        values->clear();
        for (const QString& key : settings.allKeys())
            values->insert(key, settings.value(key));
        const QSettings::Status status = settings.status();
        EXPECT_EQ(fileBytes(copy), fileBytes(file)) << "reading leaves the file as it was";
        return status;
    }

    QTemporaryDir m_dir;
    int m_reads = 0;
};

TEST_F(EncryptedSettingsTest, PlainIniFileIsTheDataStreamImageOfTheMap)
{
    const QString file = path(QStringLiteral("plain.ini"));
    write(file, EncryptedSettings::IniFormat, sampleSettings());
    const QByteArray bytes = fileBytes(file);
    EXPECT_EQ(bytes, dataStreamImage(sampleSettings()));
    EXPECT_EQ(bytesOf(EncryptedSettings::getFileDigest()), sha256(bytes));

    EncryptedSettings::g_file_digest.clear();
    QMap<QString, QVariant> back;
    EXPECT_EQ(read(file, EncryptedSettings::IniFormat, &back), QSettings::NoError);
    EXPECT_EQ(back, sampleSettings());
    EXPECT_EQ(bytesOf(EncryptedSettings::getFileDigest()), sha256(bytes));
}

TEST_F(EncryptedSettingsTest, KeyedIniFileIsTheImageInTheStreamCipher)
{
    const std::string key = "settings key";
    EncryptedSettings::setEncryptionKey(secure_string(key.data(), key.size()));
    const QString file = path(QStringLiteral("keyed.ini"));
    write(file, EncryptedSettings::IniFormat, sampleSettings());
    const QByteArray digest = bytesOf(EncryptedSettings::getFileDigest());

    QByteArray plain;
    ASSERT_TRUE(cktest::referenceDecrypt(fileBytes(file), key, plain));
    EXPECT_EQ(plain, dataStreamImage(sampleSettings()));
    EXPECT_EQ(digest, sha256(plain));

    // The same key given as a locked string reads it back.
    EncryptedSettings::setEncryptionKey(ko::crypto::locked_string(key));
    QMap<QString, QVariant> back;
    EXPECT_EQ(read(file, EncryptedSettings::IniFormat, &back), QSettings::NoError);
    EXPECT_EQ(back, sampleSettings());
    EXPECT_EQ(bytesOf(EncryptedSettings::getFileDigest()), digest);
}

TEST_F(EncryptedSettingsTest, UnreadableFilesFailAndStayAsTheyWere)
{
    const QString file = path(QStringLiteral("guarded.ini"));
    EncryptedSettings::setEncryptionKey(secure_string("right key"));
    write(file, EncryptedSettings::IniFormat, sampleSettings());
    const QByteArray original = fileBytes(file);

    struct Case { const char* name; const char* key; int flipAt; };
    const Case cases[] = {
        {"wrong key", "wrong key", -1},        {"no key", "", -1},
        {"flipped version", "right key", 0},   {"flipped salt", "right key", 5},
        {"flipped content", "right key", 40},  {"flipped tag", "right key", original.size() - 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QByteArray damaged = original;
        if (c.flipAt >= 0)
            damaged[c.flipAt] = static_cast<char>(damaged[c.flipAt] ^ 0x10);
        writeFile(file, damaged);
        EncryptedSettings::setEncryptionKey(secure_string(c.key));
        EncryptedSettings::g_file_digest = "left from before";
        QMap<QString, QVariant> back;
        EXPECT_EQ(read(file, EncryptedSettings::IniFormat, &back), QSettings::FormatError);
        EXPECT_TRUE(back.isEmpty());
        EXPECT_TRUE(EncryptedSettings::getFileDigest().empty());
    }
}

TEST_F(EncryptedSettingsTest, WorkersLeaveTheDeviceOpenAndTakeTheKeyAsGiven)
{
    QByteArray stream;
    QBuffer buffer(&stream);
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    const secure_string digest = EncryptedSettings::writeIni(buffer, sampleSettings(), secure_string("k"));
    EXPECT_TRUE(buffer.isOpen());
    buffer.close();

    QByteArray plain;
    ASSERT_TRUE(cktest::referenceDecrypt(stream, "k", plain));
    EXPECT_EQ(bytesOf(digest), sha256(plain));

    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    QMap<QString, QVariant> back;
    EXPECT_EQ(EncryptedSettings::readIni(buffer, back, secure_string("k")), digest);
    EXPECT_EQ(back, sampleSettings());
    EXPECT_TRUE(buffer.isOpen());
    // The process-wide key plays no part in the workers.
    buffer.seek(0);
    EncryptedSettings::setEncryptionKey(secure_string("k"));
    EXPECT_TRUE(EncryptedSettings::readIni(buffer, back).empty());
}

// A buffer that takes at most `limit` bytes, as a full disk would.
class FullBuffer : public QBuffer
{
public:
    explicit FullBuffer(qint64 limit) : m_limit(limit) {}

protected:
    qint64 writeData(const char* data, qint64 size) override
    {
        const qint64 room = std::min(size, m_limit - pos());
        return room <= 0 ? -1 : QBuffer::writeData(data, room);
    }

private:
    qint64 m_limit;
};

TEST_F(EncryptedSettingsTest, LostWritesGiveNoDigest)
{
    // With a key, 17 bytes hold just the stream header: the one chunk is
    // written only when the cipher is closed.
    const struct { const char* key; qint64 limit; } cases[] = {{"", 0}, {"", 20}, {"k", 0}, {"k", 10}, {"k", 17}, {"k", 60}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.key) + " " + std::to_string(c.limit));
        FullBuffer device(c.limit);
        ASSERT_TRUE(device.open(QIODevice::WriteOnly));
        EXPECT_TRUE(EncryptedSettings::writeIni(device, sampleSettings(), secure_string(c.key)).empty());
    }
}

// Runs the openssl command-line tool; its standard output, or a null array
// when it fails.
QByteArray openssl(const QStringList& arguments, const QByteArray& input = QByteArray())
{
    QProcess process;
    process.start(QStringLiteral("openssl"), arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return QByteArray();
    return process.readAllStandardOutput();
}

// The recipe of docs/settings-formats.md: the chunk key from "openssl kdf",
// then the one chunk of a small file through AES-256-CTR, whose counter
// block is the chunk nonce followed by 00000002 (GCM's first counter). It
// does not check the tag; the reference reader above does.
TEST_F(EncryptedSettingsTest, DocumentedOpensslCommandsDecryptASmallFile)
{
    if (QStandardPaths::findExecutable(QStringLiteral("openssl")).isEmpty())
        GTEST_SKIP() << "openssl command-line tool not installed";
    EncryptedSettings::setEncryptionKey(secure_string("secret"));
    const QString file = path(QStringLiteral("small.ini"));
    write(file, EncryptedSettings::IniFormat, sampleSettings());
    const QByteArray bytes = fileBytes(file);

    const QByteArray derived = openssl({"kdf", "-keylen", "32", "-kdfopt", "digest:SHA256", "-kdfopt", "key:secret",
                                        "-kdfopt", "hexsalt:" + QString::fromLatin1(bytes.mid(1, 16).toHex()),
                                        "-kdfopt", "info:CommonKit stream v1", "HKDF"});
    const QString key = QString::fromLatin1(derived).trimmed().remove(QLatin1Char(':'));
    ASSERT_EQ(key.size(), 64) << derived.toStdString();
    const QByteArray chunk = bytes.mid(17, bytes.size() - 17 - 16);
    const QByteArray plain = openssl({"enc", "-d", "-aes-256-ctr", "-K", key, "-iv",
                                      QStringLiteral("000000000000000000000001") + QStringLiteral("00000002")},
                                     chunk);
    EXPECT_EQ(plain, dataStreamImage(sampleSettings()));
}

} // namespace
