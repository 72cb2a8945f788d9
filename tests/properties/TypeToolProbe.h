#pragma once

#include <CommonKit/properties/TypeTool.h>

#include <gtest/gtest.h>

#include <QVariant>

#include <limits>
#include <ostream>
#include <string>

// Opens the protected steps of kogen::TypeTool to the tests.
class TypeToolProbe : public kogen::TypeTool
{
public:
    using TypeTool::TypeTool;
    using TypeTool::coerceNumericTypes;
    using TypeTool::coerceOtherTypes;
    using TypeTool::dateAdd;
};

// The four combinations of the constant flags, in the order (left, right):
// neither, right only, left only, both.
struct Flags { bool left; bool right; };
constexpr Flags kFlagCombos[4] = {{false, false}, {false, true}, {true, false}, {true, true}};

constexpr int kIntMin = std::numeric_limits<int>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();
constexpr qint64 kMicrosPerDay = Q_INT64_C(86400000000);

inline int signOf(int value)
{
    return (value > 0) - (value < 0);
}

// Shows type and value in failure messages.
inline void PrintTo(const QVariant& value, std::ostream* out)
{
    *out << (value.isValid() ? value.typeName() : "invalid") << '(' << value.toString().toStdString() << ')';
}

// Same type and same value; invalid matches invalid.
inline ::testing::AssertionResult sameVariant(const QVariant& actual, const QVariant& expected)
{
    if (actual.type() == expected.type() && actual == expected)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "got " << ::testing::PrintToString(actual) << ", expected "
                                         << ::testing::PrintToString(expected);
}
