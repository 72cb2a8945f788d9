#include "testlib/TestFiles.h"
#include <CommonKit/storage/EncryptedSettings.h>
#include "testlib/ReferenceDecrypt.h"
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/Schema.h>

#include <gtest/gtest.h>

#include <QBuffer>
#include <QCryptographicHash>
#include <QDataStream>
#include <QFileInfo>
#include <QJsonDocument>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtEndian>

#include <cstring>

namespace {

using cktest::readFile;
using cktest::writeFile;

using ko::EncryptedSettings;
using ko::crypto::secure_string;
using SettingsMap = QMap<QString, QVariant>;

QByteArray bytesOf(const secure_string& s)
{
    return QByteArray(s.data(), static_cast<int>(s.size()));
}

// The settings every test writes: nested keys and values of several types.
SettingsMap sampleSettings()
{
    return {{QStringLiteral("camera/name"), QStringLiteral("Gate Ünterführung")},
            {QStringLiteral("camera/port"), 554},
            {QStringLiteral("camera/ptz"), true},
            {QStringLiteral("recorder/hosts"), QStringList{QStringLiteral("a"), QStringLiteral("b")}},
            {QStringLiteral("ratio"), 0.75}};
}

// What QDataStream makes of a map at its default version, made without the
// library.
QByteArray dataStreamImage(const SettingsMap& map)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << map;
    return bytes;
}

// A zlib stream inflated by Qt's own zlib code (which wants the expected
// size in front; a generous one does).
QByteArray inflate(const QByteArray& zlibStream)
{
    QByteArray sized(4, '\0');
    qToBigEndian<quint32>(1 << 20, sized.data());
    return qUncompress(sized + zlibStream);
}

// The sample settings as a JSON file holds them, compared by QJsonDocument.
void expectSampleJson(const QByteArray& text)
{
    EXPECT_EQ(QJsonDocument::fromJson(text),
              QJsonDocument::fromJson(R"({"ratio": 0.75, "recorder": {"hosts": ["a", "b"]},
                  "camera": {"name": "Gate Ünterführung", "port": 554, "ptz": true}})")) << text.toStdString();
}

json::Variant parseJson(const char* text)
{
    json::JsonParser parser;
    EXPECT_TRUE(parser.parse(text, std::strlen(text)));
    return parser.parseComplete();
}

struct Form { const char* name; QSettings::Format format; const char* extension; };

const Form k_forms[] = {{"binary map", EncryptedSettings::IniFormat, "ini"},
                        {"JSON", EncryptedSettings::JsonFormat, "json"}};

// The schema of the sample settings (in tests/data/storage): it makes the
// host list a list of strings (without it, a list reads back as a settings
// array) and keeps "blob" in base64.
const char k_schemaUrl[] = "https://schemas.commonkit.invalid/test/encsettings.json";
const char k_schemaFile[] = COMMONKIT_TEST_DATA "/storage/encrypted-settings-schema.json";

class EncryptedSettingsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        EncryptedSettings::clearEncryptionKey();
        json::Schema::registerSchema(k_schemaUrl, parseJson(readFile(QString::fromLatin1(k_schemaFile)).constData()));
        EncryptedSettings::setJsonSchemaUrl(ko::Url(QString::fromLatin1(k_schemaUrl)));
    }
    void TearDown() override
    {
        EncryptedSettings::clearEncryptionKey();
        EncryptedSettings::setJsonSchemaUrl(ko::Url());
    }

    QString path(const QString& name) const { return m_dir.filePath(name); }
    QString path(const Form& form, const char* base) const
    {
        return path(QStringLiteral("%1.%2").arg(QLatin1String(base), QLatin1String(form.extension)));
    }

    static void write(const QString& file, QSettings::Format format, const SettingsMap& values)
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
    QSettings::Status read(const QString& file, QSettings::Format format, SettingsMap* values)
    {
        const QString copy = path(QStringLiteral("read%1.%2").arg(++m_reads).arg(QFileInfo(file).suffix()));
        writeFile(copy, readFile(file));
        QSettings settings(copy, format);
        values->clear();
        for (const QString& key : settings.allKeys())
            values->insert(key, settings.value(key));
        const QSettings::Status status = settings.status();
        EXPECT_EQ(readFile(copy), readFile(file)) << "reading leaves the file as it was";
        return status;
    }

    QTemporaryDir m_dir;
    int m_reads = 0;
};

