#include <CommonKit/support/fileutils/FileUtils.h>

#include <CommonKit/platform/Platform.h>

namespace ko {

QDir FileUtils::userLogDir()
{
    return QDir(QDir::cleanPath(QString::fromStdString(platform::userLogDir())));
}

} // namespace ko
