#include "storage/BorrowedDevice_p.h"

#include <QCoreApplication>

namespace ko {

bool BorrowedDevice::open(OpenMode mode)
{
    const OpenMode needed = mode & ReadWrite;
    if (!m_device.isOpen() || (m_device.openMode() & needed) != needed) {
        setErrorString(m_device.isOpen()
                           ? QCoreApplication::translate("ko::EncryptedSettings", "The settings device is not open for this direction.")
                           : QCoreApplication::translate("ko::EncryptedSettings", "The settings device is not open."));
        return false;
    }
    m_readFailed = false;
    m_writeFailed = false;
    return QIODevice::open(needed | Unbuffered);
}

qint64 BorrowedDevice::readData(char* data, qint64 maxSize)
{
    const qint64 n = m_device.read(data, maxSize);
    if (n < 0) {
        m_readFailed = true;
        setErrorString(m_device.errorString());
    }
    return n;
}

qint64 BorrowedDevice::writeData(const char* data, qint64 maxSize)
{
    const qint64 n = m_device.write(data, maxSize);
    if (n != maxSize) {
        m_writeFailed = true;
        setErrorString(m_device.errorString());
    }
    return n;
}

} // namespace ko
