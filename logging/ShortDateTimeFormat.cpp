#include "logging/ShortDateTimeFormat_p.h"

#include <QLocale>

namespace ko {

ShortDateTimeFormat::ShortDateTimeFormat()
{
    const QLocale locale = QLocale::system();
    m_format = locale.dateTimeFormat(QLocale::ShortFormat);
    bool day = false, month = false, year = false, hour = false, minute = false, amPm = false, twelve = false;
    int i = 0;
    while (i < m_format.size()) {
        const QChar c = m_format.at(i);
        int run = 1;
        while (i + run < m_format.size() && m_format.at(i + run) == c)
            ++run;
        const char letter = c.toLatin1();
        if (letter == 'd' && run <= 2) {
            m_sections.append({Day, run, QString()});
            day = true;
        } else if (letter == 'M' && run <= 2) {
            m_sections.append({Month, run, QString()});
            month = true;
        } else if (letter == 'M' && run <= 4) {
            m_sections.append({MonthName, 0, QString()});
            for (int m = 1; m <= 12; ++m)
                m_monthNames.append(locale.monthName(m, run == 3 ? QLocale::ShortFormat : QLocale::LongFormat));
            month = true;
        } else if (letter == 'y' && (run == 2 || run == 4)) {
            m_sections.append({run == 2 ? Year2 : Year4, run, QString()});
            year = true;
        } else if ((letter == 'h' || letter == 'H') && run <= 2) {
            m_sections.append({Hour, run, QString()});
            hour = true;
            twelve = twelve || letter == 'h';
        } else if (letter == 'm' && run <= 2) {
            m_sections.append({Minute, run, QString()});
            minute = true;
        } else if (letter == 's' && run <= 2) {
            m_sections.append({Second, run, QString()});
        } else if ((letter == 'A' || letter == 'a') && !amPm) {
            // "AP", "ap", "A" or "a": one AM/PM section.
            const bool pair = i + 1 < m_format.size() && m_format.at(i + 1) == (letter == 'A' ? QLatin1Char('P') : QLatin1Char('p'));
            run = pair ? 2 : 1;
            m_sections.append({AmPm, 0, QString()});
            amPm = true;
            m_am = letter == 'A' ? locale.amText().toUpper() : locale.amText().toLower();
            m_pm = letter == 'A' ? locale.pmText().toUpper() : locale.pmText().toLower();
        } else if (c.isLetter() || c == QLatin1Char('\'')) {
            // Weekday names, fractions, zones, quoted text: Qt's parser.
            return;
        } else {
            if (!m_sections.isEmpty() && m_sections.last().kind == Literal)
                m_sections.last().literal += QString(run, c);
            else
                m_sections.append({Literal, 0, QString(run, c)});
        }
        i += run;
    }
    // h is a twelve-hour clock only beside AM/PM (as for Qt's formatter).
    m_twelveHour = twelve && amPm;
    m_usable = day && month && year && hour && minute && !(amPm && m_am == m_pm)
        && locale.zeroDigit() == QLatin1Char('0');
}

bool ShortDateTimeFormat::read(const QString& text, int* pos, const Section& section, int* value) const
{
    switch (section.kind) {
    case Literal:
        if (text.midRef(*pos, section.literal.size()) != section.literal)
            return false;
        *pos += section.literal.size();
        return true;
    case MonthName: {
        // The longest name that matches, as the formatter wrote one of them.
        int best = -1;
        for (int m = 0; m < m_monthNames.size(); ++m) {
            const QString& name = m_monthNames.at(m);
            if (!name.isEmpty() && text.midRef(*pos, name.size()) == name
                && (best < 0 || name.size() > m_monthNames.at(best).size()))
                best = m;
        }
        if (best < 0)
            return false;
        *pos += m_monthNames.at(best).size();
        *value = best + 1;
        return true;
    }
    case AmPm:
        if (text.midRef(*pos, m_am.size()) == m_am) {
            *pos += m_am.size();
            *value = 0;
            return true;
        }
        if (text.midRef(*pos, m_pm.size()) == m_pm) {
            *pos += m_pm.size();
            *value = 1;
            return true;
        }
        return false;
    default: {
        const int most = section.width == 1 ? 2 : section.width;
        int digits = 0;
        int number = 0;
        while (digits < most && *pos < text.size()) {
            const ushort u = text.at(*pos).unicode();
            if (u < '0' || u > '9')
                break;
            number = number * 10 + (u - '0');
            ++digits;
            ++*pos;
        }
        // Only what the formatter writes: exactly the width, or for a
        // one-letter field one or two digits without a leading zero.
        if (digits == 0 || (section.width != 1 && digits != section.width)
            || (section.width == 1 && digits == 2 && number < 10))
            return false;
        *value = number;
        return true;
    }
    }
}

bool ShortDateTimeFormat::parse(const QString& text, QDateTime* result) const
{
    if (!m_usable)
        return false;
    int day = 0, month = 0, year = 0, hour = 0, minute = 0, second = 0, pm = -1;
    int pos = 0;
    for (const Section& section : m_sections) {
        int value = 0;
        if (!read(text, &pos, section, &value))
            return false;
        switch (section.kind) {
        case Day: day = value; break;
        case Month:
        case MonthName: month = value; break;
        // Qt's parser puts a two-digit year into the 1900s.
        case Year2: year = 1900 + value; break;
        case Year4: year = value; break;
        case Hour: hour = value; break;
        case Minute: minute = value; break;
        case Second: second = value; break;
        case AmPm: pm = value; break;
        case Literal: break;
        }
    }
    if (pos != text.size())
        return false;
    if (m_twelveHour) {
        if (hour < 1 || hour > 12)
            return false;
        hour = hour % 12 + (pm == 1 ? 12 : 0);
    } else if (pm >= 0 && pm != (hour >= 12 ? 1 : 0)) {
        return false;
    }
    const QDate date(year, month, day);
    const QTime time(hour, minute, second);
    if (!date.isValid() || !time.isValid())
        return false;
    const QDateTime value(date, time, Qt::LocalTime);
    // A time skipped by a change to summer time is Qt's parser's business.
    if (!value.isValid() || value.date() != date || value.time() != time)
        return false;
    *result = value;
    return true;
}

void ShortDateTimeFormat::appendNumber(QString* text, int value, int width)
{
    if (width >= 2 || value >= 10) {
        char digits[4];
        int n = 0;
        for (int i = 0; i < (width == 4 ? 4 : 2); ++i) {
            digits[n++] = static_cast<char>('0' + value % 10);
            value /= 10;
        }
        while (n > 0)
            text->append(QLatin1Char(digits[--n]));
    } else {
        text->append(QLatin1Char(static_cast<char>('0' + value)));
    }
}

bool ShortDateTimeFormat::toString(const QDateTime& value, QString* text) const
{
    if (!m_usable || !value.isValid() || value.timeSpec() != Qt::LocalTime)
        return false;
    const QDate date = value.date();
    const QTime time = value.time();
    if (date.year() < 1 || date.year() > 9999)
        return false;
    QString result;
    result.reserve(m_format.size() + 16);
    for (const Section& section : m_sections) {
        switch (section.kind) {
        case Literal: result += section.literal; break;
        case Day: appendNumber(&result, date.day(), section.width); break;
        case Month: appendNumber(&result, date.month(), section.width); break;
        case MonthName: result += m_monthNames.at(date.month() - 1); break;
        case Year2: appendNumber(&result, date.year() % 100, 2); break;
        case Year4: appendNumber(&result, date.year(), 4); break;
        case Hour:
            appendNumber(&result, m_twelveHour ? (time.hour() % 12 == 0 ? 12 : time.hour() % 12) : time.hour(),
                         section.width);
            break;
        case Minute: appendNumber(&result, time.minute(), section.width); break;
        case Second: appendNumber(&result, time.second(), section.width); break;
        case AmPm: result += time.hour() < 12 ? m_am : m_pm; break;
        }
    }
    *text = result;
    return true;
}

} // namespace ko
