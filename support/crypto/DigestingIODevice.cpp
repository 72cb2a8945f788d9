#include <CommonKit/support/crypto/DigestingIODevice.h>

#include "support/core/FilterDevice_p.h"

#include <algorithm>

namespace ko {
namespace crypto {

class DigestingIODevice::Filter : public FilterTransform
{
public:
    explicit Filter(DigestingIODevice& device) : m_device(device) {}

    QString openError(QIODevice::OpenMode) const override
    {
        return m_device.isValid() ? QString() : DigestingIODevice::tr("Unknown digest algorithm.");
    }

    bool start(FilterDevicePrivate&, QIODevice::OpenMode) override
    {
        m_device.m_pos = 0;
        return true;
    }

private:
    DigestingIODevice& m_device;
};

DigestingIODevice::DigestingIODevice(QIODevice* device, MessageDigest::Algorithm algorithm,
                                     QObject* parent)
    : FilterDevice(device, new Filter(*this), parent), MessageDigest(algorithm)
{
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
    return !isOpen() || !device() || device()->atEnd();
}

qint64 DigestingIODevice::bytesAvailable() const
{
    return QIODevice::bytesAvailable() + (device() ? device()->bytesAvailable() : 0);
}

qint64 DigestingIODevice::bytesToWrite() const
{
    return device() ? device()->bytesToWrite() : 0;
}

qint64 DigestingIODevice::readData(char* data, qint64 maxSize)
{
    return digested(data, filter()->readWrapped(data, maxSize));
}

qint64 DigestingIODevice::writeData(const char* data, qint64 maxSize)
{
    return digested(data, filter()->writeWrapped(data, maxSize));
}

// Feeds the `size` bytes that passed into the digest; a negative size is the
// wrapped device's failure, passed on.
qint64 DigestingIODevice::digested(const char* data, qint64 size)
{
    if (size > 0) {
        update(data, static_cast<std::size_t>(size));
        m_pos += size;
    }
    return size;
}

} // namespace crypto
} // namespace ko
