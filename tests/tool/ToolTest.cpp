// Runs the commonkit tool as a user would and checks what it prints.

#include "testlib/DataTable.h"
#include "testlib/TestFiles.h"
#include "testlib/ToolRunner.h"
#include "testlib/ToolTable.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <set>

namespace {

using namespace cktest;

// The subcommands the tool lists in its help: the first word of each line in
// the block after "Commands:".
QStringList commandNames()
{
    const QString block = runTool({"--help"}).out.section("Commands:\n", 1).section("\n\n", 0, 0);
    QStringList names;
    for (const QString& line : block.split('\n'))
        names.append(line.trimmed().section(' ', 0, 0));
    return names;
}

// Every text must be in the output of `time <input>` (the formats themselves
// are the library's, checked with it).
TEST(Tool, TimeShowsFieldsAndTextsOfAFrameTime)
{
    for (const cktest::DataRow& row : cktest::dataRows("tool/time-texts.tsv", 3)) {
        const ToolRun run = runTool({"time", QString::fromStdString(row[0])}, QByteArray::fromStdString(row[1]));
        EXPECT_EQ(run.exitCode, 0) << row.where << ": " << run.err.toStdString();
        EXPECT_TRUE(run.out.contains(QString::fromStdString(row[2]))) << row.where << ":\n" << run.out.toStdString();
    }
}

TEST(Tool, TimeAlignsItsValuesInEveryLanguage)
{
    for (const char* language : {"en", "de", "fr"}) {
        const ToolRun run = runTool({"--lang", language, "time", "1500000"});
        ASSERT_EQ(run.exitCode, 0) << language;
        const QStringList lines = run.out.split('\n', Qt::SkipEmptyParts);
        ASSERT_EQ(lines.size(), 5) << run.out.toStdString();
        // Each value starts after the first run of two or more blanks.
        std::set<int> columns;
        for (const QString& line : lines)
            columns.insert(QRegularExpression("  +").match(line).capturedEnd());
        EXPECT_EQ(columns.size(), 1u) << language << ":\n" << run.out.toStdString();
        EXPECT_EQ(columns.count(-1), 0u) << run.out.toStdString();
    }
}

TEST(Tool, FourccConvertsBothWays)
{
    ToolRun run;
    for (const cktest::DataRow& row : cktest::dataRows("tool/fourcc.tsv", 2)) {
        run = runTool({"fourcc", QString::fromStdString(row[0])});
        EXPECT_EQ(run.exitCode, 0) << row.where;
        EXPECT_EQ(run.out.toStdString(), row[1] + "\n") << row.where;
    }
    EXPECT_EQ(run.err.toStdString(), "note: only the first four characters count: \"ab\\x0ac\"\n");
}

// json check names each file's fault (syntax, or the schema's place in the
// value); json format prints what Qt's own reader reads as the same document.
TEST(Tool, JsonChecksDocumentsAndPrintsWhatQtReadsBack)
{
    const QString data = COMMONKIT_TEST_DATA "/tool/json/";
    const QString schema = data + "schema.json", good = data + "good.json";
    const QString wrongType = data + "type.json", broken = data + "broken.json";
    const ToolRun check = runTool({"json", "check", "--schema", schema, good, wrongType, broken});
    EXPECT_EQ(check.exitCode, 1);
    EXPECT_EQ(check.out, good + ": valid\n");
    EXPECT_TRUE(check.err.contains(wrongType + ": The value at /cams/1/port ")) << check.err.toStdString();
    EXPECT_TRUE(check.err.contains(broken + ": line 1, column 13: ")) << check.err.toStdString();
    for (const bool compact : {true, false}) {
        const ToolRun format = runTool(compact ? QStringList{"json", "format", good, "--compact"}
                                               : QStringList{"json", "format", good});
        EXPECT_EQ(format.exitCode, 0);
        EXPECT_EQ(QJsonDocument::fromJson(format.out.toUtf8()), QJsonDocument::fromJson(cktest::readFile(good)));
        EXPECT_EQ(format.out.count('\n'), compact ? 1 : 10) << format.out.toStdString();
    }
}

// Line feeds in arguments stay inside the one line of the message.
TEST(Tool, BadInputGivesOneLineAndNonZeroExit)
{
    std::vector<std::pair<QStringList, QByteArray>> runs = {{QStringList(), QByteArray()}};
    for (const cktest::DataRow& row : cktest::dataRows("tool/bad-input.tsv", -2))
        runs.emplace_back(cktest::argumentsOf(row, 1), QByteArray::fromStdString(row[0]));
    for (const auto& [arguments, input] : runs) {
        const ToolRun run = runTool(arguments, "UTC0", input);
        EXPECT_NE(run.exitCode, 0) << arguments.join(' ').toStdString();
        EXPECT_TRUE(run.out.isEmpty()) << arguments.join(' ').toStdString() << ": " << run.out.toStdString();
        EXPECT_TRUE(run.err.startsWith("commonkit: ")) << run.err.toStdString();
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
    }
}

TEST(Tool, NegativeNumbersAreValuesNotOptions)
{
    for (const QString value : {"-5", "-1500000"}) {
        const ToolRun run = runTool({"time", value});
        EXPECT_EQ(run.exitCode, 1) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains('\'' + value + '\'')) << run.err.toStdString();
    }
    EXPECT_EQ(runTool({"fourcc", "-1"}).exitCode, 0);
}

