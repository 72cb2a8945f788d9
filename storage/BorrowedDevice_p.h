#pragma once

// Internal to the library: not installed.

#include <QIODevice>

namespace ko {

// A pass-through device over a device that its owner opened and will close.
//
// The filter devices (digest, compression, encryption) close the device they
// wrap when they are closed or destroyed. QSettings hands its format functions
// an open QFile or QSaveFile and finishes it itself, and a QSaveFile must never
// be closed (it aborts the program). Putting this device between the two keeps
// the borrowed device open: closing it closes only itself.
//
// Opening succeeds only when the borrowed device is open for the same
// directions. readFailed() and writeFailed() tell whether any read from the
// borrowed device failed or any write came up short, so that a caller
// notices a failure that a filter or parser above took for the end of the
// data, or that surfaced only while a filter was being closed.
class BorrowedDevice : public QIODevice
{
public:
    explicit BorrowedDevice(QIODevice& device) : m_device(device) {}

    bool open(OpenMode mode) override;
    bool isSequential() const override { return true; }
    bool atEnd() const override { return m_device.atEnd(); }
    qint64 bytesAvailable() const override { return m_device.bytesAvailable(); }
    bool readFailed() const { return m_readFailed; }
    bool writeFailed() const { return m_writeFailed; }

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    QIODevice& m_device;
    bool m_readFailed = false;
    bool m_writeFailed = false;
};

} // namespace ko
