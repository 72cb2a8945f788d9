// libFuzzer target: arbitrary bytes read through the AES stream device
// (ko::crypto::IODevice) with the key "fuzz key", to the end or the first
// error. A failed read must leave the device failed with a reason; a stream
// that reads to its end must have been sealed with its last chunk. Nothing
// may crash, hang or allocate without bound.

#include "fuzz/FuzzSupport.h"
#include <CommonKit/support/crypto/IODevice.h>

#include <QBuffer>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzzsupport::setUp();
    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer source(&bytes);
    ko::crypto::IODevice device(&source, fuzzsupport::key());
    if (!device.open(QIODevice::ReadOnly))
        return 0;
    const qint64 total = fuzzsupport::drain(device);
    if (total < 0 && (!device.hasError() || device.errorString().isEmpty()))
        fuzzsupport::fail();
    // Plain bytes come only out of authenticated chunks, each at least a tag
    // long, after the header.
    if (total > 0 && total > qint64(size) - ko::crypto::aes_context::k_headerSize - ko::crypto::aes_context::k_tagSize)
        fuzzsupport::fail();
    device.close();
    return 0;
}
