#include "expressions/Expressions.h"
#include "properties/Properties.h"
#include "support/ToolRunner.h"

#include <gtest/gtest.h>

#include <QDataStream>

namespace {

using namespace kogen;

QByteArray stream(const ExpressionHandle& e)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << e;
    return bytes;
}

TEST(ExprCommand, PrintsStreamsAsSqlCodeAndBoundValues)
{
    IntProperty a(QStringLiteral("a"));
    StringProperty s(QStringLiteral("s"));
    const QByteArray bytes = stream((a > QVariant(2) && s == QVariant(QStringLiteral("it's"))) || !(a == QVariant(7)));

    struct Case { QStringList arguments; QString expected; };
    const Case cases[] = {
        {{QStringLiteral("expr"), QStringLiteral("-")}, QStringLiteral("(a > 2 AND s = 'it''s') OR  NOT a = 7\n")},
        {{QStringLiteral("expr"), QStringLiteral("--code"), QStringLiteral("-")},
         QStringLiteral("(a > 2 && s == \"it's\") ||  ! a == 7\n")},
        {{QStringLiteral("expr"), QStringLiteral("--bind"), QStringLiteral("-")},
         QStringLiteral("(a > ? AND s = ?) OR  NOT a = ?\n1: 2 (int)\n2: it's (QString)\n3: 7 (int)\n")},
    };
    for (const Case& c : cases) {
        const cktest::ToolRun run = cktest::runTool(c.arguments, "UTC0", bytes);
        EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_EQ(run.out, c.expected);
    }
}

TEST(ExprCommand, RefusesDamagedAndUnreadableStreams)
{
    IntProperty a(QStringLiteral("a"));
    const QByteArray good = stream(a == QVariant(1));
    SwitchCase sw(a);
    sw.switchCase(ConstExpression(1, false), ConstExpression(2, false));
    const QByteArray inputs[] = {good.left(good.size() - 3), stream(sw), good + "x", QByteArray()};
    for (const QByteArray& input : inputs) {
        const cktest::ToolRun run = cktest::runTool({QStringLiteral("expr"), QStringLiteral("-")}, "UTC0", input);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_TRUE(run.out.isEmpty());
        EXPECT_TRUE(run.err.startsWith(QStringLiteral("commonkit: expr: '-' "))) << run.err.toStdString();
    }
    const cktest::ToolRun missing = cktest::runTool({QStringLiteral("expr"), QStringLiteral("/nonexistent/f.bin")});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(missing.err.contains(QStringLiteral("cannot open '/nonexistent/f.bin'"))) << missing.err.toStdString();
    EXPECT_EQ(cktest::runTool({QStringLiteral("expr")}).exitCode, 2);
}

} // namespace
