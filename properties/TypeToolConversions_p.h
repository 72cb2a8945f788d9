#pragma once

// Private to the type tool: conversions that its arithmetic and its date
// functions (TypeTool.cpp, TypeToolDates.cpp) share.

#include <QVariant>
#include <QtGlobal>

#include <cmath>
#include <limits>

namespace kogen {
namespace typetool {

// A double truncated toward zero into the signed 64-bit range (NaN is 0).
inline qint64 saturatedInt64(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= 9223372036854775808.0)
        return std::numeric_limits<qint64>::max();
    if (value < -9223372036854775808.0)
        return std::numeric_limits<qint64>::min();
    return static_cast<qint64>(value);
}

inline bool convertsToString(const QVariant& value)
{
    return value.canConvert(QVariant::String);
}

} // namespace typetool
} // namespace kogen
