#include "properties/Properties.h"
#include "properties/PropertyValidator.h"
#include "support/core/Exception.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <QTextStream>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>

namespace {

using kogen::BaseProperty;
using Factory = std::function<std::unique_ptr<BaseProperty>()>;

template<typename T>
Factory make(const char* name = "p")
{
    return [name] { return std::unique_ptr<BaseProperty>(new T(QString::fromLatin1(name))); };
}

QString dumpOf(const BaseProperty& property)
{
    QString text;
    QTextStream stream(&text);
    property.dump(stream);
    stream.flush();
    return text;
}

QString header(const char* name, const char* description = "")
{
    return QStringLiteral("Property name: %1\nProperty description: %2\n")
        .arg(QLatin1String(name), QLatin1String(description));
}

const QString k_hyphens = QStringLiteral("--------------------------------------------\n");

TEST(Properties, FreshPropertiesHaveTheirTypeNameAndInitialValue)
{
    struct Case { Factory create; const char* type; QVariant value; };
    const Case cases[] = {
        {make<kogen::BoolProperty>(), "BoolProperty", QVariant(false)},
        {make<kogen::IntProperty>(), "IntProperty", QVariant(0)},
        {make<kogen::UIntProperty>(), "UIntProperty", QVariant(0u)},
        {make<kogen::U64Property>(), "U64Property", QVariant(qulonglong(0))},
        {make<kogen::FloatProperty>(), "FloatProperty", QVariant(0.0f)},
        {make<kogen::DoubleProperty>(), "DoubleProperty", QVariant(0.0)},
        {make<kogen::StringProperty>(), "StringProperty", QVariant(QString())},
        {make<kogen::StringListProperty>(), "StringListProperty", QVariant(QStringList())},
        {make<kogen::ByteArrayProperty>(), "ByteArrayProperty", QVariant(QByteArray())},
        {make<kogen::RectProperty>(), "RectProperty", QVariant(QRect())},
        {make<kogen::DateProperty>(), "DateProperty", QVariant(QDate())},
        {make<kogen::TimeProperty>(), "TimeProperty", QVariant(QTime())},
        {make<kogen::DateTimeProperty>(), "DateTimeProperty", QVariant(QDateTime())},
        {make<kogen::VariantProperty>(), "VariantProperty", QVariant()},
        {make<kogen::PropertySetProperty>(), "PropertySetProperty", QVariant(QVariantMap())},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.type);
        const auto property = c.create();
        EXPECT_EQ(property->type(), QLatin1String(c.type));
        EXPECT_EQ(property->propertyName(), QStringLiteral("p"));
        EXPECT_TRUE(property->description().isEmpty());
        EXPECT_FALSE(property->isValid());
        EXPECT_TRUE(property->validationMessage().isEmpty());
        EXPECT_FALSE(property->validator());
        const QVariant value = property->variantValue();
        EXPECT_EQ(value.userType(), c.value.userType());
        EXPECT_EQ(value, c.value);
    }
    // Null values where Qt distinguishes null from empty.
    EXPECT_TRUE(kogen::StringProperty(QStringLiteral("s")).variantValue().toString().isNull());
    EXPECT_TRUE(kogen::ByteArrayProperty(QStringLiteral("b")).variantValue().toByteArray().isNull());
    const QRect rect = kogen::RectProperty(QStringLiteral("r")).variantValue().toRect();
    EXPECT_EQ(rect.left(), 0);
    EXPECT_EQ(rect.top(), 0);
    EXPECT_EQ(rect.right(), -1);
    EXPECT_EQ(rect.bottom(), -1);
    EXPECT_TRUE(kogen::PropertySetProperty().propertyName().isEmpty());
}

