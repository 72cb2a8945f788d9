#include "storage/Persistable.h"
#include "storage/Settings.h"
#include "support/core/Log.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#include <string>
#include <typeinfo>
#include <vector>

namespace {

class CapturedLog
{
public:
    CapturedLog() : m_previousThreshold(ko::Log::instance().threshold())
    {
        m_previous = ko::Log::instance().setSink([this](int level, const std::string& line) {
            levels.push_back(level);
            lines.push_back(line);
        });
    }
    ~CapturedLog()
    {
        ko::Log::instance().setSink(m_previous);
        ko::Log::instance().setThreshold(m_previousThreshold);
    }
    std::vector<int> levels;
    std::vector<std::string> lines;

private:
    ko::Log::Sink m_previous;
    int m_previousThreshold;
};

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// Forgets to override: the base versions warn.
class Forgetful : public ko::Persistable
{
};

// Does its job: one value in its own group.
class Counter : public ko::Persistable
{
public:
    void load(ko::IPersistDestination* destination) override
    {
        destination->beginGroup(QStringLiteral("Counter"));
        count = destination->value(QStringLiteral("count"), -1).toInt();
        destination->endGroup();
    }
    void save(ko::IPersistDestination* destination) override
    {
        destination->beginGroup(QStringLiteral("Counter"));
        destination->setValue(QStringLiteral("count"), count);
        destination->endGroup();
        destination->sync();
    }
    int count = 0;
};

TEST(Persistable, BaseVersionsWarnNamingTheBaseClassPointerType)
{
    CapturedLog log;
    ko::Log::instance().setThreshold(ko::Log::Warning);
    QTemporaryDir dir;
    ko::Settings settings(dir.filePath(QStringLiteral("p.ini")), QSettings::IniFormat);

    Forgetful forgetful;
    ko::Persistable& object = forgetful;
    object.load(&settings);
    object.save(&settings);
    ASSERT_EQ(log.lines.size(), 2u);
    // The static type of "this" in the base class, not the derived class.
    const std::string name = typeid(ko::Persistable*).name();
    EXPECT_TRUE(endsWith(log.lines[0], " W [ko::Persistable::load] You should overwrite Persistable::load for class " + name))
        << log.lines[0];
    EXPECT_TRUE(endsWith(log.lines[1], " W [ko::Persistable::save] You should overwrite Persistable::save for class " + name))
        << log.lines[1];
    EXPECT_EQ(log.levels, (std::vector<int>{ko::Log::Warning, ko::Log::Warning}));
    EXPECT_FALSE(settings.contains(QStringLiteral("Counter/count")));

    log.lines.clear();
    ko::Log::instance().setThreshold(ko::Log::Error);
    object.load(&settings);
    EXPECT_TRUE(log.lines.empty());
}

TEST(Persistable, OverridingClassRoundTripsThroughAFileSilently)
{
    CapturedLog log;
    ko::Log::instance().setThreshold(ko::Log::Information);
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("counter.ini"));
    Counter saved;
    saved.count = 41;
    {
        QSettings store(file, QSettings::IniFormat);
        ko::Settings settings(&store);
        static_cast<ko::Persistable&>(saved).save(&settings);
        // save() synced: the file holds the value while the store is open.
        EXPECT_EQ(QSettings(file, QSettings::IniFormat).value(QStringLiteral("Counter/count")).toInt(), 41);
    }
    Counter loaded;
    ko::Settings settings(file, QSettings::IniFormat);
    static_cast<ko::Persistable&>(loaded).load(&settings);
    EXPECT_EQ(loaded.count, 41);
    EXPECT_TRUE(log.lines.empty());
}

} // namespace
