#include "testlib/DataTable.h"
#include <CommonKit/support/crypto/MessageDigest.h>

#include <gtest/gtest.h>

#include <QByteArray>
#include <QCryptographicHash>
#include <QRandomGenerator>

namespace {

using ko::crypto::MessageDigest;

std::string hex(const ko::crypto::secure_string& bytes)
{
    return QByteArray(bytes.data(), static_cast<int>(bytes.size())).toHex().toStdString();
}

TEST(MessageDigest, KnownVectors)
{
    for (const cktest::DataRow& row : cktest::dataRows("crypto/digests.tsv", 3)) {
        const MessageDigest::Algorithm algorithm = MessageDigest::algorithmFromName(row[0]);
        MessageDigest md(algorithm);
        md.update(row[1]);
        EXPECT_EQ(md.hexDigest(), row[2]) << row.where;
        EXPECT_EQ(hex(MessageDigest::digest(algorithm, row[1].data(), row[1].size())), row[2]) << row.where;
    }
}

TEST(MessageDigest, AgreesWithQtOnPiecewiseInput)
{
    const struct { MessageDigest::Algorithm ours; QCryptographicHash::Algorithm qt; } pairs[] = {
        {MessageDigest::MD5, QCryptographicHash::Md5},       {MessageDigest::SHA1, QCryptographicHash::Sha1},
        {MessageDigest::SHA224, QCryptographicHash::Sha224}, {MessageDigest::SHA256, QCryptographicHash::Sha256},
        {MessageDigest::SHA384, QCryptographicHash::Sha384}, {MessageDigest::SHA512, QCryptographicHash::Sha512},
    };
    QRandomGenerator random(20240506);
    QByteArray data(300000, Qt::Uninitialized);
    for (char& c : data)
        c = static_cast<char>(random.bounded(256));
    for (const auto& pair : pairs) {
        MessageDigest md(pair.ours);
        int pos = 0;
        while (pos < data.size()) {
            const int piece = std::min(data.size() - pos, static_cast<int>(random.bounded(1, 9000)));
            md.update(data.constData() + pos, static_cast<std::size_t>(piece));
            pos += piece;
        }
        EXPECT_EQ(hex(md.digest()), QCryptographicHash::hash(data, pair.qt).toHex().toStdString())
            << MessageDigest::algorithmName(pair.ours);
    }
}

TEST(MessageDigest, NamesValuesAndSizes)
{
    for (const cktest::DataRow& row : cktest::dataRows("crypto/digest-algorithms.tsv", 3)) {
        const auto algorithm = static_cast<MessageDigest::Algorithm>(std::stoi(row[1]));
        EXPECT_EQ(MessageDigest::algorithmName(algorithm), row[0]);
        EXPECT_EQ(MessageDigest::algorithmFromName(row[0]), algorithm);
        EXPECT_EQ(MessageDigest::algorithmFromName(QString::fromStdString(row[0]).toLower().toStdString()), algorithm);
        EXPECT_EQ(MessageDigest::digestSize(algorithm), std::stoi(row[2]));
        EXPECT_EQ(MessageDigest::algorithmForDigestSize(std::stoul(row[2])), algorithm);
    }
    EXPECT_EQ(MessageDigest::algorithmFromName("Sha256"), MessageDigest::SHA256);
    for (const char* unknown : {"", "SHA-256", "SHA2566", "sha", "RIPEMD160"})
        EXPECT_EQ(MessageDigest::algorithmFromName(unknown), MessageDigest::Unknown) << unknown;
    EXPECT_EQ(MessageDigest::algorithmName(static_cast<MessageDigest::Algorithm>(3)), "");
    EXPECT_EQ(MessageDigest::algorithmForDigestSize(33), MessageDigest::Unknown);

    MessageDigest unknown(static_cast<MessageDigest::Algorithm>(99));
    EXPECT_FALSE(unknown.isValid());
    EXPECT_EQ(unknown.algorithm(), MessageDigest::Unknown);
    unknown.update("abc");
    EXPECT_TRUE(unknown.digest().empty());
    EXPECT_EQ(unknown.count(), 0u);
}

TEST(MessageDigest, DigestContinuesResetsAndCopies)
{
    MessageDigest md(MessageDigest::SHA256);
    md.update("ab");
    const auto partial = md.digest();
    EXPECT_EQ(md.digest(), partial) << "taking the digest must not change the state";
    md.update("c");
    EXPECT_EQ(md.hexDigest(), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");

    MessageDigest copy(md);
    copy.update("d");
    EXPECT_EQ(md.hexDigest(), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(copy.digest(), MessageDigest::digest(MessageDigest::SHA256, "abcd", 4));
    EXPECT_EQ(copy.count(), 4u);

    MessageDigest assigned(MessageDigest::MD5);
    assigned = copy;
    EXPECT_EQ(assigned.algorithm(), MessageDigest::SHA256);
    EXPECT_EQ(assigned.digest(), copy.digest());

    md.reset();
    EXPECT_EQ(md.count(), 0u);
    EXPECT_EQ(md.hexDigest(), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

} // namespace