TEST(Properties, SetVariantValueConvertsOrRefuses)
{
    struct Case
    {
        const char* what;
        Factory create;
        QVariant input;
        bool accepted;
        QVariant stored; // variantValue() afterwards
    };
    const double big = 1e300;
    const Case cases[] = {
        {"int from double uses Qt's rounding", make<kogen::IntProperty>(), QVariant(2.7), true, QVariant(3)},
        {"int from a text that is no number", make<kogen::IntProperty>(), QVariant(QStringLiteral("abc")), true, QVariant(0)},
        {"int from a numeric text", make<kogen::IntProperty>(), QVariant(QStringLiteral("-42")), true, QVariant(-42)},
        {"int from a rectangle", make<kogen::IntProperty>(), QVariant(QRect(1, 2, 3, 4)), false, QVariant(0)},
        {"bool from a rectangle", make<kogen::BoolProperty>(), QVariant(QRect(1, 2, 3, 4)), false, QVariant(false)},
        {"bool from a number", make<kogen::BoolProperty>(), QVariant(5), true, QVariant(true)},
        {"uint from text", make<kogen::UIntProperty>(), QVariant(QStringLiteral("4294967295")), true, QVariant(4294967295u)},
        {"u64 from text", make<kogen::U64Property>(), QVariant(QStringLiteral("18446744073709551615")), true,
         QVariant(std::numeric_limits<qulonglong>::max())},
        {"float from double", make<kogen::FloatProperty>(), QVariant(1.5), true, QVariant(1.5f)},
        {"float beyond its range", make<kogen::FloatProperty>(), QVariant(big), true,
         QVariant(std::numeric_limits<float>::infinity())},
        {"float just above its largest value rounds down", make<kogen::FloatProperty>(), QVariant(3.4028235e38), true,
         QVariant(std::numeric_limits<float>::max())},
        {"float from the text of its largest value", make<kogen::FloatProperty>(),
         QVariant(QStringLiteral("-3.4028235e38")), true, QVariant(-std::numeric_limits<float>::max())},
        {"float at the rounding limit", make<kogen::FloatProperty>(),
         QVariant(std::ldexp(1.0, 128) - std::ldexp(1.0, 103)), true,
         QVariant(std::numeric_limits<float>::infinity())},
        {"float below the rounding limit", make<kogen::FloatProperty>(),
         QVariant(std::ldexp(1.0, 128) - std::ldexp(1.0, 103) - std::ldexp(1.0, 75)), true,
         QVariant(std::numeric_limits<float>::max())},
        {"float negative beyond its range", make<kogen::FloatProperty>(), QVariant(-big), true,
         QVariant(-std::numeric_limits<float>::infinity())},
        {"float from a date", make<kogen::FloatProperty>(), QVariant(QDate(2024, 1, 1)), false, QVariant(0.0f)},
        {"double from text", make<kogen::DoubleProperty>(), QVariant(QStringLiteral("2.5")), true, QVariant(2.5)},
        {"string from int", make<kogen::StringProperty>(), QVariant(12), true, QVariant(QStringLiteral("12"))},
        {"string from rectangle", make<kogen::StringProperty>(), QVariant(QRect(1, 2, 3, 4)), false, QVariant(QString())},
        {"bytes from string", make<kogen::ByteArrayProperty>(), QVariant(QStringLiteral("ab")), true,
         QVariant(QByteArray("ab"))},
        {"rectangle from rectangle", make<kogen::RectProperty>(), QVariant(QRect(10, 20, 640, 480)), true,
         QVariant(QRect(10, 20, 640, 480))},
        {"rectangle from string", make<kogen::RectProperty>(), QVariant(QStringLiteral("1,2,3,4")), false, QVariant(QRect())},
        {"date from ISO text", make<kogen::DateProperty>(), QVariant(QStringLiteral("2024-05-06")), true,
         QVariant(QDate(2024, 5, 6))},
        {"date from int", make<kogen::DateProperty>(), QVariant(3), false, QVariant(QDate())},
        {"time from ISO text", make<kogen::TimeProperty>(), QVariant(QStringLiteral("07:08:09")), true,
         QVariant(QTime(7, 8, 9))},
        {"date-time from date", make<kogen::DateTimeProperty>(), QVariant(QDate(2024, 5, 6)), true,
         QVariant(QDateTime(QDate(2024, 5, 6), QTime(0, 0)))},
        {"variant keeps a rectangle", make<kogen::VariantProperty>(), QVariant(QRect(1, 2, 3, 4)), true,
         QVariant(QRect(1, 2, 3, 4))},
        {"variant keeps an invalid variant", make<kogen::VariantProperty>(), QVariant(), true, QVariant()},
        {"string list splits bytes at commas", make<kogen::StringListProperty>(), QVariant(QByteArray("a,,b")), true,
         QVariant(QStringList{QStringLiteral("a"), QString(), QStringLiteral("b")})},
        {"string list from an invalid variant", make<kogen::StringListProperty>(), QVariant(), true,
         QVariant(QStringList{QString()})},
        {"string list takes a string unsplit", make<kogen::StringListProperty>(), QVariant(QStringLiteral("a,b")), true,
         QVariant(QStringList{QStringLiteral("a,b")})},
        {"string list from a list", make<kogen::StringListProperty>(),
         QVariant(QVariantList{QStringLiteral("x"), QStringLiteral("y")}), true,
         QVariant(QStringList{QStringLiteral("x"), QStringLiteral("y")})},
        {"string list from a rectangle (no text)", make<kogen::StringListProperty>(), QVariant(QRect()), true,
         QVariant(QStringList{QString()})},
        {"embedded set refuses a non-map", make<kogen::PropertySetProperty>(), QVariant(7), false, QVariant(QVariantMap())},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto property = c.create();
        EXPECT_EQ(property->setVariantValue(c.input), c.accepted);
        EXPECT_EQ(property->variantValue(), c.stored);
        EXPECT_EQ(property->variantValue().userType(), c.stored.userType());
    }
}

