#include <CommonKit/support/crypto/ClippedIODevice.h>

#include "support/core/WrappedDevice_p.h"

#include <algorithm>

namespace ko {
namespace crypto {

ClippedIODevice::ClippedIODevice(QIODevice* device, QObject* parent)
    : QIODevice(parent), m_device(device)
{
}

ClippedIODevice::~ClippedIODevice()
{
    if (isOpen())
        close();
}

void ClippedIODevice::setMax(qint64 max)
{
    m_max = max < 0 ? -1 : max;
}

bool ClippedIODevice::open(OpenMode mode)
{
    QString error;
    if ((mode & WriteOnly) || !(mode & ReadOnly))
        error = tr("The clipping device is read-only.");
    if (!error.isEmpty() || !openWrappedDevice(*this, m_device, mode, &error)) {
        setErrorString(error);
        return false;
    }
    m_origin = m_device->isSequential() ? 0 : m_device->pos();
    m_consumed = 0;
    // Unbuffered: the wrapped device is read exactly as far as our reader
    // asks, so its position stays meaningful.
    return QIODevice::open(mode | Unbuffered);
}

void ClippedIODevice::close()
{
    if (!isOpen())
        return;
    QIODevice::close();
    if (m_device && m_device->isOpen())
        m_device->close();
}

bool ClippedIODevice::isSequential() const
{
    return !m_device || m_device->isSequential();
}

qint64 ClippedIODevice::remaining() const
{
    return m_max < 0 ? -1 : std::max<qint64>(0, m_max - m_consumed);
}

qint64 ClippedIODevice::size() const
{
    if (!m_device)
        return 0;
    if (isSequential())
        return bytesAvailable();
    const qint64 rest = std::max<qint64>(0, m_device->size() - m_origin);
    return m_max < 0 ? rest : std::min(rest, m_max);
}

bool ClippedIODevice::seek(qint64 pos)
{
    if (!isOpen() || isSequential() || pos < 0 || pos > size())
        return false;
    if (!m_device->seek(m_origin + pos))
        return false;
    m_consumed = pos;
    return QIODevice::seek(pos);
}

bool ClippedIODevice::atEnd() const
{
    if (!isOpen() || !m_device)
        return true;
    return remaining() == 0 || m_device->atEnd();
}

qint64 ClippedIODevice::bytesAvailable() const
{
    if (!m_device)
        return 0;
    const qint64 available = m_device->bytesAvailable();
    const qint64 rest = remaining();
    return rest < 0 ? available : std::min(available, rest);
}

qint64 ClippedIODevice::readData(char* data, qint64 maxSize)
{
    if (!m_device)
        return -1;
    const qint64 rest = remaining();
    const qint64 want = rest < 0 ? maxSize : std::min(maxSize, rest);
    if (want == 0)
        return 0;
    const qint64 n = m_device->read(data, want);
    if (n < 0) {
        setErrorString(m_device->errorString());
        return -1;
    }
    m_consumed += n;
    return n;
}

qint64 ClippedIODevice::writeData(const char*, qint64)
{
    return -1;
}

} // namespace crypto
} // namespace ko
