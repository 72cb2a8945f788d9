#include <CommonKit/platform/Platform.h>
#include <CommonKit/support/fileutils/FileUtils.h>

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace {

// Opens the file (an open file description of its own) and gives its handle.
int openHandle(QFile& file)
{
    return file.open(QIODevice::ReadWrite) ? file.handle() : -1;
}

TEST(FileLock, SeparateOpensOfOneFileExcludeEachOther)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("log.kol"));
    QFile firstFile(path), secondFile(path);
    const int first = openHandle(firstFile), second = openHandle(secondFile);
    ASSERT_TRUE(first >= 0 && second >= 0) << first << " " << second;

    EXPECT_EQ(ko::platform::lockFileRange(first, 1, 1), 0);
    // Locking again through the same open file is allowed.
    EXPECT_EQ(ko::platform::lockFileRange(first, 1, 1), 0);
    const int conflict = ko::platform::lockFileRange(second, 1, 1);
    EXPECT_TRUE(conflict == EAGAIN || conflict == EACCES) << conflict;
    // Other bytes are free.
    EXPECT_EQ(ko::platform::lockFileRange(second, 0, 1), 0);
    EXPECT_EQ(ko::platform::lockFileRange(second, 2, 10), 0);

    EXPECT_EQ(ko::platform::unlockFileRange(first, 1, 1), 0);
    EXPECT_EQ(ko::platform::lockFileRange(second, 1, 1), 0);
    // Closing a descriptor releases its locks.
    {
        QFile third(path);
        EXPECT_NE(ko::platform::lockFileRange(openHandle(third), 1, 1), 0);
    }
    EXPECT_EQ(ko::platform::lockFileRange(-1, 0, 1), EBADF);
}

// Logs everyone on and does nothing else.
class StubProvider : public ko::platform::LogonProvider
{
public:
    bool logonUser(const std::wstring&, const std::wstring&, const std::wstring&, int, Token*) override { return true; }
    bool impersonateLoggedOnUser(Token) override { return true; }
    bool revertToSelf() override { return true; }
    void closeToken(Token) override {}
    unsigned long lastError() const override { return 0; }
};

// Whether an open file is still the one at its path: the identity taken from
// the descriptor against the path as it is now, and the one-call form.
TEST(FileIdentity, TellsWhetherTheOpenFileIsStillAtItsPath)
{
    QTemporaryDir dir;
    const std::string path = dir.filePath(QStringLiteral("log.kol")).toStdString();
    const std::string other = dir.filePath(QStringLiteral("other.kol")).toStdString();
    QFile file(QString::fromStdString(path));
    const int open = openHandle(file);
    const ko::platform::FileIdentity identity = ko::platform::fileIdentity(open);
    ASSERT_TRUE(identity.known);
    EXPECT_TRUE(ko::platform::isFileAt(identity, path));
    EXPECT_TRUE(ko::platform::isSameFile(open, path));
    // Replaced by another file under the same name.
    ASSERT_TRUE(QFile(QString::fromStdString(other)).open(QIODevice::WriteOnly));
    ASSERT_EQ(::rename(other.c_str(), path.c_str()), 0);
    EXPECT_FALSE(ko::platform::isFileAt(identity, path));
    EXPECT_FALSE(ko::platform::isSameFile(open, path));
    // Removed.
    ASSERT_EQ(::unlink(path.c_str()), 0);
    EXPECT_FALSE(ko::platform::isFileAt(identity, path));
    // A bad descriptor has no identity, which is at no path.
    EXPECT_FALSE(ko::platform::fileIdentity(-1).known);
    EXPECT_FALSE(ko::platform::isFileAt(ko::platform::fileIdentity(-1), other));
}

TEST(LogonProvider, PosixRefusesNamedUsersAndCanBeReplaced)
{
    ko::platform::LogonProvider& system = ko::platform::logonProvider();
    ko::platform::LogonProvider::Token token = reinterpret_cast<void*>(1);
    EXPECT_FALSE(system.logonUser(L"operator", L".", L"secret", 2, &token));
    EXPECT_EQ(system.lastError(), static_cast<unsigned long>(ENOSYS));
    EXPECT_EQ(token, nullptr);
    EXPECT_TRUE(system.logonUser(L"", L".", L"", 2, &token));

    StubProvider stub;
    EXPECT_EQ(ko::platform::setLogonProvider(&stub), nullptr);
    EXPECT_EQ(&ko::platform::logonProvider(), &stub);
    EXPECT_EQ(ko::platform::setLogonProvider(nullptr), &stub);
    EXPECT_EQ(&ko::platform::logonProvider(), &ko::platform::systemLogonProvider());
}

TEST(UserLogDir, FollowsXdgStateHomeElseHome)
{
    const QByteArray home = qgetenv("HOME"), state = qgetenv("XDG_STATE_HOME");
    const bool hadState = qEnvironmentVariableIsSet("XDG_STATE_HOME");
    qputenv("HOME", "/home/tester");
    qputenv("XDG_STATE_HOME", "/var/state/tester");
    EXPECT_EQ(ko::platform::userLogDir(), "/var/state/tester");
    EXPECT_EQ(ko::FileUtils::userLogDir().absolutePath(), QStringLiteral("/var/state/tester"));
    for (const char* unusable : {static_cast<const char*>(nullptr), "", "relative/dir"}) {
        unusable ? qputenv("XDG_STATE_HOME", unusable) : qunsetenv("XDG_STATE_HOME");
        EXPECT_EQ(ko::platform::userLogDir(), "/home/tester/.local/state") << (unusable ? unusable : "unset");
    }
    qputenv("HOME", home);
    hadState ? qputenv("XDG_STATE_HOME", state) : qunsetenv("XDG_STATE_HOME");
}

} // namespace
