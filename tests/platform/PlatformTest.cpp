#include <CommonKit/platform/Platform.h>
#include <CommonKit/support/fileutils/FileUtils.h>

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

class FileDescriptor
{
public:
    explicit FileDescriptor(const std::string& path) : m_fd(::open(path.c_str(), O_RDWR | O_CREAT, 0600)) {}
    ~FileDescriptor()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    int fd() const { return m_fd; }

private:
    int m_fd;
};

TEST(FileLock, SeparateOpensOfOneFileExcludeEachOther)
{
    QTemporaryDir dir;
    const std::string path = dir.filePath(QStringLiteral("log.kol")).toStdString();
    FileDescriptor first(path);
    FileDescriptor second(path);
    ASSERT_GE(first.fd(), 0);
    ASSERT_GE(second.fd(), 0);

    EXPECT_EQ(ko::platform::lockFileRange(first.fd(), 1, 1), 0);
    // Locking again through the same open file is allowed.
    EXPECT_EQ(ko::platform::lockFileRange(first.fd(), 1, 1), 0);
    const int conflict = ko::platform::lockFileRange(second.fd(), 1, 1);
    EXPECT_TRUE(conflict == EAGAIN || conflict == EACCES) << conflict;
    // Other bytes are free.
    EXPECT_EQ(ko::platform::lockFileRange(second.fd(), 0, 1), 0);
    EXPECT_EQ(ko::platform::lockFileRange(second.fd(), 2, 10), 0);

    EXPECT_EQ(ko::platform::unlockFileRange(first.fd(), 1, 1), 0);
    EXPECT_EQ(ko::platform::lockFileRange(second.fd(), 1, 1), 0);
    // Closing a descriptor releases its locks.
    {
        FileDescriptor third(path);
        EXPECT_NE(ko::platform::lockFileRange(third.fd(), 1, 1), 0);
    }
    EXPECT_EQ(ko::platform::lockFileRange(-1, 0, 1), EBADF);
}

class RecordingProvider : public ko::platform::LogonProvider
{
public:
    bool logonUser(const std::wstring& user, const std::wstring& domain, const std::wstring&, int type,
                   Token* token) override
    {
        calls += "logon(" + std::string(user.begin(), user.end()) + "@" + std::string(domain.begin(), domain.end())
            + "," + std::to_string(type) + ")";
        *token = this;
        return true;
    }
    bool impersonateLoggedOnUser(Token token) override
    {
        calls += token == this ? " impersonate" : " impersonate(?)";
        return true;
    }
    bool revertToSelf() override
    {
        calls += " revert";
        return true;
    }
    void closeToken(Token) override { calls += " close"; }
    unsigned long lastError() const override { return 0; }
    std::string calls;
};

// Whether an open file is still the one at its path: the identity taken from
// the descriptor against the path as it is now, and the one-call form.
TEST(FileIdentity, TellsWhetherTheOpenFileIsStillAtItsPath)
{
    QTemporaryDir dir;
    const std::string path = dir.filePath(QStringLiteral("log.kol")).toStdString();
    const std::string other = dir.filePath(QStringLiteral("other.kol")).toStdString();
    FileDescriptor open(path);
    const ko::platform::FileIdentity identity = ko::platform::fileIdentity(open.fd());
    ASSERT_TRUE(identity.known);
    EXPECT_TRUE(ko::platform::isFileAt(identity, path));
    EXPECT_TRUE(ko::platform::isSameFile(open.fd(), path));
    // Replaced by another file under the same name.
    { FileDescriptor replacement(other); }
    ASSERT_EQ(::rename(other.c_str(), path.c_str()), 0);
    EXPECT_FALSE(ko::platform::isFileAt(identity, path));
    EXPECT_FALSE(ko::platform::isSameFile(open.fd(), path));
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

    RecordingProvider recording;
    EXPECT_EQ(ko::platform::setLogonProvider(&recording), nullptr);
    ko::platform::LogonProvider& provider = ko::platform::logonProvider();
    ASSERT_TRUE(provider.logonUser(L"operator", L".", L"secret", 9, &token));
    provider.impersonateLoggedOnUser(token);
    provider.revertToSelf();
    provider.closeToken(token);
    EXPECT_EQ(recording.calls, "logon(operator@.,9) impersonate revert close");
    EXPECT_EQ(ko::platform::setLogonProvider(nullptr), &recording);
    EXPECT_EQ(&ko::platform::logonProvider(), &ko::platform::systemLogonProvider());
}

class Environment
{
public:
    Environment(const char* name, const char* value) : m_name(name)
    {
        if (const char* old = std::getenv(name))
            m_old = old, m_had = true;
        if (value)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ~Environment()
    {
        if (m_had)
            setenv(m_name, m_old.c_str(), 1);
        else
            unsetenv(m_name);
    }

private:
    const char* m_name;
    std::string m_old;
    bool m_had = false;
};

TEST(UserLogDir, FollowsXdgStateHomeElseHome)
{
    const Environment home("HOME", "/home/tester");
    {
        const Environment state("XDG_STATE_HOME", "/var/state/tester");
        EXPECT_EQ(ko::platform::userLogDir(), "/var/state/tester");
        EXPECT_EQ(ko::FileUtils::userLogDir().absolutePath(), QStringLiteral("/var/state/tester"));
    }
    for (const char* unusable : {static_cast<const char*>(nullptr), "", "relative/dir"}) {
        const Environment state("XDG_STATE_HOME", unusable);
        EXPECT_EQ(ko::platform::userLogDir(), "/home/tester/.local/state");
    }
}

} // namespace
