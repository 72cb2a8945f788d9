#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/properties/PropertyValidator.h>

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <atomic>
#include <thread>
#include <vector>

namespace {

using kogen::PropertySet;

// Copies of one set in several threads, each copy used by one thread only.
// The threads copy from a shared const set, add, replace and remove names in
// their own copies (which detaches them), write values only into properties
// they added themselves, and read the shared properties. Under the sanitizer
// build a missed detach or a miscounted reference shows up as a use after
// free or a leak.
TEST(PropertySetThreads, CopiesAreIndependentAcrossThreads)
{
    PropertySet base;
    const auto shared = boost::make_shared<kogen::DefaultIntValidator>(0, 100);
    for (int i = 0; i < 20; ++i) {
        auto property = boost::make_shared<kogen::IntProperty>(QStringLiteral("p%1").arg(i, 2, 10, QLatin1Char('0')));
        kogen::IntProperty::setValue(*property, i);
        property->setValidator(shared);
        base.add(property);
    }
    const PropertySet& source = base;
    const QVariantMap baseValues = source.variantValues();

    const int threadCount = 6;
    const int rounds = 300;
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < threadCount; ++t) {
        threads.emplace_back([&, t] {
            const QString own = QStringLiteral("own%1").arg(t);
            for (int round = 0; round < rounds; ++round) {
                PropertySet mine = source; // concurrent copies of one const set
                if (mine.variantValues() != baseValues)
                    ++failures;
                auto added = boost::make_shared<kogen::IntProperty>(own);
                added->setValidator(shared);
                mine.add(added);
                mine.remove(QStringLiteral("p%1").arg(round % 20, 2, 10, QLatin1Char('0')));
                if (!mine.setVariantValues({{own, round}}) || kogen::IntProperty::getValue(mine[own], -1) != round)
                    ++failures;
                if (mine.count() != 20 || source.count() != 20)
                    ++failures;

                // Validate only what this thread owns; the shared properties
                // are read, never written, here.
                kogen::PropertySet scratch;
                added->validate(scratch);
                if (added->isValid() != (round <= 100))
                    ++failures;

                PropertySet nested;
                auto holder = boost::make_shared<kogen::PropertySetProperty>(QStringLiteral("nested"));
                kogen::PropertySetProperty::setValue(*holder, mine);
                nested.add(holder);
                PropertySet again = nested;
                if (again.variantValues().value(QStringLiteral("nested")).toMap().value(own) != QVariant(round))
                    ++failures;

                if (source[own].type() != QLatin1String("IllegalProperty"))
                    ++failures;
                mine.clear();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    EXPECT_EQ(failures.load(), 0);
    EXPECT_EQ(base.variantValues(), baseValues);
    EXPECT_EQ(shared.use_count(), 21) << "every thread released its references";
}

} // namespace
