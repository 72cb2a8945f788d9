#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/util/FourChars.h>

#include <QMap>
#include <QStringList>

#include <mutex>

namespace ko {

class LogEntry;

/// Creates log entries from their type code, for reading files back. The
/// library registers its own kinds when it is loaded; an application registers
/// its kinds the same way, typically from a static initialiser:
///
///     LogEntry* createLogonEntry() { return new LogonEntry; }
///     const bool registered = (ko::logEntryFactory().registerCreator(
///         "LgOn", createLogonEntry, QT_TRANSLATE_NOOP("ActionLog", "Logon")), true);
///
/// All operations are safe to call from several threads.
class COMMONKIT_EXPORT LogEntryFactory
{
public:
    /// Creates a new default-constructed entry of one kind; the caller owns it.
    using Creator = LogEntry* (*)();

    /// An empty factory; the process-wide one is logEntryFactory().
    LogEntryFactory();
    /// Copies the registrations of other (read under its lock).
    LogEntryFactory(const LogEntryFactory& other);
    /// Replaces the registrations by those of other; each factory is locked in
    /// turn, never both at once.
    LogEntryFactory& operator=(const LogEntryFactory& other);
    /// Destroys the factory.
    ~LogEntryFactory();

    /// Registers (or replaces) the creator and the untranslated display name
    /// of a kind. The name must stay valid as long as the factory (a string
    /// literal).
    void registerCreator(const FourChars& type, Creator creator, const char* name);

    /// A new entry of the kind (the caller owns it), or null for an unknown
    /// code. Asking for an unknown code registers it with no creator and no
    /// name; it keeps answering null.
    LogEntry* create(FourChars type);

    /// The translated display names of all registered kinds (context
    /// "ActionLog"), sorted case-sensitively.
    QStringList entryNames() const;

    /// The registered codes in numeric order, including codes left by
    /// create() for unknown kinds.
    QList<FourChars> types() const;

private:
    mutable std::mutex m_mutex;
    QMap<FourChars, Creator> m_creators;
    QMap<FourChars, const char*> m_names;
};

/// The process-wide factory, created on first use.
COMMONKIT_EXPORT LogEntryFactory& logEntryFactory();

} // namespace ko
