#include <CommonKit/support/crypto/DigestingIODevice.h>

#include "support/core/WrappedDevice_p.h"

#include <algorithm>

namespace ko {
namespace crypto {

DigestingIODevice::DigestingIODevice(QIODevice* device, MessageDigest::Algorithm algorithm,
                                     QObject* parent)
    : QIODevice(parent), MessageDigest(algorithm), m_device(device)
{
}

DigestingIODevice::~DigestingIODevice()
{
    if (isOpen())
        close();
}

bool DigestingIODevice::open(OpenMode mode)
{
    QString error;
    if (!isValid())
        error = tr("Unknown digest algorithm.");
    if (!error.isEmpty() || !openWrappedDevice(*this, m_device, mode, &error)) {
        setErrorString(error);
        return false;
    }
    m_pos = 0;
    return QIODevice::open(mode | Unbuffered);
}

void DigestingIODevice::close()
{
    if (!isOpen())
        return;
    QIODevice::close();
    if (m_device && m_device->isOpen())
        m_device->close();
}

bool DigestingIODevice::seek(qint64 pos)
{
    if (!isReadable() || pos < m_pos)
        return false;
    char buffer[16384];
    while (m_pos < pos) {
        const qint64 n = read(buffer, std::min<qint64>(sizeof buffer, pos - m_pos));
        if (n <= 0)
            return false;
    }
    return true;
}

bool DigestingIODevice::atEnd() const
{
    return !isOpen() || !m_device || m_device->atEnd();
}

qint64 DigestingIODevice::bytesAvailable() const
{
    return QIODevice::bytesAvailable() + (m_device ? m_device->bytesAvailable() : 0);
}

qint64 DigestingIODevice::bytesToWrite() const
{
    return m_device ? m_device->bytesToWrite() : 0;
}

qint64 DigestingIODevice::readData(char* data, qint64 maxSize)
{
    if (!m_device)
        return -1;
    const qint64 n = m_device->read(data, maxSize);
    if (n < 0) {
        setErrorString(m_device->errorString());
        return -1;
    }
    update(data, static_cast<std::size_t>(n));
    m_pos += n;
    return n;
}

qint64 DigestingIODevice::writeData(const char* data, qint64 maxSize)
{
    if (!m_device)
        return -1;
    const qint64 n = m_device->write(data, maxSize);
    if (n < 0) {
        setErrorString(m_device->errorString());
        return -1;
    }
    update(data, static_cast<std::size_t>(n));
    m_pos += n;
    return n;
}

} // namespace crypto
} // namespace ko
