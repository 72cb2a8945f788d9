#pragma once

#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/logging/LogValue.h>
#include <CommonKit/support/core/Export.h>

#include <QXmlStreamReader>

class QFile;

namespace ko {

/// The entry that stands for a read error of an action log file (kind "XmlP",
/// category "Error"). Its values after time and user: "srcP" (named "source")
/// holds the error text and "errT" (named "error") the file name, then "errL"
/// the line and "errC" the column. With the template
///
///     Error '%1' reading action log '%2' in line '%3', column '%4'.
///
/// the description names the error first and the file second. The user is
/// "Unknown"; the time is the moment the error entry was made.
class COMMONKIT_EXPORT ParseXMLLogEntry : public LogEntry
{
public:
    /// An error entry with empty texts and line and column 0; the factory
    /// creates these when reading error entries back.
    ParseXMLLogEntry();
    /// An error entry for errorText found in fileName at line and column.
    ParseXMLLogEntry(const QString& errorText, const QString& fileName, int line, int column);

    FourChars type() const override;
    LogCategory category() const override;
    QString format() const override;
    QString title() const override;

    /// The parser's error text (value "srcP").
    QString errorText() const { return m_source.value; }
    /// The name of the file that failed to read (value "errT").
    QString fileName() const { return m_error.value; }
    /// The line of the error (value "errL"), 0 when unknown.
    int line() const { return m_line.value; }
    /// The column of the error (value "errC"), 0 when unknown.
    int column() const { return m_column.value; }

    /// The untranslated title "Action log error", as registered in the factory.
    static const char* const k_title;

private:
    void init();

    TLogValue<QString> m_source;
    TLogValue<QString> m_error;
    TLogValue<int> m_line;
    TLogValue<int> m_column;
};

/// Reads an action log file back into entries, one per readNextLogEntry()
/// call, through logEntryFactory(). A read error does not throw: it comes back
/// as a ParseXMLLogEntry.
///
/// Typical loop:
///
///     XMLLogReader reader(&file);
///     while (!reader.atEnd() && !reader.hasError()) {
///         std::unique_ptr<LogEntry> entry(reader.readNextLogEntry());
///         ...
///     }
///
/// A file without its closing "</Entries>" (a live log) ends with a premature
/// end of document, which is not treated as an error.
class COMMONKIT_EXPORT XMLLogReader : public QXmlStreamReader
{
public:
    /// Reads from the file (not owned; opened by the caller). A null file gives
    /// a reader without input.
    explicit XMLLogReader(QFile* file);
    /// Leaves the file open.
    ~XMLLogReader();
    XMLLogReader(const XMLLogReader&) = delete;
    XMLLogReader& operator=(const XMLLogReader&) = delete;

    /// A new entry (the caller owns it), a new error entry, or null. Null
    /// means the end of the document, or an "Entry" element of a kind not
    /// registered in the factory (reading goes on with the next call).
    ///
    /// Attributes are taken in document order: "ID" creates the entry; every
    /// other attribute sets the entry's value with the same four-letter id.
    /// Attributes before "ID" are skipped. An attribute the kind has no value
    /// for ends the element: the entry is returned with the values read so
    /// far and the remaining attributes are lost.
    LogEntry* readNextLogEntry();

    /// Whether the reader stopped at malformed XML (any error but a premature
    /// end of document).
    bool hasFault() const;

    /// The character offset (as characterOffset() counts) just after the last
    /// complete markup read so far: the "Entries" start tag or the end of an
    /// "Entry" element. Reading a file that a crashed writer left with a
    /// partly written entry, everything after this offset is that entry.
    qint64 endOfLastEntry() const { return m_endOfLastEntry; }

private:
    QFile* m_file;
    qint64 m_endOfLastEntry = 0;
};

} // namespace ko
