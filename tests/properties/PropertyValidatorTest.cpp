#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/properties/PropertyValidator.h>
#include <CommonKit/resources/Translations.h>
#include <CommonKit/support/core/Exception.h>

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <cmath>
#include <functional>
#include <limits>

namespace {

using kogen::BaseProperty;

const QString k_outOfRange = QStringLiteral("Value out of range.");

struct RangeCase
{
    const char* what;
    std::function<boost::shared_ptr<BaseProperty>()> property;
    std::function<boost::shared_ptr<kogen::PropertyValidator>()> validator;
    bool passes;
};

template<typename P, typename T>
std::function<boost::shared_ptr<BaseProperty>()> holding(T value)
{
    return [value] {
        auto property = boost::make_shared<P>(QStringLiteral("v"));
        P::setValue(*property, value);
        return boost::shared_ptr<BaseProperty>(property);
    };
}

template<typename V, typename T>
std::function<boost::shared_ptr<kogen::PropertyValidator>()> range(T minimum, T maximum)
{
    return [minimum, maximum] { return boost::shared_ptr<kogen::PropertyValidator>(boost::make_shared<V>(minimum, maximum)); };
}

TEST(PropertyValidator, RangeValidatorsAcceptTheClosedInterval)
{
    using namespace kogen;
    const quint64 twoTo32 = 0x100000000ULL;
    const float fnan = std::numeric_limits<float>::quiet_NaN();
    const double dnan = std::numeric_limits<double>::quiet_NaN();
    const double dinf = std::numeric_limits<double>::infinity();
    const auto intRange = range<DefaultIntValidator, int>;
    const auto u64Range = range<DefaultU64Validator, quint64>;
    const auto floatRange = range<DefaultFloatValidator, float>;
    const auto doubleRange = range<DefaultDoubleValidator, double>;
    const RangeCase cases[] = {
        {"int at maximum", holding<IntProperty>(10), intRange(0, 10), true},
        {"int above", holding<IntProperty>(11), intRange(0, 10), false},
        {"int at minimum", holding<IntProperty>(-5), intRange(-5, 5), true},
        {"int below, signed compare", holding<IntProperty>(-1), intRange(0, 10), false},
        {"int empty range", holding<IntProperty>(5), intRange(10, 0), false},
        {"uint unsigned compare", holding<UIntProperty>(4294967295u), range<DefaultUIntValidator>(0u, 10u), false},
        {"uint large in range", holding<UIntProperty>(4000000000u),
         range<DefaultUIntValidator>(3000000000u, 4294967295u), true},
        {"u64 truncated to its low 32 bits", holding<U64Property>(twoTo32 + 5), u64Range(0, 10), true},
        {"u64 low bits out of range", holding<U64Property>(twoTo32 + 11), u64Range(0, 10), false},
        {"u64 high value fails a high range", holding<U64Property>(2 * twoTo32), u64Range(twoTo32, 4 * twoTo32), false},
        {"u64 plain", holding<U64Property>(quint64(7)), u64Range(7, 7), true},
        {"float at maximum", holding<FloatProperty>(1.0f), floatRange(0.0f, 1.0f), true},
        {"float above", holding<FloatProperty>(1.001f), floatRange(0.0f, 1.0f), false},
        {"float NaN", holding<FloatProperty>(fnan), floatRange(-1e30f, 1e30f), false},
        {"double at minimum", holding<DoubleProperty>(-0.5), doubleRange(-0.5, 0.5), true},
        {"double below", holding<DoubleProperty>(-0.50001), doubleRange(-0.5, 0.5), false},
        {"double NaN", holding<DoubleProperty>(dnan), doubleRange(-dinf, dinf), false},
        {"double infinity in an open range", holding<DoubleProperty>(dinf), doubleRange(0.0, dinf), true},
    };
    kogen::PropertySet set;
    for (const RangeCase& c : cases) {
        SCOPED_TRACE(c.what);
        const auto property = c.property();
        property->setValidator(c.validator());
        EXPECT_EQ(property->validate(set), c.passes);
        EXPECT_EQ(property->isValid(), c.passes);
        EXPECT_EQ(property->validationMessage(), c.passes ? QString() : k_outOfRange);
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
    EXPECT_TRUE(number.isValid());
    EXPECT_TRUE(number.validationMessage().isEmpty());
    EXPECT_TRUE(number.validationMessage().isNull()) << "the message is cleared, not set to an empty text";
}

TEST(PropertyValidator, WrongPropertyClassThrowsAndLeavesTheVerdict)
{
    kogen::IntProperty number(QStringLiteral("n"));
    kogen::PropertySet set;
    number.setValidator(boost::make_shared<kogen::DefaultIntValidator>(0, 0));
    kogen::IntProperty::setValue(number, 3);
    ASSERT_FALSE(number.validate(set));

    number.setValidator(boost::make_shared<kogen::DefaultDoubleValidator>(0.0, 1.0));
    try {
        number.validate(set);
        ADD_FAILURE() << "validate did not throw";
    } catch (const ko::UnexpectedTypeException& error) {
        EXPECT_EQ(error.actualType(), QStringLiteral("IntProperty"));
        EXPECT_EQ(error.expectedType(), QStringLiteral("DoubleProperty"));
    }
    EXPECT_FALSE(number.isValid());
    EXPECT_EQ(number.validationMessage(), k_outOfRange);
}

TEST(PropertyValidator, IllegalPropertyIsTestedAsZero)
{
    kogen::IllegalProperty& illegal = kogen::IllegalProperty::instance();
    kogen::PropertySet set;
    EXPECT_FALSE(kogen::DefaultIntValidator(1, 10).validate(set, illegal));
    EXPECT_FALSE(illegal.isValid());
    EXPECT_EQ(illegal.validationMessage(), k_outOfRange);
    EXPECT_TRUE(kogen::DefaultDoubleValidator(-1.0, 0.0).validate(set, illegal));
    EXPECT_TRUE(illegal.isValid());
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

    // Without the limit in the set every value passes.
    set.remove(QStringLiteral("limit"));
    set.validate();
    EXPECT_TRUE(set[QStringLiteral("b")].isValid());
    EXPECT_EQ(atMostLimit.use_count(), 4);
}

} // namespace
