#pragma once

// The action log kind of the fuzz targets and their seeds: "FzzE", with a
// value of every type so that the attributes of fuzzed entries reach each
// value parser.

#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/logging/LogEntryFactory.h>
#include <CommonKit/logging/LogValue.h>

namespace fuzzsupport {

class FuzzEntry : public ko::LogEntry
{
public:
    FuzzEntry() : text("Text", QStringLiteral("text")), number("Numb", QStringLiteral("number")), when("When", QStringLiteral("when"))
    {
        append(&text);
        append(&number);
        append(&when);
    }
    ko::FourChars type() const override { return ko::FourChars("FzzE"); }
    ko::LogCategory category() const override { return ko::LogCategory(ko::CategoryAlarm); }
    QString format() const override { return QStringLiteral("%1 %2 %3"); }
    QString title() const override { return QStringLiteral("Fuzz"); }

    ko::TLogValue<QString> text;
    ko::TLogValue<int> number;
    ko::TLogValue<QDateTime> when;
};

inline void registerFuzzEntry()
{
    ko::logEntryFactory().registerCreator(ko::FourChars("FzzE"), [] { return static_cast<ko::LogEntry*>(new FuzzEntry); }, "Fuzz");
}

} // namespace fuzzsupport
