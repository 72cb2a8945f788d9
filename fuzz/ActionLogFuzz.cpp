// libFuzzer target: arbitrary bytes as the file of an action log. The log
// reads the file into memory (readLog) and then logs two entries into it, so
// the recovery paths run: a partly written entry at the end is cut, a file
// with another header or with broken XML is moved aside and a new one begun.
// Soon after that the file must read back without an XML error and end with
// the last entry logged. Nothing may crash, hang or allocate without bound.

#include "fuzz/FuzzEntry.h"
#include "fuzz/FuzzSupport.h"
#include <CommonKit/logging/ActionLog.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

namespace {

using fuzzsupport::FuzzEntry;

struct Fixture
{
    Fixture()
    {
        fuzzsupport::setUp();
        // A failure that makes the log fall back to its default file must
        // not reach the user's real log directory.
        qputenv("XDG_STATE_HOME", QFile::encodeName(directory.path()));
        fuzzsupport::registerFuzzEntry();
        logDirectory = directory.path() + QStringLiteral("/logs");
    }
    QTemporaryDir directory;
    QString logDirectory;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Fixture fixture;
    // Every run starts in an empty directory: files moved aside by the last
    // run would otherwise take the backup names of this one.
    QDir(fixture.logDirectory).removeRecursively();
    QDir().mkpath(fixture.logDirectory);
    const QString path = fixture.logDirectory + QStringLiteral("/fuzz.kol");
    if (!fuzzsupport::writeInput(path, reinterpret_cast<const char*>(data), size))
        return 0;

    FuzzEntry entry;
    entry.text.value = QStringLiteral("after <fuzz> & \"more\"");
    entry.number.value = -7;
    {
        ko::ActionLog log(path);
        log.setSplitPolicy(ko::ActionLog::NoSplit, 0);
        log.readLog();
        for (int i = 0; i < log.count(); ++i) {
            if (ko::LogEntry* read = log.entry(i))
                read->description();
        }
        log.mute(false);
        log.log(entry);
        entry.number.value = 8;
        log.log(entry);
    }

    // The log appends to what it read; that is well-formed unless the file
    // was a closed document or broke in a way that shows only after the
    // entries (extra content after "</Entries>"). Then the next log() moves
    // the file aside, losing its entry, and the one after starts a new file.
    // Within three rounds the file must read cleanly and end with the last
    // entry logged.
    int expected = 8;
    for (int round = 0; round < 3; ++round) {
        ko::ActionLog again(path);
        bool broken = false;
        QObject::connect(&again, &ko::ActionLog::errorXml, [&broken](const QString&, int, int) { broken = true; });
        again.readLog();
        const auto* last = again.count() > 0 ? dynamic_cast<const FuzzEntry*>(again.entry(again.count() - 1)) : nullptr;
        if (!broken && last && last->number.value == expected)
            return 0;
        again.mute(false);
        entry.number.value = expected = 100 + round;
        again.log(entry);
    }
    fuzzsupport::fail();
}
