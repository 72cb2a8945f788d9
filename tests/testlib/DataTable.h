#pragma once

// Tables of known values kept as text under tests/data/: one row per line,
// fields separated by tabs. Lines starting with '#' are comments (each file
// begins with one naming its columns); blank lines are skipped. In a field,
// \t, \n, \r, \\ and \xHH stand for a tab, a line feed, a carriage return,
// a backslash and any byte.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace cktest {

struct DataRow
{
    std::string where; // file:line, for failure messages
    std::vector<std::string> fields;
    const std::string& operator[](std::size_t i) const { return fields.at(i); }
};

inline std::string unescapeField(const std::string& field)
{
    std::string out;
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\' || i + 1 == field.size()) {
            out += field[i];
            continue;
        }
        const char c = field[++i];
        if (c == 'x' && i + 2 < field.size()) {
            out += static_cast<char>(std::strtol(field.substr(i + 1, 2).c_str(), nullptr, 16));
            i += 2;
        } else {
            out += c == 't' ? '\t' : c == 'n' ? '\n' : c == 'r' ? '\r' : c;
        }
    }
    return out;
}

// The rows of tests/data/<file>, each with exactly `columns` fields (with at
// least that many when `columns` is negative: -2 means two or more).
inline std::vector<DataRow> dataRows(const std::string& file, int columns)
{
    std::ifstream in(std::string(COMMONKIT_TEST_DATA "/") + file, std::ios::binary);
    EXPECT_TRUE(in.good()) << "cannot read tests/data/" << file;
    std::vector<DataRow> rows;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (line.empty() || line[0] == '#')
            continue;
        DataRow row{file + ":" + std::to_string(number), {}};
        for (std::size_t start = 0;;) {
            const std::size_t tab = line.find('\t', start);
            row.fields.push_back(unescapeField(line.substr(start, tab - start)));
            if (tab == std::string::npos)
                break;
            start = tab + 1;
        }
        const int count = static_cast<int>(row.fields.size());
        const bool fits = columns < 0 ? count >= -columns : count == columns;
        EXPECT_TRUE(fits) << row.where << ": " << count << " fields";
        if (fits)
            rows.push_back(row);
    }
    EXPECT_FALSE(rows.empty()) << "no rows in tests/data/" << file;
    return rows;
}

} // namespace cktest

#include <QDateTime>
#include <QRect>
#include <QString>
#include <QVariant>

namespace cktest {

// A typed value written "type:text": bool (true or false), int, uint, ll,
// ull, double, float, string, strings (a QStringList, split at commas),
// bytes (a QByteArray), date (yyyy-MM-dd), time
// (HH:mm:ss.zzz), utc and local (a date-time in UTC or local time, ISO form),
// rect (x,y,w,h); "invalid:" is the invalid variant.
inline QVariant variantOf(const std::string& field)
{
    const std::size_t colon = field.find(':');
    const std::string type = field.substr(0, colon);
    const QString text = QString::fromStdString(colon == std::string::npos ? std::string() : field.substr(colon + 1));
    bool ok = true;
    QVariant value;
    if (type == "bool") {
        ok = text == QLatin1String("true") || text == QLatin1String("false");
        value = text == QLatin1String("true");
    } else if (type == "int")
        value = text.toInt(&ok);
    else if (type == "uint")
        value = text.toUInt(&ok);
    else if (type == "ll")
        value = text.toLongLong(&ok);
    else if (type == "ull")
        value = text.toULongLong(&ok);
    else if (type == "double")
        value = text.toDouble(&ok);
    else if (type == "float")
        value = text.toFloat(&ok);
    else if (type == "string")
        value = text.isEmpty() ? QString() : text; // "string:" is the null text
    else if (type == "date")
        value = QDate::fromString(text, Qt::ISODate);
    else if (type == "time")
        value = QTime::fromString(text, QStringLiteral("HH:mm:ss.zzz"));
    else if (type == "strings")
        value = text.split(QLatin1Char(','));
    else if (type == "bytes")
        value = text.toUtf8();
    else if (type == "local")
        value = QDateTime::fromString(text, Qt::ISODateWithMs);
    else if (type == "utc")
        value = QDateTime::fromString(text, Qt::ISODateWithMs).toUTC();
    else if (type == "rect") {
        const QStringList parts = text.split(QLatin1Char(','));
        ok = parts.size() == 4;
        value = ok ? QRect(parts[0].toInt(), parts[1].toInt(), parts[2].toInt(), parts[3].toInt()) : QRect();
    } else
        ok = type == "invalid";
    EXPECT_TRUE(ok && (type == "invalid" || value.isValid())) << "not a typed value: " << field;
    return value;
}

} // namespace cktest
