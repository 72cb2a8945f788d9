// kogen::Crypt against independent implementations: the system's crypt(3)
// (libcrypt), libcrypto's DES crypt and QCryptographicHash.

#include "testlib/DataTable.h"
#include <CommonKit/storage/Crypt.h>

#include <CommonKit/support/core/QtDeprecated.h>

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QSet>

#include <crypt.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <random>
#include <string>

namespace {

using kogen::Crypt;

const std::string kHashAlphabet = "./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
const std::string kSaltAlphabet = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789./";

// The system's DES crypt of a byte string.
std::string systemCrypt(const std::string& key, const std::string& salt)
{
    static crypt_data data;
    data.initialized = 0;
    const char* result = crypt_r(key.c_str(), salt.c_str(), &data);
    return result ? std::string(result) : std::string("(null)");
}

// Passwords of 0 to 16 bytes: printable ASCII, control characters and the
// upper half of Latin-1, never a zero byte.
std::string randomPassword(std::mt19937& generator)
{
    std::uniform_int_distribution<int> length(0, 16);
    std::uniform_int_distribution<int> kind(0, 9);
    std::uniform_int_distribution<int> printable(0x20, 0x7e);
    std::uniform_int_distribution<int> control(0x01, 0x1f);
    std::uniform_int_distribution<int> upper(0x80, 0xff);
    std::string password(static_cast<size_t>(length(generator)), ' ');
    for (char& c : password) {
        const int k = kind(generator);
        c = static_cast<char>(k < 6 ? printable(generator) : k < 7 ? control(generator) : upper(generator));
    }
    return password;
}

std::string oursBytes(const std::string& key, const std::string& salt)
{
    char buffer[14];
    return std::string(Crypt::crypt_r(key.c_str(), salt.c_str(), buffer));
}

QString ours(const QString& salt, const QString& password)
{
    return Crypt::crypt(salt, password);
}

std::string libcrypto(const std::string& key, const std::string& salt)
{
    const char* result = Crypt::crypt_sll(key.c_str(), salt.c_str());
    return result ? std::string(result) : std::string("(null)");
}

// The salt that Qt's generator gives after qsrand(seed), as the library
// draws it: alphabet characters at bits 0 to 5 and 6 to 11.
QString saltOfSeed(uint seed)
{
    COMMONKIT_DEPRECATED_BEGIN
    qsrand(seed);
    const int value = qrand();
    COMMONKIT_DEPRECATED_END
    return QString(QChar::fromLatin1(kSaltAlphabet[static_cast<size_t>(value & 63)]))
           + QChar::fromLatin1(kSaltAlphabet[static_cast<size_t>((value >> 6) & 63)]);
}

QSet<QString> saltsOfSeconds(std::time_t first, std::time_t last)
{
    QSet<QString> salts;
    for (std::time_t t = first; t <= last; ++t)
        salts.insert(saltOfSeed(static_cast<uint>(t)));
    return salts;
}

TEST(Crypt, AgreesWithTheSystemCryptForEverySaltAndThousandsOfPasswords)
{
    std::mt19937 generator(20240506);
    for (const char first : kHashAlphabet) {
        for (const char second : kHashAlphabet) {
            const std::string salt{first, second};
            for (int i = 0; i < 2; ++i) {
                const std::string password = randomPassword(generator);
                const std::string expected = systemCrypt(password, salt);
                EXPECT_EQ(oursBytes(password, salt), expected) << "salt " << salt << " password " << password;
                const QString viaQt = ours(QString::fromLatin1(salt.c_str()),
                                           QString::fromLatin1(password.data(), static_cast<int>(password.size())));
                EXPECT_EQ(viaQt.toStdString(), expected) << "salt " << salt << " password " << password;
                EXPECT_EQ(libcrypto(password, salt), expected) << "salt " << salt << " password " << password;
            }
        }
    }
}

// (Only the first eight characters counting, and Latin-1 characters as bytes,
// are covered by the comparison with the system above.) The salt beyond its
// second character is ignored; characters outside the alphabet take the
// values below, in both variants.
TEST(Crypt, SaltCharactersOutsideTheAlphabetUseTheTraditionalValues)
{
    EXPECT_EQ(ours(QStringLiteral("abcdef"), QStringLiteral("password")),
              ours(QStringLiteral("ab"), QStringLiteral("password")));
    // ':' to '@' and '[' to '`' have their own values in the traditional
    // tables (5 to 11 and 32 to 37). The system's crypt refuses such salts, so
    // these hashes were made with it from the alphabet character of the same
    // value ('3' for ':', 'U' for '['), and agree with libcrypto's DES_fcrypt
    // given the salt as it stands.
    for (const cktest::DataRow& k : cktest::dataRows("storage/crypt-traditional-salts.tsv", 2)) {
        EXPECT_EQ(oursBytes("secret", k[0]), k[1]) << k.where;
        EXPECT_EQ(ours(QString::fromStdString(k[0]), QStringLiteral("secret")).toStdString(), k[1]) << k.where;
        EXPECT_EQ(libcrypto("secret", k[0]), k[1]) << k.where;
    }
    // Every other code counts as value 0, like '.', but stays in the hash.
    const QString reference = ours(QStringLiteral(".."), QStringLiteral("secret"));
    for (const char16_t code : {u'!', u' ', u'~', u'{', u'\u00e9', u'\u00ff', u'\u0001'}) {
        const QString salt = QString(QChar(code)) + QChar(code);
        const QString hash = ours(salt, QStringLiteral("secret"));
        EXPECT_EQ(hash.left(2), salt);
        EXPECT_EQ(hash.mid(2), reference.mid(2)) << int(code);
        EXPECT_EQ(libcrypto("secret", std::string(2, static_cast<char>(code))), hash.toLatin1().toStdString());
    }
}

TEST(Crypt, AMissingSaltCharacterCountsAsCodeZero)
{
    const QString full = ours(QStringLiteral("a."), QStringLiteral("secret"));
    EXPECT_EQ(ours(QStringLiteral("a"), QStringLiteral("secret")), QStringLiteral("a") + QChar(0) + full.mid(2));

    EXPECT_EQ(ours(QString(), QStringLiteral("secret")),
              QString(2, QChar(0)) + ours(QStringLiteral(".."), QStringLiteral("secret")).mid(2));

    char buffer[14];
    memset(buffer, 'x', sizeof buffer);
    ASSERT_EQ(Crypt::crypt_r("secret", "a", buffer), buffer);
    EXPECT_EQ(QByteArray(buffer, 14), QByteArray("a\0", 2) + full.mid(2).toLatin1() + '\0');
    EXPECT_EQ(QByteArray(Crypt::crypt_sll("secret", "a"), 14), QByteArray(buffer, 14));

    // Null arguments are refused or count as empty, without a crash.
    EXPECT_EQ(Crypt::crypt_r("secret", "ab", nullptr), nullptr);
    EXPECT_EQ(std::string(Crypt::crypt_r(nullptr, "ab", buffer)), oursBytes("", "ab"));
    EXPECT_EQ(Crypt::crypt_r("secret", nullptr, buffer)[0], '\0');
    EXPECT_EQ(std::string(buffer + 2), ours(QStringLiteral(".."), QStringLiteral("secret")).mid(2).toStdString());
    EXPECT_EQ(QByteArray(Crypt::crypt_sll("secret", nullptr), 14), QByteArray(buffer, 14));
}

TEST(Crypt, GeneratedSalts)
{
    // The fixed seed: the same salt for every call and every password,
    // whatever state the generator was left in.
    COMMONKIT_DEPRECATED_BEGIN
    qsrand(12345);
    COMMONKIT_DEPRECATED_END
    const QString first = Crypt::crypt(QStringLiteral("secret"));
    EXPECT_EQ(first.left(2), saltOfSeed(0x4b6f7361u)); // the salt of every stored hash made this way
    EXPECT_EQ(first, ours(first.left(2), QStringLiteral("secret")));
    EXPECT_EQ(Crypt::crypt(QStringLiteral("another")), ours(first.left(2), QStringLiteral("another")));

    // The time seed of crypt_sll(key): the salt of one of the seconds the
    // call may have seen.
    const std::time_t before = std::time(nullptr);
    const std::string hash = Crypt::crypt_sll("secret");
    const std::time_t after = std::time(nullptr);
    EXPECT_TRUE(saltsOfSeconds(before, after).contains(QString::fromStdString(hash.substr(0, 2)))) << hash;
    EXPECT_EQ(hash, oursBytes("secret", hash.substr(0, 2)));
}

TEST(Crypt, To64WritesSixBitsPerCharacterFromTheLowEnd)
{
    for (const cktest::DataRow& row : cktest::dataRows("storage/to64.tsv", 3)) {
        const int count = std::stoi(row[1]);
        char buffer[16];
        memset(buffer, '#', sizeof buffer);
        Crypt::to64(buffer, std::stol(row[0]), count);
        EXPECT_EQ(std::string(buffer, static_cast<size_t>(count)), row[2]) << row.where;
        EXPECT_EQ(buffer[count], '#') << row.where << ": no terminator is written";
    }
    char untouched = '#';
    Crypt::to64(&untouched, 5, 0);
    EXPECT_EQ(untouched, '#');
    Crypt::to64(nullptr, 5, 2);
}

TEST(Crypt, Md5Digests)
{
    const auto sqlDigest = [](const char* data, int size) {
        unsigned char* digest = Crypt::md5_sql(data, static_cast<unsigned long>(size));
        const QByteArray result = digest ? QByteArray(reinterpret_cast<const char*>(digest), 16) : QByteArray("null");
        std::free(digest);
        return result;
    };
    const QByteArray withZero("abc\0def", 7);
    for (const QByteArray& input : {QByteArray(), QByteArray("The quick brown fox"), QByteArray(1000, '\xa5'), withZero}) {
        const QByteArray expected = QCryptographicHash::hash(input, QCryptographicHash::Md5);
        EXPECT_EQ(sqlDigest(input.constData(), input.size()), expected) << input.toStdString();
        // md5 stops at the first zero byte; md5_sql takes the length it is given.
        EXPECT_EQ(Crypt::md5(input), QCryptographicHash::hash(input.left(input.indexOf('\0') < 0 ? input.size() : input.indexOf('\0')),
                                                               QCryptographicHash::Md5));
    }
    EXPECT_EQ(sqlDigest(nullptr, 5), QByteArray("null"));
    EXPECT_EQ(sqlDigest(nullptr, 0), QCryptographicHash::hash(QByteArray(), QCryptographicHash::Md5));
}

TEST(Crypt, SessionKeyIsTheDigestHa1)
{
    // The HA1 of the digest-authentication example: user Mufasa, realm
    // testrealm@host.com, password "Circle Of Life".
    EXPECT_EQ(Crypt::createSessionKey(QStringLiteral("Mufasa"), QStringLiteral("Circle Of Life"),
                                      QStringLiteral("testrealm@host.com")),
              QStringLiteral("939e7578ed9e3c518a452acee763bce9"));
    // Latin-1 bytes, user:realm:password order.
    const QString key = Crypt::createSessionKey(QStringLiteral("J\u00fcrgen"), QStringLiteral("p\u00e4ss"),
                                                QStringLiteral("R\u00e9alm"));
    EXPECT_EQ(key, QString::fromLatin1(
                       QCryptographicHash::hash("J\xfcrgen:R\xe9" "alm:p\xe4ss", QCryptographicHash::Md5).toHex()));
}

TEST(Crypt, CameraUserAccessLine)
{
    const QString user = QStringLiteral("Zo\u00eb");
    const QString password = QStringLiteral("s\u00e9cret!");
    const std::time_t before = std::time(nullptr);
    const QString line = Crypt::cameraUserAccess(user, password, QStringLiteral("admin"), QStringLiteral("cam"));
    const std::time_t after = std::time(nullptr);
    const QStringList fields = line.split(QLatin1Char(':'));
    ASSERT_EQ(fields.size(), 4) << line.toStdString();
    EXPECT_EQ(fields.at(0), user);
    EXPECT_EQ(fields.at(1), QStringLiteral("admin"));
    const QString hash = fields.at(2);
    EXPECT_TRUE(saltsOfSeconds(before, after).contains(hash.left(2))) << hash.toStdString();
    EXPECT_EQ(hash.toStdString(), systemCrypt(password.toLatin1().toStdString(), hash.left(2).toStdString()));
    EXPECT_EQ(fields.at(3), QCryptographicHash::hash("Zo\xeb:cam:s\xe9" "cret!", QCryptographicHash::Md5).toHex());
}

} // namespace
