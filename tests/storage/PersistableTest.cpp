#include "testlib/LogCapture.h"
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
    cktest::LogCapture log;
    const std::vector<std::string>& lines = log.lines;
    QTemporaryDir dir;
    ko::Settings settings(dir.filePath(QStringLiteral("p.ini")), QSettings::IniFormat);
    Forgetful forgetful;
    ko::Persistable& object = forgetful;
    ko::Log::instance().setThreshold(ko::Log::Warning);
    object.load(&settings);
    object.save(&settings);
    ko::Log::instance().setThreshold(ko::Log::Error);
    object.load(&settings);
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
