#include <CommonKit/util/FourChars.h>
#include "testlib/DataTable.h"

#include <gtest/gtest.h>

#include <QTextStream>

#include <type_traits>

namespace {

// Implicit from integers, texts and literals; a QString pointer only when
// asked for.
static_assert(std::is_convertible<int, ko::FourChars>::value, "int");
static_assert(std::is_convertible<qint64, ko::FourChars>::value, "qint64");
static_assert(std::is_convertible<const char (&)[5], ko::FourChars>::value, "literal");
static_assert(std::is_convertible<QString, ko::FourChars>::value, "QString");
static_assert(!std::is_convertible<const QString*, ko::FourChars>::value, "QString*");
static_assert(std::is_constructible<ko::FourChars, const QString*>::value, "QString*");

unsigned int passed(ko::FourChars code) { return code; }

TEST(FourChars, ZeroAndOtherIntegersAreTheirValue)
{
    // A literal 0 is also a null pointer; it must still mean the value 0.
    const ko::FourChars zero = 0;
    const ko::FourChars direct(0);
    const ko::FourChars none;
    for (const ko::FourChars& code : {zero, direct, none})
        EXPECT_EQ(static_cast<unsigned int>(code), 0u);
    EXPECT_EQ(passed(0), 0u);

    const struct { ko::FourChars code; unsigned int value; } cases[] = {
        {0x41636573, 0x41636573u}, {0x41636573u, 0x41636573u}, {-1, 0xFFFFFFFFu},
        {'A', 0x41u}, {Q_INT64_C(0x141424344), 0x41424344u}, {"Aces", 0x41636573u},
        {QStringLiteral("Aces"), 0x41636573u},
    };
    for (const auto& c : cases)
        EXPECT_EQ(static_cast<unsigned int>(c.code), c.value) << c.value;
}

TEST(FourChars, PacksFirstLetterIntoTheMostSignificantByte)
{
    for (const cktest::DataRow& row : cktest::dataRows("util/fourchars.tsv", 3)) {
        const QString text = QString::fromStdString(row[0]);
        const unsigned int value = static_cast<unsigned int>(std::stoul(row[1], nullptr, 16));
        const ko::FourChars code(text);
        EXPECT_EQ(static_cast<unsigned int>(code), value) << row.where;
        EXPECT_EQ(code.toString(), QString::fromStdString(row[2])) << row.where;
        EXPECT_EQ(ko::FourChars(&text), code) << row.where;
        EXPECT_EQ(ko::FourChars(text.toLatin1().constData()), code) << row.where;
        EXPECT_EQ(static_cast<unsigned int>(ko::FourChars(QStringRef(&text))), value) << row.where;
    }
}

TEST(FourChars, NullPointerAndStreamOutput)
{
    EXPECT_EQ(static_cast<unsigned int>(ko::FourChars(static_cast<const QString*>(nullptr))), 0u);
    QString text;
    QTextStream stream(&text);
    ko::FourChars(QStringLiteral("XmlP")).writeTo(stream);
    ko::FourChars(0x41424344u).writeTo(stream);
    stream.flush();
    EXPECT_EQ(text, QStringLiteral("XmlPABCD"));
}

} // namespace
