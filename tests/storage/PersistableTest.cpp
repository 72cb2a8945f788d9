#include "testlib/LogCapture.h"
#include <CommonKit/storage/Persistable.h>
#include <CommonKit/storage/Settings.h>
#include <CommonKit/support/core/Log.h>

#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#include <string>
#include <typeinfo>

namespace {

// A class that forgot to override load and save.
class Forgetful : public ko::Persistable
{
};

TEST(Persistable, BaseVersionsWarnNamingTheBasePointerTypeNotTheObjectsClass)
{
    cktest::LogCapture log(ko::Log::Warning);
    QTemporaryDir dir;
    ko::Settings settings(dir.filePath(QStringLiteral("p.ini")), QSettings::IniFormat);
    Forgetful forgetful;
    ko::Persistable& object = forgetful;
    object.load(&settings);
    object.save(&settings);
    const std::string name = typeid(ko::Persistable*).name();
    ASSERT_EQ(log.lines.size(), 2u);
    EXPECT_TRUE(log.contains(" W [ko::Persistable::load] You should overwrite Persistable::load for class " + name));
    EXPECT_TRUE(log.contains(" W [ko::Persistable::save] You should overwrite Persistable::save for class " + name));
}

} // namespace