// Every subcommand's help, in English and translated: the parser's own texts
// ("Options:", the --help line, ...) follow --lang as well as the
// subcommand's texts; the parser's --help-all shows the same help.
TEST(Tool, EverySubcommandHasTranslatedHelpAndTheToolHasAVersion)
{
    const QStringList commands = commandNames();
    ASSERT_GE(commands.size(), 4);
    for (const QString& command : commands) {
        const ToolRun run = runTool({command, "--help"});
        EXPECT_EQ(run.exitCode, 0) << command.toStdString();
        EXPECT_TRUE(run.out.contains("--lang")) << command.toStdString();
        EXPECT_TRUE(run.out.startsWith(QStringLiteral("Usage: commonkit %1 ").arg(command))) << run.out.toStdString();
        const ToolRun all = runTool({command, "--help-all"});
        EXPECT_EQ(all.exitCode, 0) << command.toStdString() << ": " << all.err.toStdString();
        EXPECT_EQ(all.out.toStdString(), run.out.toStdString()) << command.toStdString();
        const QString description = run.out.section('\n', 1, 1);
        for (const char* language : {"de", "fr"}) {
            const ToolRun translated = runTool({"--lang", language, command, "--help"});
            const std::string where = command.toStdString() + " " + language + ": " + translated.out.toStdString();
            EXPECT_EQ(translated.exitCode, 0) << where;
            for (const char* english : {"Usage:", "Options:", "Arguments:", "Displays help"})
                EXPECT_FALSE(translated.out.contains(english)) << where;
            EXPECT_TRUE(description.isEmpty() || translated.out.section('\n', 1, 1) != description) << where;
        }
    }
    const ToolRun error = runTool({"--lang", "de", "time", "--bogus", "1"});
    EXPECT_EQ(error.err.trimmed().toStdString(), "commonkit: time: Unbekannte Option 'bogus'.");
    const ToolRun version = runTool({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_TRUE(version.out.startsWith("commonkit "));
}

// Both spellings of --lang, anywhere; the last counts. (That every text has
// its translations is checked against the sources.)
TEST(Tool, LanguageOptionTranslatesTexts)
{
    for (const cktest::DataRow& row : cktest::dataRows("tool/lang-options.tsv", -2)) {
        const ToolRun run = runTool(cktest::argumentsOf(row, 1));
        EXPECT_EQ(run.exitCode, 0) << row.where << ": " << run.err.toStdString();
        EXPECT_TRUE(run.out.contains(QString::fromStdString(row[0]))) << row.where << ": " << run.out.toStdString();
    }
}

// The bitmap has one 16 x 20 cell per character (what is drawn in the cells
// is the library's, checked with it).
TEST(Tool, StampWritesABitmapOfTheText)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("stamp.bmp");
    const ToolRun run = runTool({"stamp", "12:34:56.789", "--out", file});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    QImage image;
    ASSERT_TRUE(image.load(file, "BMP"));
    EXPECT_EQ(image.size(), QSize(12 * 16, 20));
    QImage blank(image.size(), image.format());
    blank.fill(Qt::black);
    EXPECT_NE(image, blank);
}

TEST(Tool, DemoRunsEverySection)
{
    const ToolRun run = runTool({"demo"});
    EXPECT_EQ(run.exitCode, 0) << run.out.toStdString() << run.err.toStdString();
    EXPECT_TRUE(run.out.contains("All sections ran as expected."));
}

} // namespace
