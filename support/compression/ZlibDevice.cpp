#include <CommonKit/support/compression/ZlibDevice.h>

#include "support/core/FilterDevice_p.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace ko {

namespace {

constexpr std::size_t k_bufferSize = 65536;

// One zlib stream, deflated by a writer or inflated by a reader.
class ZlibTransform : public StreamTransform
{
public:
    explicit ZlibTransform(int level) : m_level(level) {}
    ~ZlibTransform() override { stop(); }

    QString openError(QIODevice::OpenMode mode) const override
    {
        if (!isOneWay(mode))
            return ZlibDevice::tr("The compression device is opened either for reading or for writing.");
        if ((mode & QIODevice::WriteOnly)
            && (m_level < ZlibDevice::k_defaultCompression || m_level > ZlibDevice::k_bestCompression))
            return ZlibDevice::tr("Invalid compression level %1.").arg(m_level);
        return QString();
    }

    bool start(FilterDevicePrivate& device, QIODevice::OpenMode mode) override
    {
        m_writing = mode & QIODevice::WriteOnly;
        std::memset(&m_z, 0, sizeof m_z);
        m_buffer.resize(k_bufferSize);
        const int result = m_writing ? deflateInit(&m_z, m_level) : inflateInit(&m_z);
        if (result != Z_OK) {
            device.fail(ZlibDevice::tr("Cannot start the zlib stream (%1).").arg(result));
            return false;
        }
        m_started = true;
        return true;
    }

    void stop() override
    {
        if (!m_started)
            return;
        if (m_writing)
            deflateEnd(&m_z);
        else
            inflateEnd(&m_z);
        m_started = false;
    }

    QString wrappedFailed(bool reading, const QString& reason) const override
    {
        return (reading ? ZlibDevice::tr("Cannot read the compressed stream: %1")
                        : ZlibDevice::tr("Cannot write the compressed stream: %1"))
            .arg(reason);
    }

    bool decode(FilterDevicePrivate& device, QByteArray& out) override
    {
        if (m_z.avail_in == 0 && !device.wrappedEnded()) {
            const qint64 n = device.readWrapped(reinterpret_cast<char*>(m_buffer.data()),
                                                static_cast<qint64>(m_buffer.size()));
            if (n < 0)
                return false;
            m_z.next_in = m_buffer.data();
            m_z.avail_in = static_cast<uInt>(n);
        }
        out.resize(static_cast<int>(k_bufferSize));
        m_z.next_out = reinterpret_cast<Bytef*>(out.data());
        m_z.avail_out = static_cast<uInt>(out.size());
        const int result = inflate(&m_z, Z_NO_FLUSH);
        out.resize(out.size() - static_cast<int>(m_z.avail_out));
        if (result == Z_STREAM_END) {
            device.endOfStream();
            // The stream has to end where its source ends: bytes after it
            // are data that nothing checks, so the source was changed.
            if (m_z.avail_in > 0 || !nothingFollows(device)) {
                if (!device.hasError())
                    device.fail(ZlibDevice::tr("The compressed stream is followed by other data."));
                return false;
            }
        } else if (result == Z_OK || result == Z_BUF_ERROR) {
            // No progress possible: the input ran out before the stream ended.
            if (out.isEmpty() && m_z.avail_in == 0 && device.wrappedEnded()) {
                device.fail(ZlibDevice::tr("The compressed stream is truncated."));
                return false;
            }
        } else {
            device.fail(ZlibDevice::tr("The compressed stream is damaged: %1")
                            .arg(QString::fromLatin1(m_z.msg ? m_z.msg : "unknown error")));
            return false;
        }
        return true;
    }

    bool encode(FilterDevicePrivate& device, const char* data, qint64 size) override
    {
        qint64 done = 0;
        while (done < size) {
            const qint64 piece = std::min<qint64>(size - done, 1 << 30);
            m_z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data + done));
            m_z.avail_in = static_cast<uInt>(piece);
            if (!deflateInto(device, Z_NO_FLUSH))
                return false;
            done += piece;
        }
        return true;
    }

    bool finish(FilterDevicePrivate& device) override { return deflateInto(device, Z_FINISH); }

private:
    // Reader at the end of the stream: whether the wrapped device has nothing
    // after it.
    static bool nothingFollows(FilterDevicePrivate& device)
    {
        char extra = 0;
        return device.wrappedEnded() || device.readWrapped(&extra, 1) == 0;
    }

    bool deflateInto(FilterDevicePrivate& device, int flush)
    {
        for (;;) {
            m_z.next_out = m_buffer.data();
            m_z.avail_out = static_cast<uInt>(m_buffer.size());
            const int result = deflate(&m_z, flush);
            if (result == Z_STREAM_ERROR) {
                device.fail(ZlibDevice::tr("Compression failed."));
                return false;
            }
            const qint64 produced = static_cast<qint64>(m_buffer.size() - m_z.avail_out);
            if (!device.writeWrappedFully(reinterpret_cast<const char*>(m_buffer.data()), produced))
                return false;
            if (flush == Z_FINISH) {
                if (result == Z_STREAM_END)
                    return true;
            } else if (m_z.avail_in == 0 && m_z.avail_out != 0) {
                return true;
            }
        }
    }

    const int m_level;
    z_stream m_z = {};
    bool m_writing = false;
    bool m_started = false;
    std::vector<unsigned char> m_buffer; // reader: compressed input; writer: compressed output
};

} // namespace

ZlibDevice::ZlibDevice(QIODevice* device, int level, QObject* parent)
    : FilterDevice(device, new ZlibTransform(level), parent), m_level(level)
{
}

} // namespace ko
