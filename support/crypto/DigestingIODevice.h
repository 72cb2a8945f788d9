#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/crypto/MessageDigest.h>

#include <QIODevice>

namespace ko {

class FilterDevice;

namespace crypto {

/// A QIODevice that passes reads and writes through to another device and
/// feeds every byte that passes into its running digest.
///
/// It is itself the MessageDigest (count() is the number of bytes digested,
/// digest() the digest so far). It always works unbuffered, so the digest
/// covers exactly the bytes its caller read or wrote. pos() counts the bytes
/// that passed; seek() moves only forward, by reading (and digesting) the
/// bytes in between.
///
/// Opening opens the wrapped device with the same mode when it is not open
/// yet; closing closes it. The device does not own the wrapped device, which must outlive it
/// (destroying an open device closes it).
class COMMONKIT_EXPORT DigestingIODevice : public QIODevice, public MessageDigest
{
    Q_OBJECT
public:
    /// A device over `device`, which it does not own, digesting with
    /// `algorithm`.
    DigestingIODevice(QIODevice* device, MessageDigest::Algorithm algorithm,
                      QObject* parent = nullptr);
    /// Closes the device when it is open.
    ~DigestingIODevice() override;

    /// The wrapped device given to the constructor.
    QIODevice* device() const;
    /// The running digest, which is this object.
    MessageDigest& messageDigest() { return *this; }
    /// The running digest, which is this object.
    const MessageDigest& messageDigest() const { return *this; }
    /// Whether a read or write of the wrapped device failed since opening
    /// (errorString() then holds that device's reason).
    bool hasError() const;

    /// Opens with `mode` (always unbuffered), opening the wrapped device when
    /// it is closed. False, with the reason in errorString(), for an Unknown
    /// algorithm, a device that is already open, no wrapped device, or one
    /// not open for the directions of `mode`. Opening does not reset the
    /// digest.
    bool open(OpenMode mode) override;
    /// Closes the device and the wrapped device.
    void close() override;
    /// Always true: positions only count the bytes that passed.
    bool isSequential() const override { return true; }
    /// The number of bytes read or written since opening.
    qint64 pos() const override { return m_pos; }
    /// Reads and digests the bytes up to `pos`; false for a position behind
    /// pos(), a device not open for reading, or when the wrapped device ends
    /// or fails first.
    bool seek(qint64 pos) override;
    /// Whether the wrapped device is at its end (true when closed).
    bool atEnd() const override;
    /// What the wrapped device has available.
    qint64 bytesAvailable() const override;
    /// What the wrapped device has still to write.
    qint64 bytesToWrite() const override;

protected:
    /// Reads from the wrapped device and digests what arrived.
    qint64 readData(char* data, qint64 maxSize) override;
    /// Writes to the wrapped device and digests what it took.
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    class Filter;
    qint64 digested(const char* data, qint64 size);

    FilterDevice* m_filter;
    qint64 m_pos = 0;
};

} // namespace crypto
} // namespace ko