TEST(Properties, RefusedVariantKeepsTheOldValue)
{
    kogen::IntProperty number(QStringLiteral("n"));
    kogen::IntProperty::setValue(number, 17);
    EXPECT_FALSE(number.setVariantValue(QVariant(QRect(0, 0, 1, 1))));
    EXPECT_EQ(kogen::IntProperty::getValue(number, -1), 17);

    kogen::DateProperty date(QStringLiteral("d"));
    ASSERT_TRUE(date.setVariantValue(QVariant(QDate(2020, 2, 29))));
    EXPECT_FALSE(date.setVariantValue(QVariant(1.5)));
    EXPECT_EQ(date.variantValue(), QVariant(QDate(2020, 2, 29)));
}

TEST(Properties, TypedAccessorsReadWriteTheirOwnClassOnly)
{
    kogen::IntProperty number(QStringLiteral("count"));
    kogen::StringProperty text(QStringLiteral("label"));
    kogen::StringListProperty list(QStringLiteral("tags"));
    kogen::IllegalProperty& illegal = kogen::IllegalProperty::instance();

    kogen::IntProperty::setValue(number, -5);
    EXPECT_EQ(kogen::IntProperty::getValue(number, 9), -5);
    EXPECT_EQ(kogen::IntProperty::getValue(illegal, 9), 9);
    EXPECT_EQ(kogen::StringListProperty::getValue(illegal, {QStringLiteral("d")}), QStringList{QStringLiteral("d")});

    struct Expectation { const char* name; const char* actual; const char* expected; };
    const auto expectThrow = [](const std::function<void()>& call, const Expectation& e) {
        try {
            call();
            ADD_FAILURE() << "no exception for expected type " << e.expected;
        } catch (const ko::UnexpectedTypeException& error) {
            EXPECT_EQ(error.name(), QLatin1String(e.name));
            EXPECT_EQ(error.actualType(), QLatin1String(e.actual));
            EXPECT_EQ(error.expectedType(), QLatin1String(e.expected));
            EXPECT_EQ(error.messageQt(), QStringLiteral("Property has the wrong type."));
            EXPECT_FALSE(error.cause());
        }
    };
    expectThrow([&] { kogen::IntProperty::getValue(text, 0); }, {"label", "StringProperty", "IntProperty"});
    expectThrow([&] { kogen::DoubleProperty::getValue(number, 0.0); }, {"count", "IntProperty", "DoubleProperty"});
    expectThrow([&] { kogen::StringListProperty::getValue(number, {}); }, {"count", "IntProperty", "StringListProperty"});
    // The string-list setter names "StringProperty" as the expected type.
    expectThrow([&] { kogen::StringListProperty::setValue(number, {}); }, {"count", "IntProperty", "StringProperty"});
    expectThrow([&] { kogen::StringProperty::setValue(list, QString()); }, {"tags", "StringListProperty", "StringProperty"});
    // Writing to the null object is an error, unlike reading from it.
    expectThrow([&] { kogen::IntProperty::setValue(illegal, 1); }, {"", "IllegalProperty", "IntProperty"});
    expectThrow([&] { kogen::PropertySetProperty::setValue(illegal, kogen::PropertySet()); },
                {"", "IllegalProperty", "PropertySetProperty"});
    EXPECT_EQ(kogen::IntProperty::getValue(number, 0), -5);
}

