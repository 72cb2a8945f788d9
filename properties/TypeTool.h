#pragma once

#include <CommonKit/support/core/Export.h>

#include <QList>
#include <QString>
#include <QVariant>

namespace kogen {

/// Mixed-type comparison and arithmetic on loosely typed QVariant values.
///
/// A tool is made for one operation between a left and a right operand. The
/// two flags say whether an operand is a constant (its value does not depend
/// on the data being evaluated); only a constant operand's value may be looked
/// at to narrow the common numeric type of the two.
///
/// Numbers are Int, UInt, LongLong, ULongLong and Double; date-like values are
/// Date, Time and DateTime; list-like values are List and StringList. Dates and
/// numbers meet on one scale, microseconds since 1970-01-01 00:00 UTC (see
/// dateMicroSeconds()).
///
/// No operation throws on its own. Each records its success in the ok flag,
/// which callers read with wasOK(), or turn into an exception with throwOK(),
/// or use to filter a result with returnOK(). A failed operation returns an
/// invalid QVariant.
class COMMONKIT_EXPORT TypeTool
{
public:
    /// A tool for one operation; the flags say which operands are constants.
    TypeTool(bool leftConstant, bool rightConstant);

    /// Negative, zero or positive as a is below, equal to or above b. Only the
    /// sign is meaningful. Sets ok to false (and returns 0) for values that
    /// have nothing in common.
    int compare(const QVariant& a, const QVariant& b);
    /// compare() == 0; for values that do not compare, whether both convert
    /// (or both fail to convert) to a common type.
    bool equals(const QVariant& a, const QVariant& b);
    /// Whether equals(element, value) holds for some element of the list.
    bool contains(const QList<QVariant>& list, const QVariant& value);

    /// Arithmetic: numbers in their common type (integers wrap around), dates
    /// plus or minus a date or a number, and texts joined by do_add.
    QVariant do_add(const QVariant& a, const QVariant& b);
    /// a - b: numbers, or a date moved back by a date or a number.
    QVariant do_subtract(const QVariant& a, const QVariant& b);
    /// a * b of two numbers.
    QVariant do_multiply(const QVariant& a, const QVariant& b);
    /// a / b of two numbers in their common type; fails for a division by
    /// zero (also in Double).
    QVariant do_divide(const QVariant& a, const QVariant& b);
    /// a % b of two numbers; fails for a modulo by zero and for Double.
    QVariant do_modulo(const QVariant& a, const QVariant& b);
    /// Bitwise operations on integers. When the operands are not integers of a
    /// common type the result is invalid but the ok flag is left alone.
    QVariant do_bitand(const QVariant& a, const QVariant& b);
    /// a | b of two integers (see do_bitand()).
    QVariant do_bitor(const QVariant& a, const QVariant& b);
    /// a ^ b of two integers (see do_bitand()).
    QVariant do_bitxor(const QVariant& a, const QVariant& b);

    /// A date-like value as a number of the given numeric type, or a number as
    /// a date-like value of the given type; invalid for anything else.
    static QVariant castDate(const QVariant& value, QVariant::Type type);
    /// The value on the microsecond scale: Int and UInt are milliseconds,
    /// LongLong and ULongLong microseconds, Double days; dates, times and
    /// date-times count from 1970-01-01 00:00 UTC (a time from midnight);
    /// other values are read as a date-time text; anything else is 0.
    static qint64 dateMicroSeconds(const QVariant& value);
    /// A key that sorts in the opposite order of the text (for descending
    /// sorts). Inverting twice gives the text back unless it holds U+0000 or
    /// U+FFFF.
    static QString invertString(const QString& text);

    /// Date, Time or DateTime.
    static bool isDate(QVariant::Type type);
    /// List or StringList.
    static bool isList(QVariant::Type type);
    /// Int, UInt, LongLong, ULongLong or Double.
    static bool isNumeric(QVariant::Type type);

    /// Whether the last operation succeeded.
    bool wasOK() const;
    /// True if ok; otherwise throws ko::IllegalArgumentException
    /// ("can't compare values").
    bool throwOK() const;
    /// value if ok, otherwise an invalid QVariant.
    const QVariant& returnOK(const QVariant& value) const;

protected:
    /// The common numeric type of two numbers, QVariant::Invalid if none. The
    /// same-type and Double rules look at the types alone, so they also answer
    /// for other values (two texts give String); callers check for numbers.
    QVariant::Type coerceNumericTypes(const QVariant& a, const QVariant& b) const;
    /// The type of a if b converts to it, else the type of b if a converts to
    /// it, else String if both convert to text, else QVariant::Invalid.
    QVariant::Type coerceOtherTypes(const QVariant& a, const QVariant& b) const;
    /// Element-wise comparison; a shorter list sorts first.
    int compareList(const QList<QVariant>& a, const QList<QVariant>& b);
    /// value moved by the given microseconds, in a type that follows value's.
    static QVariant dateAdd(const QVariant& value, qint64 microseconds);
    /// dateMicroSeconds() in seconds.
    static double dateSeconds(const QVariant& value);

private:
    bool m_leftConstant;
    bool m_rightConstant;
    bool m_ok;
};

} // namespace kogen
