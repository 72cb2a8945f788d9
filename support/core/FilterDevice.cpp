#include "support/core/FilterDevice_p.h"

#include <CommonKit/support/crypto/SecureAllocator.h>

#include <QCoreApplication>

#include <algorithm>
#include <cstring>

namespace ko {

namespace {

// Why a filter in `mode` cannot be opened on `wrapped` (opening it when it is
// closed), or an empty string.
QString openWrapped(const QIODevice& filter, QIODevice* wrapped, QIODevice::OpenMode mode)
{
    if (filter.isOpen())
        return QCoreApplication::translate("ko::WrappedDevice", "The device is already open.");
    if (!wrapped)
        return QCoreApplication::translate("ko::WrappedDevice", "There is no device to read from or write to.");
    const QIODevice::OpenMode needed = mode & QIODevice::ReadWrite;
    if (!wrapped->isOpen()) {
        if (!wrapped->open(mode))
            return wrapped->errorString();
    } else if ((wrapped->openMode() & needed) != needed) {
        return QCoreApplication::translate("ko::WrappedDevice", "The wrapped device is not open for this direction.");
    }
    return QString();
}

// Wipes the whole allocation of `bytes`, also what lies past its size (a
// buffer that shrank keeps its old tail there), and empties it.
void wipeAndClear(QByteArray& bytes)
{
    bytes.resize(bytes.capacity()); // within the allocation: no copy
    if (!bytes.isEmpty())
        crypto::zeroOut(bytes.data(), static_cast<std::size_t>(bytes.size()));
    bytes.resize(0);
}

} // namespace

FilterTransform::~FilterTransform() = default;

qint64 StreamTransform::decodeInto(FilterDevicePrivate& device, char* data)
{
    // Only called for filters that name a direct piece size.
    Q_UNUSED(data)
    device.fail(QStringLiteral("decodeInto() without directPieceSize()"));
    return -1;
}

FilterDevicePrivate::FilterDevicePrivate(FilterDevice& host, QIODevice* wrapped, FilterTransform* transform)
    : m_host(host), m_wrapped(wrapped), m_transform(transform), m_stream(dynamic_cast<StreamTransform*>(transform))
{
}

FilterDevicePrivate::~FilterDevicePrivate()
{
    m_transform->stop();
    clearBuffer();
}

bool FilterDevicePrivate::open(QIODevice::OpenMode mode)
{
    QString error = m_transform->openError(mode);
    if (error.isEmpty())
        error = openWrapped(m_host, m_wrapped, mode);
    if (!error.isEmpty()) {
        m_host.setErrorString(error);
        return false;
    }
    m_transform->stop();
    clearBuffer();
    m_failed = false;
    m_streamEnded = false;
    m_wrappedEnded = false;
    if (!m_transform->start(*this, mode))
        return false;
    return m_host.QIODevice::open(mode | QIODevice::Unbuffered);
}

void FilterDevicePrivate::close()
{
    if (!m_host.isOpen())
        return;
    if (m_stream && (m_host.openMode() & QIODevice::WriteOnly) && !m_failed)
        m_stream->finish(*this);
    m_host.QIODevice::close();
    m_transform->stop();
    clearBuffer();
    if (m_wrapped && m_wrapped->isOpen())
        m_wrapped->close();
}

bool FilterDevicePrivate::atEnd() const
{
    if (!m_stream || !(m_host.openMode() & QIODevice::ReadOnly))
        return true;
    if (m_bufferPos < m_buffer.size())
        return false;
    // Decoding ahead changes no observable state but the buffer.
    const_cast<FilterDevicePrivate*>(this)->fill();
    return m_bufferPos >= m_buffer.size();
}

qint64 FilterDevicePrivate::bytesAvailable() const
{
    return (m_buffer.size() - m_bufferPos) + m_host.QIODevice::bytesAvailable();
}

qint64 FilterDevicePrivate::read(char* data, qint64 maxSize)
{
    if (m_failed || !m_stream || !(m_host.openMode() & QIODevice::ReadOnly))
        return -1;
    const qint64 direct = m_stream->directPieceSize();
    qint64 done = 0;
    while (done < maxSize) {
        if (m_bufferPos >= m_buffer.size() && direct > 0 && maxSize - done >= direct) {
            if (m_streamEnded)
                break;
            const qint64 n = m_stream->decodeInto(*this, data + done);
            if (n < 0)
                return done > 0 ? done : -1;
            done += n;
            continue;
        }
        if (m_bufferPos >= m_buffer.size() && !fill())
            return done > 0 ? done : -1;
        const qint64 available = m_buffer.size() - m_bufferPos;
        if (available == 0)
            break;
        const qint64 take = std::min(available, maxSize - done);
        std::memcpy(data + done, m_buffer.constData() + m_bufferPos, static_cast<std::size_t>(take));
        m_bufferPos += take;
        done += take;
    }
    return done;
}

qint64 FilterDevicePrivate::write(const char* data, qint64 maxSize)
{
    if (m_failed || !m_stream || !(m_host.openMode() & QIODevice::WriteOnly))
        return -1;
    return m_stream->encode(*this, data, maxSize) ? maxSize : -1;
}

// Decodes until there are bytes to hand out or the stream ended; false when
// it failed.
bool FilterDevicePrivate::fill()
{
    while (!m_failed && m_bufferPos >= m_buffer.size() && !m_streamEnded) {
        // What was handed out may be plain text of an encrypted stream; the
        // next piece overwrites it, and clearBuffer() wipes the whole buffer
        // when the stream closes or fails.
        m_bufferPos = 0;
        if (!m_stream->decode(*this, m_buffer))
            return false;
    }
    return !m_failed;
}

qint64 FilterDevicePrivate::readWrapped(char* data, qint64 size)
{
    const qint64 n = m_wrapped->read(data, size);
    if (n < 0)
        fail(m_transform->wrappedFailed(true, m_wrapped->errorString()));
    else if (n == 0)
        m_wrappedEnded = true;
    return n;
}

qint64 FilterDevicePrivate::writeWrapped(const char* data, qint64 size)
{
    const qint64 n = m_wrapped->write(data, size);
    if (n < 0)
        fail(m_transform->wrappedFailed(false, m_wrapped->errorString()));
    return n;
}

qint64 FilterDevicePrivate::readWrappedFully(char* data, qint64 size)
{
    qint64 done = 0;
    while (done < size && !m_wrappedEnded) {
        const qint64 n = readWrapped(data + done, size - done);
        if (n < 0)
            return -1;
        done += n;
    }
    return done;
}

bool FilterDevicePrivate::writeWrappedFully(const char* data, qint64 size)
{
    qint64 written = 0;
    while (written < size) {
        const qint64 n = m_wrapped->write(data + written, size - written);
        if (n <= 0) {
            fail(m_transform->wrappedFailed(false, m_wrapped->errorString()));
            return false;
        }
        written += n;
    }
    return true;
}

void FilterDevicePrivate::fail(const QString& reason)
{
    m_failed = true;
    clearBuffer();
    m_host.setErrorString(reason);
}

void FilterDevicePrivate::clearBuffer()
{
    wipeAndClear(m_buffer);
    m_bufferPos = 0;
}

FilterDevice::FilterDevice(QIODevice* device, FilterTransform* transform, QObject* parent)
    : QIODevice(parent), m_d(new FilterDevicePrivate(*this, device, transform))
{
}

FilterDevice::~FilterDevice()
{
    close();
    delete m_d;
}

QIODevice* FilterDevice::device() const { return m_d->wrapped(); }
bool FilterDevice::hasError() const { return m_d->hasError(); }
bool FilterDevice::open(OpenMode mode) { return m_d->open(mode); }
void FilterDevice::close() { m_d->close(); }
bool FilterDevice::isSequential() const { return true; }
bool FilterDevice::atEnd() const { return m_d->atEnd(); }
qint64 FilterDevice::bytesAvailable() const { return m_d->bytesAvailable(); }
qint64 FilterDevice::readData(char* data, qint64 maxSize) { return m_d->read(data, maxSize); }
qint64 FilterDevice::writeData(const char* data, qint64 maxSize) { return m_d->write(data, maxSize); }

} // namespace ko
