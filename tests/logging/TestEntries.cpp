#include "TestEntries.h"

#include <CommonKit/logging/LogEntryFactory.h>
#include <CommonKit/support/core/QtDeprecated.h>

#include <QBuffer>
#include <QTextStream>

namespace cktest {
namespace {

const bool registered = [] {
    ko::logEntryFactory().registerCreator("TstE", createTextEntry, "Test entry");
    ko::logEntryFactory().registerCreator("TstN", createNoteEntry, "Note");
    return true;
}();

} // namespace

ko::LogEntry* createTextEntry()
{
    return new TextEntry;
}

ko::LogEntry* createNoteEntry()
{
    return new NoteEntry;
}

TextEntry::TextEntry()
    : text("Text", QStringLiteral("text")), number("Numb", QStringLiteral("number")),
      when("When", QStringLiteral("when"))
{
    (void)registered;
    append(&text);
    append(&number);
    append(&when);
}

TextEntry::TextEntry(const QString& textValue, int numberValue) : TextEntry()
{
    text.value = textValue;
    number.value = numberValue;
}

NoteEntry::NoteEntry() : note("Note", QStringLiteral("note"))
{
    append(&note);
}

QByteArray writeDocument(const std::vector<const ko::LogEntry*>& entries, bool closed, const QString& logFile)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QTextStream stream(&buffer);
    ko::XMLLogWriter writer(&stream, QString(), QDateTime(QDate(2014, 5, 6), QTime(7, 8, 9)));
    writer.setStartDocumentName(logFile);
    writer.writeStartDocument();
    for (const ko::LogEntry* entry : entries)
        entry->writeTo(writer);
    if (closed)
        writer.writeEndDocument();
    return buffer.data();
}

QDateTime afterRoundTrip(const QDateTime& time)
{
    COMMONKIT_DEPRECATED_BEGIN
    return QDateTime::fromString(time.toString(Qt::SystemLocaleShortDate), Qt::SystemLocaleShortDate);
    COMMONKIT_DEPRECATED_END
}

} // namespace cktest
