#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/core/FilterDevice.h>

namespace ko {

/// A QIODevice that compresses what is written to it into another device, or
/// decompresses what it reads from another device, as a zlib stream
/// (RFC 1950: header, deflate data, Adler-32 check).
///
/// Open it ReadOnly (inflate) or WriteOnly (deflate), not both; opening for
/// writing fails with an invalid level. Closing a writer finishes the
/// stream. The wrapped device is opened, closed and not owned as FilterDevice
/// describes.
///
/// Memory use is bounded by a few 64 KiB buffers whatever the stream size or
/// compression ratio. A damaged or truncated stream, or one followed by more
/// bytes from the wrapped device, makes read() return -1 with the reason in
/// errorString().
class COMMONKIT_EXPORT ZlibDevice : public FilterDevice
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

    /// The compression level given to the constructor.
    int level() const { return m_level; }

private:
    int m_level;
};

} // namespace ko
