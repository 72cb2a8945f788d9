#pragma once

// The operating-system calls the library needs, behind one Qt-free interface.
// platform/posix and platform/windows implement it; exactly one of them is
// compiled into the library.

#include <CommonKit/support/core/Export.h>

#include <cstdint>
#include <cstddef>
#include <string>

namespace ko {
namespace platform {

/// Byte-range locks on an open file, identified by its C runtime file
/// descriptor. The lock is exclusive and never waits. The locks belong to the
/// open file (Windows LockFileEx; POSIX open-file-description locks), so two
/// descriptors opened separately on the same file exclude each other even in
/// one process. Both return 0 or the system's error code (errno on POSIX,
/// GetLastError() on Windows). Give a length above 0: POSIX reads 0 as "to the
/// end of the file and beyond", Windows does not.
COMMONKIT_EXPORT int lockFileRange(int fd, std::uint64_t offset, std::uint64_t length);
/// Releases a range locked with lockFileRange() on the same descriptor; offset
/// and length must be those of the lock. Returns 0 or the system's error code.
COMMONKIT_EXPORT int unlockFileRange(int fd, std::uint64_t offset, std::uint64_t length);

/// Whether the open file fd is still the file at path (not removed or
/// replaced by another file since it was opened). Windows does not let an open
/// file be removed or replaced, so the answer there is always true.
COMMONKIT_EXPORT bool isSameFile(int fd, const std::string& path);

/// The identity of an open file (device and inode on POSIX), taken once so
/// that isFileAt() then needs only the path looked up: isSameFile() in two
/// halves, for a caller that asks often. An unknown identity (the descriptor
/// was bad) is at no path; on Windows every identity is at its path.
struct FileIdentity
{
    std::uint64_t device = 0; ///< st_dev of the open file
    std::uint64_t inode = 0;  ///< st_ino of the open file
    bool known = false;       ///< false when the descriptor could not be asked
};
/// The identity of the open file fd.
COMMONKIT_EXPORT FileIdentity fileIdentity(int fd);
/// Whether path names the file of identity now.
COMMONKIT_EXPORT bool isFileAt(const FileIdentity& identity, const std::string& path);

/// The calls of a logon under another account, as a replaceable object so that
/// the logic around them can be tested on every platform. The default provider
/// uses the Windows logon API; on POSIX there is no such logon and logonUser
/// with a non-empty user fails with ENOSYS.
class COMMONKIT_EXPORT LogonProvider
{
public:
    /// A logon token (a Windows HANDLE).
    using Token = void*;

    /// The value of a token that holds no logon (Windows INVALID_HANDLE_VALUE).
    static Token invalidToken() { return reinterpret_cast<Token>(static_cast<std::intptr_t>(-1)); }

    /// Destroys the provider.
    virtual ~LogonProvider();
    /// Logs the user on; on success stores a token to impersonate and close.
    /// logonType is the Windows LOGON32_LOGON_* value.
    virtual bool logonUser(const std::wstring& user, const std::wstring& domain,
                           const std::wstring& password, int logonType, Token* token) = 0;
    /// Makes the calling thread act as the user of token; false on failure
    /// (see lastError()).
    virtual bool impersonateLoggedOnUser(Token token) = 0;
    /// Ends the calling thread's impersonation; false on failure.
    virtual bool revertToSelf() = 0;
    /// Releases a token from logonUser(); null and invalidToken() are ignored.
    virtual void closeToken(Token token) = 0;
    /// The error code of the last failed call on this thread.
    virtual unsigned long lastError() const = 0;
};

/// The provider in use; the platform's own unless one was installed.
COMMONKIT_EXPORT LogonProvider& logonProvider();
/// Installs a provider (not owned) and returns the previous one; null restores
/// the platform's own. The switch is atomic; a provider must stay alive while
/// installed and while calls made through it run.
COMMONKIT_EXPORT LogonProvider* setLogonProvider(LogonProvider* provider);

/// The platform's own provider.
COMMONKIT_EXPORT LogonProvider& systemLogonProvider();

/// The directory for the user's log files, UTF-8: %LOCALAPPDATA% on Windows;
/// $XDG_STATE_HOME or ~/.local/state on Linux; ~/Library/Logs on macOS.
COMMONKIT_EXPORT std::string userLogDir();

} // namespace platform
} // namespace ko
