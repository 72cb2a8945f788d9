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
    /// What an export produced; each value is its row in the format table.
    enum EFormat : int {
        FormatBitmap = 0,            ///< A still image as a bitmap.
        FormatJPEG = 1,              ///< A still image as JPEG.
        FormatStreloClip = 2,        ///< A clip in the Strelo clip format.
        FormatAVI = 3,               ///< A video file in AVI.
        FormatMP4 = 4,               ///< A video file in MP4.
        FormatMOV = 5,               ///< A video file in MOV.
        FormatWebM = 6,              ///< A video file in WebM.
        FormatMatroska = 7,          ///< A video file in Matroska.
        FormatFileServerStorage = 8, ///< An upload to the file server storage.
        FormatPrinter = 9,           ///< A printout.
        FormatUnknown = 10           ///< Anything else; also the last table row.
    };

    /// The stage of an export; each value is its row in the state table.
    enum EState : int {
        StateStart = 0,    ///< The export started.
        StateFinished = 1, ///< The export was written, or ended well.
        StateAbort = 2,    ///< The user aborted the export.
        StateError = 3,    ///< The export failed.
        StateNone = 4      ///< No state; records nothing. Also the last table row.
    };

    /// One row of the format table: the value and its untranslated name
    /// (translation context "ExportFormats").
    struct ExportFormats
    {
        EFormat value;    ///< The format.
        const char* name; ///< Its untranslated name, a string literal.
    };

    /// One row of the state table: the value and its untranslated name
    /// (translation context "ExportActionLog"); StateNone has an empty name.
    struct ExportState
    {
        EState value;     ///< The state.
        const char* name; ///< Its untranslated name, a string literal ("" for StateNone).
    };

    /// Only static functions; not to be instantiated.
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

    /// The row of the format table at index, an EFormat value. An index
    /// beyond the table (or below it) gives the last row, FormatUnknown with
    /// the name "unknown". The row is static; the reference stays valid.
    static const ExportFormats& formatsData(int index);
    /// The row of the state table at index, an EState value. An index beyond
    /// the table (or below it) gives the last row, the nameless StateNone. The
    /// row is static; the reference stays valid.
    static const ExportState& stateData(int index);

    /// The translated name of formatsData(index), context "ExportFormats".
    static QString formatDisplayName(int index);
    /// The translated name of stateData(index), context "ExportActionLog";
    /// empty for StateNone.
    static QString stateDisplayName(int index);
};

} // namespace ko
