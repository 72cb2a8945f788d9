// Demo section: action log entries written as XML, read back and shown.

#include "Command.h"
#include "Demo.h"

#include <CommonKit/logging/LogEntryFactory.h>
#include <CommonKit/logging/XMLLogReader.h>
#include <CommonKit/logging/XMLLogWriter.h>

#include <QFile>

#include <memory>
#include <vector>

namespace cktool {
namespace {

// An entry kind of the kind an application defines: a camera shown on a
// monitor, registered in the factory so that files with it can be read back.
class CameraShownEntry : public ko::LogEntry
{
public:
    CameraShownEntry()
        : m_camera(ko::FourChars("Cmra"), QStringLiteral("camera")),
          m_monitor(ko::FourChars("MonN"), QStringLiteral("monitor"))
    {
        append(&m_camera);
        append(&m_monitor);
    }
    CameraShownEntry(const QString& camera, int monitor) : CameraShownEntry()
    {
        m_camera.value = camera;
        m_monitor.value = monitor;
    }

    ko::FourChars type() const override { return ko::FourChars("DmoV"); }
    ko::LogCategory category() const override { return ko::LogCategory(ko::CategoryViewing); }
    QString format() const override { return cktool::tr("Camera '%1' shown on monitor %2."); }
    QString title() const override { return cktool::tr("Camera shown"); }

private:
    ko::TLogValue<QString> m_camera;
    ko::TLogValue<int> m_monitor;
};

ko::LogEntry* createCameraShownEntry()
{
    return new CameraShownEntry;
}

const bool registered = (ko::logEntryFactory().registerCreator(
                             ko::FourChars("DmoV"), createCameraShownEntry,
                             QT_TRANSLATE_NOOP("cktool", "Camera shown")),
                         true);

// Reads every entry of the file; the error entry of a malformed file is
// returned in *fault.
std::vector<std::unique_ptr<ko::LogEntry>> readAll(const QString& path, std::unique_ptr<ko::LogEntry>* fault)
{
    std::vector<std::unique_ptr<ko::LogEntry>> entries;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return entries;
    ko::XMLLogReader reader(&file);
    while (!reader.atEnd() && !reader.hasError()) {
        std::unique_ptr<ko::LogEntry> entry(reader.readNextLogEntry());
        if (reader.hasFault())
            *fault = std::move(entry);
        else if (entry)
            entries.push_back(std::move(entry));
    }
    return entries;
}

bool runLoggingDemo(DemoContext& context)
{
    QTextStream& out = context.out;
    bool ok = registered;
    const QString path = context.path(QStringLiteral("actions.kol"));

    // Write a live file: header and entries, no closing tag.
    std::vector<std::unique_ptr<CameraShownEntry>> written;
    written.push_back(std::make_unique<CameraShownEntry>(QStringLiteral("Gate & Yard"), 1));
    written.push_back(std::make_unique<CameraShownEntry>(QStringLiteral("Küche <Nord>"), 2));
    written.push_back(std::make_unique<CameraShownEntry>(QStringLiteral("Lobby \"east\""), 12));
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            return false;
        QTextStream stream(&file);
        ko::XMLLogWriter writer(&stream, QString(), QDateTime::currentDateTime());
        writer.setStartDocumentName(QStringLiteral("actions.kol"));
        writer.setAppVersion(QStringLiteral("1.0"));
        writer.writeStartDocument();
        for (const auto& entry : written) {
            entry->setUser(QStringLiteral("operator"));
            entry->writeTo(writer);
        }
    }
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    file.close();
    out << tr("Wrote %1 entries to %2 (%3 bytes, one line, no closing tag):")
                  .arg(written.size())
                  .arg(path)
                  .arg(bytes.size())
        << "\n  " << QString::fromUtf8(bytes.left(140)) << " ...\n";
    ok = ok && !bytes.contains('\n') && !bytes.contains("</Entries>");

    // Read it back and show each entry through the prose writer.
    std::unique_ptr<ko::LogEntry> fault;
    const auto entries = readAll(path, &fault);
    out << tr("Read back %1 entries:").arg(entries.size()) << "\n";
    for (size_t i = 0; i < entries.size(); ++i) {
        out << "  " << entries[i]->description() << "\n";
        ok = ok && entries[i]->logValue(ko::FourChars("Cmra"))->toString()
                       == written[i]->logValue(ko::FourChars("Cmra"))->toString();
    }
    ok = ok && entries.size() == written.size() && !fault;

    // A file cut in the middle of its last entry still reads.
    const QString cutPath = context.path(QStringLiteral("cut.kol"));
    QFile cut(cutPath);
    cut.open(QIODevice::WriteOnly);
    cut.write(bytes.left(bytes.size() - 10));
    cut.close();
    const auto cutEntries = readAll(cutPath, &fault);
    out << tr("Cut 10 bytes short: %1 complete entries, no error.").arg(cutEntries.size()) << "\n";
    ok = ok && cutEntries.size() == written.size() - 1 && !fault;

    // A stray end tag is reported with its line and column.
    const QString badPath = context.path(QStringLiteral("bad.kol"));
    QFile bad(badPath);
    bad.open(QIODevice::WriteOnly);
    bad.write(bytes + "\n</Bogus>\n");
    bad.close();
    const auto badEntries = readAll(badPath, &fault);
    out << tr("With a stray end tag: %1 entries, then:").arg(badEntries.size()) << "\n";
    if (fault)
        out << "  " << fault->description() << "\n";
    ok = ok && badEntries.size() == written.size() && fault && fault->type() == ko::FourChars("XmlP");
    return ok;
}

const DemoRegistration registration({30, QT_TRANSLATE_NOOP("cktool", "Action log entries"), runLoggingDemo});

} // namespace
} // namespace cktool
