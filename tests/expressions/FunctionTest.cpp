#include "testlib/DataTable.h"
#include "testlib/LogCapture.h"
#include "ExpressionTestSupport.h"

#include <CommonKit/support/core/Log.h>

#include <gtest/gtest.h>

#include <QDate>
#include <QRegExp>
#include <QTextStream>

#include <string>
#include <vector>

namespace {

using cktest::LogCapture;

using namespace kogen;
using cktest::bound;
using cktest::code;
using cktest::Record;
using cktest::sql;

using F = FunctionExpression;

ExpressionHandle c(const QVariant& value) { return ConstExpression(value, false); }

FunctionExpression call(const char* name, const QList<QVariant>& arguments)
{
    ExpressionList list;
    for (const QVariant& v : arguments)
        list << c(v);
    return FunctionExpression(QString::fromLatin1(name), list, false);
}

TEST(Functions, BuiltInRoutinesKeepTheirInMemoryMeaning)
{
    for (const cktest::DataRow& row : cktest::dataRows("expressions/functions.tsv", -2)) {
        ExpressionList arguments;
        for (std::size_t i = 2; i < row.fields.size(); ++i)
            arguments << c(cktest::variantOf(row[i]));
        const QVariant result = FunctionExpression(QString::fromStdString(row[0]), arguments, false).evaluate();
        const QVariant expected = cktest::variantOf(row[1]);
        EXPECT_EQ(result, expected) << row.where << ": " << result.toString().toStdString();
        EXPECT_EQ(result.type(), expected.type()) << row.where;
    }
    EXPECT_EQ(call("regexp", {QStringLiteral("ABC"), QRegExp(QStringLiteral("a.c"), Qt::CaseInsensitive)}).evaluate(),
              QVariant(true));
    EXPECT_EQ(call("currentDate", {}).evaluate().type(), QVariant::Date);
    EXPECT_EQ(call("currentTime", {}).evaluate().type(), QVariant::Time);
    EXPECT_EQ(call("currentDateTime", {}).evaluate().type(), QVariant::DateTime);
}

TEST(Functions, LikeRewritesPatternsItsOwnWay)
{
    for (const cktest::DataRow& row : cktest::dataRows("expressions/like.tsv", 4)) {
        const QVariant result =
            like(c(QString::fromStdString(row[0])), QString::fromStdString(row[1]), QString::fromStdString(row[2]))
                .evaluate();
        EXPECT_EQ(result, QVariant(row[3] == "1")) << row.where;
    }
    EXPECT_EQ(F::likePattern(QStringLiteral("a%_."), QString()), QStringLiteral("a\\.*.\\."));
}

// QRegExp compiles a pattern as it is built and copies an atom for every
// count of a quantifier, so nested counts multiply into millions of states.
// Such patterns give NULL with a warning instead of taking seconds and
// hundreds of megabytes (or, one level deeper, gigabytes and an abort);
// ordinary counted patterns still match.
TEST(Functions, PatternsThatWouldExplodeGiveNull)
{
    LogCapture log;
    for (const cktest::DataRow& row : cktest::dataRows("expressions/pattern-limits.tsv", 4)) {
        const ExpressionHandle text = c(QString::fromStdString(row[1]));
        const QString pattern = QString::fromStdString(row[2]);
        const ExpressionHandle e = row[0] == "like" ? like(text, pattern) : regexp(text, pattern);
        EXPECT_EQ(e->evaluate(), cktest::variantOf(row[3])) << row.where;
    }
    ASSERT_EQ(log.lines.size(), 4u);
    EXPECT_NE(log.lines[0].find("[kogen::FunctionExpression::regexp] Pattern too complex: ((a{100}){100}){100}"),
              std::string::npos);
    EXPECT_NE(log.lines[2].find("[kogen::FunctionExpression::like] Pattern too complex:"), std::string::npos);
    EXPECT_NE(log.lines[3].find("[kogen::FunctionExpression::like] Pattern too complex:"), std::string::npos)
        << "a refused pattern is not cached";
}

TEST(Functions, PrintingInSqlAndCode)
{
    Record r;
    // The rest of the printing is checked from filter texts with the operators.
    const ExpressionHandle pattern = regexp(ValueExpression(*r.s), QRegExp(QStringLiteral("p+")));
    EXPECT_EQ(sql(pattern), "(s REGEXP 'p+')");
    EXPECT_EQ(code(pattern), "regexp(s,\"p+\")");
    // Clock functions print their value in SQL, their call in code text.
    const std::string today = std::to_string(TypeTool::dateMicroSeconds(QDate::currentDate()));
    const ExpressionHandle date = currentDate();
    EXPECT_EQ(sql(date), today);
    EXPECT_EQ(code(date), "currentDate()");
    EXPECT_EQ(bound(date), "?");
    const QList<QVariant> values = date->collectPlaceholders();
    ASSERT_EQ(values.size(), 1);
    EXPECT_EQ(values[0].type(), QVariant::Date) << "the value is collected as it is";
}

// Placeholders are collected in print order, except inside a call: four
// marks, three values. Callers keep bound values out of function arguments.
// Arguments keep the style the call got: inside a comparison they print nested.
TEST(Functions, PlaceholdersFollowPrintOrderButNotIntoCalls)
{
    Record r;
    const ExpressionHandle e = (*r.a == QVariant(3)) && (*r.b + QVariant(4) > c(5)) && (abs(*r.b - QVariant(2)) > c(3))
        && (*r.s != QVariant(QStringLiteral("x")));
    EXPECT_EQ(bound(e), "a = ? AND (b+?) > 5 AND abs((b-?)) > 3 AND s != ?");
    EXPECT_EQ(e->collectPlaceholders(), (QList<QVariant>{3, 4, QStringLiteral("x")}));
}

// Evaluation over a record is checked from filter texts with the operators.
TEST(Functions, EmptinessAndEquality)
{
    Record r;
    EXPECT_TRUE(FunctionExpression(QString(), ExpressionList(), false).isEmpty());
    EXPECT_FALSE(count(ValueExpression(*r.a)).equals(&static_cast<const Expression&>(count(ValueExpression(*r.a), true))));
    EXPECT_FALSE(min(ValueExpression(*r.a)).equals(&static_cast<const Expression&>(max(ValueExpression(*r.a)))));
}

QVariant answer(const QList<QVariant>&) { return 42; }
void printAnswer(QTextStream& out, Expression::PrintStyle, const QString&, const QList<ExpressionHandle>&)
{
    out << "forty_two()";
}

TEST(Functions, ApplicationsRegisterFunctionsAndPrinters)
{
    LogCapture log;
    EXPECT_FALSE(F::registerFunction("abs", &answer, nullptr, 0, 0));
    EXPECT_EQ(call("abs", {-1}).evaluate(), QVariant(1)) << "the first routine stays";
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_NE(log.lines[0].find("[kogen::FunctionExpression::registerFunction] Function abs already declared."),
              std::string::npos);

    EXPECT_TRUE(F::registerFunction("test_answer", &answer, &F::printDefault, 0, 0));
    const ExpressionHandle e = FunctionExpression(QStringLiteral("test_answer"), ExpressionList(), false);
    EXPECT_EQ(e->evaluate(), QVariant(42));
    EXPECT_EQ(sql(e), "test_answer()");
    EXPECT_TRUE(F::registerSqlPrintFunction("test_answer", &printAnswer));
    EXPECT_EQ(sql(e), "forty_two()");
    EXPECT_EQ(code(e), "test_answer()");

    EXPECT_FALSE(F::registerSqlPrintFunction("test_unknown", &printAnswer));
    ASSERT_EQ(log.lines.size(), 2u);
    EXPECT_NE(log.lines[1].find("[kogen::FunctionExpression::registerSqlPrintFunction] "
                                "Function test_unknown not declared."),
              std::string::npos);
}

} // namespace
