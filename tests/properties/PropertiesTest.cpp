#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertyValidator.h>
#include <CommonKit/support/core/Exception.h>

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
}

TEST(Properties, SetVariantValueConvertsOrRefuses)
{
    using namespace kogen;
    struct Case
    {
        const char* what;
        Factory create;
        QVariant input;
        bool accepted;
        QVariant stored; // variantValue() afterwards
    };
    const double big = 1e300;
    const float fmax = std::numeric_limits<float>::max();
    const float finf = std::numeric_limits<float>::infinity();
    const double roundingLimit = std::ldexp(1.0, 128) - std::ldexp(1.0, 103);
    const QRect rect(1, 2, 3, 4);
    const QStringList none{QString()};
    const Case cases[] = {
        {"int from double uses Qt's rounding", make<IntProperty>(), 2.7, true, 3},
        {"int from a text that is no number", make<IntProperty>(), QStringLiteral("abc"), true, 0},
        {"int from a numeric text", make<IntProperty>(), QStringLiteral("-42"), true, -42},
        {"int from a rectangle", make<IntProperty>(), rect, false, 0},
        {"bool from a rectangle", make<BoolProperty>(), rect, false, false},
        {"bool from a number", make<BoolProperty>(), 5, true, true},
        {"uint from text", make<UIntProperty>(), QStringLiteral("4294967295"), true, 4294967295u},
        {"u64 from text", make<U64Property>(), QStringLiteral("18446744073709551615"), true,
         std::numeric_limits<qulonglong>::max()},
        {"float from double", make<FloatProperty>(), 1.5, true, 1.5f},
        {"float beyond its range", make<FloatProperty>(), big, true, finf},
        {"float just above its largest value rounds down", make<FloatProperty>(), 3.4028235e38, true, fmax},
        {"float from the text of its largest value", make<FloatProperty>(), QStringLiteral("-3.4028235e38"), true, -fmax},
        {"float at the rounding limit", make<FloatProperty>(), roundingLimit, true, finf},
        {"float below the rounding limit", make<FloatProperty>(), roundingLimit - std::ldexp(1.0, 75), true, fmax},
        {"float negative beyond its range", make<FloatProperty>(), -big, true, -finf},
        {"float from a date", make<FloatProperty>(), QDate(2024, 1, 1), false, 0.0f},
        {"double from text", make<DoubleProperty>(), QStringLiteral("2.5"), true, 2.5},
        {"string from int", make<StringProperty>(), 12, true, QStringLiteral("12")},
        {"string from rectangle", make<StringProperty>(), rect, false, QString()},
        {"bytes from string", make<ByteArrayProperty>(), QStringLiteral("ab"), true, QByteArray("ab")},
        {"rectangle from rectangle", make<RectProperty>(), rect, true, rect},
        {"rectangle from string", make<RectProperty>(), QStringLiteral("1,2,3,4"), false, QRect()},
        {"date from ISO text", make<DateProperty>(), QStringLiteral("2024-05-06"), true, QDate(2024, 5, 6)},
        {"date from int", make<DateProperty>(), 3, false, QDate()},
        {"time from ISO text", make<TimeProperty>(), QStringLiteral("07:08:09"), true, QTime(7, 8, 9)},
        {"date-time from date", make<DateTimeProperty>(), QDate(2024, 5, 6), true, QDateTime(QDate(2024, 5, 6), QTime(0, 0))},
        {"variant keeps a rectangle", make<VariantProperty>(), rect, true, rect},
        {"variant keeps an invalid variant", make<VariantProperty>(), QVariant(), true, QVariant()},
        {"string list splits bytes at commas", make<StringListProperty>(), QByteArray("a,,b"), true,
         QStringList{QStringLiteral("a"), QString(), QStringLiteral("b")}},
        {"string list from an invalid variant", make<StringListProperty>(), QVariant(), true, none},
        {"string list takes a string unsplit", make<StringListProperty>(), QStringLiteral("a,b"), true,
         QStringList{QStringLiteral("a,b")}},
        {"string list from a list", make<StringListProperty>(), QVariantList{QStringLiteral("x"), QStringLiteral("y")}, true,
         QStringList{QStringLiteral("x"), QStringLiteral("y")}},
        {"string list from a rectangle (no text)", make<StringListProperty>(), QRect(), true, none},
        {"embedded set refuses a non-map", make<PropertySetProperty>(), 7, false, QVariantMap()},
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
    kogen::DateProperty date(QStringLiteral("d"));
    ASSERT_TRUE(date.setVariantValue(QVariant(QDate(2020, 2, 29))));
    EXPECT_FALSE(date.setVariantValue(QVariant(1.5)));
    EXPECT_EQ(date.variantValue(), QVariant(QDate(2020, 2, 29)));
}

// Calls `call` and checks that it throws the wrong-type error with these names.
void expectWrongType(const std::function<void()>& call, const char* name, const char* actual, const char* expected)
{
    try {
        call();
        ADD_FAILURE() << "no exception for expected type " << expected;
    } catch (const ko::UnexpectedTypeException& error) {
        EXPECT_EQ(error.name(), QLatin1String(name));
        EXPECT_EQ(error.actualType(), QLatin1String(actual));
        EXPECT_EQ(error.expectedType(), QLatin1String(expected));
        EXPECT_EQ(error.messageQt(), QStringLiteral("Property has the wrong type."));
        EXPECT_FALSE(error.cause());
    }
}

// The null object: reading gives the default, writing is refused or an
// error, and nothing set on it through a lookup sticks.
TEST(Properties, IllegalPropertyIsARefusingNullObject)
{
    kogen::IllegalProperty& illegal = kogen::IllegalProperty::instance();
    EXPECT_EQ(kogen::IntProperty::getValue(illegal, 9), 9);
    expectWrongType([&] { kogen::IntProperty::setValue(illegal, 1); }, "", "IllegalProperty", "IntProperty");
    EXPECT_EQ(illegal.type(), QStringLiteral("IllegalProperty"));
    EXPECT_FALSE(illegal.variantValue().isValid());
    EXPECT_FALSE(illegal.setVariantValue(QVariant(1)));
    kogen::PropertySet set;
    // A lookup of a mistyped name must not leave a description or a failing
    // validator behind for every later lookup.
    set[QStringLiteral("typo")].setDescription(QStringLiteral("oops"));
    set[QStringLiteral("typo")].setValidator(boost::make_shared<kogen::DefaultIntValidator>(5, 6));
    EXPECT_TRUE(illegal.description().isEmpty());
    EXPECT_FALSE(illegal.validator());
    EXPECT_TRUE(set[QStringLiteral("other")].validate(set));
}

struct AccessorCase
{
    QString type;
    Factory create;
    std::function<void(BaseProperty&)> set;
    std::function<QVariant(const BaseProperty&)> get;
    QVariant expected;
    QByteArray setterNames;
};

// The case for P's getValue/setValue with one value; the setter names its
// own class unless told otherwise.
template<typename P, typename T>
AccessorCase accessors(const T& value, const char* setterNames = nullptr)
{
    const QString type = P(QString()).type();
    return {type, make<P>(), [value](BaseProperty& p) { P::setValue(p, value); },
            [](const BaseProperty& p) { return QVariant::fromValue(P::getValue(p, T())); }, QVariant::fromValue(value),
            setterNames ? QByteArray(setterNames) : type.toLatin1()};
}

// Every class with typed accessors: a value written with setValue reads back
// through getValue and variantValue; on a property of another class both
// throw and name the expected class (the string-list setter names
// "StringProperty").
TEST(Properties, EveryTypedAccessorPairRoundTripsAndNamesItsClass)
{
    kogen::PropertySet set;
    set.add(new kogen::IntProperty(QStringLiteral("n")));
    const AccessorCase cases[] = {
        accessors<kogen::BoolProperty>(true),
        accessors<kogen::UIntProperty>(quint32(4294967295u)),
        accessors<kogen::U64Property>(quint64(0x123456789ULL)),
        accessors<kogen::FloatProperty>(0.25f),
        accessors<kogen::DoubleProperty>(-1e-9),
        accessors<kogen::StringProperty>(QStringLiteral("t")),
        accessors<kogen::StringListProperty>(QStringList{QStringLiteral("a"), QStringLiteral("b")}, "StringProperty"),
        accessors<kogen::ByteArrayProperty>(QByteArray("\0x", 2)),
        accessors<kogen::RectProperty>(QRect(-1, -2, 3, 4)),
        accessors<kogen::TimeProperty>(QTime(23, 59, 59, 999)),
        accessors<kogen::DateTimeProperty>(QDateTime(QDate(2024, 5, 6), QTime(7, 8, 9), Qt::UTC)),
        accessors<kogen::VariantProperty>(QVariant(QPoint(1, 2))),
        {QStringLiteral("PropertySetProperty"), make<kogen::PropertySetProperty>(),
         [set](BaseProperty& p) { kogen::PropertySetProperty::setValue(p, set); },
         [](const BaseProperty& p) { return QVariant(kogen::PropertySetProperty::getValue(p, {}).variantValues()); },
         QVariant(QVariantMap{{QStringLiteral("n"), 0}}), "PropertySetProperty"},
    };
    kogen::IntProperty other(QStringLiteral("other"));
    for (const AccessorCase& c : cases) {
        const QByteArray type = c.type.toLatin1();
        SCOPED_TRACE(type.constData());
        const auto property = c.create();
        c.set(*property);
        EXPECT_EQ(c.get(*property), c.expected);
        EXPECT_EQ(property->variantValue(), c.expected);
        expectWrongType([&] { c.get(other); }, "other", "IntProperty", type.constData());
        expectWrongType([&] { c.set(other); }, "other", "IntProperty", c.setterNames.constData());
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
    EXPECT_EQ(copy.description(), QStringLiteral("a number"));
    EXPECT_EQ(copy.validationMessage(), original.validationMessage());

    kogen::IntProperty::setValue(copy, 2);
    EXPECT_TRUE(copy.validate(unused));
    EXPECT_FALSE(original.isValid()) << "validating a copy must not touch the original";
    EXPECT_EQ(kogen::IntProperty::getValue(original, 0), 9);

    kogen::IntProperty assigned(QStringLiteral("other"));
    assigned = copy;
    EXPECT_EQ(assigned.propertyName(), QStringLiteral("n"));
    EXPECT_TRUE(assigned.isValid());
    EXPECT_EQ(kogen::IntProperty::getValue(assigned, 0), 2);
    EXPECT_EQ(validator.use_count(), 4);

    // Without a validator, validate() passes and leaves the flag alone.
    kogen::DoubleProperty plain(QStringLiteral("x"));
    EXPECT_TRUE(plain.validate(unused));
    EXPECT_FALSE(plain.isValid());
}

template<typename P>
std::shared_ptr<BaseProperty> holding(const char* name, const QVariant& value = QVariant())
{
    auto property = std::make_shared<P>(QString::fromLatin1(name));
    if (value.isValid()) {
        EXPECT_TRUE(property->setVariantValue(value)) << name;
    }
    return property;
}

TEST(Properties, DumpWritesFourLinesPerProperty)
{
    const auto flag = holding<kogen::BoolProperty>("flag", true);
    flag->setDescription(QStringLiteral("on or off"));
    const QDateTime stamp(QDate(2024, 5, 6), QTime(7, 8, 9));
    const int intMin = std::numeric_limits<int>::min();
    const int intMax = std::numeric_limits<int>::max();
    const QStringList tags{QStringLiteral("a"), QString(), QStringLiteral("c")};

    struct Case { std::shared_ptr<BaseProperty> property; QString value; const char* description; };
    const Case cases[] = {
        {flag, "1", "on or off"},
        {holding<kogen::U64Property>("big", 18446744073709551615ULL), "18446744073709551615", ""},
        {holding<kogen::DoubleProperty>("ratio", 0.5), "0.5", ""},
        {holding<kogen::StringListProperty>("tags", tags), "a,,c", ""},
        {holding<kogen::ByteArrayProperty>("bytes", QByteArray(5, 'x')), "(QByteArray of length 5 )", ""},
        {holding<kogen::RectProperty>("area", QRect(10, 20, 640, 480)), "(10,20,640,480)", ""},
        // The widest rectangle dumps its true size.
        {holding<kogen::RectProperty>("w", QRect(QPoint(intMin, 0), QPoint(intMax, 0))), "(-2147483648,0,4294967296,1)", ""},
        {holding<kogen::DateProperty>("day", QDate(2024, 5, 6)), QDate(2024, 5, 6).toString(Qt::TextDate), ""},
        {holding<kogen::TimeProperty>("noon", QTime(12, 0, 5)), "12:00:05", ""},
        {holding<kogen::DateProperty>("noDay"), "", ""},
        {holding<kogen::FloatProperty>("tenth", 0.1f), "0.1", ""},
        {holding<kogen::DateTimeProperty>("stamp", stamp), stamp.toString(Qt::TextDate), ""},
    };
    for (const Case& c : cases) {
        const QByteArray name = c.property->propertyName().toLatin1();
        SCOPED_TRACE(name.constData());
        EXPECT_EQ(dumpOf(*c.property), header(name.constData(), c.description) + "Property value: " + c.value + "\n" + k_hyphens);
    }
    EXPECT_EQ(dumpOf(kogen::IllegalProperty::instance()), QStringLiteral("IllegaProperty\n"));

    // Numbers follow the stream's settings.
    QString text;
    QTextStream stream(&text);
    stream.setIntegerBase(16);
    stream.setRealNumberNotation(QTextStream::FixedNotation);
    stream.setRealNumberPrecision(2);
    holding<kogen::IntProperty>("n", 255)->dump(stream);
    flag->dump(stream);
    holding<kogen::DoubleProperty>("pi", 3.14159265)->dump(stream);
    stream.flush();
    EXPECT_EQ(text, header("n") + "Property value: ff\n" + k_hyphens + header("flag", "on or off") + "Property value: 1\n"
                  + k_hyphens + header("pi") + "Property value: 3.14\n" + k_hyphens);
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
