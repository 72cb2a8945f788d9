#include "TypeToolProbe.h"
#include "testlib/DataTable.h"

#include <CommonKit/expressions/Operators.h>
#include <CommonKit/support/core/Exception.h>

#include <QDate>
#include <QDateTime>
#include <QRect>
#include <QStringList>
#include <QTime>

#include <map>

// A registered value type with no conversions of its own.
struct Opaque { int id; };
Q_DECLARE_METATYPE(Opaque)

namespace {

constexpr auto X = QVariant::Invalid;

// Every ordered pair of the five numeric types, with values on both sides of
// the limits that decide whether a constant may narrow the type.
TEST(TypeToolCoercion, NumericPairsForEveryFlagCombination)
{
    const std::map<std::string, QVariant::Type> types = {{"I", QVariant::Int},       {"U", QVariant::UInt},
                                                         {"LL", QVariant::LongLong}, {"ULL", QVariant::ULongLong},
                                                         {"D", QVariant::Double},    {"X", X}};
    for (const cktest::DataRow& row : cktest::dataRows("properties/numeric-coercion.tsv", 6)) {
        const QVariant left = cktest::variantOf(row[0]);
        const QVariant right = cktest::variantOf(row[1]);
        for (int combo = 0; combo < 4; ++combo) {
            const Flags flags = kFlagCombos[combo];
            SCOPED_TRACE(::testing::Message() << row.where << ", constant left " << flags.left << " right " << flags.right);
            const TypeToolProbe tool(flags.left, flags.right);
            EXPECT_EQ(tool.coerceNumericTypes(left, right), types.at(row[2 + combo]));
        }
    }
}

TEST(TypeToolCoercion, NonNumbersHaveNoNumericTypeButMayShareAnother)
{
    const TypeToolProbe tool(true, true);
    for (const cktest::DataRow& row : cktest::dataRows("properties/other-coercion.tsv", 3)) {
        const QVariant::Type expected = QVariant::nameToType(row[2].c_str());
        ASSERT_EQ(expected == X, row[2] == "none") << row.where << ": no such type";
        EXPECT_EQ(tool.coerceNumericTypes(cktest::variantOf(row[0]), cktest::variantOf(row[1])), expected) << row.where;
    }

    EXPECT_EQ(tool.coerceOtherTypes(QStringLiteral("7"), 7), QVariant::String);
    EXPECT_EQ(tool.coerceOtherTypes(7, QStringLiteral("7")), QVariant::Int);
    EXPECT_EQ(tool.coerceOtherTypes(QRect(0, 0, 2, 2), QRectF(0, 0, 1, 1)), QVariant::Rect);
    EXPECT_EQ(tool.coerceOtherTypes(QRect(0, 0, 2, 2), 3), X);
    EXPECT_EQ(tool.coerceOtherTypes(true, QDate(2020, 1, 1)), QVariant::String);
}

TEST(TypeToolCompare, MixedKindsGiveTheExpectedSign)
{
    for (const cktest::DataRow& row : cktest::dataRows("properties/compare-signs.tsv", 6)) {
        SCOPED_TRACE(row.where);
        const QVariant left = cktest::variantOf(row[0]);
        const QVariant right = cktest::variantOf(row[1]);
        const Flags flags{row[2] == "left", row[2] == "right"};
        const int sign = std::stoi(row[3]);
        const bool ok = row[4] == "true";
        kogen::TypeTool tool(flags.left, flags.right);
        EXPECT_EQ(signOf(tool.compare(left, right)), sign);
        EXPECT_EQ(tool.wasOK(), ok);
        // Swapping the operands (and their flags) turns the sign unless the
        // operands fell back to texts for one order only.
        if (ok && left.type() == right.type()) {
            kogen::TypeTool swapped(flags.right, flags.left);
            EXPECT_EQ(signOf(swapped.compare(right, left)), -sign);
        }
    }
}

TEST(TypeToolCompare, ClampsToTheIntRangeAndSortsNanLowest)
{
    kogen::TypeTool tool(false, false);
    for (const cktest::DataRow& row : cktest::dataRows("properties/compare-exact.tsv", 3))
        EXPECT_EQ(tool.compare(cktest::variantOf(row[0]), cktest::variantOf(row[1])), std::stoi(row[2])) << row.where;
}

TEST(TypeToolCompare, ListsCompareElementWiseAndShorterFirst)
{
    const QVariantList one2{1, 2};
    const QVariantList one2three{1, 2, 3};
    kogen::TypeTool tool(false, false);
    EXPECT_EQ(tool.compare(one2, one2three), kIntMin);
    EXPECT_EQ(tool.compare(one2three, one2), kIntMax);
    EXPECT_EQ(tool.compare(one2, QVariantList{1, 2}), 0);
    EXPECT_EQ(tool.compare(QVariantList{}, QVariantList{}), 0);
    EXPECT_GT(tool.compare(QVariantList{1, 3}, one2three), 0);
    EXPECT_EQ(tool.compare(QStringList{QStringLiteral("1"), QStringLiteral("2")}, one2), 0);
    EXPECT_LT(tool.compare(QVariantList{one2}, QVariantList{one2three}), 0); // nested
    EXPECT_TRUE(tool.wasOK());

    // An element pair that does not compare stops the walk with ok cleared.
    EXPECT_EQ(tool.compare(QVariantList{QRect(), 1}, QVariantList{QRect(), 2}), 0);
    EXPECT_FALSE(tool.wasOK());
    // compare() starts afresh: the flag comes back once a comparison works.
    EXPECT_LT(tool.compare(1, 2), 0);
    EXPECT_TRUE(tool.wasOK());
}

TEST(TypeToolEquals, ComparesOrElseLooksOnlyAtConvertibility)
{
    kogen::TypeTool tool(false, false);
    for (const cktest::DataRow& row : cktest::dataRows("properties/equals.tsv", 4)) {
        EXPECT_EQ(tool.equals(cktest::variantOf(row[0]), cktest::variantOf(row[1])), row[2] == "1") << row.where;
        EXPECT_EQ(tool.wasOK(), row[3] == "1") << row.where;
    }
    EXPECT_TRUE(tool.equals(QRectF(0, 0, 1, 1), QRect(0, 0, 9, 9)));
    EXPECT_TRUE(tool.equals(QVariantList{QRect()}, QStringList{QStringLiteral("x")}));
}

TEST(TypeToolEquals, RegisteredTypesHaveNothingInCommon)
{
    // Every registered type is QVariant::UserType to the coercion, and no
    // value converts to that: two different values of one registered type
    // without a text form have no common type, so they are not equal, the
    // tool is not ok and a comparison operator gives NULL.
    const QVariant one = QVariant::fromValue(Opaque{1});
    const QVariant two = QVariant::fromValue(Opaque{2});
    const TypeToolProbe probe(false, false);
    for (const auto& pair : {std::make_pair(one, two), std::make_pair(one, one),
                             std::make_pair(one, QVariant(3)), std::make_pair(QVariant(QRect()), one)})
        EXPECT_EQ(probe.coerceOtherTypes(pair.first, pair.second), X);

    kogen::TypeTool tool(false, false);
    EXPECT_FALSE(tool.equals(one, two));
    EXPECT_FALSE(tool.wasOK());
    EXPECT_FALSE(tool.returnOK(QVariant(tool.equals(one, two))).isValid());
    const kogen::ExpressionHandle left = kogen::ConstExpression(one, false);
    const kogen::ExpressionHandle right = kogen::ConstExpression(two, false);
    EXPECT_EQ((left == right).evaluate(), QVariant());
    EXPECT_FALSE(tool.contains({5, two}, one));
    EXPECT_FALSE(tool.wasOK());
}

TEST(TypeToolEquals, ContainsStopsAtTheFirstMatch)
{
    kogen::TypeTool tool(false, true);
    EXPECT_TRUE(tool.contains({1, QStringLiteral("2"), 3.0}, 2));
    EXPECT_FALSE(tool.contains({1, 3.0}, 2));
    EXPECT_FALSE(tool.contains({}, 2));
    EXPECT_TRUE(tool.wasOK());

    // The rectangle after the match is never looked at, so ok stays true.
    EXPECT_TRUE(tool.contains({5, QRect()}, 5));
    EXPECT_TRUE(tool.wasOK());
    EXPECT_FALSE(tool.contains({5, QRect()}, 6));
    EXPECT_FALSE(tool.wasOK());
}

TEST(TypeToolInvertString, ReversesTheSortOrderAndUndoesItself)
{
    const QChar mark(0xFFFF);
    const auto invert = &kogen::TypeTool::invertString;
    EXPECT_EQ(invert(QString()), QString(mark));
    const QStringList texts{QString(), QStringLiteral("a"), QStringLiteral("ab"), QStringLiteral("abc"),
                            QStringLiteral("abd"), QStringLiteral("b"), QStringLiteral("B"),
                            QString::fromUtf8("\xc3\xa9"), QStringLiteral("Z\u4e2d")};
    for (const QString& a : texts) {
        EXPECT_EQ(invert(invert(a)), a);
        for (const QString& b : texts) {
            SCOPED_TRACE(::testing::Message() << a.toStdString() << " vs " << b.toStdString());
            EXPECT_EQ(signOf(QString::compare(invert(a), invert(b))), -signOf(QString::compare(a, b)));
        }
    }
    // A mark already in the text is dropped and none is added.
    const QString ab = QStringLiteral("ab");
    EXPECT_EQ(invert(ab.left(1) + mark + ab.mid(1)), invert(ab).left(2));
    // U+0000 inverts to the mark, which the second pass drops.
    EXPECT_EQ(invert(invert(QChar(0) + ab)), ab);
}

TEST(TypeToolOk, ThrowOkAndReturnOkFollowTheLastOperation)
{
    kogen::TypeTool tool(false, false);
    EXPECT_TRUE(tool.throwOK());
    const QVariant value(42);
    EXPECT_EQ(&tool.returnOK(value), &value);

    tool.compare(QRect(), QRect());
    try {
        tool.throwOK();
        ADD_FAILURE() << "throwOK() did not throw";
    } catch (const ko::IllegalArgumentException& error) {
        EXPECT_TRUE(error.text().isEmpty());
        EXPECT_EQ(error.messageQt(), QStringLiteral("can't compare values"));
    }
    EXPECT_FALSE(tool.returnOK(value).isValid());
}

} // namespace
