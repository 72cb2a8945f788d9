#pragma once

// Internal to the library: not installed.
//
// The devices that filter another device (compression, encryption,
// digesting, clipping) share one implementation of what every filter does:
// the open checks (the filter itself closed, a wrapped device that exists and
// is open for the filter's directions, opening it when it is not), closing
// the wrapped device with the filter, reporting failed reads and writes of
// the wrapped device, and the error state.
//
// Stream filters, which turn one byte stream into another (compression,
// encryption), also share the read side: the buffer of decoded bytes, the
// loop that hands them out, and filling it again (read-ahead, also from the
// const atEnd()). A filter adds only its transform: a FilterTransform for a
// pass-through filter, a StreamTransform for a stream filter.
//
// FilterDevice, the public base of the filters, forwards its QIODevice
// overrides to the FilterDevicePrivate it holds.

#include <CommonKit/support/core/FilterDevice.h>

#include <QByteArray>
#include <QString>

#include <memory>

namespace ko {

// What differs between filters: which modes they open in, what they set up
// when a stream starts, and how they name a failing wrapped device.
class FilterTransform
{
public:
    virtual ~FilterTransform();

    // Why the filter cannot be opened with `mode` (translated), or an empty
    // string when it can.
    virtual QString openError(QIODevice::OpenMode mode) const = 0;
    // Sets up a new stream once the wrapped device is open. Returns false
    // after calling device.fail() with the reason.
    virtual bool start(FilterDevicePrivate& device, QIODevice::OpenMode mode) = 0;
    // Drops the state of the current stream, wiping what may be secret.
    // Called when the device closes, before it starts again and when it is
    // destroyed.
    virtual void stop() {}
    // The error text for a failed read (or write) of the wrapped device,
    // whose own errorString() is `reason`. By default the reason as it stands.
    virtual QString wrappedFailed(bool reading, const QString& reason) const
    {
        Q_UNUSED(reading)
        return reason;
    }
};

// A filter that turns one byte stream into another. It is opened for
// reading or for writing, not both.
class StreamTransform : public FilterTransform
{
public:
    // Whether `mode` names exactly one direction (and no appending).
    static bool isOneWay(QIODevice::OpenMode mode)
    {
        return bool(mode & QIODevice::ReadOnly) != bool(mode & QIODevice::WriteOnly) && !(mode & QIODevice::Append);
    }

    // Reader: replaces the content of `out` with the next piece of the
    // decoded stream (it may be empty), reading the wrapped device through
    // `device`; calls device.endOfStream() once the stream is complete.
    // Returns false after calling device.fail().
    virtual bool decode(FilterDevicePrivate& device, QByteArray& out) = 0;
    // The largest piece one decoding step produces, when the filter can also
    // decode straight into the caller's memory (decodeInto()); 0 when not.
    // Large reads then skip the copy through the filter's buffer.
    virtual qint64 directPieceSize() const { return 0; }
    // Like decode(), into `data`, which has room for directPieceSize()
    // bytes: the number of bytes decoded, or -1 after device.fail().
    virtual qint64 decodeInto(FilterDevicePrivate& device, char* data);
    // Writer: takes `size` bytes, writing what it can pass on through
    // `device`. Returns false after calling device.fail().
    virtual bool encode(FilterDevicePrivate& device, const char* data, qint64 size) = 0;
    // Writer: writes whatever is pending and the end of the stream.
    virtual bool finish(FilterDevicePrivate& device) = 0;
};

class FilterDevicePrivate
{
public:
    // `host` is the public device; `wrapped` the device it filters (not
    // owned, may be null: opening then fails); `transform` is owned.
    FilterDevicePrivate(FilterDevice& host, QIODevice* wrapped, FilterTransform* transform);
    ~FilterDevicePrivate();
    FilterDevicePrivate(const FilterDevicePrivate&) = delete;
    FilterDevicePrivate& operator=(const FilterDevicePrivate&) = delete;

    QIODevice* wrapped() const { return m_wrapped; }

    // The host's QIODevice overrides. open() opens the host unbuffered, so
    // that the host never reads ahead of its caller; a stream filter buffers
    // its decoded bytes itself. atEnd(), bytesAvailable(), read() and write()
    // serve stream filters only.
    bool open(QIODevice::OpenMode mode);
    void close();
    bool atEnd() const;
    qint64 bytesAvailable() const;
    qint64 read(char* data, qint64 maxSize);
    qint64 write(const char* data, qint64 maxSize);
    // Whether the stream failed; it stays failed until opened again.
    bool hasError() const { return m_failed; }

    // For transforms and pass-through hosts. One read or write of the wrapped
    // device: the bytes transferred, or -1 after fail() with the transform's
    // text. A read that returns no bytes marks the wrapped device's end.
    qint64 readWrapped(char* data, qint64 size);
    qint64 writeWrapped(const char* data, qint64 size);
    // Reads until `size` bytes arrived or the wrapped device ended.
    qint64 readWrappedFully(char* data, qint64 size);
    // Writes all `size` bytes; false after fail().
    bool writeWrappedFully(const char* data, qint64 size);
    bool wrappedEnded() const { return m_wrappedEnded; }
    // The decoded stream is complete: decode() is not called again.
    void endOfStream() { m_streamEnded = true; }
    // Marks the stream failed with the reason (the host's errorString()) and
    // wipes the decoded bytes not handed out yet.
    void fail(const QString& reason);

private:
    bool fill();
    void clearBuffer();

    FilterDevice& m_host;
    QIODevice* m_wrapped;
    std::unique_ptr<FilterTransform> m_transform;
    StreamTransform* m_stream; // m_transform when it is a stream filter, else null
    QByteArray m_buffer;       // reader: decoded bytes
    qint64 m_bufferPos = 0;    // reader: the first of them not handed out yet
    bool m_failed = false;
    bool m_streamEnded = false;
    bool m_wrappedEnded = false;
};

} // namespace ko
