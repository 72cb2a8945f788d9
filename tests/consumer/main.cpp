// Uses the installed CommonKit headers and library the way an application would.

#include <CommonKit/util/FourChars.h>
#include <CommonKit/util/TimeFunctions.h>
#include <CommonKit/util/TimeTranscoder.h>

#include "util/FourChars.h" // the consumer's own, beside the library's

#include <QDateTime>

#include <cstdio>

int main()
{
    const ko::FourChars code(QStringLiteral("ExpS"));
    const consumer::FourChars own{{'E', 'x', 'p', 'S'}};
    const QDateTime moment(QDate(2024, 5, 6), QTime(7, 8, 9, 123), Qt::UTC);
    const quint64 frameTime = ko::toFrameTime(moment);
    const ko::CTimeTranscoder time(static_cast<unsigned long long>(frameTime));
    std::printf("consumer: code 0x%08x, frame time %llu, millisecond %d\n", static_cast<unsigned>(code),
                static_cast<unsigned long long>(frameTime), time.millisecond());
    const bool ok = static_cast<unsigned>(code) == 0x45787053u && own.text[0] == 'E' && frameTime == 1714979289123000ULL
        && time.millisecond() == 123 && ko::fromFrameTime(frameTime) == moment;
    return ok ? 0 : 1;
}
