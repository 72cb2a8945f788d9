// The settings subcommand of the commonkit tool.

#include "testlib/TestFiles.h"
#include "testlib/ToolRunner.h"
#include "testlib/ToolTable.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QTemporaryDir>

namespace {

using namespace cktest;

ToolRun settings(const QStringList& arguments)
{
    return runTool(QStringList{"settings"} + arguments);
}

QJsonObject parsed(const QString& text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << text.toStdString();
    return document.object();
}

class SettingsTool : public ::testing::Test
{
protected:
    void SetUp() override
    {
        writeFile(path("key"), "tool secret\n");
        writeFile(path("other"), "other secret");
        writeFile(path("wrong"), "not the key");
        // A plain QSettings INI file, written by Qt.
        QSettings ini(path("start.conf"), QSettings::IniFormat);
        ini.setValue(QStringLiteral("camera/name"), QStringLiteral("Gate"));
        ini.setValue(QStringLiteral("camera/port"), QStringLiteral("554"));
        ini.setValue(QStringLiteral("title"), QStringLiteral("Überblick"));
    }

    QString path(const char* name) const { return m_dir.filePath(QString::fromLatin1(name)); }

    void expectStartValues(const QJsonObject& root) const
    {
        EXPECT_EQ(root.value("camera").toObject().value("name").toString(), QStringLiteral("Gate"));
        EXPECT_EQ(root.value("camera").toObject().value("port").toString(), QStringLiteral("554"));
        EXPECT_EQ(root.value("title").toString(), QStringLiteral("Überblick"));
    }

    // Names of the files in the directory, to see that nothing partial was
    // left behind.
    QStringList files() const { return QDir(m_dir.path()).entryList(QDir::Files, QDir::Name); }

    QTemporaryDir m_dir;
};

TEST_F(SettingsTool, ConvertsThroughEveryFormAndShowsEach)
{
    for (const DataRow& row : dataRows("tool/settings-chain.tsv", -3)) {
        SCOPED_TRACE(row.where);
        const QStringList arguments = argumentsOf(row, 1, m_dir.path());
        const ToolRun run = settings(QStringList{"convert"} + arguments);
        ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_EQ(readFile(arguments[1]).startsWith('\x01'), !row[0].empty()) << "encrypted";
        const QStringList keyOption = row[0].empty() ? QStringList() : QStringList{"--key-file", path(row[0].c_str())};
        const ToolRun show = settings(QStringList{"show", arguments[1]} + keyOption);
        ASSERT_EQ(show.exitCode, 0) << show.err.toStdString();
        expectStartValues(parsed(show.out));
    }
    expectStartValues(parsed(QString::fromUtf8(readFile(path("plain.json")))));

    // (What the keyed form holds is checked with the library.)
    // And Qt reads the INI text at the end.
    QSettings end(path("end.conf"), QSettings::IniFormat);
    EXPECT_EQ(end.value("camera/port").toString(), QStringLiteral("554"));
    EXPECT_EQ(end.value("title").toString(), QStringLiteral("Überblick"));
    // Plain QSettings INI under the .ini extension is shown too.
    QFile::copy(path("end.conf"), path("qt.ini"));
    const ToolRun show = settings({"show", path("qt.ini")});
    ASSERT_EQ(show.exitCode, 0) << show.err.toStdString();
    expectStartValues(parsed(show.out));
}

TEST_F(SettingsTool, UnreadableInputsFailInOneLineAndLeaveTheOutputAlone)
{
    ASSERT_EQ(settings({"convert", path("start.conf"), path("keyed.json"), "--key-file", path("key")}).exitCode, 0);
    QByteArray flipped = readFile(path("keyed.json"));
    flipped[flipped.size() / 2] = static_cast<char>(flipped[flipped.size() / 2] ^ 1);
    writeFile(path("flipped.json"), flipped);
    writeFile(path("broken.json"), "{\"camera\": ");
    writeFile(path("out.ini"), "existing output");
    const QStringList before = files();

    for (const cktest::DataRow& row : cktest::dataRows("tool/settings-unreadable.tsv", -2)) {
        SCOPED_TRACE(row.where);
        const QString input = path(row[0].c_str());
        for (const QStringList& action : {QStringList{"show", input}, QStringList{"convert", input, path("out.ini")}}) {
            const ToolRun run = settings(action + cktest::argumentsOf(row, 2, m_dir.path()));
            EXPECT_NE(run.exitCode, 0);
            EXPECT_TRUE(run.out.isEmpty()) << run.out.toStdString();
            EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
            EXPECT_TRUE(run.err.contains(QString::fromStdString(row[1]))) << run.err.toStdString();
        }
    }
    EXPECT_EQ(readFile(path("out.ini")), QByteArray("existing output"));
    EXPECT_EQ(files(), before);
}

TEST_F(SettingsTool, ShowWarnsAboutValuesBreakingTheSchema)
{
    writeFile(path("schema.json"), R"({"type": "object", "properties": {"camera": {"type": "object",
        "properties": {"port": {"type": "integer"}}}}})");
    const ToolRun run = settings({"show", path("start.conf"), "--schema", path("schema.json")});
    EXPECT_EQ(run.exitCode, 0);
    expectStartValues(parsed(run.out));
    EXPECT_TRUE(run.err.contains(QLatin1String("start.conf: The value at /camera/port does not match the schema: ")))
        << run.err.toStdString();

    const ToolRun text = settings({"convert", path("start.conf"), path("out.conf"), "--key-file", path("key")});
    EXPECT_EQ(text.exitCode, 2);
    EXPECT_TRUE(text.err.contains(QLatin1String("--plain")));
    EXPECT_FALSE(QFile::exists(path("out.conf")));
}

} // namespace
