#include <CommonKit/logging/ExportActionLog.h>

#include <CommonKit/logging/ActionLog.h>
#include <CommonKit/logging/ExportEntries.h>
#include <CommonKit/support/core/QtDeprecated.h>

#include <QCoreApplication>
#include <QDateTime>

#include <cstddef>

namespace ko {
namespace {

const ExportActionLog::ExportFormats k_formats[] = {
    {ExportActionLog::FormatBitmap, QT_TRANSLATE_NOOP("ExportFormats", "Bitmap")},
    {ExportActionLog::FormatJPEG, QT_TRANSLATE_NOOP("ExportFormats", "JPEG")},
    {ExportActionLog::FormatStreloClip, QT_TRANSLATE_NOOP("ExportFormats", "Strelo clip")},
    {ExportActionLog::FormatAVI, QT_TRANSLATE_NOOP("ExportFormats", "AVI")},
    {ExportActionLog::FormatMP4, QT_TRANSLATE_NOOP("ExportFormats", "MP4")},
    {ExportActionLog::FormatMOV, QT_TRANSLATE_NOOP("ExportFormats", "MOV")},
    {ExportActionLog::FormatWebM, QT_TRANSLATE_NOOP("ExportFormats", "WebM")},
    {ExportActionLog::FormatMatroska, QT_TRANSLATE_NOOP("ExportFormats", "Matroska")},
    {ExportActionLog::FormatFileServerStorage, QT_TRANSLATE_NOOP("ExportFormats", "KORVANE file server storage")},
    {ExportActionLog::FormatPrinter, QT_TRANSLATE_NOOP("ExportFormats", "Printer")},
    {ExportActionLog::FormatUnknown, QT_TRANSLATE_NOOP("ExportFormats", "unknown")},
};

const ExportActionLog::ExportState k_states[] = {
    {ExportActionLog::StateStart, QT_TRANSLATE_NOOP("ExportActionLog", "Start")},
    {ExportActionLog::StateFinished, QT_TRANSLATE_NOOP("ExportActionLog", "Finished")},
    {ExportActionLog::StateAbort, QT_TRANSLATE_NOOP("ExportActionLog", "Abort")},
    {ExportActionLog::StateError, QT_TRANSLATE_NOOP("ExportActionLog", "Error")},
    {ExportActionLog::StateNone, ""},
};

// The texts of start and written entries. %1 is filled with the format, %2
// the source, %3 the target, %4 from and %5 to; a text without a target ends
// in "%3", which the empty target fills with nothing.
const char* const k_span = QT_TRANSLATE_NOOP(
    "ActionLog", "Format='%1'; Source='%2'; Date and time from='%4'; Date and time to '%5'; Target='%3'.");
const char* const k_spanNoTarget =
    QT_TRANSLATE_NOOP("ActionLog", "Format='%1'; Source='%2'; Date and time from='%4'; Date and time to '%5'.%3");
const char* const k_timestamp =
    QT_TRANSLATE_NOOP("ActionLog", "Format='%1'; Source='%2'; Timestamp='%4'; Target='%3'.");
const char* const k_timestampNoTarget =
    QT_TRANSLATE_NOOP("ActionLog", "Format='%1'; Source='%2'; Timestamp='%4'.%3");
const char* const k_untimed = QT_TRANSLATE_NOOP("ActionLog", "Format='%1'; Source='%2'; Target='%3'.");
const char* const k_untimedNoTarget = QT_TRANSLATE_NOOP("ActionLog", "Format='%1'; Source='%2'.");
const char* const k_rename = QT_TRANSLATE_NOOP("ActionLog", "'%1%2' to '%1%3'.");

// Indexes outside the table give its last row.
template<typename Row, std::size_t N>
const Row& row(const Row (&table)[N], int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= N)
        return table[N - 1];
    return table[index];
}

// Microseconds since 1970 to whole seconds; zero stays a null date-time.
QDateTime fromMicroSeconds(unsigned long long microseconds)
{
    QDateTime result;
    if (microseconds != 0) {
        COMMONKIT_DEPRECATED_BEGIN
        result.setTime_t(static_cast<uint>(microseconds / 1000000));
        COMMONKIT_DEPRECATED_END
    }
    return result;
}

const char* spanTemplate(unsigned long long from, unsigned long long to, bool hasTarget)
{
    if (from != 0 && to != 0)
        return hasTarget ? k_span : k_spanNoTarget;
    if (from != 0)
        return hasTarget ? k_timestamp : k_timestampNoTarget;
    return hasTarget ? k_untimed : k_untimedNoTarget;
}

} // namespace

void ExportActionLog::send(EFormat format, const QString& source, const QString& target, unsigned long long from,
                           unsigned long long to, EState state)
{
    if (state != StateStart && state != StateFinished)
        return;
    const QString text = LogEntry::tr(spanTemplate(from, to, !target.isEmpty()));
    const QString name = QLatin1String(formatsData(format).name);
    const QDateTime fromTime = fromMicroSeconds(from);
    const QDateTime toTime = fromMicroSeconds(to);
    if (state == StateStart)
        ActionLog::getInstance()->log(ExportStartEntry(text, name, source, target, fromTime, toTime));
    else
        ActionLog::getInstance()->log(ExportWrittenEntry(text, name, source, target, fromTime, toTime));
}

void ExportActionLog::send(const QString& text, EState state)
{
    switch (state) {
    case StateFinished:
        ActionLog::getInstance()->log(ExportDoneEntry(text));
        break;
    case StateAbort:
        ActionLog::getInstance()->log(ExportAbortEntry(text));
        break;
    case StateError:
        ActionLog::getInstance()->log(ExportErrorEntry(text));
        break;
    default:
        break;
    }
}

void ExportActionLog::send(QString path, QString source, QString dest)
{
    ActionLog::getInstance()->log(ExportRenameEntry(LogEntry::tr(k_rename), path, source, dest));
}

const ExportActionLog::ExportFormats& ExportActionLog::formatsData(int index)
{
    return row(k_formats, index);
}

const ExportActionLog::ExportState& ExportActionLog::stateData(int index)
{
    return row(k_states, index);
}

QString ExportActionLog::formatDisplayName(int index)
{
    return QCoreApplication::translate("ExportFormats", formatsData(index).name);
}

QString ExportActionLog::stateDisplayName(int index)
{
    const char* name = stateData(index).name;
    return *name ? QCoreApplication::translate("ExportActionLog", name) : QString();
}

} // namespace ko
