#pragma once

#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/logging/LogValue.h>
#include <CommonKit/support/core/Export.h>

#include <QDateTime>
#include <QString>

namespace ko {

/// The action log entries that record exports (see docs/export-log.md). All
/// belong to the category "Export" and have the template "%1", which the
/// first own value, the text, fills. The text of a start, written and rename
/// entry is itself a template whose placeholders the further values fill in
/// their order, so the description reads in full.
///
/// The six kinds are registered in logEntryFactory() when the library is
/// loaded. ExportActionLog::send() makes and logs them.
class COMMONKIT_EXPORT ExportEntry : public LogEntry
{
public:
    /// An export entry whose "Text" value is text.
    explicit ExportEntry(const QString& text = QString());

    /// CategoryExport.
    LogCategory category() const override;
    /// "%1".
    QString format() const override;

    /// The message, or for range and rename entries the template of it
    /// (value "Text").
    QString text() const { return m_text.value; }

private:
    TLogValue<QString> m_text; // "Text", "text"
};

/// An export of a format from a source to a destination, over a time span
/// (from and to) or at one time (from only) or without time. The values after
/// the text, in this order: "Form" the untranslated format name, "srcP" the
/// source, "dstP" the destination, "from" and "to  " (t, o and two blanks).
class COMMONKIT_EXPORT ExportRangeEntry : public ExportEntry
{
public:
    /// An entry with the template text, whose %1 to %5 stand for format,
    /// source, dest, from and to. A null from or to is not written.
    explicit ExportRangeEntry(const QString& text = QString(), const QString& format = QString(),
                              const QString& source = QString(), const QString& dest = QString(),
                              const QDateTime& from = QDateTime(), const QDateTime& to = QDateTime());

    /// The untranslated name of the export format ("Form").
    QString exportFormat() const { return m_format.value; }
    /// What was exported ("srcP").
    QString source() const { return m_source.value; }
    /// Where it went ("dstP"); may be empty.
    QString dest() const { return m_dest.value; }
    /// The start of the exported span, or its one time ("from"); null if none.
    QDateTime from() const { return m_from.value; }
    /// The end of the exported span ("to  "); null if none.
    QDateTime to() const { return m_to.value; }

private:
    TLogValue<QString> m_format;  // "Form", "format"
    TLogValue<QString> m_source;  // "srcP", "source"
    TLogValue<QString> m_dest;    // "dstP", "dest"
    TLogValue<QDateTime> m_from;  // "from", "from"
    TLogValue<QDateTime> m_to;    // "to  ", "to"
};

/// "ExpS": an export started.
class COMMONKIT_EXPORT ExportStartEntry : public ExportRangeEntry
{
public:
    /// See ExportRangeEntry::ExportRangeEntry().
    using ExportRangeEntry::ExportRangeEntry;
    FourChars type() const override;
    QString title() const override;
    /// The untranslated title "Export start", as registered in the factory.
    static const char* const k_title;
};

/// "ExpW": an export was written.
class COMMONKIT_EXPORT ExportWrittenEntry : public ExportRangeEntry
{
public:
    /// See ExportRangeEntry::ExportRangeEntry().
    using ExportRangeEntry::ExportRangeEntry;
    FourChars type() const override;
    QString title() const override;
    /// The untranslated title "Export written", as registered in the factory.
    static const char* const k_title;
};

/// "ExpD": an export ended well; the text is the whole message.
class COMMONKIT_EXPORT ExportDoneEntry : public ExportEntry
{
public:
    /// See ExportEntry::ExportEntry().
    using ExportEntry::ExportEntry;
    FourChars type() const override;
    QString title() const override;
    /// The untranslated title "Export done", as registered in the factory.
    static const char* const k_title;
};

/// "ExpA": an export was aborted; the text is the whole message.
class COMMONKIT_EXPORT ExportAbortEntry : public ExportEntry
{
public:
    /// See ExportEntry::ExportEntry().
    using ExportEntry::ExportEntry;
    FourChars type() const override;
    QString title() const override;
    /// The untranslated title "Export abort", as registered in the factory.
    static const char* const k_title;
};

/// "ExpE": an export failed; the text is the whole message.
class COMMONKIT_EXPORT ExportErrorEntry : public ExportEntry
{
public:
    /// See ExportEntry::ExportEntry().
    using ExportEntry::ExportEntry;
    FourChars type() const override;
    QString title() const override;
    /// The untranslated title "Export error", as registered in the factory.
    static const char* const k_title;
};

/// "ExpR": an exported file was renamed. The values after the text, in this
/// order: "path" the folder, "src " (s, r, c and a blank) the old name and
/// "dest" the new one.
class COMMONKIT_EXPORT ExportRenameEntry : public ExportEntry
{
public:
    /// An entry with the template text, whose %1 to %3 stand for path,
    /// source and dest.
    explicit ExportRenameEntry(const QString& text = QString(), const QString& path = QString(),
                               const QString& source = QString(), const QString& dest = QString());

    FourChars type() const override;
    QString title() const override;
    /// The untranslated title "Export rename", as registered in the factory.
    static const char* const k_title;

    /// The folder of the file ("path").
    QString path() const { return m_path.value; }
    /// The old file name ("src ").
    QString source() const { return m_source.value; }
    /// The new file name ("dest").
    QString dest() const { return m_dest.value; }

private:
    TLogValue<QString> m_path;   // "path", "path"
    TLogValue<QString> m_source; // "src ", "source"
    TLogValue<QString> m_dest;   // "dest", "dest"
};

} // namespace ko
