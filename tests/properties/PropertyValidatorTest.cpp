#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/properties/PropertyValidator.h>
#include <CommonKit/resources/Translations.h>
#include <CommonKit/support/core/Exception.h>
#include "testlib/DataTable.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <limits>

namespace {

using kogen::BaseProperty;

const QString k_outOfRange = QStringLiteral("Value out of range.");

// A property of class P holding the value, with validator V over [minimum, maximum].
template<typename P, typename V, typename T>
boost::shared_ptr<BaseProperty> withRange(const QVariant& value, T minimum, T maximum)
{
    const auto property = boost::make_shared<P>(QStringLiteral("v"));
    EXPECT_TRUE(property->setVariantValue(value));
    property->setValidator(boost::make_shared<V>(minimum, maximum));
    return property;
}

// The same for the class the table names.
boost::shared_ptr<BaseProperty> ranged(const std::string& kind, const QVariant& value, const QVariant& minimum,
                                       const QVariant& maximum)
{
    using namespace kogen;
    if (kind == "int")
        return withRange<IntProperty, DefaultIntValidator>(value, minimum.toInt(), maximum.toInt());
    if (kind == "uint")
        return withRange<UIntProperty, DefaultUIntValidator>(value, minimum.toUInt(), maximum.toUInt());
    if (kind == "u64")
        return withRange<U64Property, DefaultU64Validator>(value, minimum.toULongLong(), maximum.toULongLong());
    if (kind == "float")
        return withRange<FloatProperty, DefaultFloatValidator>(value, minimum.toFloat(), maximum.toFloat());
    return withRange<DoubleProperty, DefaultDoubleValidator>(value, minimum.toDouble(), maximum.toDouble());
}

TEST(PropertyValidator, RangeValidatorsAcceptTheClosedInterval)
{
    kogen::PropertySet set;
    for (const cktest::DataRow& row : cktest::dataRows("properties/ranges.tsv", 5)) {
        SCOPED_TRACE(row.where);
        const auto property = ranged(row[0], cktest::variantOf(row[1]), cktest::variantOf(row[2]), cktest::variantOf(row[3]));
        const bool passes = row[4] == "1";
        EXPECT_EQ(property->validate(set), passes);
        EXPECT_EQ(property->validationMessage(), passes ? QString() : k_outOfRange);
    }
}

TEST(PropertyValidator, LaterValidationReplacesTheVerdict)
{
    kogen::IntProperty number(QStringLiteral("n"));
    number.setValidator(boost::make_shared<kogen::DefaultIntValidator>(0, 10));
    kogen::PropertySet set;

    kogen::IntProperty::setValue(number, 11);
    EXPECT_FALSE(number.validate(set));
    EXPECT_EQ(number.validationMessage(), k_outOfRange);
    kogen::IntProperty::setValue(number, 5);
    EXPECT_TRUE(number.validate(set));
    EXPECT_TRUE(number.validationMessage().isNull()) << "the message is cleared, not set to an empty text";

    // A validator for another class throws and leaves the verdict alone.
    kogen::IntProperty::setValue(number, 11);
    number.setValidator(boost::make_shared<kogen::DefaultDoubleValidator>(0.0, 1.0));
    EXPECT_THROW(number.validate(set), ko::UnexpectedTypeException);
    EXPECT_TRUE(number.isValid());
}

TEST(PropertyValidator, IllegalPropertyIsTestedAsZero)
{
    kogen::IllegalProperty& illegal = kogen::IllegalProperty::instance();
    kogen::PropertySet set;
    EXPECT_FALSE(kogen::DefaultIntValidator(1, 10).validate(set, illegal));
    EXPECT_EQ(illegal.validationMessage(), k_outOfRange);
    EXPECT_TRUE(kogen::DefaultDoubleValidator(-1.0, 0.0).validate(set, illegal));
    EXPECT_TRUE(illegal.validationMessage().isEmpty());
    EXPECT_TRUE(set[QStringLiteral("missing")].isValid()) << "the verdict lives in the library-wide object";
}

TEST(PropertyValidator, MessageFollowsTheInstalledLanguage)
{
    kogen::FloatProperty level(QStringLiteral("level"));
    level.setValidator(boost::make_shared<kogen::DefaultFloatValidator>(0.0f, 1.0f));
    kogen::FloatProperty::setValue(level, 2.0f);
    kogen::PropertySet set;

    struct Case { QLocale locale; QString message; };
    const Case cases[] = {
        {QLocale(QLocale::German), QStringLiteral("Wert au\u00dferhalb des zul\u00e4ssigen Bereichs.")},
        {QLocale(QLocale::French), QStringLiteral("Valeur hors de la plage autoris\u00e9e.")},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(ko::installTranslations(c.locale));
        level.validate(set);
        EXPECT_EQ(level.validationMessage(), c.message);
    }
    ko::removeTranslations();
    level.validate(set);
    EXPECT_EQ(level.validationMessage(), k_outOfRange);
}

// A validator whose verdict depends on another property of the same set.
class AtMostValidator : public kogen::PropertyValidator
{
public:
    explicit AtMostValidator(QString limitName) : m_limitName(std::move(limitName)) {}
    bool validate(kogen::PropertySet& set, BaseProperty& property) override
    {
        const bool ok = kogen::IntProperty::getValue(property, 0)
            <= kogen::IntProperty::getValue(set[m_limitName], std::numeric_limits<int>::max());
        setValid(property, ok);
        setValidationMessage(property, ok ? QString() : QStringLiteral("above ") + m_limitName);
        return ok;
    }

private:
    QString m_limitName;
};

TEST(PropertyValidator, OneValidatorServesManyPropertiesAndSeesTheSet)
{
    const auto atMostLimit = boost::make_shared<AtMostValidator>(QStringLiteral("limit"));
    kogen::PropertySet set;
    set.add(new kogen::IntProperty(QStringLiteral("limit")));
    for (const char* name : {"a", "b", "c"}) {
        auto property = boost::make_shared<kogen::IntProperty>(QLatin1String(name));
        property->setValidator(atMostLimit);
        set.add(property);
    }
    ASSERT_TRUE(set.setVariantValues({{QStringLiteral("limit"), 5}, {QStringLiteral("a"), 1},
                                      {QStringLiteral("b"), 6}, {QStringLiteral("c"), 5}}));
    set.validate();
    EXPECT_TRUE(set[QStringLiteral("a")].isValid());
    EXPECT_FALSE(set[QStringLiteral("b")].isValid());
    EXPECT_EQ(set[QStringLiteral("b")].validationMessage(), QStringLiteral("above limit"));
    EXPECT_TRUE(set[QStringLiteral("c")].isValid());
    EXPECT_FALSE(set[QStringLiteral("limit")].isValid()) << "no validator, flag untouched";
    EXPECT_EQ(atMostLimit.use_count(), 4);
}

} // namespace
