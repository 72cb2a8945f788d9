#include <CommonKit/support/compression/ZlibDevice.h>

#include "support/core/WrappedDevice_p.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace ko {

namespace {
constexpr std::size_t k_bufferSize = 65536;
}

struct ZlibDevice::Stream
{
    z_stream z;
    bool writing = false;
    bool sourceEnd = false;
    std::vector<unsigned char> in;   // reader: compressed bytes from the wrapped device
    std::vector<unsigned char> out;  // reader: inflated bytes; writer: deflated bytes
    std::size_t outPos = 0;          // reader: first unread byte in `out`
    std::size_t outSize = 0;         // reader: bytes in `out`

    explicit Stream(bool write) : writing(write), in(write ? 0 : k_bufferSize), out(k_bufferSize)
    {
        std::memset(&z, 0, sizeof z);
    }
};

ZlibDevice::ZlibDevice(QIODevice* device, int level, QObject* parent)
    : QIODevice(parent), m_device(device), m_level(level)
{
}

ZlibDevice::~ZlibDevice()
{
    if (isOpen())
        close();
    endStream();
}

bool ZlibDevice::open(OpenMode mode)
{
    const bool reading = mode & ReadOnly;
    const bool writing = mode & WriteOnly;
    QString error;
    if (reading == writing || (mode & Append))
        error = tr("The compression device is opened either for reading or for writing.");
    else if (writing && (m_level < k_defaultCompression || m_level > k_bestCompression))
        error = tr("Invalid compression level %1.").arg(m_level);
    if (!error.isEmpty() || !openWrappedDevice(*this, m_device, mode, &error)) {
        setErrorString(error);
        return false;
    }

    endStream();
    m_stream = new Stream(writing);
    const int result = writing ? deflateInit(&m_stream->z, m_level) : inflateInit(&m_stream->z);
    if (result != Z_OK) {
        setErrorString(tr("Cannot start the zlib stream (%1).").arg(result));
        delete m_stream;
        m_stream = nullptr;
        return false;
    }
    m_finished = false;
    m_failed = false;
    return QIODevice::open(mode | Unbuffered);
}

void ZlibDevice::close()
{
    if (!isOpen())
        return;
    if (m_stream && m_stream->writing && !m_failed)
        deflateInto(Z_FINISH);
    QIODevice::close();
    endStream();
    if (m_device && m_device->isOpen())
        m_device->close();
}

void ZlibDevice::endStream()
{
    if (!m_stream)
        return;
    if (m_stream->writing)
        deflateEnd(&m_stream->z);
    else
        inflateEnd(&m_stream->z);
    delete m_stream;
    m_stream = nullptr;
}

bool ZlibDevice::atEnd() const
{
    if (!isOpen() || !m_stream || m_stream->writing)
        return true;
    if (m_stream->outPos < m_stream->outSize)
        return false;
    fill();
    return m_stream->outPos >= m_stream->outSize;
}

qint64 ZlibDevice::bytesAvailable() const
{
    const qint64 buffered = m_stream && !m_stream->writing
                                ? static_cast<qint64>(m_stream->outSize - m_stream->outPos)
                                : 0;
    return buffered + QIODevice::bytesAvailable();
}

qint64 ZlibDevice::readData(char* data, qint64 maxSize)
{
    if (m_failed || !m_stream || m_stream->writing)
        return -1;
    qint64 done = 0;
    while (done < maxSize) {
        if (m_stream->outPos >= m_stream->outSize && !fill())
            return done > 0 ? done : -1;
        const qint64 available = static_cast<qint64>(m_stream->outSize - m_stream->outPos);
        if (available == 0)
            break;
        const qint64 take = std::min(available, maxSize - done);
        std::memcpy(data + done, m_stream->out.data() + m_stream->outPos, static_cast<std::size_t>(take));
        m_stream->outPos += static_cast<std::size_t>(take);
        done += take;
    }
    return done;
}

bool ZlibDevice::fill() const
{
    // Inflating ahead changes no observable state but the buffers.
    return const_cast<ZlibDevice*>(this)->fillImpl();
}

