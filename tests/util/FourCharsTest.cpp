#include "util/FourChars.h"

#include <gtest/gtest.h>

#include <QTextStream>

namespace {

TEST(FourChars, PacksFirstLetterIntoTheMostSignificantByte)
{
    struct Case { QString text; unsigned int value; QString back; };
    const Case cases[] = {
        {QStringLiteral("Time"), 0x54696D65u, QStringLiteral("Time")},
        {QStringLiteral("Aces"), 0x41636573u, QStringLiteral("Aces")},
        {QStringLiteral("ExpS"), 0x45787053u, QStringLiteral("ExpS")},
        {QStringLiteral("ABC"), 0x41424320u, QStringLiteral("ABC ")},
        {QString(), 0x20202020u, QStringLiteral("    ")},
        {QStringLiteral("ExpSta"), 0x45787053u, QStringLiteral("ExpS")},
        {QString::fromLatin1("\xe4\xf6\xfc\xdf"), 0xE4F6FCDFu, QString::fromLatin1("\xe4\xf6\xfc\xdf")},
    };
    for (const Case& c : cases) {
        const ko::FourChars code(c.text);
        EXPECT_EQ(static_cast<unsigned int>(code), c.value) << c.text.toStdString();
        EXPECT_EQ(code.toString(), c.back);
        EXPECT_EQ(ko::FourChars(&c.text), code);
        EXPECT_EQ(ko::FourChars(c.value).toString(), c.back);
        EXPECT_EQ(ko::FourChars(c.text.toLatin1().constData()), code);
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
