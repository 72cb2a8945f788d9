// Windows implementation of the platform interface.

#include <CommonKit/platform/Platform.h>

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#include <io.h>

#include <cstdlib>

namespace ko {
namespace platform {

namespace {

HANDLE osHandle(int fd)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(fd));
}

OVERLAPPED overlappedAt(std::uint64_t offset)
{
    OVERLAPPED overlapped = {};
    overlapped.Offset = static_cast<DWORD>(offset & 0xFFFFFFFFu);
    overlapped.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return overlapped;
}

class WindowsLogonProvider : public LogonProvider
{
public:
    bool logonUser(const std::wstring& user, const std::wstring& domain, const std::wstring& password,
                   int logonType, Token* token) override
    {
        HANDLE handle = INVALID_HANDLE_VALUE;
        const BOOL ok = LogonUserW(user.c_str(), domain.c_str(), password.c_str(), static_cast<DWORD>(logonType),
                                   LOGON32_PROVIDER_DEFAULT, &handle);
        if (token)
            *token = handle;
        return ok != FALSE;
    }
    bool impersonateLoggedOnUser(Token token) override
    {
        return ImpersonateLoggedOnUser(static_cast<HANDLE>(token)) != FALSE;
    }
    bool revertToSelf() override { return RevertToSelf() != FALSE; }
    void closeToken(Token token) override
    {
        if (token && token != INVALID_HANDLE_VALUE)
            CloseHandle(static_cast<HANDLE>(token));
    }
    unsigned long lastError() const override { return GetLastError(); }
};

std::string toUtf8(const wchar_t* text)
{
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (size <= 1)
        return std::string();
    std::string result(static_cast<size_t>(size - 1), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, &result[0], size, nullptr, nullptr);
    return result;
}

} // namespace

bool isSameFile(int, const std::string&)
{
    return true;
}

FileIdentity fileIdentity(int)
{
    return FileIdentity();
}

bool isFileAt(const FileIdentity&, const std::string&)
{
    return true;
}

int lockFileRange(int fd, std::uint64_t offset, std::uint64_t length)
{
    const HANDLE handle = osHandle(fd);
    if (handle == INVALID_HANDLE_VALUE)
        return ERROR_INVALID_HANDLE;
    OVERLAPPED overlapped = overlappedAt(offset);
    const BOOL ok = LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0,
                               static_cast<DWORD>(length & 0xFFFFFFFFu), static_cast<DWORD>(length >> 32),
                               &overlapped);
    return ok ? 0 : static_cast<int>(GetLastError());
}

int unlockFileRange(int fd, std::uint64_t offset, std::uint64_t length)
{
    const HANDLE handle = osHandle(fd);
    if (handle == INVALID_HANDLE_VALUE)
        return ERROR_INVALID_HANDLE;
    OVERLAPPED overlapped = overlappedAt(offset);
    const BOOL ok = UnlockFileEx(handle, 0, static_cast<DWORD>(length & 0xFFFFFFFFu),
                                 static_cast<DWORD>(length >> 32), &overlapped);
    return ok ? 0 : static_cast<int>(GetLastError());
}

LogonProvider& systemLogonProvider()
{
    static WindowsLogonProvider provider;
    return provider;
}

std::string userLogDir()
{
    if (const wchar_t* local = _wgetenv(L"LOCALAPPDATA"); local && *local)
        return toUtf8(local);
    if (const wchar_t* profile = _wgetenv(L"USERPROFILE"); profile && *profile)
        return toUtf8(profile) + "\\AppData\\Local";
    return std::string();
}

} // namespace platform
} // namespace ko