// Every class with typed accessors: a value written with setValue reads back
// through getValue and variantValue; on a property of another class both
// throw and name the expected class (the string-list setter names
// "StringProperty").
TEST(Properties, EveryTypedAccessorPairRoundTripsAndNamesItsClass)
{
    kogen::PropertySet set;
    set.add(new kogen::IntProperty(QStringLiteral("n")));
    struct Case
    {
        const char* type;
        Factory create;
        std::function<void(BaseProperty&)> set;
        std::function<QVariant(const BaseProperty&)> get;
        QVariant expected;
        const char* setterNames;
    };
    const QDateTime when(QDate(2024, 5, 6), QTime(7, 8, 9), Qt::UTC);
    const Case cases[] = {
        {"BoolProperty", make<kogen::BoolProperty>(), [](BaseProperty& p) { kogen::BoolProperty::setValue(p, true); },
         [](const BaseProperty& p) { return QVariant(kogen::BoolProperty::getValue(p, false)); }, QVariant(true),
         "BoolProperty"},
        {"UIntProperty", make<kogen::UIntProperty>(), [](BaseProperty& p) { kogen::UIntProperty::setValue(p, 4294967295u); },
         [](const BaseProperty& p) { return QVariant(kogen::UIntProperty::getValue(p, 0)); }, QVariant(4294967295u),
         "UIntProperty"},
        {"U64Property", make<kogen::U64Property>(),
         [](BaseProperty& p) { kogen::U64Property::setValue(p, 0x123456789ULL); },
         [](const BaseProperty& p) { return QVariant(qulonglong(kogen::U64Property::getValue(p, 0))); },
         QVariant(qulonglong(0x123456789ULL)), "U64Property"},
        {"FloatProperty", make<kogen::FloatProperty>(), [](BaseProperty& p) { kogen::FloatProperty::setValue(p, 0.25f); },
         [](const BaseProperty& p) { return QVariant(kogen::FloatProperty::getValue(p, 0.0f)); }, QVariant(0.25f),
         "FloatProperty"},
        {"DoubleProperty", make<kogen::DoubleProperty>(), [](BaseProperty& p) { kogen::DoubleProperty::setValue(p, -1e-9); },
         [](const BaseProperty& p) { return QVariant(kogen::DoubleProperty::getValue(p, 0.0)); }, QVariant(-1e-9),
         "DoubleProperty"},
        {"StringProperty", make<kogen::StringProperty>(),
         [](BaseProperty& p) { kogen::StringProperty::setValue(p, QStringLiteral("t")); },
         [](const BaseProperty& p) { return QVariant(kogen::StringProperty::getValue(p, {})); },
         QVariant(QStringLiteral("t")), "StringProperty"},
        {"StringListProperty", make<kogen::StringListProperty>(),
         [](BaseProperty& p) { kogen::StringListProperty::setValue(p, {QStringLiteral("a"), QStringLiteral("b")}); },
         [](const BaseProperty& p) { return QVariant(kogen::StringListProperty::getValue(p, {})); },
         QVariant(QStringList{QStringLiteral("a"), QStringLiteral("b")}), "StringProperty"},
        {"ByteArrayProperty", make<kogen::ByteArrayProperty>(),
         [](BaseProperty& p) { kogen::ByteArrayProperty::setValue(p, QByteArray("\0x", 2)); },
         [](const BaseProperty& p) { return QVariant(kogen::ByteArrayProperty::getValue(p, {})); },
         QVariant(QByteArray("\0x", 2)), "ByteArrayProperty"},
        {"RectProperty", make<kogen::RectProperty>(),
         [](BaseProperty& p) { kogen::RectProperty::setValue(p, QRect(-1, -2, 3, 4)); },
         [](const BaseProperty& p) { return QVariant(kogen::RectProperty::getValue(p, {})); },
         QVariant(QRect(-1, -2, 3, 4)), "RectProperty"},
        {"TimeProperty", make<kogen::TimeProperty>(),
         [](BaseProperty& p) { kogen::TimeProperty::setValue(p, QTime(23, 59, 59, 999)); },
         [](const BaseProperty& p) { return QVariant(kogen::TimeProperty::getValue(p, {})); },
         QVariant(QTime(23, 59, 59, 999)), "TimeProperty"},
        {"DateTimeProperty", make<kogen::DateTimeProperty>(),
         [when](BaseProperty& p) { kogen::DateTimeProperty::setValue(p, when); },
         [](const BaseProperty& p) { return QVariant(kogen::DateTimeProperty::getValue(p, {})); }, QVariant(when),
         "DateTimeProperty"},
        {"VariantProperty", make<kogen::VariantProperty>(),
         [](BaseProperty& p) { kogen::VariantProperty::setValue(p, QVariant(QPoint(1, 2))); },
         [](const BaseProperty& p) { return kogen::VariantProperty::getValue(p, {}); }, QVariant(QPoint(1, 2)),
         "VariantProperty"},
        {"PropertySetProperty", make<kogen::PropertySetProperty>(),
         [set](BaseProperty& p) { kogen::PropertySetProperty::setValue(p, set); },
         [](const BaseProperty& p) { return QVariant(kogen::PropertySetProperty::getValue(p, {}).variantValues()); },
         QVariant(QVariantMap{{QStringLiteral("n"), 0}}), "PropertySetProperty"},
    };
    kogen::IntProperty other(QStringLiteral("other"));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.type);
        const auto property = c.create();
        c.set(*property);
        EXPECT_EQ(c.get(*property), c.expected);
        EXPECT_EQ(property->variantValue(), c.expected);
        const auto expectWrongType = [&](const std::function<void()>& call, const char* expected) {
            try {
                call();
                ADD_FAILURE() << "no exception";
            } catch (const ko::UnexpectedTypeException& error) {
                EXPECT_EQ(error.name(), QStringLiteral("other"));
                EXPECT_EQ(error.actualType(), QStringLiteral("IntProperty"));
                EXPECT_EQ(error.expectedType(), QLatin1String(expected));
                EXPECT_EQ(error.messageQt(), QStringLiteral("Property has the wrong type."));
            }
        };
        expectWrongType([&] { c.get(other); }, c.type);
        expectWrongType([&] { c.set(other); }, c.setterNames);
    }
    EXPECT_EQ(kogen::IntProperty::getValue(other, -1), 0);
}

