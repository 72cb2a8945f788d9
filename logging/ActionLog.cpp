#include <CommonKit/logging/ActionLog.h>

#include <CommonKit/logging/ActionLogContextSwitchEntry.h>
#include <CommonKit/logging/ActionLogException.h>
#include "logging/LocalTime_p.h"
#include <CommonKit/logging/XMLLogReader.h>
#include <CommonKit/logging/XMLLogWriter.h>
#include <CommonKit/platform/Platform.h>
#include <CommonKit/support/core/Log.h>

#include <QCoreApplication>
#include <QDir>
#include <QMutex>
#include <QMutexLocker>
#include <QTextStream>

#include <limits>
#include <memory>

namespace ko {
namespace {

QMutex g_instanceMutex;
ActionLog* g_instance = nullptr;

const char* const k_xmlErrorText = QT_TRANSLATE_NOOP("ActionLog", "Error reading log file '%1'; Line '%2'; Column '%3'");
const char* const k_openErrorText = QT_TRANSLATE_NOOP("ActionLog", "Could not open file '%1'");
const char* const k_writeErrorText = QT_TRANSLATE_NOOP("ActionLog", "Could not write file '%1': %2");
const char* const k_headerErrorText = QT_TRANSLATE_NOOP("ActionLog", "Action log '%1' invalid header version.");
// errorString() texts: the file's name and the reason.
const char* const k_openReasonText = QT_TRANSLATE_NOOP("ActionLog", "Could not open file '%1': %2");
const char* const k_readReasonText =
    QT_TRANSLATE_NOOP("ActionLog", "Could not read file '%1': %2 (line %3, column %4)");
const char* const k_lockReasonText = QT_TRANSLATE_NOOP("ActionLog", "Could not lock file '%1'");
const char* const k_backupExistsText =
    QT_TRANSLATE_NOOP("ActionLog", "Could not back up '%1' to '%2': the backup file exists");
const char* const k_backupReadOnlyText =
    QT_TRANSLATE_NOOP("ActionLog", "Could not back up '%1' to '%2': the file is not writable");
const char* const k_backupCopyText = QT_TRANSLATE_NOOP("ActionLog", "Could not back up '%1' to '%2': %3");

QString translate(const char* text)
{
    return QCoreApplication::translate("ActionLog", text);
}

int clampToInt(qint64 value)
{
    return value > std::numeric_limits<int>::max() ? std::numeric_limits<int>::max() : static_cast<int>(value);
}

// The byte offset of the first `characters` UTF-16 units of the UTF-8 text
// in file, as the XML reader counts them.
qint64 byteOffsetOfCharacters(QFile& file, qint64 characters)
{
    if (!file.seek(0))
        return -1;
    qint64 bytes = 0;
    qint64 units = 0;
    int pending = 0; // continuation bytes still expected
    while (units < characters) {
        const QByteArray chunk = file.read(1 << 16);
        if (chunk.isEmpty())
            return -1;
        for (const char c : chunk) {
            const auto byte = static_cast<unsigned char>(c);
            ++bytes;
            if (pending > 0 && (byte & 0xC0) == 0x80) {
                if (--pending == 0 && units >= characters)
                    return bytes;
                continue;
            }
            pending = 0;
            if (byte >= 0xF0) {
                units += 2;
                pending = 3;
            } else if (byte >= 0xE0) {
                units += 1;
                pending = 2;
            } else if (byte >= 0xC0) {
                units += 1;
                pending = 1;
            } else {
                units += 1;
            }
            if (units >= characters && pending == 0)
                return bytes;
        }
    }
    return bytes;
}

} // namespace

ActionLog* ActionLog::getInstance()
{
    QMutexLocker locker(&g_instanceMutex);
    if (!g_instance) {
        const QFileInfo info = defaultFileInfo();
        QDir().mkpath(info.absolutePath());
        g_instance = new ActionLog(info.absoluteFilePath());
    }
    return g_instance;
}

void ActionLog::deleteActionLog()
{
    QMutexLocker locker(&g_instanceMutex);
    delete g_instance;
    g_instance = nullptr;
}

ActionLog::ActionLog(const QString& path)
    : m_file(path),
      m_fileInfo(path),
      m_customFileInfo(path),
      m_mutex(new QMutex(QMutex::Recursive)),
      m_logonToken(platform::LogonProvider::invalidToken())
{
}

ActionLog::~ActionLog()
{
    delete m_writer;
    delete m_stream;
    close();
    qDeleteAll(m_entries);
    delete m_mutex;
    // A short password sits in the string object, where the allocator does
    // not wipe it.
    if (!m_password.empty())
        crypto::zeroOut(&m_password[0], m_password.size());
}

int ActionLog::count() const
{
    QMutexLocker locker(m_mutex);
    return m_entries.size();
}

LogEntry* ActionLog::entry(int index)
{
    QMutexLocker locker(m_mutex);
    return index >= 0 && index < m_entries.size() ? m_entries.at(index) : nullptr;
}

const LogEntry* ActionLog::entry(int index) const
{
    return const_cast<ActionLog*>(this)->entry(index);
}

QString ActionLog::name() const
{
    return QCoreApplication::translate("ActionLog", "ActionLog");
}

void ActionLog::mute(bool muted)
{
    QMutexLocker locker(m_mutex);
    m_muted = muted;
}

bool ActionLog::isMuted() const
{
    QMutexLocker locker(m_mutex);
    return m_muted;
}

void ActionLog::log(const LogEntry& entry)
{
    QMutexLocker locker(m_mutex);
    if (m_muted)
        return;
    try {
        logLocked(entry);
    } catch (const ActionLogFileException& e) {
        if (e.type() == ActionLogFileException::InvalidHeader) {
            QString name = backupName(QStringLiteral(".kol.invalidHeader"));
            if (backupFile(name))
                emit errorFile(e.file(), ActionLogFileException::InvalidHeader);
            else
                emit errorFile(name, ActionLogFileException::BackupFailed);
        } else {
            if (m_fileInfo.absoluteFilePath() != defaultFileInfo().absoluteFilePath())
                setFileInfo(defaultFileInfo());
            emit errorFile(e.file(), e.type());
        }
    } catch (const ActionLogXmlException& e) {
        emit errorXml(e.error(), e.line(), e.colum());
        QString name = backupName(QStringLiteral(".kol.corrupt"));
        if (!backupFile(name))
            emit errorFile(name, ActionLogFileException::BackupFailed);
    } catch (const ActionLogImpersonateException& e) {
        setFileInfo(defaultFileInfo());
        emit errorLogon(e.user(), e.error());
    }
}

void ActionLog::logLocked(const LogEntry& entry)
{
    // The entry is stamped in place: the caller sees the time and user that
    // went into the file.
    auto& stamped = const_cast<LogEntry&>(entry);
    stamped.setTime(currentDateTime());
    stamped.setUser(userName());

    followReplacedFile();
    m_currentEntryTime = entry.time();
    m_previousEntryTime = m_entries.isEmpty() ? entry.time() : m_entries.last()->time();
    // A file that cannot be moved aside takes the entry all the same.
    noteFailure(split(), "ko::ActionLog::log");

    if (!m_file.isOpen()) {
        noteFailure(readEntries(QIODevice::ReadWrite), "ko::ActionLog::log");
        noteFailure(openForWriting(), "ko::ActionLog::log");
    } else {
        initWriting();
    }
    writeEntry(entry);

    LogEntry* copy = entry.clone();
    if (!copy)
        return;
    const int n = m_entries.size();
    emit addingLogEntries(n, n);
    m_entries.append(copy);
    emit logEntriesAdded(n, n);
}

void ActionLog::writeEntry(const LogEntry& entry)
{
    if (!m_file.isOpen() || !m_writer)
        return;
    const qint64 before = m_file.pos();
    m_file.unsetError();
    entry.writeTo(*m_writer);
    // Each entry reaches the operating system before log() returns, so a
    // crash of the process loses no entry that was reported logged.
    if (m_file.flush() && m_file.error() == QFileDevice::NoError)
        return;
    // A write that failed part-way (disk full, a file size limit) must not
    // leave half an entry for the next one to follow: cut the file back to
    // where the entry began and start again from the file on the next entry.
    const QString name = m_file.fileName();
    const QString reason = m_file.errorString();
    m_file.QFile::close();
    m_file.unsetError();
    QFile::resize(name, before);
    removeAllLogEntries();
    fail(translate(k_writeErrorText).arg(name, reason));
    throw ActionLogFileException(m_errorString, name, ActionLogFileException::WriteFailed);
}

// Another process may remove or replace the open file (a cleanup, a
// rollover of its own); entries written to the old handle would reach no
// file. Continue with whatever file the path names now.
void ActionLog::followReplacedFile()
{
    if (!m_file.isOpen() || platform::isFileAt(m_openIdentity, m_openPath))
        return;
    LogLine(Log::Warning, "ko::ActionLog::log")
        << "'" << m_file.fileName() << "' was removed or replaced while open; continuing with the file now there";
    close();
    removeAllLogEntries();
}

void ActionLog::readLog()
{
    QMutexLocker locker(m_mutex);
    if (!QFile::exists(m_fileInfo.absoluteFilePath()))
        return;
    signalFailures([this] {
        m_fileInfo.refresh();
        if (m_fileInfo.isWritable()) {
            noteFailure(readEntries(QIODevice::ReadWrite), "ko::ActionLog::readLog");
        } else {
            noteFailure(readEntries(QIODevice::ReadOnly), "ko::ActionLog::readLog");
            close();
        }
    });
}

void ActionLog::activate()
{
    QMutexLocker locker(m_mutex);
    if (m_file.isOpen())
        return;
    signalFailures([this] {
        noteFailure(readEntries(QIODevice::ReadWrite), "ko::ActionLog::activate");
        noteFailure(openForWriting(), "ko::ActionLog::activate");
    });
}

// Reading and activating report failures without moving any file.
template<typename Operation>
void ActionLog::signalFailures(Operation operation)
{
    try {
        operation();
    } catch (const ActionLogXmlException& e) {
        close();
        emit errorXml(e.error(), e.line(), e.colum());
    } catch (const ActionLogImpersonateException& e) {
        emit errorLogon(e.user(), e.error());
    } catch (const ActionLogFileException& e) {
        emit errorFile(e.file(), e.type());
    }
}

void ActionLog::switchFileHandle(const QString& newPath)
{
    QMutexLocker locker(m_mutex);
    ActionLogContextSwitchEntry entry(m_fileInfo.absoluteFilePath(), newPath);
    if (m_file.isOpen()) {
        log(entry);
        close();
    }
    m_file.setFileName(newPath);
    m_fileInfo = QFileInfo(newPath);
    if (m_fileInfo.absoluteFilePath() == defaultFileInfo().absoluteFilePath()) {
        m_defaultActive = true;
    } else {
        m_defaultActive = false;
        m_customFileInfo = m_fileInfo;
    }
    log(entry);
    emit switchedFileHandle(m_fileInfo.fileName());
}

void ActionLog::setFileInfo(const QFileInfo& info)
{
    QMutexLocker locker(m_mutex);
    if (info.absoluteFilePath() != m_fileInfo.absoluteFilePath() || m_credentialsChanged) {
        removeAllLogEntries();
        switchFileHandle(info.absoluteFilePath());
        m_credentialsChanged = false;
    }
}

bool ActionLog::backupFile(QString& name)
{
    QMutexLocker locker(m_mutex);
    name.prepend(m_fileInfo.absolutePath() + QLatin1Char('/'));
    m_fileInfo.refresh();
    const QString current = m_file.fileName();
    if (!m_fileInfo.isWritable())
        return fail(translate(k_backupReadOnlyText).arg(current, name));
    if (QFile::exists(name))
        return fail(translate(k_backupExistsText).arg(current, name));
    // Copying closes the device (not through close(): the lock goes with the
    // handle and logonMode stays); the next write starts a new file.
    m_file.QFile::close();
    QFile source(current);
    if (!source.copy(name))
        return fail(translate(k_backupCopyText).arg(current, name, source.errorString()));
    if (!QFile::remove(m_file.fileName())) {
        LogLine(Log::Warning, "ko::ActionLog::backupFile")
            << "copied '" << m_file.fileName() << "' to '" << name << "' but could not remove it";
    }
    return true;
}

QString ActionLog::errorString() const
{
    QMutexLocker locker(m_mutex);
    return m_errorString;
}

// Records why an operation failed; false, for `return fail(...)`.
bool ActionLog::fail(const QString& reason)
{
    QMutexLocker locker(m_mutex);
    m_errorString = reason;
    return false;
}

// Operations whose failure the caller goes on after leave a diagnostic line.
void ActionLog::noteFailure(bool succeeded, const char* where)
{
    if (!succeeded)
        LogLine(Log::Warning, where) << m_errorString;
}

bool ActionLog::defaultActive() const
{
    QMutexLocker locker(m_mutex);
    return m_defaultActive;
}

void ActionLog::setDefaultActive(bool active)
{
    QMutexLocker locker(m_mutex);
    m_defaultActive = active;
}

QFileInfo ActionLog::fileInfo() const
{
    QMutexLocker locker(m_mutex);
    return m_fileInfo;
}

QFileInfo ActionLog::customFileInfo() const
{
    QMutexLocker locker(m_mutex);
    return m_customFileInfo;
}

ActionLog::ESplitPolicy ActionLog::splitPolicy() const
{
    QMutexLocker locker(m_mutex);
    return m_splitPolicy;
}

int ActionLog::splitSize() const
{
    QMutexLocker locker(m_mutex);
    return m_splitSize;
}

void ActionLog::setSplitSize(int size)
{
    QMutexLocker locker(m_mutex);
    m_splitSize = size;
}

void ActionLog::setSplitPolicy(ESplitPolicy policy, int size)
{
    QMutexLocker locker(m_mutex);
    m_splitPolicy = policy;
    m_splitSize = size;
}

void ActionLog::setAccessGroup(IAccessGroup* group)
{
    QMutexLocker locker(m_mutex);
    m_accessGroup = group;
}

void ActionLog::setAppVersion(const QString& version)
{
    QMutexLocker locker(m_mutex);
    m_appVersion = version;
}

void ActionLog::setLngVersion(const QString& version)
{
    QMutexLocker locker(m_mutex);
    m_lngVersion = version;
}

void ActionLog::lock()
{
    QMutexLocker locker(m_mutex);
    m_lockEnabled = true;
}

void ActionLog::append(LogEntry* entry)
{
    if (!entry)
        return;
    QMutexLocker locker(m_mutex);
    const int n = m_entries.size();
    emit addingLogEntries(n, n);
    m_entries.append(entry);
    emit logEntriesAdded(n, n);
}

bool ActionLog::backupEntries(QList<LogEntry*>& list, const QString& path)
{
    if (QFile::exists(path))
        return true;
    QFile output(path);
    if (!output.open(QIODevice::WriteOnly | QIODevice::Text))
        return fail(translate(k_openReasonText).arg(path, output.errorString()));
    QTextStream stream(&output);
    XMLLogWriter writer(&stream, QString(), currentDateTime());
    writer.setStartDocumentName(path);
    writer.setAppVersion(m_appVersion);
    writer.setLngVersion(m_lngVersion);
    writer.writeStartDocument();
    for (const LogEntry* entry : qAsConst(list)) {
        if (entry)
            entry->writeTo(writer);
    }
    writer.writeEndDocument();
    stream.flush();
    if (!output.flush() || output.error() != QFileDevice::NoError)
        return fail(translate(k_writeErrorText).arg(path, output.errorString()));
    output.close();
    return true;
}

bool ActionLog::deleteEntries(QList<LogEntry*>& list)
{
    QMutexLocker locker(m_mutex);
    for (LogEntry* doomed : qAsConst(list)) {
        bool deleted = false;
        for (int i = m_entries.size() - 1; i >= 0; --i) {
            if (m_entries.at(i) != doomed)
                continue;
            emit removingLogEntries(i, i);
            if (!deleted)
                delete doomed;
            deleted = true;
            m_entries.removeAt(i);
            emit logEntriesRemoved(i, i);
        }
    }
    return true;
}

void ActionLog::removeAllLogEntries()
{
    QMutexLocker locker(m_mutex);
    const int n = m_entries.size();
    if (n == 0)
        return;
    // The last index is reported as the count; listeners rely on it.
    emit removingLogEntries(0, n);
    while (!m_entries.isEmpty())
        delete m_entries.takeLast();
    emit logEntriesRemoved(0, n);
}

bool ActionLog::readEntries(QIODevice::OpenMode mode)
{
    if (!openForReading(mode))
        return false;
    if (m_file.size() == 0) {
        close();
        return true;
    }
    const qint64 start = m_file.pos();
    XMLLogReader reader(&m_file);
    // Stop when the file is emptied under us. Its size is a system call, so
    // it is asked only after the reader has taken more bytes from the file,
    // not for every entry it parses from what it already holds.
    qint64 checkedAt = -1;
    while (!reader.atEnd() && !reader.hasError()) {
        if (m_file.pos() != checkedAt) {
            checkedAt = m_file.pos();
            if (m_file.size() == 0)
                break;
        }
        if (LogEntry* entry = reader.readNextLogEntry())
            append(entry);
    }
    if (mode == QIODevice::ReadOnly) {
        close();
    } else if (start == 0 && reader.error() == QXmlStreamReader::PrematureEndOfDocumentError) {
        cutPartialEntry(reader.endOfLastEntry(), reader.characterOffset());
        if (m_file.isOpen() && m_file.size() == 0)
            close();
    }
    if (reader.hasFault()) {
        const QString error = reader.errorString();
        const int line = clampToInt(reader.lineNumber());
        const int column = clampToInt(reader.columnNumber());
        fail(translate(k_readReasonText).arg(m_file.fileName(), error, QString::number(line), QString::number(column)));
        throw ActionLogXmlException(
            translate(k_xmlErrorText).arg(error, QString::number(line), QString::number(column)), error, line,
            column);
    }
    return true;
}

// A process that died while writing leaves a partial entry after the last
// complete one; new entries must follow a complete one, so the rest is cut.
void ActionLog::cutPartialEntry(qint64 completeCharacters, qint64 readCharacters)
{
    if (completeCharacters >= readCharacters)
        return;
    const qint64 offset = byteOffsetOfCharacters(m_file, completeCharacters);
    if (offset < 0 || offset >= m_file.size()) {
        m_file.seek(m_file.size());
        return;
    }
    LogLine(Log::Warning, "ko::ActionLog::readEntries")
        << "'" << m_file.fileName() << "' ends in a partly written entry; cut at byte " << offset;
    if (!m_file.resize(offset)) {
        LogLine(Log::Error, "ko::ActionLog::readEntries")
            << "could not cut '" << m_file.fileName() << "': " << m_file.errorString();
    }
    m_file.seek(m_file.size());
}

bool ActionLog::open(QFile& file, QIODevice::OpenMode mode)
{
    if (!m_defaultActive) {
        try {
            openLogon();
        } catch (const ActionLogException& e) {
            endLogon();
            fail(e.message());
            throw;
        } catch (...) {
            endLogon();
            throw;
        }
    }
    bool opened = file.isOpen();
    if (!opened) {
        opened = file.open(mode);
        if (!opened) {
            if (!m_defaultActive)
                endLogon();
            const auto* device = qobject_cast<FileEncrypt*>(&file);
            const bool headerError = device && device->isHeaderError();
            const QString name = file.fileName();
            if (headerError) {
                fail(translate(k_headerErrorText).arg(name));
                throw ActionLogFileException(m_errorString, name, ActionLogFileException::InvalidHeader);
            }
            fail(translate(k_openReasonText).arg(name, file.errorString()));
            throw ActionLogFileException(translate(k_openErrorText).arg(name), name,
                                         ActionLogFileException::CannotOpen);
        }
        if (&file == &m_file) {
            // Taken once per open: followReplacedFile() then looks up only
            // the path for every entry.
            m_openIdentity = platform::fileIdentity(file.handle());
            m_openPath = QFile::encodeName(file.fileName()).toStdString();
        }
        if (m_lockEnabled) {
            const int handle = file.handle();
            if (handle < 0)
                return fail(translate(k_lockReasonText).arg(file.fileName()));
            (void)platform::lockFileRange(handle, m_lockOffset, m_lockLength);
        }
    }
    if (!m_defaultActive)
        endLogon();
    return opened;
}

bool ActionLog::openForReading(QIODevice::OpenMode mode)
{
    return open(m_file, mode | QIODevice::Text);
}

bool ActionLog::openForWriting()
{
    initWriting();
    if (m_file.isOpen())
        return true;
    if (!open(m_file, QIODevice::ReadWrite | QIODevice::Truncate | QIODevice::Text))
        return false;
    // A new document: a writer of its own, dated now.
    delete m_writer;
    m_writer = nullptr;
    initWriting();
    m_writer->writeStartDocument();
    m_file.flush();
    return true;
}

void ActionLog::initWriting()
{
    if (!m_stream)
        m_stream = new QTextStream(&m_file);
    if (!m_writer)
        m_writer = new XMLLogWriter(m_stream, QString(), currentDateTime());
    m_writer->setStartDocumentName(m_file.fileName());
    m_writer->setAppVersion(m_appVersion);
    m_writer->setLngVersion(m_lngVersion);
}

void ActionLog::close()
{
    if (!m_file.isOpen())
        return;
    if (m_lockEnabled)
        (void)platform::unlockFileRange(m_file.handle(), m_lockOffset, m_lockLength);
    if (m_logonMode == 0)
        m_logonMode = 1;
    m_file.close();
}

bool ActionLog::finalize(QFile& file)
{
    if (!file.open(QIODevice::ReadWrite | QIODevice::Text))
        return fail(translate(k_openReasonText).arg(file.fileName(), file.errorString()));
    QTextStream stream(&file);
    stream.readAll();
    stream << "\n</Entries>\n";
    stream.flush();
    const bool written = file.flush() && file.error() == QFileDevice::NoError;
    const QString reason = file.errorString();
    file.close();
    return written || fail(translate(k_writeErrorText).arg(file.fileName(), reason));
}

bool ActionLog::split()
{
    if (m_splitSize == 0 && m_splitPolicy == NoSplit)
        return true;
    const QDate previous = m_previousEntryTime.date();
    const QDate current = m_currentEntryTime.date();
    const QString base = m_fileInfo.baseName() + QLatin1Char(' ');
    QString name;
    switch (m_splitPolicy) {
    case Daily:
        // The week number stands where the month would (files depend on it).
        if (current.dayOfYear() > previous.dayOfYear())
            name = base
                   + m_previousEntryTime.toString(QStringLiteral("yyyy-%1-dd").arg(previous.weekNumber()))
                   + QStringLiteral(".kol");
        break;
    case Weekly:
        if (current.weekNumber() > previous.weekNumber())
            name = base + m_previousEntryTime.toString(QStringLiteral("yyyy-%1").arg(previous.weekNumber()))
                   + QStringLiteral(".kol");
        break;
    case Monthly:
        if (current.month() > previous.month())
            name = base + previous.toString(QStringLiteral("yyyy-MMM")) + QStringLiteral(".kol");
        break;
    case BySize:
        if (m_file.size() > m_splitSize) {
            name = QCoreApplication::applicationName() + QLatin1Char(' ')
                   + currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh-mm-ss")) + QStringLiteral(".kol");
            const bool backedUp = backupFile(name);
            if (backedUp)
                removeAllLogEntries();
            return backedUp;
        }
        return true;
    default:
        break;
    }
    if (!name.isEmpty() && backupFile(name))
        removeAllLogEntries();
    return true;
}

QString ActionLog::backupName(const QString& suffix) const
{
    return m_fileInfo.baseName() + QLatin1Char(' ')
           + currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh-mm-ss")) + suffix;
}

QDateTime ActionLog::currentDateTime() const
{
    return currentLocalDateTime();
}

} // namespace ko
