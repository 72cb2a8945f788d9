#include "TypeToolProbe.h"
#include "testlib/DataTable.h"

#include <QRect>

namespace {

enum class Op { Add, Subtract, Multiply, Divide, Modulo, BitAnd, BitOr, BitXor };

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

// The table's operator signs, in the order of Op.
Op opOf(const std::string& sign)
{
    return static_cast<Op>(std::string("+-*/%&|^").find(sign));
}

TEST(TypeToolArithmetic, ResultsTypesAndOkFlag)
{
    for (const cktest::DataRow& row : cktest::dataRows("properties/arithmetic.tsv", 6)) {
        SCOPED_TRACE(row.where);
        kogen::TypeTool tool(row[3] == "L", row[3] == "R");
        const QVariant result = apply(tool, opOf(row[0]), cktest::variantOf(row[1]), cktest::variantOf(row[2]));
        EXPECT_TRUE(sameVariant(result, cktest::variantOf(row[4])));
        EXPECT_EQ(tool.wasOK(), row[5] == "1");
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
        SCOPED_TRACE(static_cast<int>(op));
        EXPECT_FALSE(apply(tool, op, QRect(), QRect()).isValid());
        EXPECT_FALSE(tool.wasOK());
        EXPECT_TRUE(apply(tool, op, 9, 4).isValid());
        EXPECT_TRUE(tool.wasOK());
    }
}

} // namespace
