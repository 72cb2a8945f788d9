#pragma once

#include <CommonKit/support/core/Export.h>

#include <QByteArray>
#include <QString>

namespace kogen {

/// The password forms that network cameras and their web servers accept:
/// the traditional DES-based Unix password hash, MD5 digests, the HTTP digest
/// hash of user, realm and password (HA1), and a user line for a device's
/// access list combining both. All functions are static and re-entrant unless
/// noted otherwise.
///
/// Text goes in as Latin-1: a password or salt character outside Latin-1
/// becomes '?', as QString::toLatin1 makes it.
class COMMONKIT_EXPORT Crypt
{
public:
    /// Key schedule of one DES key: 16 rounds of two 32-bit words holding the
    /// 48 round-key bits, six per byte in the order the round function reads
    /// them.
    struct sched
    {
        /// Two words per round, round 1 first.
        unsigned int keys[32];
    };

    /// The DES crypt of password with the first two characters of salt:
    /// 13 characters, the salt characters first, then 11 characters of
    /// "./0-9A-Za-z". Only the first 8 password characters count. The salt is
    /// not padded: a missing salt character counts as the character with code
    /// 0, in the result too. Note that the salt comes first.
    static QString crypt(QString salt, QString password);

    /// crypt(salt, password) with a generated salt. The generator is seeded
    /// with the same constant on every call, so the salt never changes and the
    /// same password always gives the same hash.
    static QString crypt(QString password);

    /// The same hash as crypt(salt, key), re-entrant, written with its
    /// terminating zero into buffer (at least 14 bytes). Returns buffer, or
    /// null when buffer is null. A null key or salt counts as empty.
    static char* crypt_r(const char* key, const char* salt, char* buffer);

    /// The same hash as crypt_r, computed by libcrypto's DES crypt, for every
    /// salt: a salt character outside "./0-9A-Za-z" reaches libcrypto as the
    /// alphabet character of the same six-bit value, and stands in the result
    /// as given. The result lives in a buffer of the calling thread that the
    /// next call on that thread overwrites.
    static char* crypt_sll(const char* key, const char* salt);
    /// As above with a salt from Qt's generator seeded with the current time
    /// in seconds: the salt changes from second to second.
    static char* crypt_sll(const char* key);

    /// The 16-byte MD5 of data up to its first zero byte.
    static QByteArray md5(const QByteArray& data);

    /// The 16-byte MD5 of length bytes at data, computed by libcrypto, in a
    /// buffer from malloc that the caller frees with free(). Null when data is
    /// null while length is not 0, or when memory runs out.
    static unsigned char* md5_sql(const char* data, unsigned long length);

    /// The HTTP digest HA1: lower-case hexadecimal of
    /// MD5(user ":" realm ":" password), all three as Latin-1. Note the
    /// argument order: the password comes before the realm.
    static QString createSessionKey(const QString& user, const QString& password, const QString& realm);

    /// One line of a device's access list:
    ///     user:access:crypt-hash:HA1
    /// The crypt hash uses a salt from Qt's generator seeded with the current
    /// time in seconds; the HA1 is createSessionKey(user, password, realm).
    static QString cameraUserAccess(const QString& user, const QString& password, const QString& access,
                                    const QString& realm);

    /// Writes n characters of "a-zA-Z0-9./" to s: the character at v & 63,
    /// then v shifted right by six bits as a signed 32-bit value, and so on.
    /// No terminating zero is written.
    static void to64(char* s, long v, int n);

private:
    struct Block
    {
        unsigned int left;
        unsigned int right;
    };

    /// The key schedule of the 8 key bytes (shorter keys count as padded with
    /// zero bytes).
    static sched SetDESKey(QByteArray key);
    /// Encrypts a zero block 25 times with the salted DES; returns the result
    /// after the final permutation. eSwap0 and eSwap1 are the bit-swap masks
    /// of the two salt characters (see saltMask in DesCrypt.cpp).
    static Block Body(const unsigned int* schedule, unsigned int eSwap0, unsigned int eSwap1);
    /// Two DES rounds with the round keys at keys[0..3].
    static void DEncrypt(unsigned int& left, unsigned int& right, const unsigned int* keys, unsigned int eSwap);
    /// Exchanges the bits of a (shifted right by n) and b selected by mask.
    static void PermOperation(unsigned int& a, unsigned int& b, int n, unsigned int mask);
    /// Exchanges the bits of a selected by mask with those n places higher.
    static void HPermOperation(unsigned int& a, int n, unsigned int mask);
    /// Little-endian packing: bytes[offset] is the least significant byte.
    static unsigned int FourBytesToInt(const unsigned char* bytes, int offset);
    static void IntToFourBytes(unsigned int value, unsigned char* bytes, int offset);

    /// The re-entrant variant: key from a C string, result into buffer.
    static void setkey_r(const char* key, sched* data);
    static void encrypt_r(const sched* data, const unsigned char salt[2], char* buffer);
};

} // namespace kogen
