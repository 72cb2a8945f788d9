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
    DigestingIODevice(QIODevice* device, MessageDigest::Algorithm algorithm,
                      QObject* parent = nullptr);
    ~DigestingIODevice() override;

    QIODevice* device() const;
    MessageDigest& messageDigest() { return *this; }
    const MessageDigest& messageDigest() const { return *this; }

    bool open(OpenMode mode) override;
    void close() override;
    bool isSequential() const override { return true; }
    qint64 pos() const override { return m_pos; }
    bool seek(qint64 pos) override;
    bool atEnd() const override;
    qint64 bytesAvailable() const override;
    qint64 bytesToWrite() const override;
    /// Whether a read or write of the wrapped device failed since opening
    /// (errorString() then holds that device's reason).
    bool hasError() const;

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    class Filter;
    qint64 digested(const char* data, qint64 size);

    FilterDevice* m_filter;
    qint64 m_pos = 0;
};

} // namespace crypto
} // namespace ko
