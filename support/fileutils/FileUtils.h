#pragma once

#include <CommonKit/support/core/Export.h>

#include <QDir>

namespace ko {

/// File-system locations for the library's files.
class COMMONKIT_EXPORT FileUtils
{
public:
    /// The directory for the user's log files (see ko::platform::userLogDir):
    /// %LOCALAPPDATA% on Windows, $XDG_STATE_HOME or ~/.local/state on Linux,
    /// ~/Library/Logs on macOS. It need not exist yet.
    static QDir userLogDir();
};

} // namespace ko
