#include "TypeToolProbe.h"
#include "testlib/DataTable.h"

#include <QDate>
#include <QDateTime>
#include <QRect>
#include <QTime>

namespace {

// Instants are computed with QDateTime's own epoch arithmetic, independently
// of the library's time functions.
qint64 microsOf(const QDateTime& dateTime)
{
    return dateTime.toMSecsSinceEpoch() * 1000;
}

QDateTime utc(int y, int mo, int d, int h = 0, int mi = 0, int s = 0, int ms = 0)
{
    return QDateTime(QDate(y, mo, d), QTime(h, mi, s, ms), Qt::UTC);
}

TEST(TypeToolDateScale, EveryKindOfValueOnTheMicrosecondScale)
{
    for (const cktest::DataRow& row : cktest::dataRows("properties/date-scale.tsv", 2)) {
        SCOPED_TRACE(row.where);
        const QVariant value = cktest::variantOf(row[0]);
        EXPECT_EQ(kogen::TypeTool::dateMicroSeconds(value), std::stoll(row[1]));
    }
    // A moment in local time is the same instant.
    const QDateTime moment = utc(2024, 5, 6, 7, 8, 9, 123);
    EXPECT_EQ(kogen::TypeTool::dateMicroSeconds(moment.toLocalTime()), microsOf(moment));
    // A text is read as a local date-time in the text date format.
    const QDateTime local(QDate(2020, 1, 1), QTime(12, 30), Qt::LocalTime);
    EXPECT_EQ(kogen::TypeTool::dateMicroSeconds(local.toString(Qt::TextDate)), microsOf(local));
}

TEST(TypeToolDateScale, DatesCastToNumbersAndBack)
{
    const QDateTime moment = utc(2024, 5, 6, 7, 8, 9, 123);
    const qint64 m = microsOf(moment);
    const quint32 low = static_cast<quint32>(m);

    // Date to number. The 32-bit types keep only the low 32 bits of the count.
    EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(moment, QVariant::Int),
                            static_cast<qint32>(low) / 1000));
    EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(moment, QVariant::UInt), low / 1000));
    EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(moment, QVariant::LongLong), static_cast<qulonglong>(m)));
    EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(moment, QVariant::ULongLong), static_cast<qulonglong>(m)));
    EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(QDate(1970, 1, 3), QVariant::Double), 2.0));
    EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(QTime(0, 0, 2), QVariant::Int), 2000));

    // Number to date.
    EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(qlonglong(m), QVariant::Date), QDate(2024, 5, 6)));
    EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(qlonglong(m), QVariant::Time), QTime(7, 8, 9, 123)));
    EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(86400000, QVariant::Date), QDate(1970, 1, 2)));
    EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(3723004u, QVariant::Time), QTime(1, 2, 3, 4)));
    EXPECT_TRUE(sameVariant(kogen::TypeTool::castDate(2.5, QVariant::DateTime), utc(1970, 1, 3, 12)));

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

    // Anything else has no cast.
    EXPECT_FALSE(kogen::TypeTool::castDate(moment, QVariant::String).isValid());
    EXPECT_FALSE(kogen::TypeTool::castDate(5, QVariant::Int).isValid());
    EXPECT_FALSE(kogen::TypeTool::castDate(QStringLiteral("5"), QVariant::Date).isValid());
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
    EXPECT_TRUE(sameVariant(TypeToolProbe::dateAdd(5, 1000), 6));
    EXPECT_TRUE(sameVariant(TypeToolProbe::dateAdd(5u, -2000), 3));
    // A 64-bit count stays one only while it is not whole milliseconds.
    EXPECT_TRUE(sameVariant(TypeToolProbe::dateAdd(5000LL, 1), 5001ULL));
    EXPECT_TRUE(sameVariant(TypeToolProbe::dateAdd(5000ULL, 1000), 6));
    EXPECT_TRUE(sameVariant(TypeToolProbe::dateAdd(1.0, kMicrosPerDay / 2), 1.5));
    EXPECT_TRUE(sameVariant(TypeToolProbe::dateAdd(QVariant(), kMicrosPerDay), utc(1970, 1, 2)));
    // A time stays a time only within one day of midnight, either way.
    EXPECT_EQ(TypeToolProbe::dateAdd(QTime(1, 0), -kMicrosPerDay / 2).type(), QVariant::Time);
    EXPECT_EQ(TypeToolProbe::dateAdd(QTime(1, 0), -2 * kMicrosPerDay).type(), QVariant::DateTime);
    EXPECT_EQ(TypeToolProbe::dateAdd(QTime(1, 0), kMicrosPerDay).type(), QVariant::DateTime);
}

} // namespace
