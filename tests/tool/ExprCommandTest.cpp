#include <CommonKit/expressions/Expressions.h>
#include <CommonKit/properties/Properties.h>
#include "testlib/ToolRunner.h"

#include <gtest/gtest.h>

#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>

namespace {

using namespace kogen;
using cktest::runTool;
using cktest::ToolRun;

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
    const QStringList declared = {"--property", "a=int", "--schema", "my field:double,s"};
    struct Case { QStringList arguments; QByteArray input; int exitCode; const char* out; const char* err; };
    const Case cases[] = {
        {declared + QStringList{"a > 2 and (s like 'x%' escape '!') or my_field in (1.5, -2)"}, {}, 0,
         "SQL: (a > 2 AND (s LIKE 'x%' ESCAPE '!')) OR my_field IN (1.5,-2)\n"
         "Bound: (a > ? AND (s LIKE 'x%' ESCAPE '!')) OR my_field IN (?,?)\n"
         "  1: 2 (int)\n  2: 1.5 (double)\n  3: -2 (int)\n"
         "Code: (a > 2 && like(s,\"x%\",\"!\")) || my_field IN (1.5,-2)\n",
         ""},
        {{"--property", "a", "--", "- -a"}, {}, 0, "SQL: - -a\nBound: - -a\nCode: - -a\n", ""},
        {{"--property=a", "-"}, "a\n=\n'x'", 0, "SQL: a = 'x'\nBound: a = ?\n  1: x (QString)\nCode: a == \"x\"\n", ""},
        {{"b = 1"}, {}, 1, "", "commonkit: expr parse: unknown property 'b' at column 1\n  b = 1\n  ^\n"},
        {{"--property", "b=blob", "b"}, {}, 2, "",
         "commonkit: expr parse: cannot declare 'b=blob' (types: bool, int, uint, u64, float, double, "
         "string, stringlist, bytearray, date, time, datetime, variant)\n"},
    };
    for (const Case& c : cases) {
        const ToolRun run = runTool(QStringList{"expr", "parse"} + c.arguments, "UTC0", c.input);
        EXPECT_EQ(run.exitCode, c.exitCode) << run.err.toStdString();
        EXPECT_EQ(run.out, c.out);
        EXPECT_EQ(run.err, c.err);
    }

    // The stream form reads back into the tree the builders give.
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("filter.bin"));
    const ToolRun run = runTool(QStringList{"expr", "parse", "--out", path} + declared
                                + QStringList{"a >= -3 OR NOT s IN ('it''s')"});
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
