// The action log entry kind and the log files the benchmark programs share.
// Each entry has three values (text, number, date-time) plus time and user.
#pragma once

#include <CommonKit/logging/ActionLog.h>
#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/logging/LogEntryFactory.h>
#include <CommonKit/logging/LogValue.h>

#include "BenchTemp.h"

#include <QFileInfo>
#include <QString>

#include <memory>
#include <vector>

namespace {

class BenchEntry : public ko::LogEntry
{
public:
    BenchEntry()
        : text("Text", QStringLiteral("text")), number("Numb", QStringLiteral("number")),
          when("When", QStringLiteral("when"))
    {
        append(&text);
        append(&number);
        append(&when);
    }
    ko::FourChars type() const override { return ko::FourChars("Bnch"); }
    ko::LogCategory category() const override { return ko::LogCategory(ko::CategorySystem); }
    QString format() const override { return QStringLiteral("%1 %2 %3"); }
    QString title() const override { return QStringLiteral("Bench"); }

    ko::TLogValue<QString> text;
    ko::TLogValue<int> number;
    ko::TLogValue<QDateTime> when;
};

inline ko::LogEntry* createBenchEntry()
{
    return new BenchEntry;
}

const bool registered =
    (ko::logEntryFactory().registerCreator(ko::FourChars("Bnch"), createBenchEntry, "Bench"), true);

inline std::vector<std::unique_ptr<BenchEntry>> makeEntries(int count)
{
    std::vector<std::unique_ptr<BenchEntry>> entries;
    for (int i = 0; i < count; ++i) {
        auto entry = std::make_unique<BenchEntry>();
        entry->setUser(QStringLiteral("operator %1").arg(i % 7));
        entry->text.value = QStringLiteral("Camera \"%1\" & <monitor> Grüße").arg(i);
        entry->number.value = i;
        entry->when.value = entry->time().addSecs(-i);
        entries.push_back(std::move(entry));
    }
    return entries;
}

// Writes a log of about `megabytes` MB at `path` through ko::ActionLog, in
// rounds of the same 1000 entries; returns the number of entries.
inline int writeBenchLog(const QString& path, int megabytes)
{
    int count = 0;
    ko::ActionLog log(path);
    log.setSplitPolicy(ko::ActionLog::NoSplit, 0);
    log.mute(false);
    const auto samples = makeEntries(1000);
    const qint64 target = qint64(megabytes) << 20;
    while (QFileInfo(path).size() < target) {
        for (const auto& entry : samples) {
            log.log(*entry);
            ++count;
        }
    }
    return count;
}

} // namespace
