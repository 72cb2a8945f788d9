#include "ExpressionTestSupport.h"
#include "testlib/DataTable.h"

#include <gtest/gtest.h>

namespace {

using namespace kogen;
using cktest::bound;
using cktest::code;
using cktest::Record;
using cktest::sql;

ExpressionHandle c(const QVariant& value) { return ConstExpression(value, false); }

TEST(Operators, ChainsOfOneOperatorBecomeOneNode)
{
    Record r;
    const ExpressionHandle x = *r.a > QVariant(1);
    const ExpressionHandle y = *r.b < QVariant(2);
    const ExpressionHandle z = *r.s == QVariant(QStringLiteral("q"));

    // A nested node of two or more operands prints in parentheses.
    EXPECT_EQ(sql((x && y) && z), "a > 1 AND b < 2 AND s = 'q'");
    EXPECT_EQ(sql((x && y) || z), "(a > 1 AND b < 2) OR s = 'q'");

    BooleanOperator grown(x, BooleanOperator::Or, y);
    grown |= z;
    grown &= x;
    EXPECT_EQ(sql(grown), "(a > 1 OR b < 2 OR s = 'q') AND a > 1");

    NumericOperator sum = *r.a + QVariant(1);
    sum += c(2);
    sum *= c(3);
    EXPECT_EQ(sql(sum), "(a+1+2)*3");
    EXPECT_EQ(sql((c(1) + c(2)) - c(3) - c(4)), "(1+2)-3-4"); // a new kind starts a new node

    ExpressionList three;
    three << x << y << z;
    EXPECT_TRUE(BooleanOperator::join(three, BooleanOperator::Or).equals(BooleanOperator(x, BooleanOperator::Or, y) || z));
    EXPECT_TRUE(BooleanOperator::join(ExpressionList(x), BooleanOperator::And).equals(x));
    EXPECT_EQ(NumericOperator::join(ExpressionList(), NumericOperator::Add).constData(), ExpressionList::empty().constData());
    EXPECT_TRUE(NumericOperator::join(ExpressionList(x), NumericOperator::Add).equals(x));
}

// Operators, casts, functions and switches read from their filter texts
// print that text back as SQL, and their code text.
TEST(Operators, PrintTable)
{
    Record r;
    r.set.add(new StringProperty(QStringLiteral("my field")));
    for (const cktest::DataRow& row : cktest::dataRows("expressions/printing.tsv", 2)) {
        QString error;
        const ExpressionHandle e = Expression::parse(QString::fromStdString(row[0]), r.set, &error);
        ASSERT_TRUE(e.constData()) << row.where << ": " << error.toStdString();
        EXPECT_EQ(sql(e), row[0]) << row.where;
        EXPECT_EQ(code(e), row[1]) << row.where;
    }
    // Forms only the builders make.
    const ExpressionHandle a = ValueExpression(*r.a);
    const ExpressionHandle b = ValueExpression(*r.b);
    const struct { ExpressionHandle e; std::string text; } built[] = {
        {-*r.a, "-a"}, {+a, "a"}, {ExpressionHandle(+*r.a), "a"},
        {BooleanOperator::join(ExpressionList(), BooleanOperator::And), ""},
    };
    for (const auto& t : built) {
        EXPECT_EQ(sql(t.e), t.text);
        EXPECT_EQ(code(t.e), t.text);
    }
    // Sort lists: negation means descending, and the operand is not nested.
    EXPECT_EQ(ExpressionList(-a, ~b).toString(Expression::PrintSql | Expression::PrintOrder).toStdString(), "a DESC,b");
    EXPECT_EQ((-(a + b)).toString(Expression::PrintSql | Expression::PrintOrder).toStdString(), "a+b DESC");
}

// Exposes the operand-less constructor.
struct BareBoolean : BooleanOperator
{
    explicit BareBoolean(BoolOp op) : BooleanOperator(op) {}
    BareBoolean& add(ExpressionHandle operand)
    {
        append(operand);
        return *this;
    }
};

TEST(Operators, LogicStopsAtTheDecidingOperandAndAndStopsAtNull)
{
    for (const cktest::DataRow& row : cktest::dataRows("expressions/logic.tsv", -2)) {
        BareBoolean e(row[0] == "AND" ? BooleanOperator::And : BooleanOperator::Or);
        for (std::size_t i = 2; i < row.fields.size(); ++i)
            e.add(c(cktest::variantOf(row[i])));
        const QVariant expected = cktest::variantOf(row[1]);
        EXPECT_TRUE(e.evaluate() == expected && e.evaluate().type() == expected.type()) << row.where << ": " << sql(e);
    }
}

// Filter texts evaluated against a record: operators, membership, switches,
// aliases and functions, with the constness they report. (Comparison results
// are checked against the database in the differential test.)
TEST(Operators, EvaluationOverARecord)
{
    Record r;
    for (const cktest::DataRow& row : cktest::dataRows("expressions/evaluation.tsv", 6)) {
        QString error;
        const ExpressionHandle e = Expression::parse(QString::fromStdString(row[0]), r.set, &error);
        ASSERT_TRUE(e.constData()) << row.where << ": " << error.toStdString();
        r.with(std::stoi(row[1]), std::stoi(row[2]), QString::fromStdString(row[3]));
        bool constant = row[5] != "const";
        const QVariant result = r.eval(e, &constant);
        const QVariant expected = cktest::variantOf(row[4]);
        EXPECT_TRUE(result == expected && result.type() == expected.type())
            << row.where << ": " << result.typeName() << " " << result.toString().toStdString();
        EXPECT_EQ(constant, row[5] == "const") << row.where;
    }
    // A text negates into its inverted sort key, which counts as constant.
    r.with(5, 3, QStringLiteral("abc"));
    bool constant = false;
    EXPECT_EQ(r.eval(-*r.s, &constant), TypeTool::invertString(QStringLiteral("abc")));
    EXPECT_TRUE(constant);
    // Equality compares the kind.
    EXPECT_FALSE((*r.a + QVariant(1)).equals(&static_cast<const Expression&>(*r.a - QVariant(1))));
    EXPECT_TRUE((*r.a + QVariant(1)).equals(&static_cast<const Expression&>(*r.a + QVariant(1))));
    EXPECT_FALSE((*r.a == *r.b).equals(&static_cast<const Expression&>(*r.a != *r.b)));
    EXPECT_FALSE((-*r.a).equals(&static_cast<const Expression&>(~ExpressionHandle(ValueExpression(*r.a)))));
}

} // namespace
