// libFuzzer target: a file of arbitrary bytes read as an action log, entry by
// entry until the end or an error, the way the log viewer reads it. Every
// entry read is described and written out again. Nothing may crash, hang or
// allocate without bound.

#include "fuzz/FuzzEntry.h"
#include "fuzz/FuzzSupport.h"
#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/logging/LogEntryFactory.h>
#include <CommonKit/logging/LogValue.h>
#include <CommonKit/logging/XMLLogReader.h>
#include <CommonKit/logging/XMLLogWriter.h>
#include <CommonKit/support/core/Log.h>

#include <QFile>
#include <QString>
#include <QTemporaryFile>
#include <QTextStream>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace {

// The same values without a template.
class PlainEntry : public fuzzsupport::FuzzEntry
{
public:
    ko::FourChars type() const override { return ko::FourChars("FzzP"); }
    QString format() const override { return QString(); }
};

ko::LogEntry* createPlainEntry()
{
    return new PlainEntry;
}

struct Fixture
{
    Fixture()
    {
        fuzzsupport::setUp();
        fuzzsupport::registerFuzzEntry();
        ko::logEntryFactory().registerCreator(ko::FourChars("FzzP"), createPlainEntry, "Plain");
        file.open();
        file.close();
    }
    QTemporaryFile file;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Fixture fixture;
    if (!fuzzsupport::writeInput(fixture.file.fileName(), reinterpret_cast<const char*>(data), size))
        return 0;
    QFile file(fixture.file.fileName());
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return 0;

    QString written;
    QTextStream stream(&written);
    ko::XMLLogWriter writer(&stream, QString(), QDateTime());
    writer.writeStartDocument();

    ko::XMLLogReader reader(&file);
    while (!reader.atEnd() && !reader.hasError()) {
        const std::unique_ptr<ko::LogEntry> entry(reader.readNextLogEntry());
        if (!entry)
            continue;
        entry->description();
        entry->writeTo(writer);
        const std::unique_ptr<ko::LogEntry> copy(entry->clone());
    }
    writer.writeEndDocument();
    return 0;
}
