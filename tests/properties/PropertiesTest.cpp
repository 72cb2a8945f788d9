#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertyValidator.h>
#include <CommonKit/support/core/Exception.h>
#include "testlib/DataTable.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <QTextStream>

#include <functional>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace {

using kogen::BaseProperty;
using Factory = std::function<std::unique_ptr<BaseProperty>()>;

template<typename T>
Factory make(const char* name = "p")
{
    return [name] { return std::unique_ptr<BaseProperty>(new T(QString::fromLatin1(name))); };
}

// A new property "p" of the class the type name names, or null.
std::unique_ptr<BaseProperty> create(const std::string& type)
{
    using namespace kogen;
    const Factory factories[] = {
        make<BoolProperty>(), make<IntProperty>(), make<UIntProperty>(), make<U64Property>(), make<FloatProperty>(),
        make<DoubleProperty>(), make<StringProperty>(), make<StringListProperty>(), make<ByteArrayProperty>(),
        make<RectProperty>(), make<DateProperty>(), make<TimeProperty>(), make<DateTimeProperty>(),
        make<VariantProperty>(), make<PropertySetProperty>(),
    };
    for (const Factory& factory : factories) {
        std::unique_ptr<BaseProperty> property = factory();
        if (property->type() == QLatin1String(type.c_str()))
            return property;
    }
    return nullptr;
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
    std::vector<std::pair<std::string, QVariant>> cases = {{"StringListProperty", QStringList()},
                                                           {"PropertySetProperty", QVariantMap()}};
    for (const cktest::DataRow& row : cktest::dataRows("properties/initial.tsv", 2))
        cases.emplace_back(row[0], cktest::variantOf(row[1]));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.first);
        const auto property = create(c.first); // found by its type name
        ASSERT_TRUE(property);
        EXPECT_FALSE(property->isValid());
        const QVariant value = property->variantValue();
        EXPECT_EQ(value.userType(), c.second.userType());
        EXPECT_EQ(value, c.second);
    }
    // Null values where Qt distinguishes null from empty.
    EXPECT_TRUE(kogen::StringProperty(QStringLiteral("s")).variantValue().toString().isNull());
    EXPECT_TRUE(kogen::ByteArrayProperty(QStringLiteral("b")).variantValue().toByteArray().isNull());
}

TEST(Properties, SetVariantValueConvertsOrRefuses)
{
    const auto check = [](const std::string& where, const std::string& type, const QVariant& input, bool accepted,
                          const QVariant& stored) {
        SCOPED_TRACE(where);
        const auto property = create(type);
        ASSERT_TRUE(property);
        EXPECT_EQ(property->setVariantValue(input), accepted);
        EXPECT_EQ(property->variantValue(), stored);
        EXPECT_EQ(property->variantValue().userType(), stored.userType());
    };
    for (const cktest::DataRow& row : cktest::dataRows("properties/conversions.tsv", 4))
        check(row.where, row[0], cktest::variantOf(row[1]), row[2] == "1", cktest::variantOf(row[3]));
    const QStringList xy{QStringLiteral("x"), QStringLiteral("y")};
    check("a string unsplit", "StringListProperty", QStringLiteral("a,b"), true, QStringList{QStringLiteral("a,b")});
    check("a list", "StringListProperty", QVariantList{xy[0], xy[1]}, true, xy);
    check("a non-map", "PropertySetProperty", 7, false, QVariantMap());

    // A refused value keeps the old one.
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
    kogen::IntProperty::setValue(copy, 2);
    EXPECT_TRUE(copy.validate(unused));
    EXPECT_FALSE(original.isValid()) << "validating a copy must not touch the original";
    EXPECT_EQ(kogen::IntProperty::getValue(original, 0), 9);

    kogen::IntProperty assigned(QStringLiteral("other"));
    assigned = copy;
    EXPECT_EQ(assigned.propertyName(), QStringLiteral("n"));
    EXPECT_TRUE(assigned.isValid());
    EXPECT_EQ(validator.use_count(), 4);
}

template<typename P>
std::shared_ptr<BaseProperty> holding(const char* name, const QVariant& value = QVariant())
{
    auto property = std::make_shared<P>(QString::fromLatin1(name));
    EXPECT_TRUE(!value.isValid() || property->setVariantValue(value)) << name;
    return property;
}

TEST(Properties, DumpWritesFourLinesPerProperty)
{
    for (const cktest::DataRow& row : cktest::dataRows("properties/dumps.tsv", 3)) {
        const auto property = create(row[0]);
        ASSERT_TRUE(property) << row.where;
        const QVariant value = cktest::variantOf(row[1]);
        EXPECT_TRUE(!value.isValid() || property->setVariantValue(value)) << row.where;
        const QString line = QStringLiteral("Property value: ") + QString::fromStdString(row[2]) + "\n";
        EXPECT_EQ(dumpOf(*property), header("p") + line + k_hyphens) << row.where;
    }
    const auto flag = holding<kogen::BoolProperty>("flag", true);
    flag->setDescription(QStringLiteral("on or off"));
    // The widest rectangle dumps its true size.
    const QRect widest(QPoint(std::numeric_limits<int>::min(), 0), QPoint(std::numeric_limits<int>::max(), 0));
    EXPECT_EQ(dumpOf(*holding<kogen::RectProperty>("w", widest)),
              header("w") + "Property value: (-2147483648,0,4294967296,1)\n" + k_hyphens);
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

TEST(Properties, EmbeddedSetReadsAndWritesAsAMap)
{
    const QVariantMap camera{{QStringLiteral("codec"), QStringLiteral("h264")}, {QStringLiteral("fps"), 25}};
    kogen::PropertySet inner;
    inner.add(new kogen::IntProperty(QStringLiteral("fps")));
    inner.add(new kogen::StringProperty(QStringLiteral("codec")));
    ASSERT_TRUE(inner.setVariantValues(camera));
    kogen::PropertySetProperty stream(QStringLiteral("stream"));
    kogen::PropertySetProperty::setValue(stream, inner);
    EXPECT_EQ(stream.variantValue(), QVariant(camera));

    // One known and one unknown key: the known one is set, nothing is added.
    const QVariantMap update{{QStringLiteral("fps"), 30}, {QStringLiteral("gop"), 12}};
    EXPECT_FALSE(stream.setVariantValue(update));
    const kogen::PropertySet after = kogen::PropertySetProperty::getValue(stream, {});
    EXPECT_EQ(kogen::IntProperty::getValue(after[QStringLiteral("fps")], 0), 30);
    EXPECT_EQ(kogen::IntProperty::getValue(inner[QStringLiteral("fps")], 0), 30) << "shared with the original";
    EXPECT_EQ(after.count(), 2);
    // A refused value does not stop the later keys.
    const QVariantMap refused{{QStringLiteral("codec"), QVariant(QRect())}, {QStringLiteral("fps"), 50}};
    EXPECT_FALSE(stream.setVariantValue(refused));
    EXPECT_EQ(kogen::IntProperty::getValue(after[QStringLiteral("fps")], 0), 50);
    EXPECT_TRUE(stream.setVariantValue(QVariantMap{{QStringLiteral("fps"), 60}}));

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