bool ZlibDevice::fillImpl()
{
    if (m_failed)
        return false;
    Stream& s = *m_stream;
    while (s.outPos >= s.outSize && !m_finished) {
        if (s.z.avail_in == 0 && !s.sourceEnd) {
            const qint64 n = m_device->read(reinterpret_cast<char*>(s.in.data()), static_cast<qint64>(s.in.size()));
            if (n < 0) {
                fail(tr("Cannot read the compressed stream: %1").arg(m_device->errorString()));
                return false;
            }
            if (n == 0)
                s.sourceEnd = true;
            s.z.next_in = s.in.data();
            s.z.avail_in = static_cast<uInt>(n);
        }
        s.z.next_out = s.out.data();
        s.z.avail_out = static_cast<uInt>(s.out.size());
        const int result = inflate(&s.z, Z_NO_FLUSH);
        s.outPos = 0;
        s.outSize = s.out.size() - s.z.avail_out;
        if (result == Z_STREAM_END) {
            m_finished = true;
            // The stream has to end where its source ends: bytes after it
            // are data that nothing checks, so the source was changed.
            if (s.z.avail_in > 0 || !sourceAtEnd()) {
                if (!m_failed)
                    fail(tr("The compressed stream is followed by other data."));
                return false;
            }
        } else if (result == Z_OK || result == Z_BUF_ERROR) {
            // No progress possible: the input ran out before the stream ended.
            if (s.outSize == 0 && s.z.avail_in == 0 && s.sourceEnd) {
                fail(tr("The compressed stream is truncated."));
                return false;
            }
        } else {
            fail(tr("The compressed stream is damaged: %1")
                     .arg(QString::fromLatin1(s.z.msg ? s.z.msg : "unknown error")));
            return false;
        }
    }
    return true;
}

bool ZlibDevice::sourceAtEnd()
{
    Stream& s = *m_stream;
    if (s.sourceEnd)
        return true;
    char extra = 0;
    const qint64 n = m_device->read(&extra, 1);
    if (n < 0)
        fail(tr("Cannot read the compressed stream: %1").arg(m_device->errorString()));
    else if (n == 0)
        s.sourceEnd = true;
    return n == 0;
}

qint64 ZlibDevice::writeData(const char* data, qint64 maxSize)
{
    if (m_failed || !m_stream || !m_stream->writing)
        return -1;
    qint64 done = 0;
    while (done < maxSize) {
        const qint64 piece = std::min<qint64>(maxSize - done, 1 << 30);
        m_stream->z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data + done));
        m_stream->z.avail_in = static_cast<uInt>(piece);
        if (!deflateInto(Z_NO_FLUSH))
            return -1;
        done += piece;
    }
    return done;
}

bool ZlibDevice::deflateInto(int flush)
{
    Stream& s = *m_stream;
    for (;;) {
        s.z.next_out = s.out.data();
        s.z.avail_out = static_cast<uInt>(s.out.size());
        const int result = deflate(&s.z, flush);
        if (result == Z_STREAM_ERROR) {
            fail(tr("Compression failed."));
            return false;
        }
        const qint64 produced = static_cast<qint64>(s.out.size() - s.z.avail_out);
        qint64 written = 0;
        while (written < produced) {
            const qint64 n = m_device->write(reinterpret_cast<const char*>(s.out.data()) + written,
                                             produced - written);
            if (n <= 0) {
                fail(tr("Cannot write the compressed stream: %1").arg(m_device->errorString()));
                return false;
            }
            written += n;
        }
        if (flush == Z_FINISH) {
            if (result == Z_STREAM_END)
                return true;
        } else if (s.z.avail_in == 0 && s.z.avail_out != 0) {
            return true;
        }
    }
}

void ZlibDevice::fail(const QString& reason)
{
    m_failed = true;
    if (m_stream && !m_stream->writing)
        m_stream->outPos = m_stream->outSize = 0;
    setErrorString(reason);
}

} // namespace ko
