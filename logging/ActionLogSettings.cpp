// The action log's location, persisted settings, user name and logon.

#include <CommonKit/logging/ActionLog.h>

#include <CommonKit/logging/ActionLogException.h>
#include <CommonKit/logging/IAccessGroup.h>
#include <CommonKit/platform/Platform.h>
#include <CommonKit/storage/IPersistDestination.h>
#include <CommonKit/support/fileutils/FileUtils.h>

#include <QCoreApplication>
#include <QMutex>
#include <QMutexLocker>

namespace ko {
namespace {

const char* const k_logonErrorText = QT_TRANSLATE_NOOP(
    "ActionLog",
    "Could not logon user '%1' (error code '%2').\nPlease check your settings in 'Tools > Options > Logging'!");

// Windows LOGON32_LOGON_* values.
enum LogonType { LogonInteractive = 2, LogonNetwork = 3, LogonNewCredentials = 9 };

// Impersonation reports success with a last error up to this value.
constexpr unsigned long k_impersonationErrorThreshold = 4;

ActionLogImpersonateException logonFailure(const QString& user, unsigned long code)
{
    const QString message =
        QCoreApplication::translate("ActionLog", k_logonErrorText).arg(user, QString::number(code));
    return ActionLogImpersonateException(message, user, static_cast<int>(code));
}

// Wipes the bytes of a temporary copy of the password before Qt frees them.
// (A copy still shared with another string is left to that string.)
void wipe(QByteArray& bytes)
{
    if (!bytes.isEmpty() && !bytes.isDetached())
        bytes.clear();
    else if (!bytes.isEmpty())
        crypto::zeroOut(bytes.data(), static_cast<std::size_t>(bytes.size()));
}

void wipe(QString& text)
{
    if (!text.isEmpty() && !text.isDetached())
        text.clear();
    else if (!text.isEmpty())
        crypto::zeroOut(text.data(), static_cast<std::size_t>(text.size()) * sizeof(QChar));
}

// A short secure string keeps its bytes in the object itself, out of the
// allocator's reach: wipe them before the string is replaced or destroyed.
void wipe(crypto::secure_string& secret)
{
    if (!secret.empty())
        crypto::zeroOut(&secret[0], secret.size());
    secret.clear();
}

// The UTF-8 bytes of a password, straight into wiped memory.
crypto::secure_string secureUtf8(const QString& password)
{
    QByteArray utf8 = password.toUtf8();
    crypto::secure_string result(utf8.constData(), static_cast<std::size_t>(utf8.size()));
    wipe(utf8);
    return result;
}

} // namespace

const QString ActionLog::mLocalAppData = QStringLiteral("%LOCALAPPDATA%");

QFileInfo ActionLog::defaultFileInfo()
{
    const QString application = QCoreApplication::applicationName();
    return QFileInfo(FileUtils::userLogDir().absolutePath() + QLatin1Char('/')
                     + QCoreApplication::organizationName() + QLatin1Char('/') + application + QLatin1Char('/')
                     + application + QStringLiteral(".kol"));
}

void ActionLog::setFileUserPassword(const QString& user, const QString& password)
{
    crypto::secure_string given = secureUtf8(password);
    QMutexLocker locker(m_mutex);
    if (user == m_user && given == m_password) {
        wipe(given);
        return;
    }
    m_user = user;
    wipe(m_password);
    m_password.assign(given.data(), given.size());
    wipe(given);
    m_credentialsChanged = true;
}

void ActionLog::fileUserPassword(QString& user, QString& password) const
{
    QMutexLocker locker(m_mutex);
    user = m_user;
    password = QString::fromUtf8(m_password.data(), static_cast<int>(m_password.size()));
}

QString ActionLog::userName() const
{
    QMutexLocker locker(m_mutex);
    QString result;
    if (m_accessGroup) {
        const QString qualifier = m_accessGroup->groupName();
        result = qualifier.isEmpty() ? m_accessGroup->userName()
                                     : m_accessGroup->userName() + QStringLiteral(" (") + qualifier
                                           + QLatin1Char(')');
    }
    // The first "USERNAME=" of the environment, as getenv finds it; reading
    // the one variable spares copying the whole environment for every entry.
    if (result.isEmpty() && qEnvironmentVariableIsSet("USERNAME"))
        result = qEnvironmentVariable("USERNAME") + QStringLiteral(" (System)");
    return result;
}

void ActionLog::load(IPersistDestination* destination)
{
    if (!destination)
        return;
    QMutexLocker locker(m_mutex);
    const QFileInfo defaultInfo = defaultFileInfo();
    destination->beginGroup(QStringLiteral("ActionLog"));
    m_splitPolicy = static_cast<ESplitPolicy>(destination->value(QStringLiteral("SplitState"), 8).toInt());
    m_splitSize = destination->value(QStringLiteral("SplitSize"), 1048576).toInt();
    m_user = destination->value(QStringLiteral("ActionLogUser"), QString()).toString();
    {
        QByteArray stored = destination->value(QStringLiteral("ActionLogPassword"), QByteArray()).toByteArray();
        QByteArray local = QByteArray::fromBase64(stored);
        QString password = QString::fromLocal8Bit(local);
        crypto::secure_string given = secureUtf8(password);
        wipe(m_password);
        m_password.assign(given.data(), given.size());
        wipe(given);
        wipe(stored);
        wipe(local);
        wipe(password);
    }

    QString path = destination->value(QStringLiteral("ActionLogPath"), defaultInfo.absoluteFilePath()).toString();
    if (path.startsWith(mLocalAppData))
        path.replace(0, mLocalAppData.size(), defaultInfo.absolutePath());
    m_defaultActive = destination->value(QStringLiteral("isDefaultLogPath"), true).toBool();
    m_customFileInfo = QFileInfo(path);

    if (!m_defaultActive) {
        if (!m_customFileInfo.fileName().isEmpty()
            && m_customFileInfo.absoluteFilePath() != m_fileInfo.absoluteFilePath()) {
            removeAllLogEntries();
            switchFileHandle(path);
        }
    } else if (m_fileInfo.absoluteFilePath() != defaultInfo.absoluteFilePath()) {
        removeAllLogEntries();
        switchFileHandle(defaultInfo.absoluteFilePath());
    }
    m_logonMode = destination->value(QStringLiteral("LogonMode"), 1).toInt();
    destination->endGroup();
}

void ActionLog::save(IPersistDestination* destination)
{
    if (!destination)
        return;
    QMutexLocker locker(m_mutex);
    const QFileInfo defaultInfo = defaultFileInfo();
    destination->beginGroup(QStringLiteral("ActionLog"));
    destination->setValue(QStringLiteral("SplitState"), static_cast<int>(m_splitPolicy));
    destination->setValue(QStringLiteral("SplitSize"), m_splitSize);
    destination->setValue(QStringLiteral("ActionLogUser"), m_user);
    {
        QString password = QString::fromUtf8(m_password.data(), static_cast<int>(m_password.size()));
        QByteArray local = password.toLocal8Bit();
        destination->setValue(QStringLiteral("ActionLogPassword"), local.toBase64());
        wipe(password);
        wipe(local);
    }
    destination->setValue(QStringLiteral("isDefaultLogPath"), m_defaultActive);
    const QString path = m_customFileInfo.absolutePath() == defaultInfo.absolutePath()
                             ? mLocalAppData + QLatin1Char('/') + m_customFileInfo.fileName()
                             : m_customFileInfo.absoluteFilePath();
    destination->setValue(QStringLiteral("ActionLogPath"), path);
    destination->endGroup();
}

int ActionLog::logonType() const
{
    switch (m_logonMode) {
    case 1:
        return LogonInteractive;
    case 2:
        return LogonNetwork;
    default:
        return LogonNewCredentials;
    }
}

void ActionLog::openLogon()
{
    platform::LogonProvider& provider = platform::logonProvider();
    m_logonToken = platform::LogonProvider::invalidToken();
    // A UNC path: the share is reached with new credentials whatever the
    // configured mode (close() restores it). Checked on the path as given too,
    // as only Windows keeps the leading "//" in absolute paths.
    const QString uncPrefix = QStringLiteral("//");
    if (m_fileInfo.absolutePath().startsWith(uncPrefix) || m_fileInfo.filePath().startsWith(uncPrefix))
        m_logonMode = 0;
    if (m_user.isEmpty())
        return;
    QString password = QString::fromUtf8(m_password.data(), static_cast<int>(m_password.size()));
    std::wstring widePassword = password.toStdWString();
    wipe(password);
    const bool loggedOn = provider.logonUser(m_user.toStdWString(), L".", widePassword, logonType(), &m_logonToken);
    crypto::zeroOut(&widePassword[0], widePassword.size() * sizeof(wchar_t));
    if (!loggedOn)
        throw logonFailure(m_user, provider.lastError());
    (void)provider.impersonateLoggedOnUser(m_logonToken);
    const unsigned long code = provider.lastError();
    if (code > k_impersonationErrorThreshold)
        throw logonFailure(m_user, code);
}

void ActionLog::endLogon()
{
    platform::LogonProvider& provider = platform::logonProvider();
    (void)provider.revertToSelf();
    provider.closeToken(m_logonToken);
    m_logonToken = platform::LogonProvider::invalidToken();
}

} // namespace ko
