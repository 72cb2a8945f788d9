#pragma once

#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/support/core/Export.h>

namespace ko {

/// The entry the action log writes into both files when it switches from one
/// log file to another (kind "ALog", category "Action log"): "Olif" (named
/// "oldFile") the absolute path of the old file, "Nlif" ("newFile") the new
/// path as given.
class COMMONKIT_EXPORT ActionLogContextSwitchEntry : public LogEntry
{
public:
    /// An entry with empty paths, as the entry factory makes it for reading.
    ActionLogContextSwitchEntry();
    /// The entry for a switch from oldFile to newFile.
    ActionLogContextSwitchEntry(const QString& oldFile, const QString& newFile);

    FourChars type() const override;
    /// CategoryActionLog.
    LogCategory category() const override;
    QString format() const override;
    QString title() const override;

    /// The file logging switched away from (value "Olif").
    QString oldFile() const { return m_oldFile.value; }
    /// The file logging switched to (value "Nlif").
    QString newFile() const { return m_newFile.value; }

    /// The untranslated title, "Switched log" (context "ActionLog").
    static const char* const k_title;

private:
    TLogValue<QString> m_oldFile;
    TLogValue<QString> m_newFile;
};

} // namespace ko
