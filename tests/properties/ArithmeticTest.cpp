#include "TypeToolProbe.h"
#include "testlib/DataTable.h"

#include <QRect>

namespace {

// The operations in the order of the table's operator signs "+-*/%&|^".
using Operation = QVariant (kogen::TypeTool::*)(const QVariant&, const QVariant&);
using kogen::TypeTool;
const Operation kOperations[] = {&TypeTool::do_add,    &TypeTool::do_subtract, &TypeTool::do_multiply,
                                 &TypeTool::do_divide, &TypeTool::do_modulo,   &TypeTool::do_bitand,
                                 &TypeTool::do_bitor,  &TypeTool::do_bitxor};

TEST(TypeToolArithmetic, ResultsTypesAndOkFlag)
{
    for (const cktest::DataRow& row : cktest::dataRows("properties/arithmetic.tsv", 6)) {
        SCOPED_TRACE(row.where);
        kogen::TypeTool tool(row[3] == "L", row[3] == "R");
        const Operation operation = kOperations[std::string("+-*/%&|^").find(row[0])];
        const QVariant result = (tool.*operation)(cktest::variantOf(row[1]), cktest::variantOf(row[2]));
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

    for (int op = 0; op < 5; ++op) { // the arithmetic ones
        SCOPED_TRACE(op);
        EXPECT_FALSE((tool.*kOperations[op])(QRect(), QRect()).isValid());
        EXPECT_FALSE(tool.wasOK());
        EXPECT_TRUE((tool.*kOperations[op])(9, 4).isValid());
        EXPECT_TRUE(tool.wasOK());
    }
}

} // namespace
