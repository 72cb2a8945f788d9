#pragma once

#include <CommonKit/support/core/Export.h>

#include <QString>

namespace ko {

/// Records exports (clips, still images, printouts, uploads to a file server)
/// in the action log: each send() builds one export entry (see
/// logging/ExportEntries.h) and hands it to ActionLog::getInstance()->log().
/// Nothing is recorded while the action log is muted.
class COMMONKIT_EXPORT ExportActionLog
{
public:
    enum EFormat : int {
        FormatBitmap = 0,
        FormatJPEG = 1,
        FormatStreloClip = 2,
        FormatAVI = 3,
        FormatMP4 = 4,
        FormatMOV = 5,
        FormatWebM = 6,
        FormatMatroska = 7,
        FormatFileServerStorage = 8,
        FormatPrinter = 9,
        FormatUnknown = 10
    };

    enum EState : int {
        StateStart = 0,
        StateFinished = 1,
        StateAbort = 2,
        StateError = 3,
        StateNone = 4
    };

    /// One row of the format table: the value and its untranslated name
    /// (translation context "ExportFormats").
    struct ExportFormats
    {
        EFormat value;
        const char* name;
    };

    /// One row of the state table: the value and its untranslated name
    /// (translation context "ExportActionLog"); StateNone has an empty name.
    struct ExportState
    {
        EState value;
        const char* name;
    };

    ExportActionLog() = delete;

    /// Records the start (state StateStart, an "ExpS" entry) or the writing
    /// (StateFinished, "ExpW") of an export; other states record nothing.
    /// from and to are microseconds since 1970-01-01 UTC; each non-zero one is
    /// kept to the whole second, a zero one is left unset. The entry's text is
    /// the translated template that fits which of from, to and target are
    /// given; its description fills in the format name (untranslated), the
    /// source, the target and the times.
    static void send(EFormat format, const QString& source, const QString& target, unsigned long long from,
                     unsigned long long to, EState state);

    /// Records the end of an export: StateFinished gives an "ExpD", StateAbort
    /// an "ExpA" and StateError an "ExpE" entry with the text as its message;
    /// other states record nothing.
    static void send(const QString& text, EState state);

    /// Records that the exported file source in the folder path was renamed
    /// to dest (an "ExpR" entry): "'<path><source>' to '<path><dest>'.".
    static void send(QString path, QString source, QString dest);

    /// The table rows. An index beyond the table (or below it) gives the last
    /// row: "unknown" for the formats, the nameless StateNone for the states.
    static const ExportFormats& formatsData(int index);
    static const ExportState& stateData(int index);

    /// The translated names for display ("" for StateNone).
    static QString formatDisplayName(int index);
    static QString stateDisplayName(int index);
};

} // namespace ko
