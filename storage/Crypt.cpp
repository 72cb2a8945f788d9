// Generated salts, MD5 digests, the HTTP digest HA1, the access-list line and
// the libcrypto variant of the DES crypt. The DES crypt itself is in
// DesCrypt.cpp.

#include <CommonKit/storage/Crypt.h>
#include "storage/DesCrypt_p.h"
#include "storage/OpenSslLegacy_p.h"

#include <CommonKit/support/core/Log.h>
#include <CommonKit/support/core/QtDeprecated.h>

#include <QCryptographicHash>
#include <QtGlobal>

#include <openssl/des.h>
#include <openssl/md5.h>

#include <cstdlib>
#include <ctime>

namespace kogen {

namespace {

// The alphabet of generated salts and of to64. Its order differs from the
// hash alphabet; existing salts depend on it.
constexpr char kSaltAlphabet[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789./";

// The seed of crypt(password). Any constant would do; it must never change,
// since it decides the salt of every hash made that way.
constexpr uint kFixedSaltSeed = 0x4b6f7361u;

// Reseeds Qt's generator of the calling thread and takes one number.
int seededRandom(uint seed)
{
    COMMONKIT_DEPRECATED_BEGIN
    qsrand(seed);
    const int value = qrand();
    COMMONKIT_DEPRECATED_END
    return value;
}

// Two salt characters (and a terminating zero) from a seed.
void generateSalt(uint seed, char salt[3])
{
    Crypt::to64(salt, seededRandom(seed), 2);
    salt[2] = '\0';
}

uint timeSeed()
{
    return static_cast<uint>(std::time(nullptr));
}

QByteArray beforeFirstZero(const QByteArray& data)
{
    const int zero = data.indexOf('\0');
    return zero < 0 ? data : data.left(zero);
}

QByteArray ha1Hex(const QByteArray& user, const QByteArray& realm, const QByteArray& password)
{
    return Crypt::md5(user + ':' + realm + ':' + password).toHex();
}

} // namespace

QString Crypt::crypt(QString password)
{
    char salt[3];
    generateSalt(kFixedSaltSeed, salt);
    return crypt(QString::fromLatin1(salt), password);
}

char* Crypt::crypt_sll(const char* key, const char* salt)
{
    // The salt characters as crypt_r reads them: a missing one is code 0.
    unsigned char given[2] = {0, 0};
    if (salt && salt[0]) {
        given[0] = static_cast<unsigned char>(salt[0]);
        given[1] = static_cast<unsigned char>(salt[1]);
    }
    // libcrypto gives characters outside the hash alphabet six-bit values of
    // its own, and refuses code 0 and codes from 128 up. Hand it the alphabet
    // character of the same value instead, and put the given characters back
    // in front of the result, so that the hash is the one crypt_r makes.
    char alphabetSalt[3] = {0, 0, 0};
    for (int i = 0; i < 2; ++i)
        alphabetSalt[i] = des::kHashAlphabet[given[i] < 128 ? des::kSaltValues[given[i]] : 0];

    thread_local char buffer[14];
    COMMONKIT_OPENSSL_LEGACY_BEGIN
    char* result = DES_fcrypt(key ? key : "", alphabetSalt, buffer);
    COMMONKIT_OPENSSL_LEGACY_END
    if (!result) {
        ko::LogLine(ko::Log::Error, "kogen::Crypt::crypt_sll") << "libcrypto's DES crypt failed";
        return nullptr;
    }
    result[0] = static_cast<char>(given[0]);
    result[1] = static_cast<char>(given[1]);
    return result;
}

char* Crypt::crypt_sll(const char* key)
{
    char salt[3];
    generateSalt(timeSeed(), salt);
    return crypt_sll(key, salt);
}

QByteArray Crypt::md5(const QByteArray& data)
{
    return QCryptographicHash::hash(beforeFirstZero(data), QCryptographicHash::Md5);
}

unsigned char* Crypt::md5_sql(const char* data, unsigned long length)
{
    if (!data && length != 0) {
        ko::LogLine(ko::Log::Error, "kogen::Crypt::md5_sql") << "no data for " << length << " bytes";
        return nullptr;
    }
    auto* digest = static_cast<unsigned char*>(std::malloc(MD5_DIGEST_LENGTH));
    if (!digest)
        return nullptr;
    MD5_CTX context;
    COMMONKIT_OPENSSL_LEGACY_BEGIN
    MD5_Init(&context);
    if (length != 0)
        MD5_Update(&context, data, length);
    MD5_Final(digest, &context);
    COMMONKIT_OPENSSL_LEGACY_END
    return digest;
}

QString Crypt::createSessionKey(const QString& user, const QString& password, const QString& realm)
{
    return QString::fromLatin1(ha1Hex(user.toLatin1(), realm.toLatin1(), password.toLatin1()));
}

QString Crypt::cameraUserAccess(const QString& user, const QString& password, const QString& access,
                                const QString& realm)
{
    const QByteArray pw = password.toLatin1();
    char salt[3];
    generateSalt(timeSeed(), salt);
    char hash[14];
    crypt_r(pw.constData(), salt, hash);
    const QByteArray line = user.toUtf8() + ':' + access.toUtf8() + ':' + QByteArray(hash) + ':'
                            + ha1Hex(user.toLatin1(), realm.toLatin1(), pw);
    return QString::fromUtf8(line);
}

void Crypt::to64(char* s, long v, int n)
{
    if (!s)
        return;
    // The shift works on the value as a signed 32-bit number, whatever the
    // width of long, so that every platform writes the same characters.
    qint32 value = static_cast<qint32>(static_cast<quint32>(v));
    for (int i = 0; i < n; ++i) {
        s[i] = kSaltAlphabet[value & 63];
        value >>= 6;
    }
}

} // namespace kogen
