// A process that logs numbered entries into an action log file until it is
// killed, printing each number once log() has returned. Arguments: the file
// and the first number.

#include "logging/ActionLog.h"
#include "logging/ActionLogContextSwitchEntry.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 3)
        return 2;
    ko::ActionLog log(QString::fromLocal8Bit(argv[1]));
    log.setSplitPolicy(ko::ActionLog::NoSplit, 0);
    log.mute(false);
    for (long long i = QByteArray(argv[2]).toLongLong();; ++i) {
        ko::ActionLogContextSwitchEntry entry(QString::number(i), QStringLiteral("child"));
        log.log(entry);
        std::printf("%lld\n", i);
        std::fflush(stdout);
    }
}
