#include "TypeToolProbe.h"

#include <CommonKit/expressions/Operators.h>
#include <CommonKit/support/core/Exception.h>

#include <QDate>
#include <QDateTime>
#include <QRect>
#include <QStringList>
#include <QTime>

#include <cmath>

// A registered value type with no conversions of its own.
struct Opaque { int id; };
Q_DECLARE_METATYPE(Opaque)

namespace {

constexpr auto I = QVariant::Int;
constexpr auto U = QVariant::UInt;
constexpr auto LL = QVariant::LongLong;
constexpr auto ULL = QVariant::ULongLong;
constexpr auto D = QVariant::Double;
constexpr auto X = QVariant::Invalid;

const qulonglong kTwoTo63 = Q_UINT64_C(9223372036854775808);

struct CoercionRow
{
    QVariant left;
    QVariant right;
    QVariant::Type expected[4]; // by kFlagCombos: none, right, left, both
};

// Every ordered pair of the five numeric types, with values on both sides of
// the limits that decide whether a constant may narrow the type.
const CoercionRow kCoercionRows[] = {
    {1, 2, {I, I, I, I}},
    {1u, 2u, {U, U, U, U}},
    {1LL, 2LL, {LL, LL, LL, LL}},
    {1ULL, 2ULL, {ULL, ULL, ULL, ULL}},
    {1.0, 2.0, {D, D, D, D}},
    {1.0, 2, {D, D, D, D}},          {2, 1.0, {D, D, D, D}},
    {1.0, 2u, {D, D, D, D}},         {2u, 1.0, {D, D, D, D}},
    {1.0, 2LL, {D, D, D, D}},        {2LL, 1.0, {D, D, D, D}},
    {1.0, 2ULL, {D, D, D, D}},       {2ULL, 1.0, {D, D, D, D}},
    // Int with UInt
    {-1, 5u, {LL, I, LL, I}},
    {3, 2147483646u, {LL, I, U, I}},
    {3, 2147483647u, {LL, LL, U, U}},
    {3, 3000000000u, {LL, LL, U, U}},
    // UInt with Int
    {5u, -1, {LL, LL, I, I}},
    {2147483646u, 3, {LL, U, I, I}},
    {2147483647u, 3, {LL, U, LL, U}},
    {3000000000u, -3, {LL, LL, LL, LL}},
    // with LongLong, and UInt with ULongLong
    {1, 2LL, {LL, LL, LL, LL}},      {2LL, 1, {LL, LL, LL, LL}},
    {1u, 2LL, {LL, LL, LL, LL}},     {2LL, 1u, {LL, LL, LL, LL}},
    {1u, 2ULL, {ULL, ULL, ULL, ULL}}, {2ULL, 1u, {ULL, ULL, ULL, ULL}},
    // Int with ULongLong and back
    {-1, 5ULL, {X, I, X, I}},
    {-1, 2147483646ULL, {X, I, X, I}},
    {-1, 2147483647ULL, {X, X, X, X}},
    {3, 2147483647ULL, {X, X, ULL, ULL}},
    {3, 5000000000ULL, {X, X, ULL, ULL}},
    {5ULL, -1, {X, X, I, I}},
    {2147483646ULL, -1, {X, X, I, I}},
    {2147483647ULL, -1, {X, X, X, X}},
    {5ULL, 3, {X, ULL, I, ULL}},
    {5000000000ULL, 3, {X, ULL, X, ULL}},
    {5000000000ULL, -3, {X, X, X, X}},
    // LongLong with ULongLong and back
    {-1LL, 5ULL, {X, LL, X, LL}},
    {3LL, 9223372036854775807ULL, {X, X, ULL, ULL}},
    {-3LL, kTwoTo63, {X, X, X, X}},
    {-3LL, 9223372036854775806ULL, {X, LL, X, LL}},
    {-3LL, 9223372036854775807ULL, {X, X, X, X}},
    {5ULL, -1LL, {X, X, LL, LL}},
    {9223372036854775806ULL, -3LL, {X, X, LL, LL}},
    {9223372036854775807ULL, -3LL, {X, X, X, X}},
    {kTwoTo63, 3LL, {X, ULL, X, ULL}},
    {kTwoTo63, -3LL, {X, X, X, X}},
};

TEST(TypeToolCoercion, NumericPairsForEveryFlagCombination)
{
    for (const CoercionRow& row : kCoercionRows) {
        for (int combo = 0; combo < 4; ++combo) {
            const Flags flags = kFlagCombos[combo];
            SCOPED_TRACE(::testing::Message() << describe(row.left) << " with " << describe(row.right)
                                              << ", constant left " << flags.left << " right " << flags.right);
            const TypeToolProbe tool(flags.left, flags.right);
            EXPECT_EQ(tool.coerceNumericTypes(row.left, row.right), row.expected[combo]);
        }
    }
}

TEST(TypeToolCoercion, NonNumbersHaveNoNumericTypeButMayShareAnother)
{
    const TypeToolProbe tool(true, true);
    // The same type, or a Double on either side, decides by the types alone;
    // every other pair without two numbers has no common numeric type.
    const struct { QVariant left; QVariant right; QVariant::Type expected; } numericRows[] = {
        {QStringLiteral("1"), 2, X},
        {2, QStringLiteral("1"), X},
        {QDate(2020, 1, 1), 2, X},
        {QVariant(1.5f), 2, X}, // float is no number here
        {QStringLiteral("a"), QStringLiteral("b"), QVariant::String},
        {true, false, QVariant::Bool},
        {QDate(2020, 1, 1), QDate(2021, 1, 1), QVariant::Date},
        {QStringLiteral("1"), 2.0, D},
        {QVariant(1.5f), 2.0, D},
        {QRect(), 2.0, D},
    };
    for (const auto& row : numericRows) {
        SCOPED_TRACE(::testing::Message() << row.left.typeName() << " with " << row.right.typeName());
        EXPECT_EQ(tool.coerceNumericTypes(row.left, row.right), row.expected);
    }

    EXPECT_EQ(tool.coerceOtherTypes(QStringLiteral("7"), 7), QVariant::String);
    EXPECT_EQ(tool.coerceOtherTypes(7, QStringLiteral("7")), QVariant::Int);
    EXPECT_EQ(tool.coerceOtherTypes(QRect(0, 0, 2, 2), QRectF(0, 0, 1, 1)), QVariant::Rect);
    EXPECT_EQ(tool.coerceOtherTypes(QRect(0, 0, 2, 2), 3), X);
    EXPECT_EQ(tool.coerceOtherTypes(true, QDate(2020, 1, 1)), QVariant::String);
}

struct CompareRow { QVariant left; QVariant right; Flags flags; int sign; bool ok; };

const Flags kNone{false, false};
const Flags kRight{false, true};
const Flags kLeft{true, false};

const CompareRow kCompareRows[] = {
    {-1, 5u, kNone, -1, true},                   // as LongLong
    {-1, 5u, kRight, -1, true},                  // as Int
    {3, 3000000000u, kLeft, -1, true},           // as UInt
    {4000000000u, 1u, kNone, 1, true},
    {10, 9ULL, kNone, -1, true},                 // no common type: "10" < "9"
    {10, 9ULL, kRight, 1, true},                 // as Int
    {10ULL, 9LL, kNone, -1, true},               // texts again
    {10ULL, 9LL, kRight, 1, true},               // as ULongLong
    {kIntMin, kIntMax, kNone, -1, true},
    {std::numeric_limits<qlonglong>::max(), -1LL, kNone, 1, true},
    {std::numeric_limits<qlonglong>::min(), 1LL, kNone, -1, true},
    {std::numeric_limits<qulonglong>::max(), 0ULL, kNone, 1, true},
    {2.0, 1, kNone, 1, true},
    {1.5, 1.0, kNone, 0, true},                  // the difference is truncated
    {-0.5, 0.0, kNone, 0, true},
    {1e300, 0.0, kNone, 1, true},
    {QVariant(1.5f), 2, kNone, -1, true},        // float compares as text
    {QDate(1970, 1, 2), 86400000, kNone, 0, true},
    {QDate(1970, 1, 2), 86400000000LL, kNone, 0, true},
    {QDate(1970, 1, 2), 1.0, kNone, 0, true},
    {QDate(1970, 1, 2), 1.5, kNone, -1, true},
    {86400001, QDate(1970, 1, 2), kNone, 1, true},
    {QTime(0, 0, 1), 1000, kNone, 0, true},
    {QTime(0, 0, 1), QTime(0, 0, 2), kNone, -1, true},
    {QDate(2020, 1, 1), QDateTime(QDate(2020, 1, 1), QTime(0, 0), Qt::UTC), kNone, 0, true},
    {QDateTime(QDate(2020, 1, 1), QTime(0, 0, 0, 1), Qt::UTC), QDate(2020, 1, 1), kNone, 1, true},
    {QStringLiteral("a"), QStringLiteral("B"), kNone, 1, true},
    {QStringLiteral("abc"), QStringLiteral("abd"), kNone, -1, true},
    {QStringLiteral("7"), 7, kNone, 0, true},
    {QRect(0, 0, 1, 1), QRect(0, 0, 5, 5), kNone, 0, false},
    {QRect(0, 0, 1, 1), 3, kNone, 0, false},
    {QVariant(), QVariant(), kNone, 0, false},
};

TEST(TypeToolCompare, MixedKindsGiveTheExpectedSign)
{
    for (const CompareRow& row : kCompareRows) {
        SCOPED_TRACE(::testing::Message() << describe(row.left) << " vs " << describe(row.right));
        kogen::TypeTool tool(row.flags.left, row.flags.right);
        EXPECT_EQ(signOf(tool.compare(row.left, row.right)), row.sign);
        EXPECT_EQ(tool.wasOK(), row.ok);
        // Swapping the operands (and their flags) turns the sign unless the
        // operands fell back to texts for one order only.
        if (row.ok && row.left.type() == row.right.type()) {
            kogen::TypeTool swapped(row.flags.right, row.flags.left);
            EXPECT_EQ(signOf(swapped.compare(row.right, row.left)), -row.sign);
        }
    }
}

TEST(TypeToolCompare, ClampsToTheIntRangeAndSortsNanLowest)
{
    kogen::TypeTool tool(false, false);
    EXPECT_EQ(tool.compare(std::nan(""), 1.0), kIntMin);
    EXPECT_EQ(tool.compare(1.0, std::nan("")), kIntMin);
    EXPECT_EQ(tool.compare(1e300, -1e300), kIntMax);
    EXPECT_EQ(tool.compare(QDate(2020, 1, 1), QDate(1970, 1, 1)), kIntMax);
    EXPECT_EQ(tool.compare(-5, 5), -10);
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
    EXPECT_TRUE(tool.equals(5, 5.0));
    EXPECT_FALSE(tool.equals(5, 6u));
    EXPECT_TRUE(tool.equals(QStringLiteral("5"), 5));
    EXPECT_TRUE(tool.wasOK());

    // Values that neither compare nor read as text: only whether both convert
    // to a common type counts, so rectangles of any size are equal.
    EXPECT_TRUE(tool.equals(QRect(0, 0, 1, 1), QRect(0, 0, 9, 9)));
    EXPECT_TRUE(tool.wasOK());
    EXPECT_TRUE(tool.equals(QRectF(0, 0, 1, 1), QRect(0, 0, 9, 9)));
    EXPECT_TRUE(tool.equals(QVariantList{QRect()}, QStringList{QStringLiteral("x")}));

    // Nothing in common: unequal, and ok false.
    EXPECT_FALSE(tool.equals(QRect(), 3));
    EXPECT_FALSE(tool.wasOK());
    EXPECT_FALSE(tool.equals(QVariant(), QVariant()));
    EXPECT_FALSE(tool.wasOK());
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
    EXPECT_TRUE(tool.wasOK());
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
    const QVariant& none = tool.returnOK(value);
    EXPECT_FALSE(none.isValid());
    // One invalid value serves every tool.
    kogen::TypeTool other(true, true);
    other.do_divide(1, 0);
    EXPECT_EQ(&other.returnOK(value), &none);

    // Tools are plain values: a copy carries the flag.
    kogen::TypeTool copy(true, true);
    copy = tool;
    EXPECT_FALSE(copy.wasOK());
}

} // namespace
