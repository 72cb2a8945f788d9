#pragma once

// Entry kinds for the logging tests, registered in the factory like an
// application's own kinds.

#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/logging/LogValue.h>
#include <CommonKit/logging/XMLLogWriter.h>

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <vector>

namespace cktest {

// "TstE": text, number and date-time values and a two-placeholder template.
class TextEntry : public ko::LogEntry
{
public:
    TextEntry();
    TextEntry(const QString& text, int number);

    ko::FourChars type() const override { return ko::FourChars("TstE"); }
    ko::LogCategory category() const override { return ko::LogCategory(ko::CategoryAlarm); }
    QString format() const override { return QStringLiteral("Text '%1', number %2."); }
    QString title() const override { return QStringLiteral("Test entry"); }

    ko::TLogValue<QString> text;
    ko::TLogValue<int> number;
    ko::TLogValue<QDateTime> when;
};

// "TstN": no template, one text value "Note".
class NoteEntry : public ko::LogEntry
{
public:
    NoteEntry();
    ko::FourChars type() const override { return ko::FourChars("TstN"); }
    ko::LogCategory category() const override { return ko::LogCategory(ko::CategorySystem); }
    QString format() const override { return QString(); }
    QString title() const override { return QStringLiteral("Note"); }

    ko::TLogValue<QString> note;
};

// "TstU": a kind that is never registered.
class UnregisteredEntry : public ko::LogEntry
{
public:
    ko::FourChars type() const override { return ko::FourChars("TstU"); }
    ko::LogCategory category() const override { return ko::LogCategory(); }
    QString format() const override { return QString(); }
    QString title() const override { return QStringLiteral("Unregistered"); }
};

// The creators the factory holds for the two kinds.
ko::LogEntry* createTextEntry();
ko::LogEntry* createNoteEntry();

// The bytes the XML writer produces for a live file (no closing tag) or a
// closed one.
QByteArray writeDocument(const std::vector<const ko::LogEntry*>& entries, bool closed,
                         const QString& logFile = QStringLiteral("test.kol"));

// The time an entry has after its time was written and read back: the
// locale's short date-time format is all that is kept.
QDateTime afterRoundTrip(const QDateTime& time);

} // namespace cktest