// Plain files are the data stream image and JSON text; keyed files hold the
// same (the JSON deflated) in the stream cipher.
TEST_F(EncryptedSettingsTest, FilesAreTheDataStreamImageOrJsonTextInTheStreamCipherWhenKeyed)
{
    for (const std::string key : {"", "settings key"}) {
        for (const Form& form : k_forms) {
            SCOPED_TRACE(std::string(form.name) + " key " + key);
            EncryptedSettings::setEncryptionKey(secure_string(key.data(), key.size()));
            const QString file = path(form, key.empty() ? "plain" : "keyed");
            write(file, form.format, sampleSettings());
            const QByteArray digest = bytesOf(EncryptedSettings::getFileDigest());

            QByteArray plain = readFile(file);
            const bool json = form.format == EncryptedSettings::JsonFormat;
            if (!key.empty()) {
                QByteArray decrypted;
                ASSERT_TRUE(cktest::referenceDecrypt(plain, key, decrypted));
                plain = json ? inflate(decrypted) : decrypted;
            }
            if (json)
                expectSampleJson(plain);
            else
                EXPECT_EQ(plain, dataStreamImage(sampleSettings()));
            EXPECT_EQ(digest, QCryptographicHash::hash(plain, QCryptographicHash::Sha256));

            // A key given as a locked string reads it back.
            EncryptedSettings::clearEncryptionKey();
            EncryptedSettings::setEncryptionKey(ko::crypto::locked_string(key));
            EncryptedSettings::g_file_digest.clear();
            SettingsMap back;
            EXPECT_EQ(read(file, form.format, &back), QSettings::NoError);
            EXPECT_EQ(back, sampleSettings());
            EXPECT_EQ(bytesOf(EncryptedSettings::getFileDigest()), digest);
        }
    }
}

