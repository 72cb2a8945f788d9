#pragma once

#include <CommonKit/support/core/Export.h>

#include <QLocale>
#include <QStringList>

namespace ko {

/// Installs the library's translator for the locale's language on the running
/// QCoreApplication, replacing one installed earlier by this function. Returns
/// false (and installs nothing) when the library carries no catalogue for the
/// language; English needs none and also returns false. The translator
/// installed earlier is removed in either case. Calls from several threads
/// are serialised.
COMMONKIT_EXPORT bool installTranslations(const QLocale& locale = QLocale());

/// Removes the translator installed by installTranslations, if any.
COMMONKIT_EXPORT void removeTranslations();

/// The languages the library carries catalogues for ("de", "fr").
COMMONKIT_EXPORT QStringList availableTranslations();

} // namespace ko
