#include "storage/Settings.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

namespace {

class SettingsTest : public ::testing::Test
{
protected:
    QString path(const QString& name) const { return m_dir.filePath(name); }
    QTemporaryDir m_dir;
};

TEST_F(SettingsTest, GroupsAndKeysForwardToTheWrappedStore)
{
    QSettings store(path(QStringLiteral("groups.ini")), QSettings::IniFormat);
    ko::Settings settings(&store);
    EXPECT_EQ(settings.fileName(), store.fileName());

    settings.setValue(QStringLiteral("top"), 1);
    settings.beginGroup(QStringLiteral("Outer"));
    settings.setValue(QStringLiteral("a"), QStringLiteral("x"));
    settings.beginGroup(QStringLiteral("Inner"));
    settings.setValue(QStringLiteral("b"), QByteArray("1+2+"));
    EXPECT_TRUE(settings.contains(QStringLiteral("b")));
    EXPECT_FALSE(settings.contains(QStringLiteral("a")));
    settings.endGroup();
    EXPECT_TRUE(settings.contains(QStringLiteral("Inner/b")));
    settings.endGroup();

    EXPECT_EQ(store.allKeys(), (QStringList{QStringLiteral("Outer/Inner/b"), QStringLiteral("Outer/a"),
                                            QStringLiteral("top")}));
    EXPECT_EQ(settings.value(QStringLiteral("Outer/Inner/b"), QVariant()).toByteArray(), QByteArray("1+2+"));
    // The default is passed on for missing keys only.
    EXPECT_EQ(settings.value(QStringLiteral("missing"), 42).toInt(), 42);
    EXPECT_EQ(settings.value(QStringLiteral("top"), 42).toInt(), 1);
    EXPECT_FALSE(settings.value(QStringLiteral("missing"), QVariant()).isValid());

    settings.remove(QStringLiteral("Outer"));
    EXPECT_EQ(store.allKeys(), QStringList{QStringLiteral("top")});
}

TEST_F(SettingsTest, ArraysUseOneBasedIndicesAndASizeKey)
{
    const QString file = path(QStringLiteral("arrays.ini"));
    {
        QSettings store(file, QSettings::IniFormat);
        ko::Settings settings(&store);
        settings.beginGroup(QStringLiteral("Log"));
        settings.beginWriteArray(QStringLiteral("users"), 3);
        for (int i = 0; i < 3; ++i) {
            settings.setArrayIndex(i);
            settings.setValue(QStringLiteral("name"), QStringLiteral("user%1").arg(i));
        }
        settings.endArray();
        settings.endGroup();
        settings.sync();
    }
    // Another reader of the file sees the QSettings array layout.
    QSettings raw(file, QSettings::IniFormat);
    EXPECT_EQ(raw.allKeys(), (QStringList{QStringLiteral("Log/users/1/name"), QStringLiteral("Log/users/2/name"),
                                          QStringLiteral("Log/users/3/name"), QStringLiteral("Log/users/size")}));
    EXPECT_EQ(raw.value(QStringLiteral("Log/users/size")).toInt(), 3);
    EXPECT_EQ(raw.value(QStringLiteral("Log/users/1/name")).toString(), QStringLiteral("user0"));

    ko::Settings reader(&raw);
    reader.beginGroup(QStringLiteral("Log"));
    ASSERT_EQ(reader.beginReadArray(QStringLiteral("users")), 3);
    for (int i = 0; i < 3; ++i) {
        reader.setArrayIndex(i);
        EXPECT_EQ(reader.value(QStringLiteral("name"), QVariant()).toString(), QStringLiteral("user%1").arg(i));
    }
    reader.endArray();
    EXPECT_EQ(reader.beginReadArray(QStringLiteral("nothing")), 0);
    reader.endArray();
    reader.endGroup();
}

TEST_F(SettingsTest, OwningWrapperDeletesItsStoreAndNonOwningLeavesItAlive)
{
    const QString file = path(QStringLiteral("owned.ini"));
    {
        // Owned: deleting the QSettings writes what was not synced yet.
        ko::Settings settings(file, QSettings::IniFormat);
        EXPECT_EQ(settings.fileName(), file);
        settings.setValue(QStringLiteral("k"), 7);
    }
    EXPECT_EQ(QSettings(file, QSettings::IniFormat).value(QStringLiteral("k")).toInt(), 7);

    auto store = std::make_unique<QSettings>(path(QStringLiteral("outside.ini")), QSettings::IniFormat);
    {
        ko::Settings settings(store.get());
        settings.setValue(QStringLiteral("k"), 8);
        // Copies of a non-owning wrapper share the store.
        ko::Settings copy(settings);
        copy.setValue(QStringLiteral("c"), 9);
        QSettings other(path(QStringLiteral("other.ini")), QSettings::IniFormat);
        ko::Settings assigned(&other);
        assigned = settings;
        EXPECT_EQ(assigned.value(QStringLiteral("c"), QVariant()).toInt(), 9);
        EXPECT_EQ(assigned.fileName(), store->fileName());
    }
    EXPECT_EQ(store->value(QStringLiteral("k")).toInt(), 8);
    store->setValue(QStringLiteral("after"), true);
    store->sync();
    EXPECT_EQ(store->status(), QSettings::NoError);
    EXPECT_TRUE(QFile::exists(store->fileName()));
}

TEST_F(SettingsTest, DefaultConstructorUsesQSettingsDefaults)
{
    const ko::Settings settings;
    EXPECT_EQ(settings.fileName(), QSettings().fileName());
}

TEST_F(SettingsTest, AnswersItsInterfaceNames)
{
    QSettings store(path(QStringLiteral("i.ini")), QSettings::IniFormat);
    ko::Settings settings(&store);
    const ko::Settings& constSettings = settings;
    ko::IPersistDestination* destination = &settings;
    EXPECT_EQ(settings.getInterface("ko::IPersistDestination"), static_cast<void*>(destination));
    EXPECT_EQ(constSettings.getInterface("ko::IPersistDestination"), static_cast<const void*>(destination));
    EXPECT_EQ(settings.getInterface("ko::Settings"), static_cast<void*>(&settings));
    EXPECT_EQ(settings.getInterface("ko::Persistable"), nullptr);
    EXPECT_EQ(settings.getInterface(nullptr), nullptr);
}

TEST(ExcludeKey, MatchesSuffixesCaseSensitively)
{
    struct Case { const char* key; QStringList suffixes; bool excluded; };
    const Case cases[] = {
        {"General/Password", {QStringLiteral("Password")}, true},
        {"General/password", {QStringLiteral("Password")}, false},
        {"General/Password", {}, false},
        {"Password", {QStringLiteral("Password")}, true},
        {"Pass", {QStringLiteral("Password")}, false},
        {"A/B/Secret", {QStringLiteral("Password"), QStringLiteral("Secret")}, true},
        {"A/Secret/B", {QStringLiteral("Password"), QStringLiteral("Secret")}, false},
        {"A/MyPassword", {QStringLiteral("Password")}, true},
        {"A/B", {QStringLiteral("/B")}, true},
    };
    for (const Case& c : cases)
        EXPECT_EQ(excludeKey(QString::fromLatin1(c.key), c.suffixes), c.excluded) << c.key;
}

class AssignTest : public SettingsTest
{
protected:
    void fillSource(QSettings& source)
    {
        source.setValue(QStringLiteral("General/Password"), QStringLiteral("secret"));
        source.setValue(QStringLiteral("General/password"), QStringLiteral("kept"));
        source.setValue(QStringLiteral("General/Count"), 3);
        source.setValue(QStringLiteral("Log/Path/Password"), QByteArray("\x01\x02", 2));
        source.setValue(QStringLiteral("Log/List"), QStringList{QStringLiteral("a"), QStringLiteral("b")});
        source.setValue(QStringLiteral("top"), 2.5);
    }
};

TEST_F(AssignTest, EmptyExclusionListMakesAnExactCopy)
{
    QSettings source(path(QStringLiteral("source.ini")), QSettings::IniFormat);
    fillSource(source);
    QSettings destination(path(QStringLiteral("destination.ini")), QSettings::IniFormat);
    destination.setValue(QStringLiteral("OnlyHere/key"), 1);
    destination.setValue(QStringLiteral("General/Count"), 99);

    EXPECT_TRUE(assign(destination, source, QStringList()));
    EXPECT_EQ(destination.allKeys(), source.allKeys());
    for (const QString& key : source.allKeys())
        EXPECT_EQ(destination.value(key), source.value(key)) << key.toStdString();
    EXPECT_FALSE(destination.contains(QStringLiteral("OnlyHere/key")));

    // And it is on disk.
    QSettings reread(destination.fileName(), QSettings::IniFormat);
    EXPECT_EQ(reread.allKeys(), source.allKeys());
    EXPECT_EQ(reread.value(QStringLiteral("Log/List")).toStringList(),
              (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(AssignTest, ExcludedSuffixesAreLeftOutInEveryGroup)
{
    QSettings source(path(QStringLiteral("source.ini")), QSettings::IniFormat);
    fillSource(source);
    QSettings destination(path(QStringLiteral("destination.ini")), QSettings::IniFormat);
    destination.setValue(QStringLiteral("General/Password"), QStringLiteral("old"));

    EXPECT_TRUE(assign(destination, source, {QStringLiteral("Password"), QStringLiteral("List")}));
    EXPECT_EQ(destination.allKeys(), (QStringList{QStringLiteral("General/Count"), QStringLiteral("General/password"),
                                                  QStringLiteral("top")}));
    EXPECT_EQ(destination.value(QStringLiteral("General/password")).toString(), QStringLiteral("kept"));
    EXPECT_EQ(destination.value(QStringLiteral("top")).toDouble(), 2.5);
    // The source is untouched.
    EXPECT_EQ(source.allKeys().size(), 6);
}

TEST_F(AssignTest, AssigningAStoreToItselfKeepsTheKeptKeys)
{
    QSettings store(path(QStringLiteral("self.ini")), QSettings::IniFormat);
    fillSource(store);
    EXPECT_TRUE(assign(store, store, {QStringLiteral("Password")}));
    EXPECT_EQ(store.allKeys(), (QStringList{QStringLiteral("General/Count"), QStringLiteral("General/password"),
                                            QStringLiteral("Log/List"), QStringLiteral("top")}));
}

TEST_F(AssignTest, ReportsADestinationThatCannotBeWritten)
{
    // A path below a regular file cannot be created, whoever runs the test.
    QFile blocker(path(QStringLiteral("blocker")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    QSettings source(path(QStringLiteral("source.ini")), QSettings::IniFormat);
    fillSource(source);
    QSettings destination(path(QStringLiteral("blocker/destination.ini")), QSettings::IniFormat);
    EXPECT_FALSE(assign(destination, source, QStringList()));
    EXPECT_EQ(destination.status(), QSettings::AccessError);
}

} // namespace
