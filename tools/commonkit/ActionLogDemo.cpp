// Demo section: the process-wide action log in the demo's directory. Export
// records, a size rollover, a switch to another file and a damaged file
// moved aside; then the files and what they hold.

#include "Command.h"
#include "Demo.h"

#include <CommonKit/logging/ActionLog.h>
#include <CommonKit/logging/ExportActionLog.h>
#include <CommonKit/logging/XMLLogReader.h>

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <memory>

namespace cktool {
namespace {

int countEntries(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    int count = 0;
    ko::XMLLogReader reader(&file);
    while (!reader.atEnd() && !reader.hasError()) {
        std::unique_ptr<ko::LogEntry> entry(reader.readNextLogEntry());
        count += entry && !reader.hasFault();
    }
    return count;
}

void showEntries(QTextStream& out, const ko::ActionLog& log)
{
    for (int i = 0; i < log.count(); ++i) {
        auto* entry = const_cast<ko::LogEntry*>(log.entry(i));
        out << "  " << entry->title() << ": " << entry->description() << "\n";
    }
}

bool runActionLogDemo(DemoContext& context)
{
    QTextStream& out = context.out;
    // The default file lives under the user log directory; point it at the
    // demo's directory so that nothing outside it is touched.
    const QByteArray savedState = qgetenv("XDG_STATE_HOME");
    qputenv("XDG_STATE_HOME", context.workDir.absolutePath().toUtf8());
    ko::ActionLog::deleteActionLog();
    ko::ActionLog* log = ko::ActionLog::getInstance();
    QStringList errors;
    QObject::connect(log, &ko::ActionLog::errorXml, [&errors](const QString& error, int line, int column) {
        errors << cktool::tr("errorXml: %1 (line %2, column %3)").arg(error).arg(line).arg(column);
    });
    QObject::connect(log, &ko::ActionLog::errorFile, [&errors](const QString& file, int type) {
        errors << cktool::tr("errorFile: %1 (type %2)").arg(QFileInfo(file).fileName()).arg(type);
    });
    log->setSplitPolicy(ko::ActionLog::BySize, 1500);
    log->mute(false);
    out << cktool::tr("Default file: %1").arg(QDir(context.workDir).relativeFilePath(log->fileInfo().absoluteFilePath()))
        << "\n";

    const unsigned long long from = 1714979289123000ULL; // 2024-05-06 07:08:09.123 UTC
    ko::ExportActionLog::send(ko::ExportActionLog::FormatMP4, QStringLiteral("Camera 1"),
                              QStringLiteral("/exports/clip.mp4"), from, from + 60000000ULL,
                              ko::ExportActionLog::StateStart);
    ko::ExportActionLog::send(ko::ExportActionLog::FormatMP4, QStringLiteral("Camera 1"),
                              QStringLiteral("/exports/clip.mp4"), from, from + 60000000ULL,
                              ko::ExportActionLog::StateFinished);
    ko::ExportActionLog::send(QStringLiteral("Export of Camera 1 complete."), ko::ExportActionLog::StateFinished);
    out << cktool::tr("Three export records:") << "\n";
    showEntries(out, *log);
    bool ok = log->count() == 3;

    // Fill the file past its 1500-byte limit: the next entry rolls it over.
    const QString current = log->fileInfo().absoluteFilePath();
    while (QFileInfo(current).size() <= 1500)
        ko::ExportActionLog::send(QStringLiteral("filler"), ko::ExportActionLog::StateAbort);
    const int beforeRollover = log->count();
    ko::ExportActionLog::send(QStringLiteral("After the rollover."), ko::ExportActionLog::StateFinished);
    out << cktool::tr("Size rollover after %1 entries; the log now holds %2.").arg(beforeRollover).arg(log->count())
        << "\n";
    ok = ok && log->count() == 1;

    // Switch to another file: both files get a context-switch entry.
    const QString other = context.path(QStringLiteral("other.kol"));
    log->setFileInfo(QFileInfo(other));
    out << cktool::tr("Switched to other.kol:") << "\n";
    showEntries(out, *log);

    // A damaged file is moved aside when the log meets it.
    const QString broken = context.path(QStringLiteral("broken.kol"));
    QFile damage(broken);
    damage.open(QIODevice::WriteOnly);
    damage.write(R"(<?xml version="1.0" encoding="UTF-8"?><Entries Version="v0.1"><Entry ID="ExpD" Text="a"/>&oops;)");
    damage.close();
    log->setFileInfo(QFileInfo(broken));
    ko::ExportActionLog::send(QStringLiteral("Into a fresh file."), ko::ExportActionLog::StateFinished);
    for (const QString& error : qAsConst(errors))
        out << "  " << error << "\n";
    ok = ok && !errors.isEmpty();

    out << cktool::tr("Files:") << "\n";
    QStringList files;
    QDirIterator it(context.workDir.absolutePath(), {QStringLiteral("*.kol*")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << context.workDir.relativeFilePath(it.next());
    files.sort();
    for (const QString& file : qAsConst(files))
        out << "  " << file << "  " << cktool::tr("%1 entries").arg(countEntries(context.workDir.filePath(file))) << "\n";
    ok = ok && files.filter(QStringLiteral(".kol.corrupt")).size() == 1 && files.size() == 5;

    ko::ActionLog::deleteActionLog();
    if (savedState.isNull())
        qunsetenv("XDG_STATE_HOME");
    else
        qputenv("XDG_STATE_HOME", savedState);
    return ok;
}

const DemoRegistration registration({42, QT_TRANSLATE_NOOP("cktool", "Action log: export records, rollover, switching, recovery"),
                                     runActionLogDemo});

} // namespace
} // namespace cktool
