#pragma once

#include <CommonKit/support/core/Export.h>

#include <QIODevice>

namespace ko {

class FilterDevicePrivate;
class FilterTransform;

/// Base of the devices that filter another device: ZlibDevice,
/// crypto::IODevice, crypto::DigestingIODevice and crypto::ClippedIODevice.
///
/// A filter device does not own the device it wraps, which must outlive it.
/// Opening it opens the wrapped device with the same mode when that is not
/// open yet; closing it closes the wrapped device too, and destroying an open
/// filter closes it. A filter always works unbuffered: it never reads from
/// the wrapped device further than its own work needs.
///
/// Stream filters (compression, encryption) are opened for reading or for
/// writing, not both; they buffer the bytes they decode and hand them out as
/// asked. Once such a stream failed (damaged, cut, a failing wrapped device)
/// it stays failed until it is opened again: reads return -1, hasError() is
/// true and errorString() says why.
class COMMONKIT_EXPORT FilterDevice : public QIODevice
{
    Q_OBJECT
public:
    /// Closes the device when it is open.
    ~FilterDevice() override;

    /// The wrapped device given to the constructor.
    QIODevice* device() const;
    /// Whether the stream failed, or a read or write of the wrapped device
    /// did, since the device was opened; errorString() says why.
    bool hasError() const;

    /// Opens the filter with `mode`, opening the wrapped device when it is
    /// closed. False, with the reason in errorString(), when the filter does
    /// not take `mode`, is already open, has no wrapped device, or the
    /// wrapped device cannot be opened or is open for other directions only.
    bool open(OpenMode mode) override;
    /// A writing stream filter writes what is pending and the end of its
    /// stream; then the filter and the wrapped device are closed.
    void close() override;
    /// Always true: a stream filter is read and written in order only.
    bool isSequential() const override;
    /// A reading stream filter: whether the stream ended, decoding ahead when
    /// nothing is buffered. True when writing or closed.
    bool atEnd() const override;
    /// A reading stream filter: the decoded bytes not read yet.
    qint64 bytesAvailable() const override;

protected:
    /// A filter over `device` that works through `transform`, which it owns.
    /// The transform's type is internal to the library: only the library's
    /// filter devices derive from this class.
    FilterDevice(QIODevice* device, FilterTransform* transform, QObject* parent);

    /// A stream filter hands out decoded bytes; -1 once the stream failed.
    qint64 readData(char* data, qint64 maxSize) override;
    /// A stream filter encodes the bytes into the wrapped device; -1 when
    /// that fails.
    qint64 writeData(const char* data, qint64 maxSize) override;

    /// The implementation shared by all filters.
    FilterDevicePrivate* filter() const { return m_d; }

private:
    friend class FilterDevicePrivate;
    FilterDevicePrivate* m_d;
};

} // namespace ko
