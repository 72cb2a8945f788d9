#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/core/IInterface.h>

#include <QString>

class QTextStream;

namespace ko {

class LogEntry;
class LogValue;

/// Turns log entries into text. Expected calling order: writeStartDocument()
/// once, then LogEntry::writeTo() for each entry (start element, one
/// writeAttribute() per value, end element), then writeEndDocument() once.
class COMMONKIT_EXPORT ILogWriter : public IInterface
{
public:
    /// Begins the document (header); called once before the first entry.
    virtual void writeStartDocument() = 0;
    /// Ends the document; called once after the last entry.
    virtual void writeEndDocument() = 0;
    /// Begins the text of entry, before its values.
    virtual void writeStartElement(const LogEntry& entry) = 0;
    /// Ends the text of entry, after its values.
    virtual void writeEndElement(const LogEntry& entry) = 0;
    /// Writes one value of the current entry.
    virtual void writeAttribute(const LogValue& value) = 0;
};

/// The state the writers share: the text stream they write to (not owned) and
/// the document header texts, all empty at first.
class COMMONKIT_EXPORT LogWriter : public ILogWriter
{
public:
    /// A writer on stream, which must outlive it and is not owned.
    explicit LogWriter(QTextStream* stream);
    /// Copies the stream pointer and the header texts.
    LogWriter(const LogWriter&) = default;
    /// Assigns the stream pointer and the header texts.
    LogWriter& operator=(const LogWriter&) = default;

    /// Answers "ko::ILogWriter" and "ko::LogWriter" with this object.
    void* getInterface(const char* name) override;
    /// Answers "ko::ILogWriter" and "ko::LogWriter" with this object.
    const void* getInterface(const char* name) const override;

    /// Sets the name of the log file, written in the document header.
    void setStartDocumentName(const QString& name) { m_startDocumentName = name; }
    /// The name of the log file for the document header.
    QString startDocumentName() const { return m_startDocumentName; }
    /// Sets the application version for the document header.
    void setAppVersion(const QString& version) { m_appVersion = version; }
    /// The application version for the document header.
    QString appVersion() const { return m_appVersion; }
    /// Sets the language (translation) version for the document header.
    void setLngVersion(const QString& version) { m_lngVersion = version; }
    /// The language (translation) version for the document header.
    QString lngVersion() const { return m_lngVersion; }

    /// The text stream written to (not owned).
    QTextStream* stream() const { return m_stream; }

protected:
    QTextStream* m_stream;          ///< The text stream written to (not owned).
    QString m_startDocumentName;    ///< See startDocumentName().
    QString m_appVersion;           ///< See appVersion().
    QString m_lngVersion;           ///< See lngVersion().
};

} // namespace ko
