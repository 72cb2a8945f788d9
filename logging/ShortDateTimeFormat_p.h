#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVector>

namespace ko {

// Writes and reads back, quickly, local times in the system locale's short
// date-time format, as QDateTime::toString and QDateTime::fromString with
// Qt::SystemLocaleShortDate do. Qt's parser takes microseconds a text,
// mostly looking up month names for every section, and its formatter asks
// the system locale for them each time; the log writes and reads two such
// texts per entry.
//
// Only formats of numeric day, month or month name, year (two or four
// digits), hour, minute, optional second and AM/PM, with ASCII digits, are
// understood; a text is accepted only in the very spelling toString writes
// (the width of each number, the locale's month names and AM/PM texts).
// Anything else (another format, an unusual text, a time that does not exist
// locally) is left to Qt: parse() and toString() then return false.
class ShortDateTimeFormat
{
public:
    // Prepares the system locale's short date-time format.
    ShortDateTimeFormat();

    // The format prepared for.
    const QString& format() const { return m_format; }

    // Sets *result to what QDateTime::fromString(text, Qt::SystemLocaleShortDate)
    // gives, and returns true; false when text takes Qt's parser.
    bool parse(const QString& text, QDateTime* result) const;

    // Sets *text to what value.toString(Qt::SystemLocaleShortDate) gives
    // for a valid local time of the years 1 to 9999, and returns true.
    bool toString(const QDateTime& value, QString* text) const;

private:
    enum Kind { Literal, Day, Month, MonthName, Year2, Year4, Hour, Minute, Second, AmPm };
    struct Section
    {
        Kind kind;
        int width;       // digits: 1 = one or two, 2 = exactly two, 4 = four
        QString literal; // for Literal
    };

    bool read(const QString& text, int* pos, const Section& section, int* value) const;
    static void appendNumber(QString* text, int value, int width);

    QString m_format;
    QVector<Section> m_sections;
    QStringList m_monthNames; // for MonthName, January first
    QString m_am;
    QString m_pm;
    bool m_twelveHour = false;
    bool m_usable = false;
};

} // namespace ko