TEST(Properties, CopiesShareTheValidatorButNotTheValue)
{
    kogen::IntProperty original(QStringLiteral("n"));
    original.setDescription(QStringLiteral("a number"));
    const auto validator = boost::make_shared<kogen::DefaultIntValidator>(0, 3);
    original.setValidator(validator);
    kogen::IntProperty::setValue(original, 9);
    kogen::PropertySet unused;
    ASSERT_FALSE(original.validate(unused));

    kogen::IntProperty copy(original);
    EXPECT_EQ(copy.propertyName(), QStringLiteral("n"));
    EXPECT_EQ(copy.description(), QStringLiteral("a number"));
    EXPECT_EQ(copy.validator().get(), validator.get());
    EXPECT_FALSE(copy.isValid());
    EXPECT_EQ(copy.validationMessage(), original.validationMessage());
    EXPECT_EQ(kogen::IntProperty::getValue(copy, 0), 9);

    kogen::IntProperty::setValue(copy, 2);
    EXPECT_TRUE(copy.validate(unused));
    EXPECT_FALSE(original.isValid()) << "validating a copy must not touch the original";
    EXPECT_EQ(kogen::IntProperty::getValue(original, 0), 9);

    kogen::IntProperty assigned(QStringLiteral("other"));
    assigned = copy;
    EXPECT_EQ(assigned.propertyName(), QStringLiteral("n"));
    EXPECT_TRUE(assigned.isValid());
    EXPECT_TRUE(assigned.validationMessage().isEmpty());
    EXPECT_EQ(assigned.validator().get(), validator.get());
    EXPECT_EQ(kogen::IntProperty::getValue(assigned, 0), 2);
    EXPECT_EQ(validator.use_count(), 4);

    // Without a validator, validate() passes and leaves the flag alone.
    kogen::DoubleProperty plain(QStringLiteral("x"));
    EXPECT_TRUE(plain.validate(unused));
    EXPECT_FALSE(plain.isValid());
}

