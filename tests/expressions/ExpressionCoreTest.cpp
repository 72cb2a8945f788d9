#include "ExpressionTestSupport.h"
#include "testlib/DataTable.h"

#include <gtest/gtest.h>

#include <QDate>
#include <QRegExp>
#include <QTextStream>

namespace {

using namespace kogen;
using cktest::bound;
using cktest::code;
using cktest::Record;
using cktest::sql;

TEST(ExpressionCore, HandlesShareUntilChangedThenClone)
{
    ExpressionHandle first = ExpressionList(QList<QVariant>{1, 2});
    ExpressionHandle second = first;
    EXPECT_EQ(first.constData(), second.constData());
    static_cast<ExpressionList*>(second.data())->append(QVariant(3));
    EXPECT_NE(first.constData(), second.constData());
    EXPECT_EQ(bound(first), "?,?");
    EXPECT_EQ(bound(second), "?,?,?");
    // A default handle is the shared empty list, never changed through a handle.
    ExpressionHandle empty;
    EXPECT_EQ(empty.constData(), ExpressionList::empty().constData());
    static_cast<ExpressionList*>(empty.data())->append(QVariant(1));
    EXPECT_TRUE(ExpressionList::empty()->isEmpty());
}

TEST(ExpressionCore, ConstantsPrintPerStyle)
{
    for (const cktest::DataRow& row : cktest::dataRows("expressions/constants.tsv", 5)) {
        const ExpressionHandle e = ConstExpression(cktest::variantOf(row[0]), row[1] == "1");
        EXPECT_EQ(sql(e), row[2]) << row.where;
        EXPECT_EQ(bound(e), row[3]) << row.where;
        EXPECT_EQ(code(e), row[4]) << row.where;
    }
    const ExpressionHandle pattern = ConstExpression(QRegExp(QStringLiteral("a'b.*")), false);
    EXPECT_EQ(sql(pattern), "'a''b.*'");
    EXPECT_EQ(code(pattern), "\"a'b.*\"");
}

TEST(ExpressionCore, ConstantEqualityAndEmptiness)
{
    EXPECT_TRUE(ConstExpression(5, true).equals(&static_cast<const Expression&>(ConstExpression(5, false))));
    const ConstExpression five(5, false);
    const ConstExpression six(6, false);
    const ValueExpression named(QStringLiteral("five"));
    EXPECT_FALSE(five.equals(&six));
    EXPECT_FALSE(five.equals(&named));
    EXPECT_TRUE(Expression::equals(nullptr, nullptr));
    EXPECT_FALSE(Expression::equals(&five, nullptr));
    EXPECT_TRUE(ConstExpression(QVariant(), false).isEmpty());
    EXPECT_FALSE(ConstExpression(QString(), false).isEmpty());
    EXPECT_TRUE(ValueExpression(QString()).isEmpty());
    EXPECT_TRUE(toInt(ExpressionHandle()).isEmpty());
}

// Aliases are looked up first; that is checked with the other evaluations.
TEST(ExpressionCore, MissingNamesAndAliases)
{
    Record r;
    EXPECT_FALSE(r.eval(ValueExpression(QStringLiteral("missing"))).isValid());
    EXPECT_FALSE(ValueExpression(QStringLiteral("a"), QStringLiteral("x"))
                     .equals(&static_cast<const Expression&>(ValueExpression(QStringLiteral("a")))));
}

TEST(ExpressionCore, CastsConvertPrintAndRetypePlaceholders)
{
    // Casts of text are evaluated with the others from filter texts. QVariant
    // has no date-to-number conversion; the cast goes through the microsecond
    // scale instead.
    const QDateTime moment(QDate(1970, 1, 2), QTime(0, 0), Qt::UTC);
    EXPECT_EQ(toLongLong(ConstExpression(moment, false)).evaluate(), TypeTool::castDate(moment, QVariant::LongLong));

    // Only the values under the cast take its type: an earlier placeholder
    // keeps the type it was given.
    Record r;
    const ExpressionHandle mixed = (*r.s == QVariant(QStringLiteral("7")))
                                   && (toDouble(ConstExpression(QStringLiteral("2.5"), true)) > ConstExpression(1, false));
    EXPECT_EQ(bound(mixed), "s = ? AND CAST(? AS double) > 1");
    const QList<QVariant> mixedValues = mixed->collectPlaceholders();
    EXPECT_EQ(mixedValues, (QList<QVariant>{QStringLiteral("7"), 2.5}));
    EXPECT_TRUE(mixedValues.value(0).type() == QVariant::String && mixedValues.value(1).type() == QVariant::Double);
    EXPECT_FALSE(toInt(ConstExpression(1, false)).equals(&static_cast<const Expression&>(toUInt(ConstExpression(1, false)))));
}

TEST(ExpressionCore, ListsPrintCollectAndEvaluate)
{
    const ExpressionHandle list = ExpressionList(QList<QVariant>{1, 2});
    EXPECT_EQ(bound(list), "?,?");
    EXPECT_EQ(list->collectPlaceholders(), (QList<QVariant>{1, 2}));

    Record r;
    r.with(7, 8);
    ExpressionList mixed;
    mixed << *r.a << QVariant(QStringLiteral("x")) << ExpressionList(QList<QVariant>{3, 4});
    mixed += ConstExpression(QDate(2020, 1, 1), true);
    const qint64 newYear = Q_INT64_C(1577836800000000); // 2020-01-01 in microseconds since 1970
    EXPECT_EQ(sql(mixed), "a,'x',3,4," + std::to_string(newYear));
    // Dates are bound as microsecond counts.
    EXPECT_EQ(mixed.collectPlaceholders(), (QList<QVariant>{QStringLiteral("x"), 3, 4, QVariant(newYear)}));
    bool constant = true;
    EXPECT_EQ(r.eval(mixed, &constant), QVariant(QVariantList{7, QStringLiteral("x"), 3, 4, QDate(2020, 1, 1)}));
    EXPECT_FALSE(constant);
    const ExpressionHandle pair = *r.a << *r.b;
    EXPECT_EQ(sql(pair), "a,b");
    // A nested operator inside a list item is not parenthesised.
    EXPECT_EQ(sql(ExpressionList(*r.a + QVariant(1), ValueExpression(*r.b))), "a+1,b");
}

TEST(Membership, ElementOfPrintsAndBinds)
{
    Record r;
    ElementOf in(*r.a);
    in << 1 << 2;
    EXPECT_EQ(bound(in), "a IN (?,?)");
    EXPECT_EQ(sql(ElementOf(*r.a + QVariant(1)) << QStringList{QStringLiteral("x"), QStringLiteral("y")}),
              "(a+1) IN ('x','y')");
}

// The other switch forms are printed from filter texts with the operators.
TEST(Membership, IfThenPrintsAsASwitchOverConditions)
{
    Record r;
    const ExpressionHandle chosen = ifThen(*r.a > QVariant(1), ConstExpression(QStringLiteral("big"), false),
                                           ConstExpression(QStringLiteral("small"), false));
    EXPECT_EQ(bound(chosen), "CASE  WHEN a > ? THEN 'big' ELSE 'small' END");
    EXPECT_EQ(code(chosen), "if (a > 1) return \"big\";\nelse return \"small\"");
}

// Matches and defaults are checked with the other evaluations.
TEST(Membership, SwitchWithoutMatchOrDefaultGivesTheEmptyList)
{
    Record r;
    SwitchCase sw(*r.a);
    sw.switchCase(ConstExpression(1, false), ValueExpression(*r.s));
    r.with(3, 9);
    EXPECT_EQ(r.eval(sw), QVariant(QVariantList()));
    EXPECT_TRUE(sw.equals(&static_cast<const Expression&>(SwitchCase(sw))));
    EXPECT_FALSE(sw.equals(&static_cast<const Expression&>(ElementOf(*r.a))));
}

} // namespace
