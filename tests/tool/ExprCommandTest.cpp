#include <CommonKit/expressions/Expressions.h>
#include <CommonKit/properties/Properties.h>
#include "testlib/ToolRunner.h"
#include "testlib/ToolTable.h"

#include <gtest/gtest.h>

#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>

namespace {

using namespace kogen;
using namespace cktest;

QByteArray stream(const ExpressionHandle& e)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << e;
    return bytes;
}

TEST(ExprCommand, PrintsAStreamWithItsBoundValues)
{
    IntProperty a(QStringLiteral("a"));
    StringProperty s(QStringLiteral("s"));
    const QByteArray bytes = stream((a > QVariant(2) && s == QVariant(QStringLiteral("it's"))) || !(a == QVariant(7)));

    const ToolRun run = runTool({"expr", "--bind", "-"}, "UTC0", bytes);
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, "(a > ? AND s = ?) OR  NOT a = ?\n1: 2 (int)\n2: it's (QString)\n3: 7 (int)\n");
}

TEST(ExprCommand, RefusesDamagedAndUnreadableStreams)
{
    IntProperty a(QStringLiteral("a"));
    const QByteArray good = stream(a == QVariant(1));
    SwitchCase sw(a);
    sw.switchCase(ConstExpression(1, false), ConstExpression(2, false));
    const QByteArray inputs[] = {good.left(good.size() - 3), stream(sw), good + "x", QByteArray()};
    for (const QByteArray& input : inputs) {
        const ToolRun run = runTool({"expr", "-"}, "UTC0", input);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_TRUE(run.out.isEmpty());
        EXPECT_TRUE(run.err.startsWith("commonkit: expr: '-' ")) << run.err.toStdString();
    }
    const ToolRun missing = runTool({"expr", "/nonexistent/f.bin"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(missing.err.contains("cannot open '/nonexistent/f.bin'")) << missing.err.toStdString();
}

TEST(ExprCommand, ParsesFiltersAgainstDeclaredProperties)
{
    for (const cktest::DataRow& row : cktest::dataRows("tool/expr-parse.tsv", -5)) {
        const ToolRun run = runTool(QStringList{"expr", "parse"} + cktest::argumentsOf(row, 4), "UTC0",
                                    QByteArray::fromStdString(row[1]));
        EXPECT_EQ(run.exitCode, std::stoi(row[0])) << row.where << ": " << run.err.toStdString();
        EXPECT_EQ(run.out.toStdString(), row[2]) << row.where;
        EXPECT_EQ(run.err.toStdString(), row[3]) << row.where;
    }

    // The stream form reads back into the tree the builders give.
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("filter.bin"));
    const ToolRun run = runTool({"expr", "parse", "--out", path, "--property", "a=int", "--property", "s",
                                 "a >= -3 OR NOT s IN ('it''s')"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.endsWith(QStringLiteral("Stream written to %1\n").arg(path))) << run.out.toStdString();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QDataStream in(&file);
    const ExpressionHandle tree = Expression::readExpression(in);
    IntProperty a(QStringLiteral("a"));
    StringProperty s(QStringLiteral("s"));
    const ExpressionHandle expected = (a >= QVariant(-3)) || !ExpressionHandle(ElementOf(s) << QStringLiteral("it's"));
    EXPECT_TRUE(tree.equals(expected)) << tree->toString(Expression::PrintSql).toStdString();
}

} // namespace