TEST(Properties, DumpWritesFourLinesPerProperty)
{
    kogen::BoolProperty flag(QStringLiteral("flag"));
    kogen::BoolProperty::setValue(flag, true);
    flag.setDescription(QStringLiteral("on or off"));
    kogen::U64Property big(QStringLiteral("big"));
    kogen::U64Property::setValue(big, 18446744073709551615ULL);
    kogen::DoubleProperty ratio(QStringLiteral("ratio"));
    kogen::DoubleProperty::setValue(ratio, 0.5);
    kogen::StringListProperty tags(QStringLiteral("tags"));
    kogen::StringListProperty::setValue(tags, {QStringLiteral("a"), QString(), QStringLiteral("c")});
    kogen::ByteArrayProperty bytes(QStringLiteral("bytes"));
    kogen::ByteArrayProperty::setValue(bytes, QByteArray(5, 'x'));
    kogen::RectProperty empty(QStringLiteral("empty"));
    kogen::RectProperty area(QStringLiteral("area"));
    kogen::RectProperty::setValue(area, QRect(10, 20, 640, 480));
    kogen::DateProperty day(QStringLiteral("day"));
    day.setVariantValue(QDate(2024, 5, 6));
    kogen::TimeProperty noon(QStringLiteral("noon"));
    kogen::TimeProperty::setValue(noon, QTime(12, 0, 5));
    kogen::DateProperty noDay(QStringLiteral("noDay"));
    kogen::VariantProperty any(QStringLiteral("any"));
    kogen::VariantProperty::setValue(any, QVariant(2.5));
    kogen::IntProperty count(QStringLiteral("count"));
    kogen::IntProperty::setValue(count, -7);
    kogen::UIntProperty unsignedMax(QStringLiteral("umax"));
    kogen::UIntProperty::setValue(unsignedMax, 4294967295u);
    kogen::FloatProperty tenth(QStringLiteral("tenth"));
    kogen::FloatProperty::setValue(tenth, 0.1f);
    kogen::StringProperty text(QStringLiteral("text"));
    kogen::StringProperty::setValue(text, QStringLiteral("a, b"));
    const QDateTime stampValue(QDate(2024, 5, 6), QTime(7, 8, 9));
    kogen::DateTimeProperty stamp(QStringLiteral("stamp"));
    kogen::DateTimeProperty::setValue(stamp, stampValue);

    struct Case { const BaseProperty& property; QString expected; };
    const Case cases[] = {
        {flag, header("flag", "on or off") + "Property value: 1\n" + k_hyphens},
        {big, header("big") + "Property value: 18446744073709551615\n" + k_hyphens},
        {ratio, header("ratio") + "Property value: 0.5\n" + k_hyphens},
        {tags, header("tags") + "Property value: a,,c\n" + k_hyphens},
        {bytes, header("bytes") + "Property value: (QByteArray of length 5 )\n" + k_hyphens},
        {empty, header("empty") + "Property value: (0,0,0,0)\n" + k_hyphens},
        {area, header("area") + "Property value: (10,20,640,480)\n" + k_hyphens},
        {day, header("day") + "Property value: " + QDate(2024, 5, 6).toString(Qt::TextDate) + "\n" + k_hyphens},
        {noon, header("noon") + "Property value: 12:00:05\n" + k_hyphens},
        {noDay, header("noDay") + "Property value: \n" + k_hyphens},
        {any, header("any") + "Property value: 2.5\n" + k_hyphens},
        {count, header("count") + "Property value: -7\n" + k_hyphens},
        {unsignedMax, header("umax") + "Property value: 4294967295\n" + k_hyphens},
        {tenth, header("tenth") + "Property value: 0.1\n" + k_hyphens},
        {text, header("text") + "Property value: a, b\n" + k_hyphens},
        {stamp, header("stamp") + "Property value: " + stampValue.toString(Qt::TextDate) + "\n" + k_hyphens},
        {kogen::IllegalProperty::instance(), QStringLiteral("IllegaProperty\n")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.property.propertyName().toStdString());
        EXPECT_EQ(dumpOf(c.property), c.expected);
    }
}

