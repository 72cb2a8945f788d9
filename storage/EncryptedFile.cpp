#include <CommonKit/storage/EncryptedFile.h>

#include <CommonKit/storage/MetadataDigest.h>
#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/crypto/ClippedIODevice.h>
#include <CommonKit/support/crypto/DigestingIODevice.h>
#include <CommonKit/support/crypto/IODevice.h>
#include <CommonKit/support/json/JsonParser.h>

#include <QByteArray>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <stdexcept>

namespace ko {
namespace {

const char* const k_compression = "compression";
const char* const k_encrypted = "encrypted";
const char* const k_digestAlgorithm = "digest-algorithm";
const char* const k_opened = "opened";
const char* const k_created = "created";
const char* const k_signer = "signer";
const char* const k_contentLength = "content-length";
const char* const k_encryptedLength = "encrypted-length";
const char* const k_signature = "signature";

// Set once when the library is loaded.
const bool s_bigEndian = [] {
    const std::uint16_t probe = 0x0102;
    return reinterpret_cast<const unsigned char*>(&probe)[0] == 0x01;
}();

} // namespace

EncryptedFile::EncryptedFile(QObject* parent) : QFile(parent) {}

EncryptedFile::~EncryptedFile()
{
    if (QIODevice::isOpen())
        QIODevice::close();
    deleteDevices();
}

void EncryptedFile::deleteDevices()
{
    // Top first: each device may still flush into the one below it.
    delete m_digesting;
    delete m_compression;
    delete m_cipher;
    delete m_clipping;
    delete m_file;
    m_digesting = nullptr;
    m_compression = nullptr;
    m_cipher = nullptr;
    m_clipping = nullptr;
    m_file = nullptr;
    m_top = nullptr;
}

bool EncryptedFile::create(const QFileInfo& file, const crypto::secure_string& key, int compression,
                           crypto::MessageDigest::Algorithm algorithm)
{
    close();
    deleteDevices();
    m_metaInfo = json::Object();
    m_metaInfo.set(k_compression, compression);
    m_metaInfo.set(k_encrypted, !key.empty());
    m_metaInfo.set(k_digestAlgorithm, crypto::MessageDigest::algorithmName(algorithm));
    const std::string now = currentDateTime();
    m_metaInfo.set(k_opened, now);
    m_metaInfo.set(k_created, now);

    const QString path = file.absoluteFilePath();
    m_file = new QFile(path, this);
    if (!m_file->open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        setErrorString(tr("Cannot create %1: %2").arg(path, m_file->errorString()));
        return false;
    }
    QIODevice::open(m_file->openMode());
    m_top = m_file;
    if (!key.empty()) {
        m_cipher = new crypto::IODevice(m_top, key, this);
        m_top = m_cipher;
    }
    if (compression != ZlibDevice::k_noCompression) {
        m_compression = new ZlibDevice(m_top, compression, this);
        m_top = m_compression;
    }
    m_digesting = new crypto::DigestingIODevice(m_top, algorithm, this);
    m_top = m_digesting;
    if (!m_digesting->open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        setErrorString(tr("Cannot open the device stack of %1: %2").arg(path, m_digesting->errorString()));
        return false;
    }
    return true;
}

bool EncryptedFile::readTrailer(QFile* file, json::Variant* metaInfo, qint64* payloadLength, QString* error)
{
    const QString name = file->fileName();
    const qint64 size = file->size();
    char lengthBytes[8];
    if (size < 8) {
        *error = tr("%1 is not a container: it is too short for a trailer.").arg(name);
        return false;
    }
    if (!file->seek(size - 8) || !read_be(file, lengthBytes, 8)) {
        *error = tr("Cannot read the trailer of %1: %2").arg(name, file->errorString());
        return false;
    }
    std::uint64_t length = 0; // read_be gave the bytes in host order
    std::memcpy(&length, lengthBytes, sizeof length);
    if (length > static_cast<std::uint64_t>(size - 8)) {
        *error = tr("%1 is not a container: its trailer claims %2 bytes of metadata in a file of %3 bytes.")
                     .arg(name).arg(length).arg(size);
        return false;
    }
    if (length > static_cast<std::uint64_t>(k_maxMetaInfoSize)) {
        *error = tr("%1 is not a container: its trailer claims %2 bytes of metadata, more than the %3 that are read.")
                     .arg(name).arg(length).arg(k_maxMetaInfoSize);
        return false;
    }
    const qint64 metaLength = static_cast<qint64>(length);
    const qint64 payload = size - 8 - metaLength;
    const QByteArray text = file->seek(payload) ? file->read(metaLength) : QByteArray();
    if (text.size() != metaLength) {
        *error = tr("Cannot read the metadata of %1: %2").arg(name, file->errorString());
        return false;
    }
    json::JsonParser parser;
    parser.parse(text.constData(), static_cast<std::size_t>(text.size()));
    json::Variant value = parser.parseComplete();
    if (parser.hasError()) {
        *error = tr("%1 is not a container: its metadata is not JSON (%2).")
                     .arg(name, QString::fromStdString(parser.lastError()));
        return false;
    }
    if (!value.isObject()) {
        *error = tr("%1 is not a container: its metadata is not a JSON object.").arg(name);
        return false;
    }
    *metaInfo = std::move(value);
    *payloadLength = payload;
    return true;
}

bool EncryptedFile::open(const QFileInfo& file, const crypto::secure_string& key)
{
    close();
    deleteDevices();
    m_metaInfo = json::Variant();
    const QString path = file.absoluteFilePath();
    if (!file.exists()) {
        setErrorString(tr("%1 does not exist.").arg(path));
        return false;
    }
    if (!file.isFile()) {
        setErrorString(tr("%1 is not a regular file.").arg(path));
        return false;
    }
    m_file = new QFile(path, this);
    if (!m_file->open(QIODevice::ReadOnly)) {
        setErrorString(tr("Cannot open %1: %2").arg(path, m_file->errorString()));
        return false;
    }
    qint64 payloadLength = 0;
    QString error;
    if (!readTrailer(m_file, &m_metaInfo, &payloadLength, &error)) {
        m_file->close();
        setErrorString(error);
        return false;
    }
    const std::string algorithmName = m_metaInfo.value(k_digestAlgorithm).toString();
    const auto algorithm = crypto::MessageDigest::algorithmFromName(algorithmName);
    if (algorithm == crypto::MessageDigest::Unknown) {
        m_file->close();
        setErrorString(tr("The metadata of %1 names an unknown digest algorithm \"%2\".")
                           .arg(path, QString::fromStdString(algorithmName)));
        return false;
    }
    QIODevice::open(m_file->openMode());

    m_file->seek(0);
    m_clipping = new crypto::ClippedIODevice(m_file, this);
    m_clipping->setMax(payloadLength);
    m_top = m_clipping;
    if (m_metaInfo.value(k_encrypted).toBool()) {
        m_cipher = new crypto::IODevice(m_top, key, this);
        m_top = m_cipher;
    }
    const std::int64_t compression = m_metaInfo.value(k_compression).toInt64(ZlibDevice::k_noCompression);
    if (compression != ZlibDevice::k_noCompression) {
        m_compression = new ZlibDevice(m_top, static_cast<int>(compression), this);
        m_top = m_compression;
    }
    m_digesting = new crypto::DigestingIODevice(m_top, algorithm, this);
    m_top = m_digesting;
    if (!m_digesting->open(QIODevice::ReadOnly)) {
        const QString reason = m_digesting->errorString();
        QIODevice::close();
        setErrorString(tr("Cannot open the device stack of %1: %2").arg(path, reason));
        return false;
    }
    return true;
}

void EncryptedFile::close(const crypto::RSAKeyPair& keyPair, const IntrusiveString& signer)
{
    const char* tag = "ko::EncryptedFile::close";
    if (!m_digesting || !m_file || !(QIODevice::openMode() & QIODevice::WriteOnly)) {
        close();
        return;
    }
    // 1. Flush and close the stack down to the file, then append to it.
    m_top->close();
    if (!m_file->open(QIODevice::WriteOnly | QIODevice::Append)) {
        LogLine(Log::Error, tag) << "cannot reopen " << m_file->fileName() << ": " << m_file->errorString();
        QIODevice::close();
        return;
    }
    // 2.-4. Metadata about the payload.
    if (!signer.empty())
        m_metaInfo.set(k_signer, signer.toStdString());
    m_metaInfo.set(k_contentLength, static_cast<unsigned long long>(m_digesting->count()));
    m_metaInfo.set(k_encryptedLength, static_cast<long long>(m_file->pos()));
    m_metaInfo.remove(k_signature);
    // 5. The signature covers the plain payload followed by the metadata.
    if (!keyPair.emptyPrivateKey()) {
        crypto::digest(m_metaInfo, m_digesting);
        crypto::secure_string signature = keyPair.sign(m_digesting->digest(), m_digesting->algorithm());
        if (signature.empty())
            LogLine(Log::Error, tag) << "signing failed: " << keyPair.lastError();
        else
            m_metaInfo.set(k_signature, std::string(signature.data(), signature.size()));
        crypto::zeroOut(&signature[0], signature.size());
    }
    // 6. The trailer.
    const std::string text = m_metaInfo.toJson();
    if (static_cast<qint64>(text.size()) > k_maxMetaInfoSize)
        LogLine(Log::Error, tag) << "the metadata of " << m_file->fileName() << " takes " << text.size()
                                 << " bytes, more than the " << k_maxMetaInfoSize
                                 << " that open() reads: the file cannot be opened again";
    const std::uint64_t length = text.size();
    char lengthBytes[8];
    std::memcpy(lengthBytes, &length, sizeof length);
    if (m_file->write(text.data(), static_cast<qint64>(text.size())) != static_cast<qint64>(text.size())
        || !write_be(m_file, lengthBytes, 8))
        LogLine(Log::Error, tag) << "cannot write the trailer of " << m_file->fileName() << ": "
                                 << m_file->errorString();
    // 7.
    QIODevice::close();
    m_file->close();
}

bool EncryptedFile::verify(const crypto::RSAKeyPair& keyPair)
{
    if (!QIODevice::isOpen() || !m_digesting || !m_digesting->isReadable()) {
        setErrorString(tr("The container is not open for reading."));
        return false;
    }
    const QString name = m_file->fileName();
    if (keyPair.emptyPublicKey()) {
        setErrorString(tr("There is no public key to check the signature of %1 with.").arg(name));
        return false;
    }
    const json::Variant signature = m_metaInfo.value(k_signature);
    if (!signature.isString()) {
        setErrorString(tr("%1 carries no signature.").arg(name));
        return false;
    }
    bool ok = false;
    const std::int64_t contentLength = m_metaInfo.value(k_contentLength).toInt64(-1, &ok);
    if (!ok) {
        setErrorString(tr("The metadata of %1 records no content length.").arg(name));
        return false;
    }
    // Every plain byte up to the recorded length is digested, and there must
    // not be one more: bytes beyond it would not be covered.
    const auto longer = [&] { return tr("The payload of %1 is longer than recorded.").arg(name); };
    const auto unreadable = [&] {
        return tr("Cannot read the payload of %1: %2").arg(name, m_digesting->errorString());
    };
    QString problem;
    char extra = 0;
    if (contentLength < m_digesting->pos())
        problem = longer();
    else if (!m_digesting->seek(contentLength))
        problem = m_digesting->hasError() ? unreadable() : tr("The payload of %1 is shorter than recorded.").arg(name);
    else if (const qint64 n = m_digesting->read(&extra, 1); n != 0)
        problem = n < 0 ? unreadable() : longer();
    if (!problem.isEmpty()) {
        setErrorString(problem);
        return false;
    }
    json::Variant signed_ = m_metaInfo;
    signed_.remove(k_signature);
    crypto::digest(signed_, m_digesting);
    const std::string text = signature.toString();
    if (!keyPair.verify(m_digesting->digest(), crypto::secure_string(text.begin(), text.end()),
                        m_digesting->algorithm())) {
        setErrorString(tr("The signature of %1 is not valid: %2").arg(name, keyPair.errorString()));
        return false;
    }
    return true;
}

json::Variant EncryptedFile::metaInfo(const QFileInfo& file)
{
    // The trailer is found from the end, so only a regular file can hold
    // one; opening a pipe would wait for a writer.
    QFile device(file.absoluteFilePath());
    if (!file.isFile() || !device.open(QIODevice::ReadOnly))
        return json::Variant(false);
    json::Variant result;
    qint64 payloadLength = 0;
    QString error;
    if (!readTrailer(&device, &result, &payloadLength, &error)) {
        LogLine(Log::Warning, "ko::EncryptedFile::metaInfo") << error;
        return json::Variant();
    }
    return result;
}

std::string EncryptedFile::currentDateTime()
{
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
#if defined(_WIN32)
    const bool converted = gmtime_s(&utc, &now) == 0;
#else
    const bool converted = gmtime_r(&now, &utc) != nullptr;
#endif
    if (now == static_cast<std::time_t>(-1) || !converted)
        throw std::runtime_error("could not convert calendar time to UTC time");
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &utc);
    return text;
}

