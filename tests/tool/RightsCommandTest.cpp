// commonkit rights show, run as a user would.

#include "../rights/MatrixTestSupport.h"

#include <CommonKit/storage/Settings.h>
#include "testlib/DataTable.h"
#include "testlib/TestFiles.h"
#include "testlib/ToolRunner.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace {

using namespace cktest;

TEST(RightsCommand, ShowsTheSavedGridRowByRow)
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("rights.ini"));
    {
        auto matrix = rightstest::makeMatrix(3, 12, [](int row, int column) { return row * 12 + column != 11 && row * 7 != column; });
        ko::Settings settings(file, QSettings::IniFormat);
        matrix->save(&settings);
    }
    ToolRun run = runTool({"rights", "show", file});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.startsWith(file + ": 3 rows (feature groups) x 12 columns (user groups)"));
    EXPECT_TRUE(run.out.endsWith("\n"
                                 "        0  1  2  3  4  5  6  7  8  9 10 11\n"
                                 "row 0:  0  1  1  1  1  1  1  1  1  1  1  0\n"
                                 "row 1:  1  1  1  1  1  1  1  0  1  1  1  1\n"
                                 "row 2:  1  1  1  1  1  1  1  1  1  1  1  1\n"
                                 "33 of 36 cells allowed\n"))
        << run.out.toStdString();
    EXPECT_TRUE(run.err.isEmpty());

    // Inside an outer group, with a word after the grid and text after the
    // last "+": both noted, not fatal.
    cktest::writeFile(file, "[Client]\nFeatureMatrix\\Rows=2\nFeatureMatrix\\Columns=2\n"
                            "FeatureMatrix\\Matrix=@ByteArray(6+7+x)\n");
    run = runTool({"rights", "show", file, "--group", "Client/"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains("row 0: 0 1\nrow 1: 1 0\n")) << run.out.toStdString();
    EXPECT_EQ(run.err, "note: text after the last '+' is ignored\nnote: 1 word(s) beyond the grid are ignored\n");
    EXPECT_TRUE(runTool({"rights", "--help"}).out.simplified().contains("not the names of the groups"));
}

TEST(RightsCommand, BadInputGivesOneLineAndNonZeroExit)
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("bad.ini"));
    for (const cktest::DataRow& row : cktest::dataRows("tool/rights-bad.tsv", 2)) {
        cktest::writeFile(file, QByteArray::fromStdString(row[0]));
        const ToolRun run = runTool({"rights", "show", file});
        EXPECT_EQ(run.exitCode, 1) << row.where;
        EXPECT_TRUE(run.out.isEmpty()) << row.where;
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QString::fromStdString(row[1]))) << row.where << ": " << run.err.toStdString();
    }
}

} // namespace