TEST(Properties, NumbersDumpWithTheStreamSettings)
{
    kogen::IntProperty number(QStringLiteral("n"));
    kogen::IntProperty::setValue(number, 255);
    kogen::BoolProperty flag(QStringLiteral("b"));
    kogen::BoolProperty::setValue(flag, true);
    kogen::DoubleProperty pi(QStringLiteral("pi"));
    kogen::DoubleProperty::setValue(pi, 3.14159265);

    QString text;
    QTextStream stream(&text);
    stream.setIntegerBase(16);
    stream.setFieldWidth(0);
    stream.setRealNumberNotation(QTextStream::FixedNotation);
    stream.setRealNumberPrecision(2);
    number.dump(stream);
    flag.dump(stream);
    pi.dump(stream);
    stream.flush();
    EXPECT_EQ(text, header("n") + "Property value: ff\n" + k_hyphens + header("b") + "Property value: 1\n" + k_hyphens
                  + header("pi") + "Property value: 3.14\n" + k_hyphens);
}

TEST(Properties, WidestRectangleDumpsItsTrueSize)
{
    kogen::RectProperty wide(QStringLiteral("w"));
    kogen::RectProperty::setValue(wide, QRect(QPoint(std::numeric_limits<int>::min(), 0),
                                              QPoint(std::numeric_limits<int>::max(), 0)));
    EXPECT_EQ(dumpOf(wide), header("w") + "Property value: (-2147483648,0,4294967296,1)\n" + k_hyphens);
}

TEST(Properties, IllegalPropertyIsARefusingNullObject)
{
    kogen::IllegalProperty& illegal = kogen::IllegalProperty::instance();
    EXPECT_EQ(&illegal, &kogen::IllegalProperty::instance());
    EXPECT_EQ(illegal.type(), QStringLiteral("IllegalProperty"));
    EXPECT_TRUE(illegal.propertyName().isEmpty());
    EXPECT_FALSE(illegal.variantValue().isValid());
    EXPECT_FALSE(illegal.setVariantValue(QVariant(1)));
    EXPECT_FALSE(illegal.setVariantValue(QVariant()));
    kogen::PropertySet set;
    EXPECT_TRUE(illegal.validate(set));
    // A lookup of a mistyped name must not leave a description or a failing
    // validator behind for every later lookup.
    set[QStringLiteral("typo")].setDescription(QStringLiteral("oops"));
    set[QStringLiteral("typo")].setValidator(boost::make_shared<kogen::DefaultIntValidator>(5, 6));
    EXPECT_TRUE(illegal.description().isEmpty());
    EXPECT_FALSE(illegal.validator());
    EXPECT_TRUE(set[QStringLiteral("other")].validate(set));
    const kogen::IllegalProperty copy(illegal);
    EXPECT_EQ(copy.type(), QStringLiteral("IllegalProperty"));
}

