#include <CommonKit/logging/ActionLogContextSwitchEntry.h>

#include <CommonKit/logging/LogEntryFactory.h>

namespace ko {
namespace {

const char* const k_template = QT_TRANSLATE_NOOP("ActionLog", "Switched logging from '%1' to '%2'.");

LogEntry* createContextSwitchEntry()
{
    return new ActionLogContextSwitchEntry;
}

const bool k_registered = (logEntryFactory().registerCreator(FourChars("ALog"), createContextSwitchEntry,
                                                             ActionLogContextSwitchEntry::k_title),
                           true);

} // namespace

const char* const ActionLogContextSwitchEntry::k_title = QT_TRANSLATE_NOOP("ActionLog", "Switched log");

ActionLogContextSwitchEntry::ActionLogContextSwitchEntry() : ActionLogContextSwitchEntry(QString(), QString()) {}

ActionLogContextSwitchEntry::ActionLogContextSwitchEntry(const QString& oldFile, const QString& newFile)
    : m_oldFile(FourChars("Olif"), QStringLiteral("oldFile"), oldFile),
      m_newFile(FourChars("Nlif"), QStringLiteral("newFile"), newFile)
{
    (void)k_registered;
    append(&m_oldFile);
    append(&m_newFile);
}

FourChars ActionLogContextSwitchEntry::type() const
{
    return FourChars("ALog");
}

LogCategory ActionLogContextSwitchEntry::category() const
{
    return LogCategory(CategoryActionLog);
}

QString ActionLogContextSwitchEntry::format() const
{
    return tr(k_template);
}

QString ActionLogContextSwitchEntry::title() const
{
    return tr(k_title);
}

} // namespace ko
