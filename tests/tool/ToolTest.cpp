// Runs the commonkit tool as a user would and checks what it prints.

#include "testlib/DataTable.h"
#include "testlib/TestFiles.h"
#include "testlib/ToolRunner.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <set>

namespace {

using cktest::runTool;
using cktest::ToolRun;

// The subcommands the tool lists in its help.
QStringList commandNames()
{
    const ToolRun run = runTool({QStringLiteral("--help")});
    QStringList names;
    bool inList = false;
    for (const QString& line : run.out.split(QLatin1Char('\n'))) {
        if (line == QLatin1String("Commands:"))
            inList = true;
        else if (inList && line.startsWith(QLatin1String("  ")))
            names.append(line.trimmed().section(QLatin1Char(' '), 0, 0));
        else if (inList)
            break;
    }
    return names;
}

// Every text must be in the output of `time <input>` (the formats themselves
// are the library's, checked with it).
TEST(Tool, TimeShowsFieldsAndTextsOfAFrameTime)
{
    struct Case { const char* input; const char* zone; std::vector<const char*> texts; };
    const Case cases[] = {
        {"1500000", "XYZ-1", {"01.01.1970-01:00:01.500", "19700101_010001_500", "UTC:         1970-01-01T00:00:01.500Z\n",
                              "millisecond 500, microsecond 0"}},
        {"2024-05-06T07:08:09.123Z", "UTC0", {"1714979289123000"}},
    };
    for (const Case& c : cases) {
        const ToolRun run = runTool({QStringLiteral("time"), QLatin1String(c.input)}, c.zone);
        EXPECT_EQ(run.exitCode, 0) << c.input << ": " << run.err.toStdString();
        for (const char* text : c.texts)
            EXPECT_TRUE(run.out.contains(QLatin1String(text))) << text << " in\n" << run.out.toStdString();
    }
}

TEST(Tool, TimeAlignsItsValuesInEveryLanguage)
{
    for (const char* language : {"en", "de", "fr"}) {
        const ToolRun run = runTool({QStringLiteral("--lang"), QLatin1String(language), QStringLiteral("time"),
                                     QStringLiteral("1500000")});
        ASSERT_EQ(run.exitCode, 0) << language;
        const QStringList lines = run.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        ASSERT_EQ(lines.size(), 5) << run.out.toStdString();
        // Each value starts after the first run of two or more blanks.
        const QRegularExpression gap(QStringLiteral("  +"));
        std::set<int> columns;
        for (const QString& line : lines) {
            const QRegularExpressionMatch match = gap.match(line);
            ASSERT_TRUE(match.hasMatch()) << line.toStdString();
            columns.insert(match.capturedEnd());
        }
        EXPECT_EQ(columns.size(), 1u) << language << ":\n" << run.out.toStdString();
    }
}

TEST(Tool, FourccConvertsBothWays)
{
    ToolRun run;
    for (const cktest::DataRow& row : cktest::dataRows("tool/fourcc.tsv", 2)) {
        run = runTool({QStringLiteral("fourcc"), QString::fromStdString(row[0])});
        EXPECT_EQ(run.exitCode, 0) << row.where;
        EXPECT_EQ(run.out.toStdString(), row[1] + "\n") << row.where;
    }
    EXPECT_EQ(run.err.toStdString(), "note: only the first four characters count: \"ab\\x0ac\"\n");
}

// json check names each file's fault (syntax, or the schema's place in the
// value); json format prints what Qt's own reader reads as the same document.
TEST(Tool, JsonChecksDocumentsAndPrintsWhatQtReadsBack)
{
    QTemporaryDir dir;
    const QByteArray document = R"({"cams": [{"name": "Gate", "port": 554, "ratio": 0.25}], "on": true})";
    const QString schema = dir.filePath(QStringLiteral("schema.json")), good = dir.filePath(QStringLiteral("good.json"));
    const QString wrongType = dir.filePath(QStringLiteral("type.json")), broken = dir.filePath(QStringLiteral("broken.json"));
    cktest::writeFile(schema, R"({"properties": {"cams": {"items": {"properties": {"port": {"type": "integer"}}}}}})");
    cktest::writeFile(good, document);
    cktest::writeFile(wrongType, R"({"cams": [{"port": 554}, {"port": "554"}]})");
    cktest::writeFile(broken, R"({"cams": [1,]})");
    const ToolRun check = runTool({QStringLiteral("json"), QStringLiteral("check"), QStringLiteral("--schema"), schema,
                                   good, wrongType, broken});
    EXPECT_EQ(check.exitCode, 1);
    EXPECT_EQ(check.out, good + QStringLiteral(": valid\n"));
    EXPECT_TRUE(check.err.contains(wrongType + QStringLiteral(": The value at /cams/1/port "))) << check.err.toStdString();
    EXPECT_TRUE(check.err.contains(broken + QStringLiteral(": line 1, column 13: "))) << check.err.toStdString();
    for (const QString& style : {QStringLiteral("--compact"), QString()}) {
        QStringList arguments = {QStringLiteral("json"), QStringLiteral("format"), good};
        if (!style.isEmpty())
            arguments << style;
        const ToolRun format = runTool(arguments);
        EXPECT_EQ(format.exitCode, 0);
        EXPECT_EQ(QJsonDocument::fromJson(format.out.toUtf8()), QJsonDocument::fromJson(document));
        EXPECT_EQ(format.out.count(QLatin1Char('\n')), style.isEmpty() ? 10 : 1) << format.out.toStdString();
    }
}

// Line feeds in arguments stay inside the one line of the message.
TEST(Tool, BadInputGivesOneLineAndNonZeroExit)
{
    std::vector<std::pair<QStringList, QByteArray>> runs = {{QStringList(), QByteArray()}};
    for (const cktest::DataRow& row : cktest::dataRows("tool/bad-input.tsv", -2)) {
        QStringList arguments;
        for (std::size_t i = 1; i < row.fields.size(); ++i)
            arguments << QString::fromStdString(row[i]);
        runs.emplace_back(arguments, QByteArray::fromStdString(row[0]));
    }
    for (const auto& [arguments, input] : runs) {
        const ToolRun run = runTool(arguments, "UTC0", input);
        EXPECT_NE(run.exitCode, 0) << arguments.join(' ').toStdString();
        EXPECT_TRUE(run.out.isEmpty()) << arguments.join(' ').toStdString() << ": " << run.out.toStdString();
        EXPECT_TRUE(run.err.startsWith(QStringLiteral("commonkit: "))) << run.err.toStdString();
        EXPECT_EQ(run.err.count(QLatin1Char('\n')), 1) << run.err.toStdString();
    }
}

TEST(Tool, NegativeNumbersAreValuesNotOptions)
{
    for (const QString& value : {QStringLiteral("-5"), QStringLiteral("-1500000")}) {
        const ToolRun run = runTool({QStringLiteral("time"), value});
        EXPECT_EQ(run.exitCode, 1) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QLatin1Char('\'') + value + QLatin1Char('\''))) << run.err.toStdString();
    }
    const ToolRun run = runTool({QStringLiteral("fourcc"), QStringLiteral("-1")});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
}

