// libFuzzer target: a file of arbitrary bytes opened as a container, its
// metadata read, its payload read to the end and its signature checked.
// Nothing may crash, hang or allocate without bound.

#include "fuzz/FuzzSupport.h"
#include <CommonKit/storage/EncryptedFile.h>
#include <CommonKit/support/crypto/RSAKeyPair.h>

#include <QFile>
#include <QTemporaryFile>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

struct Fixture
{
    Fixture()
    {
        fuzzsupport::setUp();
        file.open();
        file.close();
        if (!keyPair.generate(1024))
            std::abort();
    }
    QTemporaryFile file;
    ko::crypto::RSAKeyPair keyPair;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Fixture fixture;
    if (!fuzzsupport::writeInput(fixture.file.fileName(), reinterpret_cast<const char*>(data), size))
        return 0;
    const QFileInfo info(fixture.file.fileName());
    ko::EncryptedFile::metaInfo(info);

    // The first byte chooses the key, so both the plain and the encrypted
    // paths are reached.
    const ko::crypto::secure_string key = size > 0 && (data[0] & 1) ? "fuzz key" : "";
    ko::EncryptedFile container;
    if (!container.open(info, key))
        return 0;
    fuzzsupport::drain(container);
    ko::EncryptedFile again;
    if (again.open(info, key))
        static_cast<void>(again.verify(fixture.keyPair));
    return 0;
}
