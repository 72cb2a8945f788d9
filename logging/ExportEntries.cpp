#include <CommonKit/logging/ExportEntries.h>

#include <CommonKit/logging/LogEntryFactory.h>

namespace ko {
namespace {

template<typename Entry>
LogEntry* create()
{
    return new Entry;
}

const bool k_registered = [] {
    LogEntryFactory& factory = logEntryFactory();
    factory.registerCreator(FourChars("ExpS"), create<ExportStartEntry>, ExportStartEntry::k_title);
    factory.registerCreator(FourChars("ExpW"), create<ExportWrittenEntry>, ExportWrittenEntry::k_title);
    factory.registerCreator(FourChars("ExpD"), create<ExportDoneEntry>, ExportDoneEntry::k_title);
    factory.registerCreator(FourChars("ExpA"), create<ExportAbortEntry>, ExportAbortEntry::k_title);
    factory.registerCreator(FourChars("ExpE"), create<ExportErrorEntry>, ExportErrorEntry::k_title);
    factory.registerCreator(FourChars("ExpR"), create<ExportRenameEntry>, ExportRenameEntry::k_title);
    return true;
}();

} // namespace

const char* const ExportStartEntry::k_title = QT_TRANSLATE_NOOP("ActionLog", "Export start");
const char* const ExportWrittenEntry::k_title = QT_TRANSLATE_NOOP("ActionLog", "Export written");
const char* const ExportDoneEntry::k_title = QT_TRANSLATE_NOOP("ActionLog", "Export done");
const char* const ExportAbortEntry::k_title = QT_TRANSLATE_NOOP("ActionLog", "Export abort");
const char* const ExportErrorEntry::k_title = QT_TRANSLATE_NOOP("ActionLog", "Export error");
const char* const ExportRenameEntry::k_title = QT_TRANSLATE_NOOP("ActionLog", "Export rename");

ExportEntry::ExportEntry(const QString& text) : m_text(FourChars("Text"), QStringLiteral("text"), text)
{
    (void)k_registered;
    append(&m_text);
}

LogCategory ExportEntry::category() const
{
    return LogCategory(CategoryExport);
}

QString ExportEntry::format() const
{
    return QStringLiteral("%1");
}

ExportRangeEntry::ExportRangeEntry(const QString& text, const QString& format, const QString& source,
                                   const QString& dest, const QDateTime& from, const QDateTime& to)
    : ExportEntry(text),
      m_format(FourChars("Form"), QStringLiteral("format"), format),
      m_source(FourChars("srcP"), QStringLiteral("source"), source),
      m_dest(FourChars("dstP"), QStringLiteral("dest"), dest),
      m_from(FourChars("from"), QStringLiteral("from"), from),
      m_to(FourChars("to  "), QStringLiteral("to"), to)
{
    // The order fills the placeholders of the text: %1 format, %2 source,
    // %3 dest, %4 from, %5 to.
    append(&m_format);
    append(&m_source);
    append(&m_dest);
    append(&m_from);
    append(&m_to);
}

ExportRenameEntry::ExportRenameEntry(const QString& text, const QString& path, const QString& source,
                                     const QString& dest)
    : ExportEntry(text),
      m_path(FourChars("path"), QStringLiteral("path"), path),
      m_source(FourChars("src "), QStringLiteral("source"), source),
      m_dest(FourChars("dest"), QStringLiteral("dest"), dest)
{
    append(&m_path);
    append(&m_source);
    append(&m_dest);
}

FourChars ExportStartEntry::type() const { return FourChars("ExpS"); }
FourChars ExportWrittenEntry::type() const { return FourChars("ExpW"); }
FourChars ExportDoneEntry::type() const { return FourChars("ExpD"); }
FourChars ExportAbortEntry::type() const { return FourChars("ExpA"); }
FourChars ExportErrorEntry::type() const { return FourChars("ExpE"); }
FourChars ExportRenameEntry::type() const { return FourChars("ExpR"); }

QString ExportStartEntry::title() const { return tr(k_title); }
QString ExportWrittenEntry::title() const { return tr(k_title); }
QString ExportDoneEntry::title() const { return tr(k_title); }
QString ExportAbortEntry::title() const { return tr(k_title); }
QString ExportErrorEntry::title() const { return tr(k_title); }
QString ExportRenameEntry::title() const { return tr(k_title); }

} // namespace ko