TEST(Tool, EverySubcommandHasHelpAndTheToolHasAVersion)
{
    const QStringList commands = commandNames();
    ASSERT_GE(commands.size(), 4);
    for (const QString& command : commands) {
        const ToolRun run = runTool({command, QStringLiteral("--help")});
        EXPECT_EQ(run.exitCode, 0) << command.toStdString();
        EXPECT_TRUE(run.out.contains(QStringLiteral("--lang"))) << command.toStdString();
        EXPECT_TRUE(run.out.startsWith(QStringLiteral("Usage: commonkit %1 ").arg(command)))
            << run.out.toStdString();
        // The parser also offers --help-all; it shows the same help.
        const ToolRun all = runTool({command, QStringLiteral("--help-all")});
        EXPECT_EQ(all.exitCode, 0) << command.toStdString() << ": " << all.err.toStdString();
        EXPECT_EQ(all.out.toStdString(), run.out.toStdString()) << command.toStdString();
    }
    const ToolRun version = runTool({QStringLiteral("--version")});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_TRUE(version.out.startsWith(QStringLiteral("commonkit ")));
}

TEST(Tool, HelpOfEverySubcommandIsTranslated)
{
    // The parser's own texts ("Options:", the --help line, ...) must follow
    // --lang as well as the subcommand's texts.
    const QStringList english = {QStringLiteral("Usage:"), QStringLiteral("Options:"), QStringLiteral("Arguments:"),
                                 QStringLiteral("Displays help")};
    for (const QString& command : commandNames()) {
        const QString description = runTool({command, QStringLiteral("--help")}).out.section(QLatin1Char('\n'), 1, 1);
        for (const char* language : {"de", "fr"}) {
            const ToolRun run = runTool({QStringLiteral("--lang"), QLatin1String(language), command, QStringLiteral("--help")});
            const std::string where = command.toStdString() + " " + language;
            EXPECT_EQ(run.exitCode, 0) << where;
            for (const QString& text : english)
                EXPECT_FALSE(run.out.contains(text)) << where << ": " << run.out.toStdString();
            if (!description.isEmpty()) {
                EXPECT_NE(run.out.section(QLatin1Char('\n'), 1, 1).toStdString(), description.toStdString()) << where;
            }
        }
    }
    const ToolRun error = runTool({QStringLiteral("--lang"), QStringLiteral("de"), QStringLiteral("time"),
                                   QStringLiteral("--bogus"), QStringLiteral("1")});
    EXPECT_EQ(error.err.trimmed().toStdString(), "commonkit: time: Unbekannte Option 'bogus'.");
}

