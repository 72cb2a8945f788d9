#pragma once

#include <CommonKit/support/core/Export.h>

#include <QIODevice>

namespace ko {

class FilterDevice;

/// A QIODevice that compresses what is written to it into another device, or
/// decompresses what it reads from another device, as a zlib stream
/// (RFC 1950: header, deflate data, Adler-32 check).
///
/// Open it ReadOnly (inflate) or WriteOnly (deflate), not both. Opening opens
/// the wrapped device with the same mode when it is not open yet; closing a
/// writer finishes the stream, and closing either kind closes the wrapped
/// device. The device does not own the wrapped device, which must outlive it
/// (destroying an open device closes it).
///
/// Memory use is bounded by a few 64 KiB buffers whatever the stream size or
/// compression ratio. A damaged or truncated stream, or one followed by more
/// bytes from the wrapped device, makes read() return -1 with the reason in
/// errorString().
class COMMONKIT_EXPORT ZlibDevice : public QIODevice
{
    Q_OBJECT
public:
    /// Callers use this level to say "store without a compression device";
    /// given to a ZlibDevice it writes stored (uncompressed) deflate blocks.
    static constexpr int k_noCompression = 0;
    /// zlib's default trade-off (currently level 6).
    static constexpr int k_defaultCompression = -1;
    /// The fastest level, with the least compression.
    static constexpr int k_bestSpeed = 1;
    /// The level with the most compression, and the slowest.
    static constexpr int k_bestCompression = 9;

    /// A device over `device`, which it does not own. `level` (-1 to 9)
    /// matters only for writing; an invalid level makes opening for writing
    /// fail.
    explicit ZlibDevice(QIODevice* device, int level = k_defaultCompression,
                        QObject* parent = nullptr);
    /// Closes the device when it is open (a writer finishes its stream).
    ~ZlibDevice() override;

    /// The wrapped device given to the constructor.
    QIODevice* device() const;
    /// The compression level given to the constructor.
    int level() const { return m_level; }
    /// Whether the stream failed: it was damaged, truncated or followed by
    /// other bytes, or the wrapped device failed. The device stays failed
    /// until it is opened again; errorString() says why.
    bool hasError() const;

    /// Opens for reading (inflating) or for writing (deflating), opening the
    /// wrapped device when it is closed. False, with the reason in
    /// errorString(), for both directions or Append, an invalid level when
    /// writing, a device that is already open, no wrapped device, or one
    /// open for the other direction only.
    bool open(OpenMode mode) override;
    /// A writer writes the rest of the stream and its end; then the wrapped
    /// device is closed too.
    void close() override;
    /// Always true: the stream is read and written in order only.
    bool isSequential() const override { return true; }
    /// Reader: whether the stream ended (inflating ahead when nothing is
    /// buffered); true for a writer or a closed device.
    bool atEnd() const override;
    /// The inflated bytes buffered and not read yet.
    qint64 bytesAvailable() const override;

protected:
    /// Hands out inflated bytes; -1 once the stream failed.
    qint64 readData(char* data, qint64 maxSize) override;
    /// Deflates the bytes into the wrapped device; -1 when that fails.
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    int m_level;
    FilterDevice* m_filter;
};

} // namespace ko
