#include <CommonKit/storage/Settings.h>
#include "testlib/DataTable.h"
#include "testlib/TestFiles.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#include <memory>

namespace {

class SettingsTest : public ::testing::Test
{
protected:
    QString path(const char* name) const { return m_dir.filePath(QString::fromLatin1(name)); }
    QTemporaryDir m_dir;
};

TEST_F(SettingsTest, GroupsArraysAndKeysForwardToTheWrappedStore)
{
    QSettings store(path("forward.ini"), QSettings::IniFormat);
    ko::Settings settings(&store);
    EXPECT_EQ(settings.fileName(), store.fileName());
    EXPECT_EQ(settings.getInterface("ko::IPersistDestination"), static_cast<ko::IPersistDestination*>(&settings));
    EXPECT_EQ(settings.getInterface("ko::Persistable"), nullptr);

    settings.setValue(QStringLiteral("top"), 1);
    settings.beginGroup(QStringLiteral("Log"));
    settings.setValue(QStringLiteral("a"), QStringLiteral("x"));
    settings.beginWriteArray(QStringLiteral("users"), 2);
    for (int i = 0; i < 2; ++i) {
        settings.setArrayIndex(i);
        settings.setValue(QStringLiteral("name"), QStringLiteral("user%1").arg(i));
    }
    settings.endArray();
    EXPECT_TRUE(settings.contains(QStringLiteral("a")));
    EXPECT_FALSE(settings.contains(QStringLiteral("top")));
    settings.endGroup();
    settings.sync();

    // Another reader of the file sees the QSettings layout: one-based array
    // indices and a "size" key.
    QSettings raw(store.fileName(), QSettings::IniFormat);
    EXPECT_EQ(raw.allKeys(), (QStringList{QStringLiteral("Log/a"), QStringLiteral("Log/users/1/name"),
                                          QStringLiteral("Log/users/2/name"), QStringLiteral("Log/users/size"),
                                          QStringLiteral("top")}));

    ko::Settings reader(&raw);
    reader.beginGroup(QStringLiteral("Log"));
    ASSERT_EQ(reader.beginReadArray(QStringLiteral("users")), 2);
    reader.setArrayIndex(1);
    EXPECT_EQ(reader.value(QStringLiteral("name"), QVariant()).toString(), QStringLiteral("user1"));
    reader.endArray();
    reader.endGroup();
    // The default is passed on for missing keys only.
    EXPECT_EQ(reader.value(QStringLiteral("missing"), 42).toInt(), 42);
    EXPECT_EQ(reader.value(QStringLiteral("top"), 42).toInt(), 1);
    reader.remove(QStringLiteral("Log"));
    EXPECT_EQ(raw.allKeys(), QStringList{QStringLiteral("top")});
}

TEST_F(SettingsTest, OwningWrapperDeletesItsStoreAndNonOwningLeavesItAlive)
{
    {
        // Deleting the owned QSettings writes what was not synced yet.
        ko::Settings settings(path("owned.ini"), QSettings::IniFormat);
        settings.setValue(QStringLiteral("k"), 7);
    }
    // Read the file itself: another QSettings on the same file would share the
    // in-process cache and see the value even if nothing was written.
    EXPECT_EQ(cktest::readFile(path("owned.ini")), QByteArray("[General]\nk=7\n"));

    auto store = std::make_unique<QSettings>(path("outside.ini"), QSettings::IniFormat);
    {
        ko::Settings settings(store.get());
        ko::Settings copy(settings);
        copy.setValue(QStringLiteral("c"), 9);
        QSettings other(path("other.ini"), QSettings::IniFormat);
        ko::Settings assigned(&other);
        assigned = settings;
        EXPECT_EQ(assigned.value(QStringLiteral("c"), QVariant()).toInt(), 9);
    }
    store->setValue(QStringLiteral("after"), true);
    EXPECT_EQ(store->allKeys(), (QStringList{QStringLiteral("after"), QStringLiteral("c")}));
}

TEST(ExcludeKey, MatchesSuffixesCaseSensitively)
{
    for (const cktest::DataRow& row : cktest::dataRows("storage/exclude-keys.tsv", -2)) {
        QStringList suffixes;
        for (std::size_t i = 2; i < row.fields.size(); ++i)
            suffixes << QString::fromStdString(row[i]);
        EXPECT_EQ(excludeKey(QString::fromStdString(row[0]), suffixes), row[1] == "1") << row.where;
    }
}

TEST_F(SettingsTest, AssignReplacesTheDestinationLeavingOutExcludedKeys)
{
    QSettings source(path("source.ini"), QSettings::IniFormat);
    source.setValue(QStringLiteral("General/Password"), QStringLiteral("secret"));
    source.setValue(QStringLiteral("General/password"), QStringLiteral("kept"));
    source.setValue(QStringLiteral("Log/Path/Password"), QByteArray("\x01\x02", 2));
    source.setValue(QStringLiteral("Log/List"), QStringList{QStringLiteral("a"), QStringLiteral("b")});
    source.setValue(QStringLiteral("top"), 2.5);
    struct Case { QStringList excluded; QStringList keys; };
    const Case cases[] = {
        {{}, {QStringLiteral("General/Password"), QStringLiteral("General/password"), QStringLiteral("Log/List"),
              QStringLiteral("Log/Path/Password"), QStringLiteral("top")}},
        {{QStringLiteral("Password"), QStringLiteral("List")}, {QStringLiteral("General/password"), QStringLiteral("top")}},
    };
    for (const Case& c : cases) {
        QSettings destination(path("destination.ini"), QSettings::IniFormat);
        destination.setValue(QStringLiteral("OnlyHere/key"), 1);
        destination.setValue(QStringLiteral("General/password"), QStringLiteral("old"));
        EXPECT_TRUE(assign(destination, source, c.excluded));
        // Synced: a fresh reader of the file sees the same.
        QSettings reread(path("destination.ini"), QSettings::IniFormat);
        EXPECT_EQ(reread.allKeys(), c.keys);
        for (const QString& key : c.keys)
            EXPECT_EQ(reread.value(key), source.value(key)) << key.toStdString();
    }
    EXPECT_EQ(source.allKeys().size(), 5);

    // Assigning a store to itself keeps the kept keys.
    EXPECT_TRUE(assign(source, source, {QStringLiteral("Password")}));
    EXPECT_EQ(source.allKeys(), (QStringList{QStringLiteral("General/password"), QStringLiteral("Log/List"),
                                             QStringLiteral("top")}));

    // A path below a regular file cannot be written, whoever runs the test.
    cktest::writeFile(path("blocker"), "x");
    QSettings unwritable(path("blocker/destination.ini"), QSettings::IniFormat);
    EXPECT_FALSE(assign(unwritable, source, QStringList()));
}

} // namespace
