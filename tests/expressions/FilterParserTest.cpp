// The filter parser against trees built with the operator builders: what
// the printer writes reads back into the same tree, other spellings settle
// on the printed form, literals are bound in print order, and bad input
// gets an exact message.

#include "ExpressionTestSupport.h"

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
    struct Case { const char* text; const char* printed; };
    const Case cases[] = {
        {"a+b-a+b", "((a+b)-a)+b"},
        {"a+b*2", "a+(b*2)"},
        {"a*b+2", "(a*b)+2"},
        {"a = 1 and b = 2 or s = 'x'", "(a = 1 AND b = 2) OR s = 'x'"},
        {"NOT a = 1 AND b = 2", " NOT a = 1 AND b = 2"},
        {"a NOT IN (1, 2)", " NOT a IN (1,2)"},
        {"a <> 1 OR a == 2", "a != 1 OR a = 2"},
        {"a % 2", "a mod 2"},
        {"+a - - 5", "a- -5"},
        {"- 5 * -(3)", "-5*-3"},
        {"007 + 1.50", "7+1.5"},
        {"((a)) > (1)", "a > 1"},
        {"(a = b) = (b < 1)", "a = b = b < 1"},
        {"(a < b) < 1 OR (a = 1) IN (1) OR NOT (a = 1)", "a < b < 1 OR a = 1 IN (1) OR  NOT a = 1"},
        {"my_field AS al", "my_field AS al"},
        {"case when a=1 then 2 end", "CASE  WHEN a = 1 THEN 2 END"},
        {"like(s, 'x%')", "(s LIKE 'x%')"},
        {"  \t\n", ""},
        {"CAST(a AS al AS int)", "CAST(a AS al AS int)"},
        {"-9223372036854775808-9223372036854775808", "-9223372036854775808-9223372036854775808"},
    };
    for (const Case& c : cases) {
        const QString once = parse(QString::fromUtf8(c.text))->toString(Expression::PrintSql);
        EXPECT_EQ(once.toStdString(), c.printed) << c.text;
        EXPECT_EQ(parse(once)->toString(Expression::PrintSql), once) << c.text;
    }
}

