// A process that logs numbered entries into an action log file until it is
// killed, printing each number once log() has returned. Arguments: the file,
// the first number and, optionally, a file size limit in bytes: writes past it
// fail, and the child ends with exit code 3 at the first error the log
// reports.

#include <CommonKit/logging/ActionLog.h>
#include <CommonKit/logging/ActionLogContextSwitchEntry.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>
#include <csignal>
#include <cstdlib>
#include <sys/resource.h>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 3 && argc != 4)
        return 2;
    if (argc == 4) {
        std::signal(SIGXFSZ, SIG_IGN); // a write past the limit fails instead of killing
        const rlimit limit{static_cast<rlim_t>(std::atoll(argv[3])), static_cast<rlim_t>(std::atoll(argv[3]))};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ko::ActionLog log(QString::fromLocal8Bit(argv[1]));
    // A failure on this file (not on the default file the log then falls
    // back to) ends the run.
    const QString own = log.fileInfo().absoluteFilePath();
    QObject::connect(&log, &ko::ActionLog::errorFile, [own](const QString& file, int type) {
        if (QFileInfo(file).absoluteFilePath() != own)
            return;
        std::printf("E%d\n", type);
        std::fflush(stdout);
        std::_Exit(3);
    });
    log.setSplitPolicy(ko::ActionLog::NoSplit, 0);
    log.mute(false);
    for (long long i = QByteArray(argv[2]).toLongLong();; ++i) {
        ko::ActionLogContextSwitchEntry entry(QString::number(i), QStringLiteral("child"));
        log.log(entry);
        std::printf("%lld\n", i);
        std::fflush(stdout);
    }
}
