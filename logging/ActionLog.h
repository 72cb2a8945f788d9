#pragma once

#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/platform/Platform.h>
#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/crypto/SecureAllocator.h>
#include <CommonKit/support/fileutils/FileEncrypt.h>

#include <QDateTime>
#include <QFileInfo>
#include <QIODevice>
#include <QList>
#include <QObject>
#include <QString>

#include <string>

class QMutex;
class QTextStream;

namespace ko {

class IAccessGroup;
class IPersistDestination;
class XMLLogWriter;

/// The process-wide action log: keeps the entries of the current log file in
/// memory for display, appends new entries to the file (see
/// docs/action-log.md for the file's life and docs/action-log-format.md for its
/// bytes), rolls the file over by day, week, month or size, switches to another
/// file on request and reports every failure by signal; no exception reaches
/// the caller.
///
/// The log starts muted: log() does nothing until mute(false). Every public
/// operation is guarded by one recursive mutex; signals are emitted on the
/// calling thread with that mutex held.
///
///     ko::ActionLog* log = ko::ActionLog::getInstance();
///     log->mute(false);
///     MyEntry entry;              // a registered LogEntry kind
///     log->log(entry);            // time and user are stamped into `entry`
class COMMONKIT_EXPORT ActionLog : public QObject
{
    Q_OBJECT

public:
    /// Values of splitPolicy(); any other value behaves like NoSplit.
    enum ESplitPolicy : int { NoSplit = 0, Daily = 1, Weekly = 2, Monthly = 4, BySize = 8 };
    Q_ENUM(ESplitPolicy)

    /// The single instance, created on first call on the default file (whose
    /// directory is created if missing). Safe to call from several threads.
    static ActionLog* getInstance();
    /// Destroys the single instance; the next getInstance() makes a new one.
    static void deleteActionLog();

    /// A log on the file at path. Nothing is read or opened yet.
    explicit ActionLog(const QString& path);
    ~ActionLog() override;
    ActionLog(const ActionLog&) = delete;
    ActionLog& operator=(const ActionLog&) = delete;

    /// The entries of the current file in file order (owned by the log).
    int count() const;
    /// The entry at index, or null when out of range.
    LogEntry* entry(int index);
    /// The entry at index, or null when out of range.
    const LogEntry* entry(int index) const;

    /// The translated name "ActionLog".
    QString name() const;

    /// Appends the entry to the file and to the in-memory list. Overwrites the
    /// time and the user of the caller's entry (it is stamped in place).
    /// Failures are reported by the error signals; the entry is then lost.
    void log(const LogEntry& entry);
    /// Reads the current file into memory, if it exists.
    void readLog();
    /// Reads the current file and opens it for appending, if not open yet.
    void activate();
    /// Logs a context-switch entry into the old and the new file and
    /// continues on newPath.
    void switchFileHandle(const QString& newPath);
    /// Continues on another file: clears the in-memory entries and switches,
    /// when info names another file or the credentials changed.
    void setFileInfo(const QFileInfo& info);
    /// Copies the current file to name (a file name in the current file's
    /// directory; the full path is written back), then removes the current
    /// file. Fails when the current file is not writable or the target exists;
    /// errorString() then tells why.
    [[nodiscard]] bool backupFile(QString& name);

    /// Why the last file operation failed, translated, with the file's name:
    /// a backupFile() or one of the protected file operations that returned
    /// false, or the failure a public operation last reported by signal.
    /// Failures are still reported by the signals as well.
    QString errorString() const;

    /// Muted, log() drops every entry; the log starts muted.
    void mute(bool muted);
    /// Whether log() drops entries.
    bool isMuted() const;

    /// Whether the default file is in use (then no logon is made to open it).
    bool defaultActive() const;
    /// Says whether the default file is in use.
    void setDefaultActive(bool active);
    /// The file logged to now.
    QFileInfo fileInfo() const;
    /// The last file other than the default one that was switched to.
    QFileInfo customFileInfo() const;

    /// When the file rolls over (BySize by default).
    ESplitPolicy splitPolicy() const;
    /// The size in bytes beyond which BySize rolls over (1048576 by default).
    int splitSize() const;
    /// Sets the rollover size in bytes.
    void setSplitSize(int size);
    /// Sets the rollover policy and size together.
    void setSplitPolicy(ESplitPolicy policy, int size);

    /// The source of the user name of entries; not owned, may be null.
    void setAccessGroup(IAccessGroup* group);
    /// The application version written into the header of new files.
    void setAppVersion(const QString& version);
    /// The language version written into the header of new files.
    void setLngVersion(const QString& version);

    /// Holds a one-byte lock on the open file from the next opening on, so
    /// that a second process cannot use the same file.
    void lock();

    // --- location, settings and logon (ActionLogSettings.cpp) ---

    /// The placeholder that stands for the default file's directory in the
    /// stored path: "%LOCALAPPDATA%".
    static const QString mLocalAppData;

    /// `<user log dir>/<organization>/<application>/<application>.kol`
    static QFileInfo defaultFileInfo();

    /// Stores the logon credentials for a custom file; a change makes the next
    /// setFileInfo() reopen the file even on the same path.
    void setFileUserPassword(const QString& user, const QString& password);
    /// The stored logon credentials.
    void fileUserPassword(QString& user, QString& password) const;