TEST_F(FilterParserTest, LiteralsAreBoundInPrintOrder)
{
    struct Case { const char* text; const char* bound; QList<QVariant> values; };
    const Case cases[] = {
        {"a > 2 AND s IN ('x','y')", "a > ? AND s IN (?,?)", {2, QStringLiteral("x"), QStringLiteral("y")}},
        {"abs(a-3) < 2", "abs((a-3)) < ?", {2}},
        {"(s LIKE 'a%' ESCAPE '!') OR a = -7", "(s LIKE 'a%' ESCAPE '!') OR a = ?", {-7}},
        {"CASE a WHEN 1 THEN 'one' ELSE 'other' END = 'x'", "CASE a WHEN ? THEN ? ELSE 'other' END = ?",
         {1, QStringLiteral("one"), QStringLiteral("x")}},
        {"CAST(-6.625 AS int) + 2.5 - 5000000000", "(CAST(-6.625 AS int)+?)-?", {2.5, qlonglong(5000000000)}},
    };
    for (const Case& c : cases) {
        const ExpressionHandle tree = parse(QString::fromUtf8(c.text));
        EXPECT_EQ(bound(tree), c.bound);
        const QList<QVariant> values = tree->collectPlaceholders();
        ASSERT_EQ(values.size(), c.values.size()) << c.text;
        for (int i = 0; i < values.size(); ++i) {
            EXPECT_EQ(values[i], c.values[i]) << c.text << " value " << i;
            EXPECT_EQ(values[i].type(), c.values[i].type()) << c.text << " value " << i;
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
    struct Case { const char* text; const char* message; int column; };
    const Case cases[] = {
        {"a > (1", "unexpected end of text at column 7", 7},
        {"(a > 1))", "unexpected ')' at column 8", 8},
        {"a >", "unexpected end of text at column 4", 4},
        {"a = = 1", "unexpected '=' at column 5", 5},
        {"a > 1 b", "unexpected 'b' at column 7", 7},
        {"a > ?", "unexpected '?' at column 5", 5},
        {"a ! 1", "unexpected '!' at column 3", 3},
        {"a = \"x\"", "unexpected '\"' at column 5", 5},
        {"NOT", "unexpected end of text at column 4", 4},
        {"a = NOT b", "unexpected 'NOT' at column 5", 5},
        {"a AND AND b", "unexpected 'AND' at column 7", 7},
        {"zz > 1", "unknown property 'zz' at column 1", 1},
        {"a > 1 AND my_fieldx < 2", "unknown property 'my_fieldx' at column 11", 11},
        {"s = 'abc", "unterminated string at column 5", 5},
        {"a = 'x''", "unterminated string at column 5", 5},
        {"a--5", "'--' at column 2 starts a comment in SQL; write '- -'", 2},
        {"a > 1e999", "number out of range '1e999' at column 5", 5},
        {"foo(a)", "unknown function 'foo' at column 1", 1},
        {"abs(a, b)", "too many arguments for 'abs' at column 1 (at most 1)", 1},
        {"coalesce(a)", "too few arguments for 'coalesce' at column 1 (at least 2)", 1},
        {"(s REGEXP 'a' ESCAPE '!')", "too many arguments for 'regexp' at column 4 (at most 2)", 4},
        {"CAST(a AS banana)", "unknown type 'banana' at column 11", 11},
        {"CAST(a int)", "unexpected 'int' at column 8", 8},
        {"CASE a WHEN 1 THEN 2", "unexpected end of text at column 21", 21},
        {"a IN 1", "unexpected '1' at column 6", 6},
        {"a + (b = 1)", "the comparison in parentheses at column 5 cannot be an operand of '+'", 5},
        {"(a = 1) < 2", "the comparison in parentheses at column 1 cannot be an operand of '<'", 1},
        {"a = (b = 1)", "the comparison in parentheses at column 5 cannot be an operand of '='", 5},
        {"a < (b < 1)", "the comparison in parentheses at column 5 cannot be an operand of '<'", 5},
        {"(NOT a = 1) = b", "the comparison in parentheses at column 1 cannot be an operand of '='", 1},
        {"-(NOT a = 1)", "the comparison in parentheses at column 2 cannot be an operand of '-'", 2},
        {"CAST(currentDate() AS int)", "'currentDate' at column 6 cannot stand inside a function call, a CAST or an ELSE part", 6},
        {"abs(currentDate())", "'currentDate' at column 5 cannot stand inside a function call, a CAST or an ELSE part", 5},
        {"CASE WHEN a = 1 THEN 2 ELSE currentTime() END",
         "'currentTime' at column 29 cannot stand inside a function call, a CAST or an ELSE part", 29},
        {"\xF0\x9F\x93\xB7 = 1", "unexpected '\xF0\x9F\x93\xB7' at column 1", 1},
        {"s = '\xF0\x9F\x93\xB7' ) ", "unexpected ')' at column 9", 9},
    };
    for (const Case& c : cases) {
        QString error = QStringLiteral("not cleared");
        const ExpressionHandle tree = Expression::parse(QString::fromUtf8(c.text), schema, &error);
        EXPECT_EQ(tree.constData(), nullptr) << c.text;
        EXPECT_EQ(error.toStdString(), c.message) << c.text;
        FilterParser parser(schema);
        parser.parse(QString::fromUtf8(c.text));
        EXPECT_EQ(parser.errorColumn(), c.column) << c.text;
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
        {QStringLiteral("a") + QStringLiteral("+a").repeated(100000), true},
        {QStringLiteral("CASE ").repeated(limit + 1), false},
        {QStringLiteral("abs(").repeated(limit + 1), false},
    };
    for (const Case& c : cases) {
        QString error;
        const ExpressionHandle tree = Expression::parse(c.text, schema, &error);
        EXPECT_EQ(tree.constData() != nullptr, c.ok) << c.text.left(20).toStdString() << ": " << error.toStdString();
        if (!c.ok) {
            EXPECT_TRUE(error.startsWith(QStringLiteral("nesting deeper than 256 levels at column"))) << error.toStdString();
        }
    }
    const ExpressionHandle sum = parse(QStringLiteral("a") + QStringLiteral("+a").repeated(100000));
    EXPECT_EQ(static_cast<const Operator*>(sum.constData())->children().size(), 100001);
}

} // namespace
