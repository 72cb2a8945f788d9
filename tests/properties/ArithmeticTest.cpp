#include "TypeToolProbe.h"

#include <QDate>
#include <QRect>

#include <cmath>

namespace {

enum class Op { Add, Subtract, Multiply, Divide, Modulo, BitAnd, BitOr, BitXor };

const char* opName(Op op)
{
    static const char* const names[] = {"+", "-", "*", "/", "%", "&", "|", "^"};
    return names[static_cast<int>(op)];
}

QVariant apply(kogen::TypeTool& tool, Op op, const QVariant& a, const QVariant& b)
{
    switch (op) {
    case Op::Add: return tool.do_add(a, b);
    case Op::Subtract: return tool.do_subtract(a, b);
    case Op::Multiply: return tool.do_multiply(a, b);
    case Op::Divide: return tool.do_divide(a, b);
    case Op::Modulo: return tool.do_modulo(a, b);
    case Op::BitAnd: return tool.do_bitand(a, b);
    case Op::BitOr: return tool.do_bitor(a, b);
    case Op::BitXor: return tool.do_bitxor(a, b);
    }
    return QVariant();
}

struct ArithmeticRow
{
    Op op;
    QVariant left;
    QVariant right;
    Flags flags;
    QVariant expected; // invalid for no result
    bool ok;
};

const Flags kNone{false, false};
const Flags kRight{false, true};
const Flags kLeft{true, false};
const QVariant kNothing;
const qlonglong kLLMax = std::numeric_limits<qlonglong>::max();
const qlonglong kLLMin = std::numeric_limits<qlonglong>::min();

const ArithmeticRow kRows[] = {
    // Each integer type wraps around in its own width.
    {Op::Add, 2, 3, kNone, 5, true},
    {Op::Add, kIntMax, 1, kNone, kIntMin, true},
    {Op::Subtract, 0u, 1u, kNone, 4294967295u, true},
    {Op::Multiply, 65536u, 65536u, kNone, 0u, true},
    {Op::Add, kLLMax, 1LL, kNone, kLLMin, true},
    {Op::Multiply, Q_UINT64_C(9223372036854775808), 2ULL, kNone, 0ULL, true},
    {Op::Subtract, 0ULL, 1ULL, kNone, std::numeric_limits<qulonglong>::max(), true},
    // The result type is the common type, which the constant flags decide.
    {Op::Add, -1, 5u, kNone, 4LL, true},
    {Op::Add, -1, 5u, kRight, 4, true},
    {Op::Subtract, 3, 5u, kLeft, 4294967294u, true},
    {Op::Add, 5ULL, -1, kLeft, 4, true},
    {Op::Multiply, 2u, 3ULL, kNone, 6ULL, true},
    {Op::Add, 1.5, 1, kNone, 2.5, true},
    {Op::Multiply, 3LL, 0.5, kNone, 1.5, true},
    {Op::Divide, 7, 2, kNone, 3, true},
    {Op::Divide, -7, 2, kNone, -3, true},
    {Op::Divide, 1.0, 4, kNone, 0.25, true},
    {Op::Modulo, 7, 3, kNone, 1, true},
    {Op::Modulo, -7, 3, kNone, -1, true},
    {Op::Modulo, 7ULL, 4u, kNone, 3ULL, true},
    // The one overflowing quotient wraps like the other operations.
    {Op::Divide, kIntMin, -1, kNone, kIntMin, true},
    {Op::Modulo, kIntMin, -1, kNone, 0, true},
    {Op::Divide, kLLMin, -1LL, kNone, kLLMin, true},
    // Division by zero in every type, and modulo of doubles.
    {Op::Divide, 7, 0, kNone, kNothing, false},
    {Op::Divide, 7u, 0u, kNone, kNothing, false},
    {Op::Divide, 7LL, 0, kNone, kNothing, false},
    {Op::Divide, 7ULL, 0ULL, kNone, kNothing, false},
    {Op::Modulo, 7, 0, kNone, kNothing, false},
    {Op::Modulo, 7ULL, 0u, kNone, kNothing, false},
    {Op::Divide, 1.0, 0.0, kNone, kNothing, false},
    {Op::Divide, 1.0, -0.0, kNone, kNothing, false},
    {Op::Divide, 1.0, std::nan(""), kNone, kNothing, false},
    {Op::Modulo, 7.0, 2.0, kNone, kNothing, false},
    // Numbers without a common type: added as texts, otherwise no result.
    {Op::Add, 5, 7ULL, kNone, QStringLiteral("57"), true},
    {Op::Subtract, 5, 7ULL, kNone, kNothing, false},
    {Op::Multiply, -1LL, 7ULL, kNone, kNothing, false},
    // Texts join; nothing else works on them.
    {Op::Add, QStringLiteral("a"), QStringLiteral("b"), kNone, QStringLiteral("ab"), true},
    {Op::Add, QStringLiteral("a"), 1, kNone, QStringLiteral("a1"), true},
    {Op::Add, QDate(2020, 1, 1), QStringLiteral("!"), kNone, QStringLiteral("2020-01-01!"), true},
    {Op::Subtract, QStringLiteral("b"), QStringLiteral("a"), kNone, kNothing, false},
    {Op::Multiply, QStringLiteral("2"), 3, kNone, kNothing, false},
    {Op::Add, QRect(0, 0, 1, 1), 1, kNone, kNothing, false},
    {Op::Subtract, 5, QDate(2020, 1, 1), kNone, kNothing, false},
    // Bitwise on integers in the common type.
    {Op::BitAnd, 12, 10, kNone, 8, true},
    {Op::BitOr, 12u, 3, kNone, 15LL, true},
    {Op::BitXor, 0xF0F0ULL, 0xFFFFULL, kNone, 0x0F0FULL, true},
    {Op::BitAnd, -1, 255u, kLeft, 255LL, true},
    {Op::BitOr, -1, 0x100u, kRight, -1, true},
    // Bitwise failures give no result but leave ok true.
    {Op::BitAnd, 3.0, 1.0, kNone, kNothing, true},
    {Op::BitOr, 1, 1ULL, kNone, kNothing, true},
    {Op::BitXor, QStringLiteral("1"), 1, kNone, kNothing, true},
    {Op::BitAnd, QStringLiteral("3"), QStringLiteral("1"), kNone, kNothing, true},
    {Op::BitOr, true, false, kNone, kNothing, true},
    {Op::BitXor, QStringLiteral("3"), 1.0, kNone, kNothing, true},
    // Non-numbers of one type have no arithmetic either.
    {Op::Multiply, QStringLiteral("2"), QStringLiteral("3"), kNone, kNothing, false},
    {Op::Subtract, true, false, kNone, kNothing, false},
};

TEST(TypeToolArithmetic, ResultsTypesAndOkFlag)
{
    for (const ArithmeticRow& row : kRows) {
        SCOPED_TRACE(::testing::Message() << describe(row.left) << ' ' << opName(row.op) << ' ' << describe(row.right)
                                          << ", constant left " << row.flags.left << " right " << row.flags.right);
        kogen::TypeTool tool(row.flags.left, row.flags.right);
        EXPECT_TRUE(sameVariant(apply(tool, row.op, row.left, row.right), row.expected));
        EXPECT_EQ(tool.wasOK(), row.ok);
    }
}

TEST(TypeToolArithmetic, EachOperationResetsTheFlagExceptFailedBitwise)
{
    kogen::TypeTool tool(false, false);
    EXPECT_FALSE(tool.do_divide(1, 0).isValid());
    EXPECT_FALSE(tool.wasOK());
    // A bitwise failure does not touch the flag, a bitwise success sets it.
    EXPECT_FALSE(tool.do_bitand(1.0, 1.0).isValid());
    EXPECT_FALSE(tool.wasOK());
    EXPECT_TRUE(sameVariant(tool.do_bitxor(6, 3), 5));
    EXPECT_TRUE(tool.wasOK());

    for (Op op : {Op::Add, Op::Subtract, Op::Multiply, Op::Divide, Op::Modulo}) {
        SCOPED_TRACE(opName(op));
        EXPECT_FALSE(apply(tool, op, QRect(), QRect()).isValid());
        EXPECT_FALSE(tool.wasOK());
        EXPECT_TRUE(apply(tool, op, 9, 4).isValid());
        EXPECT_TRUE(tool.wasOK());
    }
}

} // namespace
