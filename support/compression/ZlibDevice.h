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
    static constexpr int k_bestSpeed = 1;
    static constexpr int k_bestCompression = 9;

    explicit ZlibDevice(QIODevice* device, int level = k_defaultCompression,
                        QObject* parent = nullptr);
    ~ZlibDevice() override;

    QIODevice* device() const;
    int level() const { return m_level; }

    bool open(OpenMode mode) override;
    void close() override;
    bool isSequential() const override { return true; }
    bool atEnd() const override;
    qint64 bytesAvailable() const override;
    bool hasError() const;

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    int m_level;
    FilterDevice* m_filter;
};

} // namespace ko
