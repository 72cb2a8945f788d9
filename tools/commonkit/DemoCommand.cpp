// commonkit demo: a short tour of every subsystem, in a temporary directory.

#include "Command.h"
#include "CommandLine.h"
#include "Demo.h"

#include <QTemporaryDir>

namespace cktool {
namespace {

int runDemo(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("demo"),
                            tr("Runs a short tour of the library on sample data in a temporary directory."));
    const QCommandLineOption keepOption(QStringLiteral("keep"),
                                        tr("Keep the temporary directory and print its path."));
    commandLine.addOption(keepOption);
    if (!commandLine.parse(arguments, 0, 0))
        return 0;

    QTemporaryDir scratch;
    if (!scratch.isValid())
        throw CommandError(tr("cannot create a temporary directory: %1").arg(scratch.errorString()));
    scratch.setAutoRemove(!commandLine.isSet(QStringLiteral("keep")));

    QTextStream out(stdout);
    out << tr("CommonKit demo, working in %1").arg(scratch.path()) << "\n";
    int failures = 0;
    for (const DemoSection& section : DemoRegistry::instance().sections()) {
        QDir dir(scratch.path());
        const QString folder = QString::number(section.rank);
        dir.mkpath(folder);
        dir.cd(folder);
        DemoContext context{dir, out};
        out << "\n== " << tr(section.title) << " ==\n";
        out.flush();
        if (!section.run(context)) {
            ++failures;
            out << tr("!! this section did not behave as expected") << "\n";
        }
        out.flush();
    }
    out << "\n";
    if (failures) {
        out << tr("%1 section(s) failed.").arg(failures) << "\n";
        return 1;
    }
    out << tr("All sections ran as expected.") << "\n";
    return 0;
}

const CommandRegistration registration({"demo", QT_TRANSLATE_NOOP("cktool", "Run a short tour of the library"),
                                         runDemo});

} // namespace
} // namespace cktool
