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
    virtual void writeStartDocument() = 0;
    virtual void writeEndDocument() = 0;
    virtual void writeStartElement(const LogEntry& entry) = 0;
    virtual void writeEndElement(const LogEntry& entry) = 0;
    virtual void writeAttribute(const LogValue& value) = 0;
};

/// The state the writers share: the text stream they write to (not owned) and
/// the document header texts, all empty at first.
class COMMONKIT_EXPORT LogWriter : public ILogWriter
{
public:
    explicit LogWriter(QTextStream* stream);
    LogWriter(const LogWriter&) = default;
    LogWriter& operator=(const LogWriter&) = default;

    /// Answers "ko::ILogWriter" and "ko::LogWriter" with this object.
    void* getInterface(const char* name) override;
    const void* getInterface(const char* name) const override;

    /// The name of the log file, written in the document header.
    void setStartDocumentName(const QString& name) { m_startDocumentName = name; }
    QString startDocumentName() const { return m_startDocumentName; }
    void setAppVersion(const QString& version) { m_appVersion = version; }
    QString appVersion() const { return m_appVersion; }
    void setLngVersion(const QString& version) { m_lngVersion = version; }
    QString lngVersion() const { return m_lngVersion; }

    QTextStream* stream() const { return m_stream; }

protected:
    QTextStream* m_stream;
    QString m_startDocumentName;
    QString m_appVersion;
    QString m_lngVersion;
};

} // namespace ko
