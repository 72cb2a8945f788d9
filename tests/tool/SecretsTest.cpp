// Keys never reach the diagnostic log, the tool's output or a written file:
// the encrypted settings key and the container key, used through the library
// and through the tool, with the right key and with a wrong one. Each secret
// is searched for as it stands, in hexadecimal and in Base64.

#include "testlib/LogCapture.h"
#include "testlib/TestFiles.h"
#include <CommonKit/storage/EncryptedFile.h>
#include <CommonKit/storage/EncryptedSettings.h>
#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/crypto/RSAKeyPair.h>
#include "testlib/ToolRunner.h"
#include "testlib/ToolTable.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <string>
#include <vector>

namespace {

using namespace cktest;
using ko::EncryptedSettings;
using ko::crypto::secure_string;

// The forms of `secret` found in `text`, for the failure message: as it
// stands, in hexadecimal and in Base64.
std::string leaked(const QByteArray& text, const QByteArray& secret)
{
    std::string found;
    for (const QByteArray& form : {secret, secret.toHex(), secret.toHex().toUpper(), secret.toBase64()}) {
        if (text.contains(form))
            found += " [" + form.toStdString() + "]";
    }
    return found;
}

secure_string secure(const QByteArray& bytes)
{
    return secure_string(bytes.constData(), static_cast<size_t>(bytes.size()));
}

// The bytes of every file under `dir` except the key files themselves.
QByteArray writtenFiles(const QString& dir, const QStringList& keyFiles)
{
    QByteArray all;
    QDirIterator it(dir, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (!keyFiles.contains(QFileInfo(path).fileName()))
            all += readFile(path);
    }
    return all;
}

class Secrets : public ::testing::Test
{
protected:
    void SetUp() override
    {
        // The tool's own log lines, information included, go to its
        // standard error.
        qputenv("COMMONKIT_LOG_LEVEL", "1");
        writeFile(path("key"), k_key + "\n");
        writeFile(path("wrong"), k_wrongKey);
    }
    void TearDown() override
    {
        qunsetenv("COMMONKIT_LOG_LEVEL");
        EncryptedSettings::clearEncryptionKey();
    }
    QString path(const QString& name) const { return m_dir.filePath(name); }

    // Fails with the places where either key shows.
    void expectNoKey(const QByteArray& text, const std::string& where) const
    {
        EXPECT_EQ(leaked(text, k_key), "") << "key in " << where;
        EXPECT_EQ(leaked(text, k_wrongKey), "") << "wrong key in " << where;
    }

    // Runs `commonkit <command> <arguments>` for each row of the table, each
    // failing or not as the row says, and none showing a key.
    void runWithoutLeaks(const char* command, const std::string& table) const
    {
        for (const DataRow& row : dataRows(table, -2)) {
            const ToolRun result = runTool(QStringList{command} + argumentsOf(row, 1, m_dir.path()));
            EXPECT_EQ(result.exitCode != 0, row[0] == "fails") << row.where << ": " << result.err.toStdString();
            expectNoKey(result.out.toUtf8() + result.err.toUtf8(), row.where);
        }
    }

    const QByteArray k_key = "Key-3f9a61c2-only-in-the-key-file";
    const QByteArray k_wrongKey = "Wrong-d81e07b5-also-secret";
    QTemporaryDir m_dir;
};

TEST_F(Secrets, SettingsKeyStaysOutOfLogsToolOutputAndFiles)
{
    {
        LogCapture log(1); // information included
        for (const QSettings::Format format : {EncryptedSettings::IniFormat, EncryptedSettings::JsonFormat}) {
            const QString file = path(format == EncryptedSettings::IniFormat ? "lib.ini" : "lib.json");
            EncryptedSettings::setEncryptionKey(secure(k_key));
            {
                QSettings settings(file, format);
                settings.setValue(QStringLiteral("camera/name"), QStringLiteral("Gate"));
            }
            QFile::copy(file, file + ".copy");
            EncryptedSettings::setEncryptionKey(secure(k_wrongKey));
            QSettings wrong(file + ".copy", format);
            EXPECT_EQ(wrong.status(), QSettings::FormatError);
        }
        EncryptedSettings::clearEncryptionKey();
        EXPECT_TRUE(QByteArray::fromStdString(log.text()).contains("[")) << "some lines were logged";
        expectNoKey(QByteArray::fromStdString(log.text()), "the library's log lines");
    }

    runWithoutLeaks("settings", "tool/secrets-settings.tsv");
    EXPECT_TRUE(readFile(path("plain.json")).contains("Gate"));
    expectNoKey(writtenFiles(m_dir.path(), {"key", "wrong"}), "the written files");
}

TEST_F(Secrets, ContainerKeyStaysOutOfLogsToolOutputAndFiles)
{
    const QByteArray payload = "payload of the container";
    {
        LogCapture log(1); // information included
        ko::EncryptedFile out;
        ASSERT_TRUE(out.create(QFileInfo(path("lib.box")), secure(k_key), 6));
        ASSERT_EQ(out.write(payload), payload.size());
        out.close(ko::crypto::RSAKeyPair(), "tester");

        ko::EncryptedFile in;
        ASSERT_TRUE(in.open(QFileInfo(path("lib.box")), secure(k_wrongKey)));
        char buffer[64];
        EXPECT_LT(in.read(buffer, sizeof buffer), 0) << "a wrong key makes reading fail";
        EXPECT_FALSE(in.errorString().isEmpty());
        expectNoKey(in.errorString().toUtf8(), "the error text");
        in.close();
        expectNoKey(QByteArray::fromStdString(log.text()), "the library's log lines");
    }

    writeFile(path("input.bin"), payload);
    runWithoutLeaks("container", "tool/secrets-container.tsv");
    EXPECT_EQ(readFile(path("out.bin")), payload);
    EXPECT_EQ(readFile(path("lib.bin")), payload);
    expectNoKey(writtenFiles(m_dir.path(), {"key", "wrong"}), "the written files");
}

} // namespace
