// libFuzzer target: arbitrary bytes inflated through ko::ZlibDevice, to the
// end or the first error. A failed read must leave the device failed with a
// reason; what inflates completely must equal zlib's own uncompress().
// Nothing may crash, hang or allocate without bound.

#include "fuzz/FuzzSupport.h"
#include <CommonKit/support/compression/ZlibDevice.h>

#include <QBuffer>

#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzzsupport::setUp();
    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer source(&bytes);
    ko::ZlibDevice device(&source);
    if (!device.open(QIODevice::ReadOnly))
        return 0;
    // The limit keeps a small bomb from taking seconds; the comparison with
    // zlib below is made only below it.
    const qint64 limit = qint64(4) << 20;
    QByteArray plain;
    char buffer[5000];
    qint64 n = 0;
    while (plain.size() < limit && (n = device.read(buffer, 1 + plain.size() % sizeof buffer)) > 0)
        plain.append(buffer, static_cast<int>(n));
    if (n < 0 && (!device.hasError() || device.errorString().isEmpty()))
        fuzzsupport::fail();
    if (n == 0 && plain.size() < limit) {
        // Read to its end: zlib must agree on every byte.
        std::vector<Bytef> expected(static_cast<std::size_t>(plain.size()) + 1);
        uLongf length = static_cast<uLongf>(expected.size());
        const int result = uncompress(expected.data(), &length, data, static_cast<uLong>(size));
        if (result != Z_OK || length != static_cast<uLongf>(plain.size())
            || QByteArray(reinterpret_cast<const char*>(expected.data()), static_cast<int>(length)) != plain)
            fuzzsupport::fail();
    }
    device.close();
    return 0;
}