bool EncryptedFile::isSequential() const
{
    return true;
}

bool EncryptedFile::open(OpenMode mode)
{
    return m_top ? m_top->open(mode) : false;
}

void EncryptedFile::close()
{
    if (m_top)
        m_top->close();
    if (QIODevice::isOpen())
        QIODevice::close();
}

// The container itself buffers what it read ahead from the stack, so that
// count as well.
bool EncryptedFile::atEnd() const
{
    return m_top ? QIODevice::bytesAvailable() == 0 && m_top->atEnd() : false;
}

bool EncryptedFile::reset()
{
    return m_top ? m_top->reset() : false;
}

qint64 EncryptedFile::bytesAvailable() const
{
    return m_top ? QIODevice::bytesAvailable() + m_top->bytesAvailable() : 0;
}

qint64 EncryptedFile::bytesToWrite() const
{
    return m_top ? m_top->bytesToWrite() : 0;
}

qint64 EncryptedFile::readData(char* data, qint64 maxSize)
{
    if (!m_top)
        return -1;
    const qint64 n = m_top->read(data, maxSize);
    if (n < 0)
        setErrorString(m_top->errorString());
    return n;
}

qint64 EncryptedFile::writeData(const char* data, qint64 maxSize)
{
    if (!m_top)
        return -1;
    const qint64 n = m_top->write(data, maxSize);
    if (n < 0)
        setErrorString(m_top->errorString());
    return n;
}

bool EncryptedFile::is_be()
{
    return s_bigEndian;
}

void EncryptedFile::swap_bytes(char* first, char* last)
{
    std::reverse(first, last);
}

bool EncryptedFile::read_be(QIODevice* device, char* buffer, int count)
{
    if (device->read(buffer, count) != count)
        return false;
    if (!is_be())
        swap_bytes(buffer, buffer + count);
    return true;
}

bool EncryptedFile::write_be(QIODevice* device, char* buffer, int count)
{
    QByteArray bytes(buffer, count);
    if (!is_be())
        swap_bytes(bytes.data(), bytes.data() + count);
    return device->write(bytes) == count;
}

} // namespace ko
