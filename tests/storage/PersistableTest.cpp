#include <CommonKit/storage/Persistable.h>
#include <CommonKit/storage/Settings.h>
#include <CommonKit/support/core/Log.h>

#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#include <string>
#include <typeinfo>
#include <vector>

namespace {

// A class that forgot to override load and save.
class Forgetful : public ko::Persistable
{
};

TEST(Persistable, BaseVersionsWarnNamingTheBasePointerTypeNotTheObjectsClass)
{
    std::vector<std::string> lines;
    const int threshold = ko::Log::instance().threshold();
    const ko::Log::Sink previous =
        ko::Log::instance().setSink([&lines](int, const std::string& line) { lines.push_back(line); });

    QTemporaryDir dir;
    ko::Settings settings(dir.filePath(QStringLiteral("p.ini")), QSettings::IniFormat);
    Forgetful forgetful;
    ko::Persistable& object = forgetful;
    ko::Log::instance().setThreshold(ko::Log::Warning);
    object.load(&settings);
    object.save(&settings);
    ko::Log::instance().setThreshold(ko::Log::Error);
    object.load(&settings);

    ko::Log::instance().setSink(previous);
    ko::Log::instance().setThreshold(threshold);
    const std::string name = typeid(ko::Persistable*).name();
    const std::string expected[] = {
        " W [ko::Persistable::load] You should overwrite Persistable::load for class " + name,
        " W [ko::Persistable::save] You should overwrite Persistable::save for class " + name,
    };
    ASSERT_EQ(lines.size(), 2u);
    for (size_t i = 0; i < 2; ++i) {
        ASSERT_GE(lines[i].size(), expected[i].size());
        EXPECT_EQ(lines[i].substr(lines[i].size() - expected[i].size()), expected[i]);
    }
}

} // namespace
