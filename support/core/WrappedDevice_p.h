#pragma once

// Devices that filter another device (compression, encryption, digesting,
// clipping) open the same way: the filter itself must be closed, the wrapped
// device must exist, and the wrapped device is opened with the filter's mode
// unless it is already open for every direction the filter needs.

#include <QIODevice>
#include <QString>

namespace ko {

// Returns false with the reason (translated, context "ko::WrappedDevice") in
// *error when the filter cannot be opened on the wrapped device.
bool openWrappedDevice(const QIODevice& filter, QIODevice* wrapped, QIODevice::OpenMode mode, QString* error);

} // namespace ko
