// The action log's location, stored settings, user name and logon sequence
// (through a scripted logon provider, so it runs on every system).

#include "ActionLogSupport.h"
#include "TestEntries.h"
#include "testlib/DataTable.h"
#include "testlib/LogCapture.h"

#include <CommonKit/logging/IAccessGroup.h>
#include <CommonKit/platform/Platform.h>
#include <CommonKit/storage/Settings.h>
#include <CommonKit/support/core/Log.h>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QSettings>
#include <QTemporaryDir>

namespace {

using cktest::fileEntries;
using cktest::SignalRecorder;
using cktest::TestLog;

class ScriptedLogon : public ko::platform::LogonProvider
{
public:
    bool logonUser(const std::wstring& user, const std::wstring& domain, const std::wstring& password, int type,
                   Token* token) override
    {
        lastPassword = QString::fromStdWString(password);
        calls << QStringLiteral("logon(%1,%2,%3)").arg(QString::fromStdWString(user), QString::fromStdWString(domain)).arg(type);
        m_last = logonError;
        if (logonError)
            return false;
        *token = this;
        return true;
    }
    bool impersonateLoggedOnUser(Token) override
    {
        calls << QStringLiteral("impersonate");
        m_last = impersonateError;
        return true;
    }
    bool revertToSelf() override
    {
        calls << QStringLiteral("revert");
        return true;
    }
    void closeToken(Token token) override
    {
        calls << (token == this ? QStringLiteral("close") : QStringLiteral("close-invalid"));
    }
    unsigned long lastError() const override { return m_last; }

    QStringList calls;
    QString lastPassword;
    unsigned long logonError = 0;
    unsigned long impersonateError = 0;

private:
    unsigned long m_last = 0;
};

class Group : public ko::IAccessGroup
{
public:
    Group(const char* user, const char* group) : m_user(QString::fromUtf8(user)), m_group(QString::fromUtf8(group)) {}
    QString userName() const override { return m_user; }
    QString groupName() const override { return m_group; }

private:
    QString m_user, m_group;
};

struct ActionLogSettings : ::testing::Test
{
    QTemporaryDir dir;
    QByteArray savedState = qgetenv("XDG_STATE_HOME");
    ScriptedLogon logon;
    ko::platform::LogonProvider* previous = nullptr;

    void SetUp() override
    {
        qputenv("XDG_STATE_HOME", dir.path().toUtf8());
        QDir().mkpath(ko::ActionLog::defaultFileInfo().absolutePath());
        previous = ko::platform::setLogonProvider(&logon);
    }
    void TearDown() override
    {
        ko::platform::setLogonProvider(previous);
        qputenv("XDG_STATE_HOME", savedState);
    }

    QString defaultDir() const { return ko::ActionLog::defaultFileInfo().absolutePath(); }