kogen::PropertySet cameraSettings()
{
    kogen::PropertySet inner;
    inner.add(new kogen::IntProperty(QStringLiteral("fps")));
    inner.add(new kogen::StringProperty(QStringLiteral("codec")));
    kogen::IntProperty::setValue(inner[QStringLiteral("fps")], 25);
    kogen::StringProperty::setValue(inner[QStringLiteral("codec")], QStringLiteral("h264"));
    return inner;
}

TEST(Properties, EmbeddedSetReadsAndWritesAsAMap)
{
    kogen::PropertySetProperty stream(QStringLiteral("stream"));
    kogen::PropertySetProperty::setValue(stream, cameraSettings());

    const QVariantMap expected{{QStringLiteral("codec"), QStringLiteral("h264")}, {QStringLiteral("fps"), 25}};
    EXPECT_EQ(stream.variantValue(), QVariant(expected));

    // One known and one unknown key: the known one is set, nothing is added.
    const QVariantMap update{{QStringLiteral("fps"), 30}, {QStringLiteral("gop"), 12}};
    EXPECT_FALSE(stream.setVariantValue(update));
    const kogen::PropertySet after = kogen::PropertySetProperty::getValue(stream, {});
    EXPECT_EQ(kogen::IntProperty::getValue(after[QStringLiteral("fps")], 0), 30);
    EXPECT_EQ(after.count(), 2);
    // A refused value does not stop the later keys.
    const QVariantMap refused{{QStringLiteral("codec"), QVariant(QRect())}, {QStringLiteral("fps"), 50}};
    EXPECT_FALSE(stream.setVariantValue(refused));
    EXPECT_EQ(kogen::IntProperty::getValue(after[QStringLiteral("fps")], 0), 50);
    EXPECT_TRUE(stream.setVariantValue(QVariantMap{{QStringLiteral("fps"), 60}}));
    EXPECT_TRUE(stream.setVariantValue(QVariantMap()));

    // Nesting in a property dump.
    kogen::PropertySetProperty outer(QStringLiteral("outer"));
    kogen::PropertySet holder;
    holder.add(new kogen::PropertySetProperty(stream));
    kogen::PropertySetProperty::setValue(outer, holder);
    const QVariantMap nested = outer.variantValue().toMap();
    EXPECT_EQ(nested.value(QStringLiteral("stream")).toMap().value(QStringLiteral("fps")), QVariant(60));

    kogen::PropertySet small;
    small.add(new kogen::IntProperty(QStringLiteral("x")));
    kogen::PropertySetProperty wrapper(QStringLiteral("w"));
    kogen::PropertySetProperty::setValue(wrapper, small);
    EXPECT_EQ(dumpOf(wrapper), header("w") + "Embedded property set: \n"
                                   + "=======================================\n" + header("x")
                                   + "Property value: 0\n" + k_hyphens + "\n"
                                   + "=======================================\n" + k_hyphens);
}

TEST(Properties, SetThatContainsItselfStillDumpsAndConverts)
{
    auto loop = boost::make_shared<kogen::PropertySetProperty>(QStringLiteral("loop"));
    kogen::PropertySet set;
    set.add(new kogen::IntProperty(QStringLiteral("n")));
    set.add(loop);
    kogen::PropertySetProperty::setValue(*loop, set); // the embedded copy holds loop itself

    const QVariantMap values = loop->variantValue().toMap();
    EXPECT_EQ(values.value(QStringLiteral("n")), QVariant(0));
    EXPECT_FALSE(values.value(QStringLiteral("loop")).isValid());
    EXPECT_TRUE(dumpOf(*loop).contains(QStringLiteral("Embedded property set: (contains itself)\n")));

    // Break the cycle so that the properties are released.
    kogen::PropertySetProperty::setValue(*loop, kogen::PropertySet());
}

} // namespace
