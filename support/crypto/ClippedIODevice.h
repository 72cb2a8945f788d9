#pragma once

#include <CommonKit/support/core/Export.h>

#include <QIODevice>

namespace ko {

class FilterDevice;

namespace crypto {

/// A read-only QIODevice that reads from another device, starting at that
/// device's position when it is opened, and ends after at most max() bytes
/// (the rest of the wrapped device when no maximum is set).
///
/// Over a random-access device it is random-access too: positions are
/// relative to the starting point and size() is the clipped size. Opening
/// opens the wrapped device read-only when it is not open yet; closing
/// closes it. The device does not own the wrapped device, which must outlive it
/// (destroying an open device closes it).
class COMMONKIT_EXPORT ClippedIODevice : public QIODevice
{
    Q_OBJECT
public:
    explicit ClippedIODevice(QIODevice* device, QObject* parent = nullptr);
    ~ClippedIODevice() override;

    QIODevice* device() const;

    /// Number of bytes the device delivers at most; a negative value removes
    /// the limit. May be set before or after opening.
    void setMax(qint64 max);
    qint64 max() const { return m_max; }

    bool open(OpenMode mode) override;
    void close() override;
    bool isSequential() const override;
    qint64 size() const override;
    bool seek(qint64 pos) override;
    bool atEnd() const override;
    qint64 bytesAvailable() const override;

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    class Filter;
    qint64 remaining() const;

    FilterDevice* m_filter;
    qint64 m_max = -1;
    qint64 m_origin = 0;
    qint64 m_consumed = 0;
};

} // namespace crypto
} // namespace ko
