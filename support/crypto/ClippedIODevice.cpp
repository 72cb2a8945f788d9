#include <CommonKit/support/crypto/ClippedIODevice.h>

#include "support/core/FilterDevice_p.h"

#include <algorithm>

namespace ko {
namespace crypto {

class ClippedIODevice::Filter : public FilterTransform
{
public:
    explicit Filter(ClippedIODevice& device) : m_device(device) {}

    QString openError(QIODevice::OpenMode mode) const override
    {
        if ((mode & QIODevice::WriteOnly) || !(mode & QIODevice::ReadOnly))
            return ClippedIODevice::tr("The clipping device is read-only.");
        return QString();
    }

    // The starting point is the wrapped device's position at opening.
    bool start(FilterDevicePrivate& device, QIODevice::OpenMode) override
    {
        m_device.m_origin = device.wrapped()->isSequential() ? 0 : device.wrapped()->pos();
        m_device.m_consumed = 0;
        return true;
    }

private:
    ClippedIODevice& m_device;
};

ClippedIODevice::ClippedIODevice(QIODevice* device, QObject* parent)
    : FilterDevice(device, new Filter(*this), parent)
{
}

void ClippedIODevice::setMax(qint64 max)
{
    m_max = max < 0 ? -1 : max;
}

bool ClippedIODevice::isSequential() const
{
    return !device() || device()->isSequential();
}

qint64 ClippedIODevice::remaining() const
{
    return m_max < 0 ? -1 : std::max<qint64>(0, m_max - m_consumed);
}

qint64 ClippedIODevice::size() const
{
    if (!device())
        return 0;
    if (isSequential())
        return bytesAvailable();
    const qint64 rest = std::max<qint64>(0, device()->size() - m_origin);
    return m_max < 0 ? rest : std::min(rest, m_max);
}

bool ClippedIODevice::seek(qint64 pos)
{
    if (!isOpen() || isSequential() || pos < 0 || pos > size())
        return false;
    if (!device()->seek(m_origin + pos))
        return false;
    m_consumed = pos;
    return QIODevice::seek(pos);
}

bool ClippedIODevice::atEnd() const
{
    if (!isOpen() || !device())
        return true;
    return remaining() == 0 || device()->atEnd();
}

qint64 ClippedIODevice::bytesAvailable() const
{
    if (!device())
        return 0;
    const qint64 available = device()->bytesAvailable();
    const qint64 rest = remaining();
    return rest < 0 ? available : std::min(available, rest);
}

qint64 ClippedIODevice::readData(char* data, qint64 maxSize)
{
    const qint64 rest = remaining();
    const qint64 want = rest < 0 ? maxSize : std::min(maxSize, rest);
    if (want == 0)
        return 0;
    // Unbuffered (as every filter is opened): the wrapped device is read
    // exactly as far as our reader asks, so its position stays meaningful.
    const qint64 n = filter()->readWrapped(data, want);
    if (n > 0)
        m_consumed += n;
    return n;
}

qint64 ClippedIODevice::writeData(const char*, qint64)
{
    return -1;
}

} // namespace crypto
} // namespace ko