    /// The user written into every entry: from the access group if set
    /// ("name (qualifier)" or "name"), else "$USERNAME (System)", else empty.
    QString userName() const;

    /// Reads the settings from the group "ActionLog" of the destination and
    /// continues on the file they name; a null destination is ignored.
    void load(IPersistDestination* destination);
    /// Writes the settings to the group "ActionLog" of the destination; a
    /// null destination is ignored.
    void save(IPersistDestination* destination);

signals:
    /// Entries first to last (indices) are about to be appended.
    void addingLogEntries(int first, int last);
    /// Entries first to last were appended.
    void logEntriesAdded(int first, int last);
    /// Entries first to last are about to be removed. When all entries go at
    /// once, last is the count (one past the last index).
    void removingLogEntries(int first, int last);
    /// Entries first to last were removed (last as in removingLogEntries()).
    void logEntriesRemoved(int first, int last);
    /// The logon as user for a custom file failed with the system error code;
    /// the log went back to the default file.
    void errorLogon(const QString& user, int errorCode);
    /// An operation on file failed; type is an ActionLogFileException::eType.
    void errorFile(const QString& file, int type);
    /// The file is not well-formed XML at line and column; it was moved aside
    /// when logging met it.
    void errorXml(const QString& error, int line, int column);
    /// Logging continues on the file named fileName (without directory).
    void switchedFileHandle(const QString& fileName);
    /// Kept for listeners written against it: the log reports an invalid
    /// header through errorFile() with type InvalidHeader and never emits
    /// this signal.
    void incompatibleHeader();

protected:
    /// Adds an owned entry at the end.
    void append(LogEntry* entry);
    /// Writes list as a complete document to path, unless a file exists there.
    [[nodiscard]] bool backupEntries(QList<LogEntry*>& list, const QString& path);
    /// Removes and deletes the in-memory entries that are in list.
    [[nodiscard]] bool deleteEntries(QList<LogEntry*>& list);
    /// Removes and deletes all in-memory entries (see removingLogEntries()).
    void removeAllLogEntries();
    /// Reads the file into memory; with a writable mode the file stays open,
    /// positioned after the last complete entry (a partly written entry at
    /// the end is cut off).
    [[nodiscard]] bool readEntries(QIODevice::OpenMode mode);
    /// Opens file in mode (under the logon for a custom file), unless it is
    /// open; takes the byte lock when lock() asked for it. Throws
    /// ActionLogFileException when the file cannot be opened or has no XML
    /// header, ActionLogImpersonateException when the logon fails; false when
    /// the lock cannot be taken.
    [[nodiscard]] bool open(QFile& file, QIODevice::OpenMode mode);
    /// open() on the current file in mode, as text.
    [[nodiscard]] bool openForReading(QIODevice::OpenMode mode);
    /// Makes the current file ready for appending; a file not yet open is
    /// started anew with the document's header.
    [[nodiscard]] bool openForWriting();
    /// Makes the stream and the XML writer of the current file.
    void initWriting();
    /// Closes the current file, releasing the byte lock.
    void close();
    /// Closes a log document for good by appending "</Entries>".
    [[nodiscard]] bool finalize(QFile& file);
    /// Rolls the file over when the policy says so: moves it aside under a
    /// name of the period (or of the time, for BySize) and clears the entries.
    /// False when a BySize rollover could not move the file.
    [[nodiscard]] bool split();

    /// The time stamped into logged entries; the current local date-time.
    virtual QDateTime currentDateTime() const;

private:
    /// Takes its first rows and connects under the log's lock.
    friend class ActionLogModel;

    void logLocked(const LogEntry& entry);
    template<typename Operation>
    void signalFailures(Operation operation);
    void writeEntry(const LogEntry& entry);
    void followReplacedFile();
    void cutPartialEntry(qint64 completeCharacters, qint64 readCharacters);
    QString backupName(const QString& suffix) const;
    bool fail(const QString& reason);
    void noteFailure(bool succeeded, const char* where);
    void openLogon();
    void endLogon();
    int logonType() const;

    bool m_defaultActive = true;
    bool m_credentialsChanged = false;
    QList<LogEntry*> m_entries;
    QDateTime m_previousEntryTime;
    QDateTime m_currentEntryTime;
    IAccessGroup* m_accessGroup = nullptr;
    QString m_appVersion;
    QString m_lngVersion;
    XMLLogWriter* m_writer = nullptr;
    QTextStream* m_stream = nullptr;
    FileEncrypt m_file;
    platform::FileIdentity m_openIdentity; // of m_file, as it was opened
    std::string m_openPath;                // m_file's name, encoded
    QFileInfo m_fileInfo;
    QFileInfo m_customFileInfo;
    QMutex* m_mutex;
    bool m_muted = true;
    ESplitPolicy m_splitPolicy = BySize;
    int m_splitSize = 1048576;
    crypto::secure_string m_password; // UTF-8, wiped when released
    QString m_user;
    bool m_lockEnabled = false;
    int m_logonMode = 1;
    void* m_logonToken;
    quint32 m_lockLength = 1;
    quint64 m_lockOffset = 1;
    QString m_errorString;
};

/// The split policies under the namespace as well: ko::ESplitPolicy.
using ESplitPolicy = ActionLog::ESplitPolicy;

} // namespace ko
