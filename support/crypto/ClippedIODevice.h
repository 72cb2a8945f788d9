#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/core/FilterDevice.h>

namespace ko {
namespace crypto {

/// A read-only QIODevice that reads from another device, starting at that
/// device's position when it is opened, and ends after at most max() bytes
/// (the rest of the wrapped device when no maximum is set).
///
/// Over a random-access device it is random-access too: positions are
/// relative to the starting point and size() is the clipped size. It opens
/// read-only only; the wrapped device is opened, closed and not owned as
/// FilterDevice describes.
class COMMONKIT_EXPORT ClippedIODevice : public FilterDevice
{
    Q_OBJECT
public:
    /// A device over `device`, which it does not own, without a maximum.
    explicit ClippedIODevice(QIODevice* device, QObject* parent = nullptr);

    /// Number of bytes the device delivers at most; a negative value removes
    /// the limit. May be set before or after opening.
    void setMax(qint64 max);
    /// The maximum, or -1 without one.
    qint64 max() const { return m_max; }

    /// Whether the wrapped device is sequential (true without one).
    bool isSequential() const override;
    /// The clipped size: what the wrapped device holds after the starting
    /// point, at most max(). For a sequential device, bytesAvailable().
    qint64 size() const override;
    /// Moves to `pos` after the starting point, within size(); false for a
    /// sequential or closed device.
    bool seek(qint64 pos) override;
    /// Whether max() bytes were delivered or the wrapped device is at its
    /// end (true when closed).
    bool atEnd() const override;
    /// What the wrapped device has available, at most what is left of max().
    qint64 bytesAvailable() const override;

protected:
    /// Reads from the wrapped device, no further than max() allows.
    qint64 readData(char* data, qint64 maxSize) override;
    /// Always -1: the device is read-only.
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    class Filter;
    qint64 remaining() const;

    qint64 m_max = -1;
    qint64 m_origin = 0;
    qint64 m_consumed = 0;
};

} // namespace crypto
} // namespace ko
