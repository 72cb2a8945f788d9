// Demo section: password hashes and the Blowfish obscuring routine.

#include "Command.h"
#include "Demo.h"

#include <CommonKit/storage/BlowFish.h>
#include <CommonKit/storage/Crypt.h>

#include <memory>

namespace cktool {
namespace {

bool runHashingDemo(DemoContext& context)
{
    QTextStream& out = context.out;
    bool ok = true;

    const QString password = QStringLiteral("Circle Of Life");
    const QString hash = kogen::Crypt::crypt(QStringLiteral("ab"), password);
    out << tr("DES crypt of \"%1\" with salt \"ab\": %2").arg(password, hash) << "\n"
        << tr("  only the first 8 characters count: \"%1\" gives %2")
               .arg(password.left(8), kogen::Crypt::crypt(QStringLiteral("ab"), password.left(8)))
        << "\n";
    ok = ok && hash.size() == 13 && hash.startsWith(QLatin1String("ab"))
         && hash == kogen::Crypt::crypt(QStringLiteral("ab"), password.left(8));

    const QString ha1 = kogen::Crypt::createSessionKey(QStringLiteral("Mufasa"), password,
                                                       QStringLiteral("testrealm@host.com"));
    out << tr("HTTP digest HA1 of Mufasa / testrealm@host.com: %1").arg(ha1) << "\n";
    ok = ok && ha1 == QLatin1String("939e7578ed9e3c518a452acee763bce9");

    const QString line = kogen::Crypt::cameraUserAccess(QStringLiteral("operator"), QStringLiteral("s3cret"),
                                                        QStringLiteral("viewer"), QStringLiteral("camera"));
    out << tr("Access-list line (the salt changes every second): %1").arg(line) << "\n";
    const QStringList fields = line.split(QLatin1Char(':'));
    ok = ok && fields.size() == 4 && fields.at(2).size() == 13
         && fields.at(2) == kogen::Crypt::crypt(fields.at(2).left(2), QStringLiteral("s3cret"))
         && fields.at(3)
                == kogen::Crypt::createSessionKey(QStringLiteral("operator"), QStringLiteral("s3cret"),
                                                  QStringLiteral("camera"));

    const QString secret = QStringLiteral("Kennwort für die Kamera");
    const std::unique_ptr<QByteArray> obscured(ko::BlowFish::blowFishEncodeString(secret));
    const std::unique_ptr<QString> restored(
        obscured ? ko::BlowFish::blowFishDecodeString(*obscured) : nullptr);
    out << tr("Blowfish: \"%1\" is stored as %2 (%3 bytes) and reads back as \"%4\"")
               .arg(secret, QString::fromLatin1(obscured ? obscured->toHex() : QByteArray()))
               .arg(obscured ? obscured->size() : 0)
               .arg(restored ? *restored : QString())
        << "\n";
    ok = ok && obscured && restored && *restored == secret && obscured->size() == secret.toUtf8().size()
         && *obscured != secret.toUtf8();
    return ok;
}

const DemoRegistration registration({45, QT_TRANSLATE_NOOP("cktool", "Password hashing"), runHashingDemo});

} // namespace
} // namespace cktool
