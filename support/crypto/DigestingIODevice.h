#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/core/FilterDevice.h>
#include <CommonKit/support/crypto/MessageDigest.h>

namespace ko {
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
/// It opens in any mode that the wrapped device allows (an Unknown algorithm
/// refuses to open); the wrapped device is opened, closed and not owned as
/// FilterDevice describes.
class COMMONKIT_EXPORT DigestingIODevice : public FilterDevice, public MessageDigest
{
    Q_OBJECT
public:
    /// A device over `device`, which it does not own, digesting with
    /// `algorithm`.
    DigestingIODevice(QIODevice* device, MessageDigest::Algorithm algorithm,
                      QObject* parent = nullptr);

    /// The running digest, which is this object.
    MessageDigest& messageDigest() { return *this; }
    /// The running digest, which is this object.
    const MessageDigest& messageDigest() const { return *this; }

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

    qint64 m_pos = 0;
};

} // namespace crypto
} // namespace ko
