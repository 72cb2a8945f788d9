#include "support/core/WrappedDevice_p.h"

#include <QCoreApplication>

namespace ko {

bool openWrappedDevice(const QIODevice& filter, QIODevice* wrapped, QIODevice::OpenMode mode, QString* error)
{
    if (filter.isOpen()) {
        *error = QCoreApplication::translate("ko::WrappedDevice", "The device is already open.");
        return false;
    }
    if (!wrapped) {
        *error = QCoreApplication::translate("ko::WrappedDevice", "There is no device to read from or write to.");
        return false;
    }
    const QIODevice::OpenMode needed = mode & QIODevice::ReadWrite;
    if (!wrapped->isOpen()) {
        if (!wrapped->open(mode)) {
            *error = wrapped->errorString();
            return false;
        }
    } else if ((wrapped->openMode() & needed) != needed) {
        *error = QCoreApplication::translate("ko::WrappedDevice", "The wrapped device is not open for this direction.");
        return false;
    }
    return true;
}

} // namespace ko