    // An "ActionLog" group in an INI file with the given keys.
    QString settingsFile(const QVariantMap& values)
    {
        const QString file = dir.filePath(QStringLiteral("settings.ini"));
        QFile::remove(file);
        QSettings settings(file, QSettings::IniFormat);
        for (auto it = values.begin(); it != values.end(); ++it)
            settings.setValue(QStringLiteral("ActionLog/") + it.key(), it.value());
        return file;
    }
};

TEST_F(ActionLogSettings, SaveWritesTheGroupLoadReadsItBackOrRestoresTheDefaults)
{
    struct Row { QString custom; QString storedPath; };
    const std::vector<Row> rows = {
        {defaultDir() + QStringLiteral("/other.kol"), QStringLiteral("%LOCALAPPDATA%/other.kol")},
        {dir.filePath(QStringLiteral("elsewhere/x.kol")), dir.filePath(QStringLiteral("elsewhere/x.kol"))},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.custom.toStdString());
        const QString file = settingsFile({});
        {
            TestLog log(row.custom);
            log.setSplitPolicy(ko::ActionLog::Weekly, 5000);
            log.setFileUserPassword(QStringLiteral("op"), QStringLiteral("secret"));
            log.setDefaultActive(false);
            ko::Settings destination(file, QSettings::IniFormat);
            log.save(&destination);
        }
        QSettings stored(file, QSettings::IniFormat);
        stored.beginGroup(QStringLiteral("ActionLog"));
        QStringList keys; // every key, so no other (such as LogonMode) is written
        for (const QString& key : stored.allKeys())
            keys << key + QLatin1Char('=') + stored.value(key).toString();
        EXPECT_EQ(keys, QStringList({"ActionLogPassword=c2VjcmV0", "ActionLogPath=" + row.storedPath, "ActionLogUser=op",
                                     "SplitSize=5000", "SplitState=2", "isDefaultLogPath=false"}));

        QDir().mkpath(QFileInfo(row.custom).absolutePath());
        TestLog loaded(ko::ActionLog::defaultFileInfo().absoluteFilePath());
        ko::Settings source(file, QSettings::IniFormat);
        loaded.load(&source);
        QString user, password;
        loaded.fileUserPassword(user, password);
        EXPECT_EQ(password, QStringLiteral("secret"));
        EXPECT_EQ(loaded.splitPolicy(), ko::ActionLog::Weekly);
        EXPECT_EQ(loaded.fileInfo().absoluteFilePath(), row.custom);
        EXPECT_EQ(loaded.customFileInfo().absoluteFilePath(), row.custom);
        EXPECT_FALSE(loaded.defaultActive());
    }

    // The default file lies under the user's log directory; loading empty
    // settings restores the defaults and goes back to it.
    const QString app = QCoreApplication::applicationName();
    EXPECT_EQ(ko::ActionLog::defaultFileInfo().absoluteFilePath().toStdString(),
              QDir::cleanPath(dir.path() + QLatin1Char('/') + QCoreApplication::organizationName() + QLatin1Char('/')
                              + app + QLatin1Char('/') + app + QStringLiteral(".kol"))
                  .toStdString());
    TestLog log(dir.filePath(QStringLiteral("custom.kol")));
    ko::Settings empty(settingsFile({}), QSettings::IniFormat);
    log.load(&empty);
    EXPECT_EQ(log.splitPolicy(), ko::ActionLog::BySize);
    EXPECT_EQ(log.splitSize(), 1048576);
    EXPECT_TRUE(log.defaultActive());
    EXPECT_EQ(log.fileInfo().absoluteFilePath(), ko::ActionLog::defaultFileInfo().absoluteFilePath());
    log.load(nullptr); // ignored
}

TEST_F(ActionLogSettings, UserNameFromTheAccessGroupOrTheEnvironment)
{
    // Whether an empty user is left out of the file is the writer's business.
    const QByteArray saved = qgetenv("USERNAME");
    const bool hadUser = qEnvironmentVariableIsSet("USERNAME");
    for (const cktest::DataRow& row : cktest::dataRows("logging/user-names.tsv", 4)) {
        SCOPED_TRACE(row.where);
        if (row[2] != "-")
            qputenv("USERNAME", row[2].c_str());
        else
            qunsetenv("USERNAME");
        TestLog log(dir.filePath(QStringLiteral("user.kol")));
        Group group(row[0].c_str(), row[1].c_str());
        log.setAccessGroup(row[0] != "-" ? &group : nullptr);
        EXPECT_EQ(log.userName().toStdString(), row[3]);
    }
    if (hadUser)
        qputenv("USERNAME", saved);
    else
        qunsetenv("USERNAME");
}

