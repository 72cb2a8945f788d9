// POSIX implementation of the platform interface.

#include <CommonKit/platform/Platform.h>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ko {
namespace platform {

namespace {

int setRangeLock(int fd, short type, std::uint64_t offset, std::uint64_t length)
{
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = static_cast<off_t>(offset);
    lock.l_len = static_cast<off_t>(length);
    lock.l_pid = 0; // required for open-file-description locks
#if defined(F_OFD_SETLK)
    const int command = F_OFD_SETLK;
#else
    const int command = F_SETLK; // per-process locks where OFD locks are missing
#endif
    return fcntl(fd, command, &lock) == 0 ? 0 : errno;
}

thread_local unsigned long t_lastError = 0;

class PosixLogonProvider : public LogonProvider
{
public:
    bool logonUser(const std::wstring& user, const std::wstring&, const std::wstring&, int,
                   Token* token) override
    {
        if (token)
            *token = nullptr;
        if (user.empty()) {
            t_lastError = 0;
            return true;
        }
        t_lastError = ENOSYS;
        return false;
    }
    bool impersonateLoggedOnUser(Token) override
    {
        t_lastError = 0;
        return true;
    }
    bool revertToSelf() override { return true; }
    void closeToken(Token) override {}
    unsigned long lastError() const override { return t_lastError; }
};

std::string homeDirectory()
{
    if (const char* home = std::getenv("HOME"); home && *home)
        return home;
    if (const passwd* entry = getpwuid(getuid()); entry && entry->pw_dir)
        return entry->pw_dir;
    return "/tmp";
}

} // namespace

int lockFileRange(int fd, std::uint64_t offset, std::uint64_t length)
{
    return setRangeLock(fd, F_WRLCK, offset, length);
}

int unlockFileRange(int fd, std::uint64_t offset, std::uint64_t length)
{
    return setRangeLock(fd, F_UNLCK, offset, length);
}

bool isSameFile(int fd, const std::string& path)
{
    return isFileAt(fileIdentity(fd), path);
}

FileIdentity fileIdentity(int fd)
{
    FileIdentity identity;
    struct stat open = {};
    if (fstat(fd, &open) != 0)
        return identity;
    identity.device = static_cast<std::uint64_t>(open.st_dev);
    identity.inode = static_cast<std::uint64_t>(open.st_ino);
    identity.known = true;
    return identity;
}

bool isFileAt(const FileIdentity& identity, const std::string& path)
{
    struct stat named = {};
    if (!identity.known || stat(path.c_str(), &named) != 0)
        return false;
    return identity.device == static_cast<std::uint64_t>(named.st_dev)
        && identity.inode == static_cast<std::uint64_t>(named.st_ino);
}

LogonProvider& systemLogonProvider()
{
    static PosixLogonProvider provider;
    return provider;
}

std::string userLogDir()
{
#if defined(__APPLE__)
    return homeDirectory() + "/Library/Logs";
#else
    if (const char* state = std::getenv("XDG_STATE_HOME"); state && *state == '/')
        return state;
    return homeDirectory() + "/.local/state";
#endif
}

} // namespace platform
} // namespace ko
