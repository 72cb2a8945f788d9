// The filter parser against trees built with the operator builders: what
// the printer writes reads back into the same tree, other spellings settle
// on the printed form, literals are bound in print order, and bad input
// gets an exact message.

#include "ExpressionTestSupport.h"
#include "testlib/DataTable.h"

#include <gtest/gtest.h>

namespace {

using namespace kogen;
using cktest::bound;
using cktest::sql;

class FilterParserTest : public ::testing::Test
{
protected:
    FilterParserTest()
    {
        schema.add(new IntProperty(QStringLiteral("a")));
        schema.add(new IntProperty(QStringLiteral("b")));
        schema.add(new StringProperty(QStringLiteral("s")));
        schema.add(new StringProperty(QStringLiteral("my field")));
        schema.add(new DoubleProperty(QStringLiteral("like")));
    }

    ExpressionHandle parse(const QString& text)
    {
        QString error;
        const ExpressionHandle tree = Expression::parse(text, schema, &error);
        EXPECT_TRUE(tree.constData()) << text.toStdString() << ": " << error.toStdString();
        EXPECT_TRUE(error.isEmpty());
        return tree.constData() ? tree : ExpressionHandle();
    }

    PropertySet schema;
    IntProperty a{QStringLiteral("a")};
    IntProperty b{QStringLiteral("b")};
    StringProperty s{QStringLiteral("s")};
};

ExpressionHandle v(const QString& name) { return ValueExpression(name); }
ExpressionHandle p(const QVariant& value) { return ConstExpression(value, true); }
ExpressionHandle c(const QVariant& value) { return ConstExpression(value, false); }

// Each text is what the printer writes for the tree beside it; the parser
// must give that tree (or one that equals it) and the text back.
TEST_F(FilterParserTest, PrintedTextsReadBackIntoTheirTrees)
{
    const ExpressionHandle av = v(QStringLiteral("a"));
    const ExpressionHandle bv = v(QStringLiteral("b"));
    // "~a&b|a^b mod 2" as the parser groups it: a new node per change of
    // operator.
    ExpressionHandle bits = NumericOperator(ExpressionHandle(~av), NumericOperator::BitAnd, bv);
    bits = NumericOperator(bits, NumericOperator::BitOr, av);
    bits = NumericOperator(bits, NumericOperator::BitXor, ExpressionHandle(bv % p(2)));
    SwitchCase selector(av);
    selector.switchCase(p(1), p(QStringLiteral("one"))).defaultCase(c(QStringLiteral("other")));
    struct Case { const char* text; ExpressionHandle tree; };
    const Case cases[] = {
        {"a > 2 AND s = 'it''s'", a > QVariant(2) && s == QVariant(QStringLiteral("it's"))},
        {"(a > 2 AND b < 3) OR  NOT a = b", (a > QVariant(2) && b < QVariant(3)) || !(a == b)},
        {" NOT  NOT a >= -5", !ExpressionHandle(!(a >= QVariant(-5)))},
        {"a+b+3", NumericOperator(av, NumericOperator::Add, bv) + p(3)},
        {"(a+b)+3", NumericOperator(ExpressionHandle(av + bv), NumericOperator::Add, p(3))},
        {"a-(b*2)", av - ExpressionHandle(bv * p(2))},
        {"a- -5", av - p(-5)},
        {"- -a", -ExpressionHandle(-av)},
        {"- -5", -p(-5)},
        {"-0", -p(0)},
        {"((~a&b)|a)^(b mod 2)", bits},
        {"a IN (1,b,'x')", ElementOf(a) << 1 << bv << QVariant(QStringLiteral("x"))},
        {"(a+1) IN ()", ElementOf(av + p(1))},
        {"CASE a WHEN 1 THEN 'one' ELSE 'other' END", selector},
        {"CASE  WHEN a > 1 THEN b END", SwitchCase(ExpressionHandle()).switchCase(a > QVariant(1), bv)},
        {"CAST((a+b) AS double) > 2.5", toDouble(av + bv) > p(2.5)},
        {"CAST(my_field AS int)", toInt(v(QStringLiteral("my field")))},
        {"my_field AS m = 'x'", ValueExpression(QStringLiteral("my field"), QStringLiteral("m")) == p(QStringLiteral("x"))},
        {"abs((a-b)) > 3", abs(av - bv) > p(3)},
        {"coalesce(a,b,7)", coalesce(ExpressionList(av, bv) << c(7))},
        {"count(DISTINCT a)", count(ValueExpression(a), true)},
        {"(s LIKE 'a%' ESCAPE '\\')", like(v(QStringLiteral("s")), QStringLiteral("a%"), QStringLiteral("\\"))},
        {"((s+'x') REGEXP 'a.*') AND like > 1.5",
         ExpressionHandle(regexp(v(QStringLiteral("s")) + c(QStringLiteral("x")), QStringLiteral("a.*"))) &&
             ExpressionHandle(v(QStringLiteral("like")) > p(1.5))},
        {"a = 1 = b", Comparator(ExpressionHandle(a == QVariant(1)), Comparator::Equal, bv)},
        {"a = b < 1", Comparator(av, Comparator::Equal, ExpressionHandle(b < QVariant(1)))},
        {"a > 5000000000 AND b < 18446744073709551615",
         a > QVariant(qlonglong(5000000000)) && b < QVariant(qulonglong(18446744073709551615ull))},
        {"a*1e+20", av * p(1e20)},
    };
    for (const Case& c : cases) {
        const QString text = QString::fromUtf8(c.text);
        const ExpressionHandle& expected = c.tree;
        ASSERT_EQ(sql(expected), c.text) << "the table's own tree";
        const ExpressionHandle tree = parse(text);
        EXPECT_TRUE(tree.equals(expected)) << c.text << " read as " << sql(tree);
        EXPECT_EQ(sql(tree), c.text);
    }
}

TEST_F(FilterParserTest, OtherSpellingsSettleOnThePrintedForm)
{
    for (const cktest::DataRow& row : cktest::dataRows("expressions/filter-spellings.tsv", 2)) {
        const QString once = parse(QString::fromStdString(row[0]))->toString(Expression::PrintSql);
        EXPECT_EQ(once.toStdString(), row[1]) << row.where;
        EXPECT_EQ(parse(once)->toString(Expression::PrintSql), once) << row.where;
    }
}

TEST_F(FilterParserTest, LiteralsAreBoundInPrintOrder)
{
    for (const cktest::DataRow& row : cktest::dataRows("expressions/filter-bound.tsv", -2)) {
        const ExpressionHandle tree = parse(QString::fromStdString(row[0]));
        EXPECT_EQ(bound(tree), row[1]) << row.where;
        const QList<QVariant> values = tree->collectPlaceholders();
        ASSERT_EQ(values.size() + 2, static_cast<int>(row.fields.size())) << row.where;
        for (int i = 0; i < values.size(); ++i) {
            const QVariant expected = cktest::variantOf(row[i + 2]);
            EXPECT_TRUE(values[i] == expected && values[i].type() == expected.type()) << row.where << " value " << i;
        }
    }
    // Functions without SQL printer bind their own value, so they may not
    // stand where the tree does not collect.
    const ExpressionHandle today = parse(QStringLiteral("a > currentDate()"));
    EXPECT_EQ(bound(today), "a > ?");
    EXPECT_EQ(today->collectPlaceholders().size(), 1);
}

TEST_F(FilterParserTest, BadInputGetsTheOffendingTokenAndColumn)
{
    for (const cktest::DataRow& row : cktest::dataRows("expressions/filter-errors.tsv", 3)) {
        const QString text = QString::fromStdString(row[0]);
        QString error = QStringLiteral("not cleared");
        const ExpressionHandle tree = Expression::parse(text, schema, &error);
        EXPECT_EQ(tree.constData(), nullptr) << row.where;
        EXPECT_EQ(error.toStdString(), row[1]) << row.where;
        FilterParser parser(schema);
        parser.parse(text);
        EXPECT_EQ(parser.errorColumn(), std::stoi(row[2])) << row.where;
    }
    // A long token is shortened, and markers inside it stay as they are.
    QString error;
    Expression::parse(QStringLiteral("a = 1 'a%1b%2...........................................x'"), schema, &error);
    EXPECT_EQ(error, QStringLiteral("unexpected ''a%1b%2.................................' at column 7"));
}

TEST_F(FilterParserTest, NestingIsBoundedAndLongChainsStayFlat)
{
    const int limit = FilterParser::maxDepth();
    struct Case { QString text; bool ok; };
    const Case cases[] = {
        {QString(limit - 1, QLatin1Char('(')) + QStringLiteral("a") + QString(limit - 1, QLatin1Char(')')), true},
        {QString(limit, QLatin1Char('(')) + QStringLiteral("a") + QString(limit, QLatin1Char(')')), false},
        {QStringLiteral("NOT ").repeated(limit - 1) + QStringLiteral("a"), true},
        {QStringLiteral("NOT ").repeated(limit) + QStringLiteral("a"), false},
        {QStringLiteral("- ").repeated(limit + 1) + QStringLiteral("a"), false},
        {QStringLiteral("a").repeated(1) + QStringLiteral(" < a").repeated(limit), false},
        {QStringLiteral("CASE ").repeated(limit + 1), false},
        {QStringLiteral("abs(").repeated(limit + 1), false},
    };
    for (const Case& c : cases) {
        QString error;
        const ExpressionHandle tree = Expression::parse(c.text, schema, &error);
        EXPECT_EQ(tree.constData() != nullptr, c.ok) << c.text.left(20).toStdString() << ": " << error.toStdString();
        EXPECT_TRUE(c.ok || error.startsWith(QStringLiteral("nesting deeper than 256 levels at column")))
            << error.toStdString();
    }
    const ExpressionHandle sum = parse(QStringLiteral("a") + QStringLiteral("+a").repeated(100000));
    EXPECT_EQ(static_cast<const Operator*>(sum.constData())->children().size(), 100001);
}

} // namespace