TEST_F(ActionLogSettings, LogonAroundEveryOpeningOfACustomFile)
{
    for (const cktest::DataRow& row : cktest::dataRows("logging/logon.tsv", 7)) {
        SCOPED_TRACE(row.where);
        const QString path = QDir(dir.path()).filePath(QString::fromStdString(row[2]));
        QFile::remove(path);
        TestLog log(path);
        log.setDefaultActive(false);
        ko::Settings settings(settingsFile({{"isDefaultLogPath", false},
                                            {"ActionLogPath", path},
                                            {"ActionLogUser", QString::fromStdString(row[1])},
                                            {"LogonMode", std::stoi(row[0])}}),
                              QSettings::IniFormat);
        log.load(&settings); // same file: no switch, so no opening yet
        logon.calls.clear();
        logon.logonError = std::stoul(row[3]);
        logon.impersonateError = std::stoul(row[4]);
        SignalRecorder recorder(log);
        cktest::TextEntry entry(QStringLiteral("x"), 1);
        log.log(entry);
        const QStringList calls = QString::fromStdString(row[5]).split(QLatin1Char(' '));
        EXPECT_EQ(logon.calls.mid(0, calls.size()), calls) << logon.calls.join(' ').toStdString();
        const QStringList errors = recorder.lines.filter(QStringLiteral("error"));
        if (row[6] != "-") {
            ASSERT_FALSE(errors.isEmpty());
            EXPECT_TRUE(errors.last().startsWith(QString::fromStdString(row[6]))) << errors.last().toStdString();
            // Failures fall back to the default file.
            EXPECT_TRUE(log.defaultActive());
        } else {
            EXPECT_TRUE(errors.isEmpty()) << errors.join(' ').toStdString();
            EXPECT_EQ(fileEntries(path).size(), 1);
        }
    }
}

// The password reaches the logon and is stored in the settings as Base64 of
// its local 8-bit form, by design; it never shows in a log line, a signal
// argument or the log files, and a failed logon reports the user only.
TEST_F(ActionLogSettings, PasswordStaysOutOfLogLinesSignalsAndLogFiles)
{
    const QString password = QStringLiteral("Pw-5e2c90aa-\u00e9t\u00e9");
    cktest::LogCapture capture(1);
    QStringList signalTexts;
    {
        const QString path = dir.filePath(QStringLiteral("c.kol"));
        TestLog log(path);
        log.setDefaultActive(false);
        ko::Settings settings(settingsFile({{"isDefaultLogPath", false}, {"ActionLogPath", path}}), QSettings::IniFormat);
        log.load(&settings);
        log.setFileUserPassword(QStringLiteral("op"), password);
        QObject::connect(&log, &ko::ActionLog::errorLogon, [&](const QString& user, int) { signalTexts << user; });
        QObject::connect(&log, &ko::ActionLog::errorFile, [&](const QString& file, int) { signalTexts << file; });
        QObject::connect(&log, &ko::ActionLog::errorXml, [&](const QString& error, int, int) { signalTexts << error; });
        QObject::connect(&log, &ko::ActionLog::switchedFileHandle, [&](const QString& name) { signalTexts << name; });
        logon.logonError = 1326;
        cktest::TextEntry entry(QStringLiteral("x"), 1);
        log.log(entry);
        EXPECT_EQ(logon.lastPassword, password);
        EXPECT_TRUE(signalTexts.contains(QStringLiteral("op"))) << "the failed logon was signalled";
        log.save(&settings);
        QString user, back;
        log.fileUserPassword(user, back);
        EXPECT_EQ(back, password);
    }
    const std::string logLines = capture.text();

    QSettings stored(dir.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);
    EXPECT_EQ(stored.value(QStringLiteral("ActionLog/ActionLogPassword")).toByteArray(),
              password.toLocal8Bit().toBase64());
    const QByteArray clear = password.toUtf8();
    for (const QByteArray& form : {clear, password.toLocal8Bit().toBase64(), clear.toHex()}) {
        EXPECT_FALSE(QByteArray::fromStdString(logLines).contains(form)) << logLines;
        EXPECT_FALSE(signalTexts.join(' ').toUtf8().contains(form)) << signalTexts.join(' ').toStdString();
    }
    QDirIterator files(dir.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_FALSE(file.readAll().contains(clear)) << file.fileName().toStdString();
    }
}

} // namespace
