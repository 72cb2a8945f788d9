// commonkit rights show, run as a user would.

#include "MatrixTestSupport.h"

#include "storage/Settings.h"
#include "support/ToolRunner.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

namespace {

using cktest::runTool;
using cktest::ToolRun;

QStringList show(const QString& file)
{
    return {QStringLiteral("rights"), QStringLiteral("show"), file};
}

TEST(RightsCommand, ShowsTheSavedGridRowByRow)
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("rights.ini"));
    auto matrix = rightstest::makeMatrix(3, 12);
    matrix->setAllowed(0, 11, false);
    matrix->setAllowed(1, 0, false);
    matrix->setAllowed(2, 5, false);
    {
        ko::Settings settings(file, QSettings::IniFormat);
        matrix->save(&settings);
    }
    const ToolRun run = runTool(show(file));
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QStringList lines = run.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 6) << run.out.toStdString();
    EXPECT_TRUE(lines[0].contains(QStringLiteral("3 rows (feature groups) x 12 columns (user groups)")));
    EXPECT_EQ(lines[1], QStringLiteral("        0  1  2  3  4  5  6  7  8  9 10 11"));
    EXPECT_EQ(lines[2], QStringLiteral("row 0:  1  1  1  1  1  1  1  1  1  1  1  0"));
    EXPECT_EQ(lines[3], QStringLiteral("row 1:  0  1  1  1  1  1  1  1  1  1  1  1"));
    EXPECT_EQ(lines[4], QStringLiteral("row 2:  1  1  1  1  1  0  1  1  1  1  1  1"));
    EXPECT_EQ(lines[5], QStringLiteral("33 of 36 cells allowed"));
    EXPECT_TRUE(run.err.isEmpty()) << run.err.toStdString();
}

TEST(RightsCommand, ReadsAMatrixInsideAnOuterGroup)
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("app.ini"));
    {
        QSettings store(file, QSettings::IniFormat);
        store.setValue(QStringLiteral("Client/FeatureMatrix/Rows"), 2);
        store.setValue(QStringLiteral("Client/FeatureMatrix/Columns"), 2);
        store.setValue(QStringLiteral("Client/FeatureMatrix/Matrix"), QByteArray("6+7+x"));
    }
    const ToolRun run = runTool({QStringLiteral("rights"), QStringLiteral("show"), file, QStringLiteral("--group"),
                                 QStringLiteral("Client/")});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral("row 0: 0 1\nrow 1: 1 0\n"))) << run.out.toStdString();
    // The word after the grid and the text after the last "+" are noted, not fatal.
    EXPECT_EQ(run.err, QStringLiteral("note: text after the last '+' is ignored\n"
                                      "note: 1 word(s) beyond the grid are ignored\n"));
    // Without the group there is no matrix at the top level.
    EXPECT_NE(runTool(show(file)).exitCode, 0);
}

TEST(RightsCommand, BadFilesGiveOneLineAndNonZeroExit)
{
    QTemporaryDir dir;
    struct Case { const char* name; const char* content; const char* reason; };
    const Case cases[] = {
        {"nomatrix.ini", "[General]\nLanguage=de\n", "FeatureMatrix/Rows is missing"},
        {"norows.ini", "[FeatureMatrix]\nColumns=2\nMatrix=15+\n", "FeatureMatrix/Rows is missing"},
        {"badrows.ini", "[FeatureMatrix]\nRows=two\nColumns=2\nMatrix=15+\n", "FeatureMatrix/Rows is not a count"},
        {"negative.ini", "[FeatureMatrix]\nRows=-1\nColumns=2\nMatrix=15+\n", "FeatureMatrix/Rows is not a count"},
        {"huge.ini", "[FeatureMatrix]\nRows=2147483647\nColumns=0\nMatrix=\n", "FeatureMatrix/Rows is not a count"},
        {"short.ini", "[FeatureMatrix]\nRows=4\nColumns=10\nMatrix=4294967295+\n", "truncated: 1 words for 40 cells"},
        {"empty.ini", "[FeatureMatrix]\nRows=1\nColumns=1\nMatrix=\n", "truncated: 0 words for 1 cells"},
        {"word.ini", "[FeatureMatrix]\nRows=1\nColumns=2\nMatrix=x3+\n", "word 1 of FeatureMatrix/Matrix"},
        {"big.ini", "[FeatureMatrix]\nRows=1\nColumns=2\nMatrix=4294967296+\n", "word 1 of FeatureMatrix/Matrix"},
    };
    for (const Case& c : cases) {
        const QString file = dir.filePath(QString::fromLatin1(c.name));
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(c.content);
        out.close();
        const ToolRun run = runTool(show(file));
        EXPECT_EQ(run.exitCode, 1) << c.name;
        EXPECT_TRUE(run.out.isEmpty()) << c.name << ": " << run.out.toStdString();
        EXPECT_EQ(run.err.count(QLatin1Char('\n')), 1) << c.name << ": " << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QString::fromLatin1(c.reason))) << c.name << ": " << run.err.toStdString();
    }

    const QList<QStringList> usage = {
        {QStringLiteral("rights")},
        {QStringLiteral("rights"), QStringLiteral("show")},
        {QStringLiteral("rights"), QStringLiteral("list"), dir.filePath(QStringLiteral("x.ini"))},
    };
    for (const QStringList& arguments : usage)
        EXPECT_EQ(runTool(arguments).exitCode, 2) << arguments.join(' ').toStdString();

    for (const QString& path : {dir.filePath(QStringLiteral("missing.ini")), dir.path()}) {
        const ToolRun run = runTool(show(path));
        EXPECT_EQ(run.exitCode, 1) << path.toStdString();
        EXPECT_EQ(run.err.count(QLatin1Char('\n')), 1) << run.err.toStdString();
    }
}

TEST(RightsCommand, HelpSaysThatTheFileHoldsNoNames)
{
    const ToolRun run = runTool({QStringLiteral("rights"), QStringLiteral("--help")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.out.simplified().contains(QStringLiteral("not the names of the groups"))) << run.out.toStdString();
}

} // namespace
