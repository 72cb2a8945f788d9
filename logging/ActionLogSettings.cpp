// The action log's location, persisted settings, user name and logon.

#include "logging/ActionLog.h"

#include "logging/ActionLogException.h"
#include "logging/IAccessGroup.h"
#include "platform/Platform.h"
#include "storage/IPersistDestination.h"
#include "support/fileutils/FileUtils.h"

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
    QMutexLocker locker(m_mutex);
    if (user == m_user && password == m_password)
        return;
    m_user = user;
    m_password = password;
    m_credentialsChanged = true;
}

void ActionLog::fileUserPassword(QString& user, QString& password) const
{
    QMutexLocker locker(m_mutex);
    user = m_user;
    password = m_password;
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
    if (result.isEmpty()) {
        // The one variable, not a copy of the whole environment: this runs
        // for every entry logged. Set but empty still names " (System)".
        const QByteArray name = qgetenv("USERNAME");
        if (!name.isNull())
            result = QString::fromLocal8Bit(name) + QStringLiteral(" (System)");
    }
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
    m_password = QString::fromLocal8Bit(
        QByteArray::fromBase64(destination->value(QStringLiteral("ActionLogPassword"), QByteArray()).toByteArray()));

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
    destination->setValue(QStringLiteral("ActionLogPassword"), m_password.toLocal8Bit().toBase64());
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
    if (!provider.logonUser(m_user.toStdWString(), L".", m_password.toStdWString(), logonType(), &m_logonToken))
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
