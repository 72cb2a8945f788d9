#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/properties/PropertyValidator.h>
#include <CommonKit/support/core/Exception.h>

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <QTextStream>

namespace {

using kogen::PropertySet;

const QString k_rule = QStringLiteral("=======================================");
const QString k_hyphens = QStringLiteral("--------------------------------------------\n");

QString dumpOf(const PropertySet& set)
{
    QString text;
    QTextStream stream(&text);
    set.dump(stream);
    stream.flush();
    return text;
}

// Counts how many of its instances are alive, to follow ownership.
class TrackedProperty : public kogen::IntProperty
{
public:
    explicit TrackedProperty(const QString& name) : kogen::IntProperty(name) { ++alive; }
    TrackedProperty(const TrackedProperty& other) : kogen::IntProperty(other) { ++alive; }
    ~TrackedProperty() override { --alive; }
    static int alive;
};
int TrackedProperty::alive = 0;

PropertySet sample()
{
    PropertySet set;
    set.add(new kogen::IntProperty(QStringLiteral("width")));
    set.add(new kogen::StringProperty(QStringLiteral("name")));
    set.add(new kogen::BoolProperty(QStringLiteral("enabled")));
    set.setVariantValues({{QStringLiteral("width"), 640}, {QStringLiteral("name"), QStringLiteral("cam 1")},
                          {QStringLiteral("enabled"), true}});
    return set;
}

TEST(PropertySet, OwnershipFollowsTheLastHolderAndCarelessCallsLeaveTheSetSound)
{
    ASSERT_EQ(TrackedProperty::alive, 0);
    {
        PropertySet set;
        set.add(new TrackedProperty(QStringLiteral("a")));
        auto second = new TrackedProperty(QStringLiteral("a"));
        kogen::IntProperty::setValue(*second, 2);
        set.add(second);
        EXPECT_EQ(set.count(), 1);
        EXPECT_EQ(TrackedProperty::alive, 1) << "the replaced property is released";
        EXPECT_EQ(kogen::IntProperty::getValue(set[QStringLiteral("a")], 0), 2);

        set.add(static_cast<kogen::BaseProperty*>(nullptr));
        set.add(boost::shared_ptr<kogen::BaseProperty>());
        EXPECT_EQ(set.count(), 1);

        PropertySet copy = set;
        set.remove(QStringLiteral("a"));
        set.remove(QStringLiteral("absent"));
        EXPECT_EQ(set.count(), 0);
        EXPECT_EQ(TrackedProperty::alive, 1) << "the copy still holds it";
        copy.clear();
        EXPECT_EQ(TrackedProperty::alive, 0);

        // Adding the library-wide null object (here found through a lookup of
        // an absent name) must not hand a static object to an owner.
        set.add(&set[QStringLiteral("absent")]);
        set.add(&kogen::IllegalProperty::instance());
        set.add(boost::shared_ptr<kogen::BaseProperty>(&kogen::IllegalProperty::instance(), [](kogen::BaseProperty*) {}));
        EXPECT_EQ(set.count(), 0);

        // The same heap property handed over twice stays one owned entry.
        // Names on the heap (not literals), so that a freed key is noticed.
        auto* twice = new TrackedProperty(QString::fromLatin1("twice"));
        set.add(twice);
        set.add(twice);
        EXPECT_EQ(set.count(), 1);
        EXPECT_EQ(TrackedProperty::alive, 1);
        EXPECT_EQ(&set[QStringLiteral("twice")], twice);

        // Removing by a reference to the stored key.
        set.add(new TrackedProperty(QString::fromLatin1("other")));
        set.remove(set.begin().key());
        EXPECT_EQ(set.allPropertyNames(), QStringList{QStringLiteral("twice")});
        set.remove(set.begin().key());
        EXPECT_EQ(set.count(), 0);
        EXPECT_EQ(TrackedProperty::alive, 0);

        set.add(new TrackedProperty(QStringLiteral("b")));
        set.add(new TrackedProperty(QStringLiteral("c")));
    }
    EXPECT_EQ(TrackedProperty::alive, 0) << "the last set releases its properties";
    EXPECT_EQ(kogen::IllegalProperty::instance().type(), QStringLiteral("IllegalProperty"));
}

TEST(PropertySet, NamesAreOrderedByCodeUnit)
{
    PropertySet set;
    for (const char* name : {"b", "B", "a", "_", "\xc3\xa4", "A1"})
        set.add(new kogen::IntProperty(QString::fromUtf8(name)));
    const QStringList expected{QStringLiteral("A1"), QStringLiteral("B"), QStringLiteral("_"), QStringLiteral("a"),
                               QStringLiteral("b"), QString::fromUtf8("\xc3\xa4")};
    EXPECT_EQ(set.allPropertyNames(), expected);
}

TEST(PropertySet, SetVariantValuesInsertsEmptyEntriesForUnknownNames)
{
    PropertySet set = sample();
    const PropertySet& constSet = set;
    // Lookups of absent names (case matters) answer with the null object.
    EXPECT_EQ(set[QStringLiteral("Width")].type(), QStringLiteral("IllegalProperty"));
    EXPECT_EQ(&constSet[QStringLiteral("nope")], &kogen::IllegalProperty::instance());

    EXPECT_FALSE(set.setVariantValues({{QStringLiteral("width"), 800}, {QStringLiteral("zoom"), 2}}));
    EXPECT_EQ(kogen::IntProperty::getValue(set[QStringLiteral("width")], 0), 800);
    EXPECT_EQ(set.count(), 4);
    EXPECT_EQ(set[QStringLiteral("zoom")].type(), QStringLiteral("IllegalProperty"));

    // A refused value makes the result false but the other names are still set.
    EXPECT_FALSE(set.setVariantValues({{QStringLiteral("enabled"), QVariant(QRect())},
                                       {QStringLiteral("name"), QStringLiteral("cam 2")}}));
    EXPECT_EQ(kogen::StringProperty::getValue(set[QStringLiteral("name")], {}), QStringLiteral("cam 2"));
    EXPECT_TRUE(kogen::BoolProperty::getValue(set[QStringLiteral("enabled")], false));

    // The iterating operations survive the empty entry; it reads as invalid.
    EXPECT_FALSE(set.variantValues().value(QStringLiteral("zoom")).isValid());
    EXPECT_TRUE(dumpOf(set).contains(QStringLiteral("IllegaProperty\n")));
    EXPECT_NO_THROW(set.validate());
    EXPECT_FALSE(set == set);
    set.remove(QStringLiteral("zoom"));
    EXPECT_TRUE(set == set);
}

TEST(PropertySet, CopiesShareValuesButNotNames)
{
    PropertySet first = sample();
    PropertySet copy(first);
    kogen::IntProperty::setValue(copy[QStringLiteral("width")], 1920);
    EXPECT_EQ(kogen::IntProperty::getValue(first[QStringLiteral("width")], 0), 1920);

    copy.add(new kogen::IntProperty(QStringLiteral("height")));
    copy.remove(QStringLiteral("name"));
    EXPECT_EQ(first.allPropertyNames(), sample().allPropertyNames());

    PropertySet assigned;
    assigned = first;
    EXPECT_EQ(&assigned[QStringLiteral("name")], &first[QStringLiteral("name")]);

    // Replacing an entry through the mutable iterators stays in that copy.
    for (auto it = assigned.begin(); it != assigned.end(); ++it) {
        if (it.key() == QStringLiteral("width"))
            it.value() = boost::make_shared<kogen::IntProperty>(QStringLiteral("width"));
    }
    EXPECT_EQ(kogen::IntProperty::getValue(assigned[QStringLiteral("width")], -1), 0);
    EXPECT_EQ(kogen::IntProperty::getValue(first[QStringLiteral("width")], -1), 1920);
}

TEST(PropertySet, Equality)
{
    const auto withValues = [](const QVariantMap& ints) {
        PropertySet set;
        for (auto it = ints.constBegin(); it != ints.constEnd(); ++it) {
            set.add(new kogen::IntProperty(it.key()));
            set[it.key()].setVariantValue(it.value());
        }
        return set;
    };
    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");
    PropertySet asDouble;
    asDouble.add(new kogen::DoubleProperty(a));
    asDouble[a].setVariantValue(1.0);
    PropertySet emptyVariant;
    emptyVariant.add(new kogen::VariantProperty(a));

    struct Case { const char* what; PropertySet left; PropertySet right; bool equal; };
    const Case cases[] = {
        {"both empty", PropertySet(), PropertySet(), true},
        {"same names and values", withValues({{a, 1}, {b, 2}}), withValues({{a, 1}, {b, 2}}), true},
        {"extra name", withValues({{a, 1}}), withValues({{a, 1}, {b, 2}}), false},
        {"different value", withValues({{a, 1}, {b, 2}}), withValues({{a, 1}, {b, 3}}), false},
        {"different names, same count", withValues({{a, 1}}), withValues({{b, 1}}), false},
        {"int and double of equal value", withValues({{a, 1}}), asDouble, true},
        {"an invalid value is never equal", emptyVariant, emptyVariant, false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.left == c.right, c.equal) << c.what;
}

// A set of one property is dumped inside an embedded-set dump in the
// property tests; here the empty set and two properties in name order.
TEST(PropertySet, DumpFramesEveryPropertyWithRules)
{
    EXPECT_EQ(dumpOf(PropertySet()), k_rule + "\n" + k_rule);
    PropertySet set = sample();
    set.remove(QStringLiteral("width"));
    const QString enabled = QStringLiteral("Property name: enabled\nProperty description: \nProperty value: 1\n");
    const QString name = QStringLiteral("Property name: name\nProperty description: \nProperty value: cam 1\n");
    EXPECT_EQ(dumpOf(set), k_rule + "\n" + enabled + k_hyphens + "\n" + name + k_hyphens + "\n" + k_rule);
}

TEST(PropertySet, ValidateRunsInNameOrderAndStopsAtAnException)
{
    PropertySet set;
    auto a = boost::make_shared<kogen::IntProperty>(QStringLiteral("a"));
    auto b = boost::make_shared<kogen::DoubleProperty>(QStringLiteral("b"));
    auto c = boost::make_shared<kogen::IntProperty>(QStringLiteral("c"));
    a->setValidator(boost::make_shared<kogen::DefaultIntValidator>(0, 10));
    c->setValidator(boost::make_shared<kogen::DefaultIntValidator>(0, 10));
    set.add(a);
    set.add(b);
    set.add(c);
    set.validate();
    EXPECT_TRUE(a->isValid());
    EXPECT_FALSE(b->isValid());
    EXPECT_TRUE(c->isValid());

    kogen::IntProperty::setValue(*a, 11);
    kogen::IntProperty::setValue(*c, 11);
    b->setValidator(boost::make_shared<kogen::DefaultIntValidator>(0, 10)); // wrong class for b
    EXPECT_THROW(set.validate(), ko::UnexpectedTypeException);
    EXPECT_FALSE(a->isValid()) << "a comes first and was validated";
    EXPECT_TRUE(c->isValid()) << "c comes after the failing b and was not";
}

// Removes every other property of the set while it is being validated.
class GreedyValidator : public kogen::PropertyValidator
{
public:
    bool validate(PropertySet& set, kogen::BaseProperty& property) override
    {
        const QStringList names = set.allPropertyNames();
        for (const QString& name : names) {
            if (name != property.propertyName())
                set.remove(name);
        }
        setValid(property, true);
        ++calls;
        return true;
    }
    int calls = 0;
};

TEST(PropertySet, ValidatorMayChangeTheSetItValidates)
{
    PropertySet set;
    const auto greedy = boost::make_shared<GreedyValidator>();
    for (const char* name : {"a", "b", "c"}) {
        auto property = boost::make_shared<kogen::IntProperty>(QLatin1String(name));
        property->setValidator(greedy);
        set.add(property);
    }
    set.validate();
    EXPECT_EQ(greedy->calls, 3) << "validate walks the properties present when it started";
    // a removed b and c; b, no longer in the set, removed a; c found nothing left.
    EXPECT_EQ(set.count(), 0);
}

// Read before any test code touches the type: the library registers it
// while it loads, before this program's own initialisers run.
const int k_idBeforeMain = QMetaType::type("kogen::PropertySet");

TEST(PropertySet, TravelsInAVariant)
{
    // qMetaTypeId registers the type if nothing did: equal only if the library did so when it loaded.
    EXPECT_EQ(qMetaTypeId<PropertySet>(), k_idBeforeMain);
    EXPECT_EQ(k_idBeforeMain, PropertySet::metaTypeId());
    const PropertySet set = sample();
    EXPECT_EQ(&QVariant::fromValue(set).value<PropertySet>()[QStringLiteral("width")], &set[QStringLiteral("width")]);
}

} // namespace
