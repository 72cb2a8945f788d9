#include <CommonKit/support/fileutils/FileEncrypt.h>

namespace ko {

const QByteArray FileEncrypt::k_header = QByteArrayLiteral("<?xml");

FileEncrypt::FileEncrypt() = default;

FileEncrypt::FileEncrypt(const QString& name) : QFile(name) {}

FileEncrypt::~FileEncrypt() = default;

bool FileEncrypt::open(OpenMode mode)
{
    if (!QFile::open(mode)) {
        m_openError = OpenFailed;
        return false;
    }
    if (!(mode & Truncate) && !hasCompatibleHeader()) {
        QFile::close();
        m_openError = IncompatibleHeader;
        setErrorString(tr("The file does not begin with an XML declaration."));
        return false;
    }
    m_openError = NoError;
    return true;
}

// Reads the first bytes through a second handle, so that the position and
// buffers of this device stay untouched (and write-only opens work too).
bool FileEncrypt::hasCompatibleHeader()
{
    QFile probe(fileName());
    if (!probe.open(QIODevice::ReadOnly))
        return size() == 0;
    if (probe.size() == 0)
        return true;
    return probe.read(k_header.size()) == k_header;
}

} // namespace ko
