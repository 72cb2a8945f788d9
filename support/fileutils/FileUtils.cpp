#include "support/fileutils/FileUtils.h"

#include "platform/Platform.h"

namespace ko {

QDir FileUtils::userLogDir()
{
    return QDir(QDir::cleanPath(QString::fromStdString(platform::userLogDir())));
}

} // namespace ko
