#pragma once

// Private to the type tool: conversions that its arithmetic and its date
// functions (TypeTool.cpp, TypeToolDates.cpp) share.

#include <QVariant>
#include <QtGlobal>

#include <cmath>
#include <limits>

namespace kogen {
namespace typetool {

constexpr qint64 kI64Min = std::numeric_limits<qint64>::min();
constexpr qint64 kI64Max = std::numeric_limits<qint64>::max();

// A double truncated toward zero into the signed 64-bit range (NaN is 0).
inline qint64 saturatedInt64(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= 9223372036854775808.0)
        return kI64Max;
    if (value < -9223372036854775808.0)
        return kI64Min;
    return static_cast<qint64>(value);
}

inline bool convertsToString(const QVariant& value)
{
    return value.canConvert(QVariant::String);
}

} // namespace typetool
} // namespace kogen
