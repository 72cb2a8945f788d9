// Demo section: an encrypted, compressed and signed container.

#include "Command.h"
#include "Demo.h"

#include <CommonKit/storage/EncryptedFile.h>
#include <CommonKit/support/crypto/RSAKeyPair.h>
#include <CommonKit/support/json/JsonPrinter.h>

#include <QFile>

namespace cktool {
namespace {

QByteArray sampleText()
{
    QByteArray text;
    for (int i = 1; i <= 2000; ++i)
        text += "Camera " + QByteArray::number(i % 16) + " recorded event " + QByteArray::number(i) + ".\n";
    return text;
}

bool readAllPlain(ko::EncryptedFile& container, QByteArray* data)
{
    data->clear();
    char block[16384];
    for (;;) {
        const qint64 n = container.read(block, sizeof block);
        if (n < 0)
            return false;
        if (n == 0)
            return true;
        data->append(block, static_cast<int>(n));
    }
}

bool runContainerDemo(DemoContext& context)
{
    QTextStream& out = context.out;
    bool ok = true;
    const QByteArray sample = sampleText();
    const ko::crypto::secure_string key("demo key - keep it secret");
    ko::crypto::RSAKeyPair signer;
    if (!signer.generate(2048)) {
        out << tr("Cannot generate a key pair: %1").arg(signer.errorString()) << "\n";
        return false;
    }
    const std::string publicPem = signer.publicKeyPem();
    ko::crypto::RSAKeyPair checker;
    ok = checker.loadPem(ko::crypto::secure_string(publicPem.begin(), publicPem.end())) && ok;

    // Seal.
    const QString path = context.path(QStringLiteral("events.box"));
    {
        ko::EncryptedFile container;
        if (!container.create(QFileInfo(path), key, ko::ZlibDevice::k_bestCompression,
                              ko::crypto::MessageDigest::SHA256)) {
            out << container.errorString() << "\n";
            return false;
        }
        container.write(sample);
        container.close(signer, "Demo Signer");
    }
    out << tr("Sealed %1 bytes of text into %2 bytes: compressed, encrypted with AES-256-GCM, signed with RSA.")
               .arg(sample.size()).arg(QFileInfo(path).size())
        << "\n"
        << tr("Its metadata, readable without the key:") << "\n";
    json::Variant meta = ko::EncryptedFile::metaInfo(QFileInfo(path));
    json::Variant shown = meta;
    const std::string signature = meta.value("signature").toString();
    shown.set("signature", signature.substr(0, 24) + "...");
    out << QString::fromStdString(json::JsonPrinter::toString(shown, "  ")) << "\n";
    ok = ok && meta.value("content-length").toInt64() == sample.size() && meta.value("encrypted").toBool();

    // Extract and verify.
    {
        ko::EncryptedFile container;
        QByteArray plain;
        const bool opened = container.open(QFileInfo(path), key);
        const bool read = opened && readAllPlain(container, &plain);
        const bool genuine = read && container.verify(checker);
        out << tr("Extracted %1 bytes, identical to the original: %2; signature valid: %3")
                   .arg(plain.size())
                   .arg(plain == sample ? tr("yes") : tr("no"), genuine ? tr("yes") : tr("no"))
            << "\n";
        ok = ok && plain == sample && genuine;
    }

    // A wrong key.
    {
        ko::EncryptedFile container;
        QByteArray plain;
        const bool read = container.open(QFileInfo(path), ko::crypto::secure_string("guessed key"))
            && readAllPlain(container, &plain);
        out << tr("Reading with a wrong key fails: %1").arg(read ? tr("no") : tr("yes")) << "\n";
        ok = ok && !read;
    }

    // A tampered copy: one byte of the metadata changed ("Demo Signer" becomes "Demo Signes").
    QFile original(path);
    QByteArray bytes = original.open(QIODevice::ReadOnly) ? original.readAll() : QByteArray();
    const int at = bytes.lastIndexOf("Demo Signer");
    const QString tamperedPath = context.path(QStringLiteral("events-tampered.box"));
    if (at >= 0) {
        bytes[at + 10] = 's';
        QFile tampered(tamperedPath);
        ok = tampered.open(QIODevice::WriteOnly) && tampered.write(bytes) == bytes.size() && ok;
    } else {
        ok = false;
    }
    {
        ko::EncryptedFile container;
        QByteArray plain;
        const bool opened = container.open(QFileInfo(tamperedPath), key);
        const bool read = opened && readAllPlain(container, &plain);
        const bool genuine = read && container.verify(checker);
        out << tr("A copy whose signer was changed to \"Demo Signes\" still decrypts (%1), but its signature is valid: %2")
                   .arg(read ? tr("yes") : tr("no"), genuine ? tr("yes") : tr("no"))
            << "\n";
        ok = ok && read && !genuine;
    }
    return ok;
}

const DemoRegistration registration({40, QT_TRANSLATE_NOOP("cktool", "Encrypted container"), runContainerDemo});

} // namespace
} // namespace cktool