TEST(Tool, LanguageOptionTranslatesTexts)
{
    for (const char* language : {"de", "fr"}) {
        const ToolRun run = runTool({QStringLiteral("--lang"), QString::fromLatin1(language), QStringLiteral("time"),
                                 QStringLiteral("yesterday")});
        EXPECT_NE(run.exitCode, 0);
        EXPECT_FALSE(run.err.contains(QStringLiteral("neither a frame time"))) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QStringLiteral("yesterday")));
    }
    for (const cktest::DataRow& row : cktest::dataRows("tool/lang-options.tsv", -2)) {
        QStringList arguments;
        for (std::size_t i = 1; i < row.fields.size(); ++i)
            arguments << QString::fromStdString(row[i]);
        const ToolRun run = runTool(arguments);
        EXPECT_EQ(run.exitCode, 0) << row.where << ": " << run.err.toStdString();
        EXPECT_TRUE(run.out.contains(QString::fromStdString(row[0]))) << row.where << ": " << run.out.toStdString();
    }
}

TEST(Tool, StampWritesABitmapOfTheText)
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("stamp.bmp"));
    const ToolRun run = runTool({QStringLiteral("stamp"), QStringLiteral("12:34:56.789"), QStringLiteral("--out"), file});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    QImage image;
    ASSERT_TRUE(image.load(file, "BMP"));
    EXPECT_EQ(image.width(), 12 * 16);
    EXPECT_EQ(image.height(), 20);
    // The blank-free text has ink in every cell.
    for (int cell = 0; cell < 12; ++cell) {
        bool ink = false;
        for (int y = 0; y < 20 && !ink; ++y)
            for (int x = 0; x < 16 && !ink; ++x)
                ink = qGray(image.pixel(cell * 16 + x, y)) > 128;
        EXPECT_TRUE(ink) << "cell " << cell;
    }
}

TEST(Tool, DemoRunsEverySection)
{
    const ToolRun run = runTool({QStringLiteral("demo")});
    EXPECT_EQ(run.exitCode, 0) << run.out.toStdString() << run.err.toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral("All sections ran as expected.")));
}

} // namespace