TEST_F(EncryptedSettingsTest, UnreadableFilesFail)
{
    for (const Form& form : k_forms) {
        const QString file = path(form, "guarded");
        EncryptedSettings::setEncryptionKey(secure_string("right key"));
        write(file, form.format, sampleSettings());
        const QByteArray original = readFile(file);

        struct Case { const char* name; const char* key; int flipAt; };
        const Case cases[] = {
            {"wrong key", "wrong key", -1},        {"no key", "", -1},
            {"flipped version", "right key", 0},   {"flipped salt", "right key", 5},
            {"flipped content", "right key", 40},  {"flipped tag", "right key", original.size() - 1},
        };
        for (const Case& c : cases) {
            SCOPED_TRACE(std::string(form.name) + ": " + c.name);
            QByteArray damaged = original;
            if (c.flipAt >= 0)
                damaged[c.flipAt] = static_cast<char>(damaged[c.flipAt] ^ 0x10);
            writeFile(file, damaged);
            EncryptedSettings::setEncryptionKey(secure_string(c.key));
            EncryptedSettings::g_file_digest = "left from before";
            SettingsMap back;
            EXPECT_EQ(read(file, form.format, &back), QSettings::FormatError);
            EXPECT_TRUE(back.isEmpty());
            EXPECT_TRUE(EncryptedSettings::getFileDigest().empty());
        }
    }
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

TEST_F(EncryptedSettingsTest, WorkersLeaveTheDeviceOpenTakeTheKeyAsGivenAndNoticeLostWrites)
{
    QByteArray stream;
    QBuffer buffer(&stream);
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    const secure_string digest = EncryptedSettings::writeIni(buffer, sampleSettings(), secure_string("k"));
    EXPECT_TRUE(buffer.isOpen());
    buffer.close();
    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    SettingsMap back;
    EXPECT_EQ(EncryptedSettings::readIni(buffer, back, secure_string("k")), digest);
    EXPECT_EQ(back, sampleSettings());
    EXPECT_TRUE(buffer.isOpen());
    // The process-wide key plays no part in the workers; a failed read
    // leaves the map alone.
    buffer.seek(0);
    EncryptedSettings::setEncryptionKey(secure_string("k"));
    EXPECT_TRUE(EncryptedSettings::readIni(buffer, back).empty());
    EXPECT_EQ(back, sampleSettings());

    // Lost writes give no digest. With a key, 17 bytes hold just the stream
    // header: the one chunk is written only when the cipher is closed.
    const json::Variant document = parseJson(R"({"a": "b"})");
    const struct { const char* key; qint64 limit; } cases[] = {{"", 0}, {"", 20}, {"k", 0}, {"k", 10}, {"k", 17}, {"k", 60}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.key) + " " + std::to_string(c.limit));
        FullBuffer ini(c.limit);
        ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
        EXPECT_TRUE(EncryptedSettings::writeIni(ini, sampleSettings(), secure_string(c.key)).empty());
        FullBuffer json(c.limit / 4);
        ASSERT_TRUE(json.open(QIODevice::WriteOnly));
        EXPECT_TRUE(EncryptedSettings::writeJson(json, document, secure_string(c.key)).empty());
    }
    // An empty map writes no JSON at all.
    for (const char* held : {"", "earlier digest"}) {
        SCOPED_TRACE(held);
        EncryptedSettings::g_file_digest = held;
        QByteArray bytes;
        QBuffer target(&bytes);
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        EXPECT_EQ(EncryptedSettings::writeJsonFunc(target, SettingsMap()), *held != '\0');
        EXPECT_TRUE(bytes.isEmpty());
        EXPECT_EQ(EncryptedSettings::getFileDigest(), secure_string(held));
    }
}

// (The schema's part in the JSON form shows in the sample, whose host list
// reads back as a list only through it.)
TEST_F(EncryptedSettingsTest, FurtherExtensionsAreTheJsonForm)
{
    const QSettings::Format format = EncryptedSettings::registerFormat(QStringLiteral("cfg"));
    EXPECT_EQ(format, EncryptedSettings::EncryptedFormat);
    // Qt has 16 format slots; registering again must not use them up.
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(EncryptedSettings::registerFormat(QStringLiteral("cfg")), format);
    const QString file = path(QStringLiteral("further.cfg"));
    write(file, format, sampleSettings());
    expectSampleJson(readFile(file));
    SettingsMap back;
    EXPECT_EQ(read(file, format, &back), QSettings::NoError);
    EXPECT_EQ(back, sampleSettings());
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
    for (const Form& form : k_forms) {
        SCOPED_TRACE(form.name);
        const QString file = path(form, "small");
        write(file, form.format, sampleSettings());
        const QByteArray bytes = readFile(file);

        const QByteArray derived = openssl({"kdf", "-keylen", "32", "-kdfopt", "digest:SHA256", "-kdfopt", "key:secret",
                                            "-kdfopt", "hexsalt:" + QString::fromLatin1(bytes.mid(1, 16).toHex()),
                                            "-kdfopt", "info:CommonKit stream v1", "HKDF"});
        const QString key = QString::fromLatin1(derived).trimmed().remove(QLatin1Char(':'));
        ASSERT_EQ(key.size(), 64) << derived.toStdString();
        const QByteArray chunk = bytes.mid(17, bytes.size() - 17 - 16);
        const QByteArray plain = openssl({"enc", "-d", "-aes-256-ctr", "-K", key, "-iv",
                                          QStringLiteral("000000000000000000000001") + QStringLiteral("00000002")},
                                         chunk);
        if (form.format == EncryptedSettings::IniFormat)
            EXPECT_EQ(plain, dataStreamImage(sampleSettings()));
        else
            expectSampleJson(inflate(plain));
    }
}

} // namespace
