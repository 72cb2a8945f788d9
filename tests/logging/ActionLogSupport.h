#pragma once

// Helpers for the action log tests: a log with a settable clock and its
// protected operations opened up, a signal recorder, and an independent view
// of a log file through QDomDocument.

#include <CommonKit/logging/ActionLog.h>

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>

namespace cktest {

class TestLog : public ko::ActionLog
{
public:
    explicit TestLog(const QString& path) : ko::ActionLog(path) { mute(false); }

    using ko::ActionLog::backupEntries;
    using ko::ActionLog::deleteEntries;
    using ko::ActionLog::finalize;
    using ko::ActionLog::removeAllLogEntries;

    // An invalid clock means the real one.
    QDateTime now;

protected:
    QDateTime currentDateTime() const override { return now.isValid() ? now : ko::ActionLog::currentDateTime(); }
};

// Every signal of the log as one line, e.g. "added(0,0)" or "errorFile(x,4)".
class SignalRecorder
{
public:
    explicit SignalRecorder(ko::ActionLog& log);
    QStringList lines;
};

// The attributes of every "Entry" element of the file, read with QDomDocument
// after closing the document (a live file has no "</Entries>"). An empty list
// with ok false when the file is not well-formed.
QList<QMap<QString, QString>> fileEntries(const QString& path, bool* ok = nullptr);

} // namespace cktest
