#include "TypeToolProbe.h"
#include "testlib/DataTable.h"

#include <QDate>
#include <QDateTime>
#include <QRect>
#include <QTime>

namespace {

TEST(TypeToolDateScale, EveryKindOfValueOnTheMicrosecondScale)
{
    for (const cktest::DataRow& row : cktest::dataRows("properties/date-scale.tsv", 2)) {
        SCOPED_TRACE(row.where);
        const QVariant value = cktest::variantOf(row[0]);
        EXPECT_EQ(kogen::TypeTool::dateMicroSeconds(value), std::stoll(row[1]));
    }
    // A moment in local time is the same instant.
    const QDateTime moment(QDate(2024, 5, 6), QTime(7, 8, 9, 123), Qt::UTC);
    EXPECT_EQ(kogen::TypeTool::dateMicroSeconds(moment.toLocalTime()), Q_INT64_C(1714979289123000));
    // A text is read as a local date-time in the text date format.
    const QDateTime local(QDate(2020, 1, 1), QTime(12, 30), Qt::LocalTime);
    EXPECT_EQ(kogen::TypeTool::dateMicroSeconds(local.toString(Qt::TextDate)), local.toMSecsSinceEpoch() * 1000);
}

TEST(TypeToolDateScale, DatesCastToNumbersAndBack)
{
    for (const cktest::DataRow& row : cktest::dataRows("properties/date-casts.tsv", 3)) {
        const QVariant::Type type = QVariant::nameToType(row[1].c_str());
        ASSERT_NE(type, QVariant::Invalid) << row.where;
        EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(cktest::variantOf(row[0]), type), cktest::variantOf(row[2])))
            << row.where;
    }

    // Days become the unsigned count a 64-bit number of the same microseconds
    // gives, over the whole unsigned range: below zero they wrap like a
    // qlonglong, above 2^63 they are not cut short.
    const struct { double days; QVariant sameCount; } dayRows[] = {
        {-1.0, qlonglong(-kMicrosPerDay)},
        {-0.5, qlonglong(-kMicrosPerDay / 2)},
        {120000000.0, Q_UINT64_C(10368000000000000000)}, // 2^63 < count < 2^64
        {300000000.0, std::numeric_limits<qulonglong>::max()},  // beyond 2^64: the largest count
    };
    for (const auto& row : dayRows) {
        for (QVariant::Type type : {QVariant::Date, QVariant::Time, QVariant::DateTime}) {
            SCOPED_TRACE(::testing::Message() << row.days << " days as " << QVariant::typeToName(type));
            const QVariant expected = kogen::TypeTool::castDate(row.sameCount, type);
            EXPECT_TRUE(expected.isValid());
            EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(row.days, type), expected));
        }
    }
}

TEST(TypeToolDateScale, NegativeNumbersCastToDatesWrapAsUnsignedFrameTimes)
{
    // The count is taken as an unsigned frame time, whose seconds wrap as
    // Qt's 32-bit time_t.
    for (const cktest::DataRow& row : cktest::dataRows("properties/negative-dates.tsv", 3)) {
        SCOPED_TRACE(row.where);
        const QVariant value = cktest::variantOf(row[0]);
        const QDateTime expected = cktest::variantOf(row[1]).toDateTime();
        EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(value, QVariant::DateTime), expected));
        EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(value, QVariant::Date), expected.date()));
        EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(value, QVariant::Time), expected.time()));
    }
}

TEST(TypeToolDateArithmetic, AddingAndSubtractingKeepsTheKindWhenItCan)
{
    for (const cktest::DataRow& row : cktest::dataRows("properties/date-arithmetic.tsv", 5)) {
        SCOPED_TRACE(row.where);
        const QVariant left = cktest::variantOf(row[1]);
        const QVariant right = cktest::variantOf(row[2]);
        kogen::TypeTool tool(false, true);
        const QVariant result = row[0] == "+" ? tool.do_add(left, right) : tool.do_subtract(left, right);
        EXPECT_TRUE(sameVariant(result, cktest::variantOf(row[3])));
        EXPECT_TRUE(tool.wasOK());
    }
}

TEST(TypeToolDateArithmetic, NumbersMovedOnTheScaleFollowTheirType)
{
    for (const cktest::DataRow& row : cktest::dataRows("properties/date-add.tsv", 3)) {
        const QVariant result = TypeToolProbe::dateAdd(cktest::variantOf(row[0]), std::stoll(row[1]));
        EXPECT_TRUE(sameVariant(result, cktest::variantOf(row[2]))) << row.where;
    }
    // A time stays a time only within one day of midnight, either way.
    EXPECT_EQ(TypeToolProbe::dateAdd(QTime(1, 0), -kMicrosPerDay / 2).type(), QVariant::Time);
    EXPECT_EQ(TypeToolProbe::dateAdd(QTime(1, 0), -2 * kMicrosPerDay).type(), QVariant::DateTime);
    EXPECT_EQ(TypeToolProbe::dateAdd(QTime(1, 0), kMicrosPerDay).type(), QVariant::DateTime);
}

} // namespace
