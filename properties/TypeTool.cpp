#include <CommonKit/properties/TypeTool.h>

#include "properties/TypeToolConversions_p.h"
#include "properties/VariantPeek_p.h"
#include <CommonKit/support/core/Exception.h>

#include <cmath>
#include <limits>
#include <type_traits>

// Comparison and arithmetic; the date functions are in TypeToolDates.cpp.

namespace kogen {

using namespace typetool;

namespace {

constexpr int kIntMin = std::numeric_limits<int>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();

int clampToInt(qint64 value)
{
    if (value < kIntMin)
        return kIntMin;
    if (value > kIntMax)
        return kIntMax;
    return static_cast<int>(value);
}

// Truncated toward zero and clamped to the int range; NaN sorts lowest.
int clampToInt(double value)
{
    if (std::isnan(value))
        return kIntMin;
    if (value >= static_cast<double>(kIntMax))
        return kIntMax;
    if (value <= static_cast<double>(kIntMin))
        return kIntMin;
    return static_cast<int>(value);
}

// a - b, saturated instead of overflowing.
qint64 saturatedDifference(qint64 a, qint64 b)
{
    if (b < 0 && a > kI64Max + b)
        return kI64Max;
    if (b > 0 && a < kI64Min + b)
        return kI64Min;
    return a - b;
}

// The number a numeric QVariant holds, converted to T the way a C++ cast
// would (integers wrap).
template <typename T>
T numberAs(const QVariant& value)
{
    switch (static_cast<int>(value.type())) {
    case QVariant::Int:
        return static_cast<T>(value.toInt());
    case QVariant::UInt:
        return static_cast<T>(value.toUInt());
    case QVariant::LongLong:
        return static_cast<T>(value.toLongLong());
    case QVariant::ULongLong:
        return static_cast<T>(value.toULongLong());
    case QVariant::Double:
        if constexpr (std::is_floating_point_v<T>)
            return value.toDouble();
        else
            return static_cast<T>(saturatedInt64(value.toDouble()));
    default:
        return T();
    }
}

enum class Op { Add, Subtract, Multiply, Divide, Modulo, BitAnd, BitOr, BitXor };

// Integer arithmetic in T with the wrap-around of T. Returns false for a
// division or modulo by zero.
template <typename T>
bool integerOp(Op op, T a, T b, T& result)
{
    using U = std::make_unsigned_t<T>;
    const U ua = static_cast<U>(a);
    const U ub = static_cast<U>(b);
    switch (op) {
    case Op::Add:
        result = static_cast<T>(static_cast<U>(ua + ub));
        return true;
    case Op::Subtract:
        result = static_cast<T>(static_cast<U>(ua - ub));
        return true;
    case Op::Multiply:
        result = static_cast<T>(static_cast<U>(ua * ub));
        return true;
    case Op::Divide:
    case Op::Modulo:
        if (b == 0)
            return false;
        if constexpr (std::is_signed_v<T>) {
            // The one quotient that overflows wraps to the minimum.
            if (b == T(-1) && a == std::numeric_limits<T>::min()) {
                result = op == Op::Divide ? a : T(0);
                return true;
            }
        }
        result = op == Op::Divide ? a / b : a % b;
        return true;
    case Op::BitAnd:
        result = static_cast<T>(ua & ub);
        return true;
    case Op::BitOr:
        result = static_cast<T>(ua | ub);
        return true;
    case Op::BitXor:
        result = static_cast<T>(ua ^ ub);
        return true;
    }
    return false;
}

template <typename T>
QVariant integerResult(Op op, const QVariant& a, const QVariant& b, bool& ok)
{
    T result = T();
    ok = integerOp<T>(op, numberAs<T>(a), numberAs<T>(b), result);
    return ok ? QVariant(result) : QVariant();
}

QVariant doubleResult(Op op, const QVariant& a, const QVariant& b, bool& ok)
{
    const double x = a.toDouble();
    const double y = b.toDouble();
    ok = true;
    switch (op) {
    case Op::Add:
        return QVariant(x + y);
    case Op::Subtract:
        return QVariant(x - y);
    case Op::Multiply:
        return QVariant(x * y);
    case Op::Divide:
        if (!(y < 0.0) && !(y > 0.0))
            break;
        return QVariant(x / y);
    default:
        break;
    }
    ok = false;
    return QVariant();
}

// The operation in the numeric type given; ok false for a type that is not
// one of the five numeric types, for a division by zero and for the
// operations Double has not.
QVariant numericResult(Op op, QVariant::Type type, const QVariant& a, const QVariant& b, bool& ok)
{
    switch (static_cast<int>(type)) {
    case QVariant::Int:
        return integerResult<int>(op, a, b, ok);
    case QVariant::UInt:
        return integerResult<uint>(op, a, b, ok);
    case QVariant::LongLong:
        return integerResult<qlonglong>(op, a, b, ok);
    case QVariant::ULongLong:
        return integerResult<qulonglong>(op, a, b, ok);
    case QVariant::Double:
        return doubleResult(op, a, b, ok);
    default:
        ok = false;
        return QVariant();
    }
}

const QVariant& invalidVariant()
{
    static const QVariant invalid;
    return invalid;
}

} // namespace

TypeTool::TypeTool(bool leftConstant, bool rightConstant)
    : m_leftConstant(leftConstant)
    , m_rightConstant(rightConstant)
    , m_ok(true)
{
}

bool TypeTool::isNumeric(QVariant::Type type)
{
    switch (static_cast<int>(type)) {
    case QVariant::Int:
    case QVariant::UInt:
    case QVariant::LongLong:
    case QVariant::ULongLong:
    case QVariant::Double:
        return true;
    default:
        return false;
    }
}

bool TypeTool::isDate(QVariant::Type type)
{
    return type == QVariant::Date || type == QVariant::Time || type == QVariant::DateTime;
}

bool TypeTool::isList(QVariant::Type type)
{
    return type == QVariant::List || type == QVariant::StringList;
}

QVariant::Type TypeTool::coerceNumericTypes(const QVariant& a, const QVariant& b) const
{
    // The first two rules look at the types alone, whatever they are; the
    // callers only act on the result when both operands are numbers.
    const QVariant::Type ta = a.type();
    const QVariant::Type tb = b.type();
    if (ta == tb)
        return ta;
    if (ta == QVariant::Double || tb == QVariant::Double)
        return QVariant::Double;

    const bool l = m_leftConstant;
    const bool r = m_rightConstant;
    constexpr qint64 kInt32Top = 2147483647;
    constexpr qint64 kInt64Top = kI64Max;

    switch (static_cast<int>(ta)) {
    case QVariant::Int:
        switch (static_cast<int>(tb)) {
        case QVariant::UInt:
            if (r && b.toUInt() < kInt32Top)
                return QVariant::Int;
            if (!l)
                return QVariant::LongLong;
            return a.toInt() >= 0 ? QVariant::UInt : QVariant::LongLong;
        case QVariant::LongLong:
            return QVariant::LongLong;
        case QVariant::ULongLong:
            if (r && b.toULongLong() < static_cast<quint64>(kInt32Top))
                return QVariant::Int;
            if (l && a.toInt() >= 0)
                return QVariant::ULongLong;
            return QVariant::Invalid;
        }
        break;
    case QVariant::UInt:
        switch (static_cast<int>(tb)) {
        case QVariant::Int:
            if (l && a.toUInt() < kInt32Top)
                return QVariant::Int;
            if (!r)
                return QVariant::LongLong;
            return b.toInt() >= 0 ? QVariant::UInt : QVariant::LongLong;
        case QVariant::LongLong:
            return QVariant::LongLong;
        case QVariant::ULongLong:
            return QVariant::ULongLong;
        }
        break;
    case QVariant::LongLong:
        switch (static_cast<int>(tb)) {
        case QVariant::Int:
        case QVariant::UInt:
            return QVariant::LongLong;
        case QVariant::ULongLong:
            if (r && b.toULongLong() < static_cast<quint64>(kInt64Top))
                return QVariant::LongLong;
            if (l && a.toLongLong() >= 0)
                return QVariant::ULongLong;
            return QVariant::Invalid;
        }
        break;
    case QVariant::ULongLong:
        switch (static_cast<int>(tb)) {
        case QVariant::Int:
            if (r && b.toInt() >= 0)
                return QVariant::ULongLong;
            if (l && a.toULongLong() < static_cast<quint64>(kInt32Top))
                return QVariant::Int;
            return QVariant::Invalid;
        case QVariant::LongLong:
            if (r && b.toLongLong() >= 0)
                return QVariant::ULongLong;
            if (l && a.toULongLong() < static_cast<quint64>(kInt64Top))
                return QVariant::LongLong;
            return QVariant::Invalid;
        case QVariant::UInt:
            return QVariant::ULongLong;
        }
        break;
    }
    return QVariant::Invalid;
}

QVariant::Type TypeTool::coerceOtherTypes(const QVariant& a, const QVariant& b) const
{
    // type(), not userType(): every application-registered type is
    // QVariant::UserType here, and no value converts to that placeholder, so
    // registered values find a common type only through their text form.
    const QVariant::Type typeA = a.type();
    const QVariant::Type typeB = b.type();
    if (b.canConvert(static_cast<int>(typeA)))
        return typeA;
    if (a.canConvert(static_cast<int>(typeB)))
        return typeB;
    if (convertsToString(a) && convertsToString(b))
        return QVariant::String;
    return QVariant::Invalid;
}

int TypeTool::compare(const QVariant& a, const QVariant& b)
{
    m_ok = true;
    // The common cases, without going through QVariant's conversions: the
    // results are those of the general rules below.
    int intA = 0;
    int intB = 0;
    if (holdsInt(a, &intA) && holdsInt(b, &intB))
        return clampToInt(qint64(intA) - qint64(intB));
    const QVariant::Type ta = a.type();
    const QVariant::Type tb = b.type();
    if (ta == tb) {
        if (ta == QVariant::String)
            return QString::compare(*static_cast<const QString*>(a.constData()),
                                    *static_cast<const QString*>(b.constData()), Qt::CaseSensitive);
    }
    if (isNumeric(ta) && isNumeric(tb)) {
        switch (static_cast<int>(coerceNumericTypes(a, b))) {
        case QVariant::Int:
        case QVariant::UInt:
        case QVariant::LongLong:
            return clampToInt(saturatedDifference(a.toLongLong(), b.toLongLong()));
        case QVariant::ULongLong:
        case QVariant::Double:
            return clampToInt(a.toDouble() - b.toDouble());
        default:
            break; // no common numeric type: try the rules below
        }
    }
    if ((isDate(ta) && (isDate(tb) || isNumeric(tb))) || (isDate(tb) && isNumeric(ta)))
        return clampToInt(saturatedDifference(dateMicroSeconds(a), dateMicroSeconds(b)));
    if (isList(ta) && isList(tb))
        return compareList(a.toList(), b.toList());
    if (convertsToString(a) && convertsToString(b))
        return QString::compare(a.toString(), b.toString(), Qt::CaseSensitive);
    m_ok = false;
    return 0;
}

int TypeTool::compareList(const QList<QVariant>& a, const QList<QVariant>& b)
{
    auto left = a.cbegin();
    auto right = b.cbegin();
    for (; left != a.cend(); ++left, ++right) {
        if (right == b.cend())
            return kIntMax;
        const int result = compare(*left, *right);
        if (result != 0 || !m_ok)
            return result;
    }
    return right == b.cend() ? 0 : kIntMin;
}

bool TypeTool::equals(const QVariant& a, const QVariant& b)
{
    const int result = compare(a, b);
    if (m_ok)
        return result == 0;

    // Values that do not compare: equal when they agree on whether they
    // convert to a common type. The converted values are not looked at.
    const QVariant::Type common = coerceOtherTypes(a, b);
    m_ok = common != QVariant::Invalid;
    if (!m_ok)
        return false;
    QVariant left(a);
    QVariant right(b);
    const bool leftConverts = left.convert(static_cast<int>(common));
    const bool rightConverts = right.convert(static_cast<int>(common));
    return leftConverts == rightConverts;
}

bool TypeTool::contains(const QList<QVariant>& list, const QVariant& value)
{
    m_ok = true;
    for (const QVariant& element : list) {
        if (equals(element, value))
            return true;
    }
    return false;
}

QVariant TypeTool::do_add(const QVariant& a, const QVariant& b)
{
    m_ok = true;
    const QVariant::Type ta = a.type();
    const QVariant::Type tb = b.type();
    if (isNumeric(ta) && isNumeric(tb)) {
        const QVariant::Type common = coerceNumericTypes(a, b);
        if (common != QVariant::Invalid)
            return numericResult(Op::Add, common, a, b, m_ok);
        // Two numbers without a common type are joined as texts below.
    }
    if (isDate(ta) && (isDate(tb) || isNumeric(tb)))
        return dateAdd(a, dateMicroSeconds(b));
    if (isDate(tb) && isNumeric(ta))
        return dateAdd(b, dateMicroSeconds(a));
    if (convertsToString(a) && convertsToString(b))
        return QVariant(a.toString() + b.toString());
    m_ok = false;
    return QVariant();
}

QVariant TypeTool::do_subtract(const QVariant& a, const QVariant& b)
{
    m_ok = true;
    const QVariant::Type ta = a.type();
    const QVariant::Type tb = b.type();
    if (isNumeric(ta) && isNumeric(tb))
        return numericResult(Op::Subtract, coerceNumericTypes(a, b), a, b, m_ok);
    if (isDate(ta) && (isDate(tb) || isNumeric(tb))) {
        const quint64 magnitude = static_cast<quint64>(dateMicroSeconds(b));
        return dateAdd(a, static_cast<qint64>(0 - magnitude));
    }
    m_ok = false;
    return QVariant();
}

QVariant TypeTool::do_multiply(const QVariant& a, const QVariant& b)
{
    m_ok = true;
    if (isNumeric(a.type()) && isNumeric(b.type()))
        return numericResult(Op::Multiply, coerceNumericTypes(a, b), a, b, m_ok);
    m_ok = false;
    return QVariant();
}

QVariant TypeTool::do_divide(const QVariant& a, const QVariant& b)
{
    m_ok = true;
    if (isNumeric(a.type()) && isNumeric(b.type()))
        return numericResult(Op::Divide, coerceNumericTypes(a, b), a, b, m_ok);
    m_ok = false;
    return QVariant();
}

QVariant TypeTool::do_modulo(const QVariant& a, const QVariant& b)
{
    m_ok = true;
    if (isNumeric(a.type()) && isNumeric(b.type()))
        return numericResult(Op::Modulo, coerceNumericTypes(a, b), a, b, m_ok);
    m_ok = false;
    return QVariant();
}

namespace {

// Bitwise operations succeed only on two numbers whose common type is an
// integer type; otherwise the result is invalid and ok is not touched.
QVariant bitwise(Op op, QVariant::Type common, const QVariant& a, const QVariant& b, bool& ok)
{
    if (!TypeTool::isNumeric(a.type()) || !TypeTool::isNumeric(b.type()))
        return QVariant();
    if (common == QVariant::Invalid || common == QVariant::Double)
        return QVariant();
    return numericResult(op, common, a, b, ok);
}

} // namespace

QVariant TypeTool::do_bitand(const QVariant& a, const QVariant& b)
{
    return bitwise(Op::BitAnd, coerceNumericTypes(a, b), a, b, m_ok);
}

QVariant TypeTool::do_bitor(const QVariant& a, const QVariant& b)
{
    return bitwise(Op::BitOr, coerceNumericTypes(a, b), a, b, m_ok);
}

QVariant TypeTool::do_bitxor(const QVariant& a, const QVariant& b)
{
    return bitwise(Op::BitXor, coerceNumericTypes(a, b), a, b, m_ok);
}

QString TypeTool::invertString(const QString& text)
{
    constexpr ushort kMark = 0xFFFF;
    QString result;
    result.reserve(text.size() + 1);
    bool markRemoved = false;
    // Complement every code unit; a mark already present is dropped, so that
    // inverting twice gives the text back.
    for (const QChar ch : text) {
        if (ch.unicode() == kMark)
            markRemoved = true;
        else
            result.append(QChar(static_cast<ushort>(~ch.unicode())));
    }
    if (!markRemoved)
        result.append(QChar(kMark));
    return result;
}

bool TypeTool::wasOK() const
{
    return m_ok;
}

bool TypeTool::throwOK() const
{
    if (!m_ok)
        throw ko::IllegalArgumentException(QString(), QStringLiteral("can't compare values"));
    return true;
}

const QVariant& TypeTool::returnOK(const QVariant& value) const
{
    return m_ok ? value : invalidVariant();
}

} // namespace kogen
