#pragma once

#include <QString>
#include <QTextStream>

#include <memory>

namespace ko {
class LogEntry;
}

namespace cktool {

// How `commonkit log show` prints entries: begin() once, print() per entry
// (possibly forever with --follow), end() once.
class EntryPrinter
{
public:
    virtual ~EntryPrinter() = default;
    virtual void begin() {}
    virtual void print(ko::LogEntry& entry) = 0;
    virtual void end() {}
};

// "text": one line per entry; "json": one JSON object per line; "csv": a
// header row, then one row per entry; "xml": a closed action log document
// (written by end(); the header is taken from the file at path).
std::unique_ptr<EntryPrinter> makeEntryPrinter(const QString& format, QTextStream& out, const QString& path);

// The one-line text form: time, user, category, title and description.
QString entryLine(ko::LogEntry& entry);

} // namespace cktool
