#pragma once

#include <QtGlobal>

// Some documented behaviour of the library is defined in terms of Qt APIs that
// Qt 5.15 marks deprecated (toTime_t, QRegExp, qsrand, ...). Wrap exactly those
// calls in these macros so that the deprecation warning is silenced locally and
// stays an error everywhere else.
/// Silences deprecation warnings until the matching COMMONKIT_DEPRECATED_END.
#define COMMONKIT_DEPRECATED_BEGIN QT_WARNING_PUSH QT_WARNING_DISABLE_DEPRECATED
/// Ends the region opened by COMMONKIT_DEPRECATED_BEGIN.
#define COMMONKIT_DEPRECATED_END QT_WARNING_POP
