// Writes the seed corpus of the fuzz targets that read what the library's
// own writers produce: action logs, stream device output, settings files in
// every form, tagged meta-type images, flat-map documents and saved feature
// matrices. Every seed is written by the library; the targets' selector byte
// (see each target) is put in front where a target has one.
//
//   fuzz_seeds OUT_DIR     # writes OUT_DIR/<target>/<seed>
//
// The stream device draws a random salt, so encrypted seeds differ from run
// to run; everything else is the same every time.

#include "fuzz/FuzzEntry.h"
#include "fuzz/FuzzSupport.h"
#include <CommonKit/json/JsonSettings.h>
#include <CommonKit/json/VariantConversion.h>
#include <CommonKit/logging/ActionLog.h>
#include <CommonKit/rights/FeatureMatrix.h>
#include <CommonKit/storage/EncryptedSettings.h>
#include <CommonKit/storage/Settings.h>
#include <CommonKit/support/compression/ZlibDevice.h>
#include <CommonKit/support/crypto/IODevice.h>

#include <QBitArray>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QLine>
#include <QPoint>
#include <QRect>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QUrl>
#include <QUuid>

#include <cstdio>

namespace {

QString g_out;
QTemporaryDir* g_work = nullptr;

// Writes OUT_DIR/target/name: the selector byte, if any, then the bytes.
void put(const char* target, const QString& name, const QByteArray& bytes, int selector = -1)
{
    const QString directory = g_out + QLatin1Char('/') + QLatin1String(target);
    const QByteArray seed = selector >= 0 ? static_cast<char>(selector) + bytes : bytes;
    if (!QDir().mkpath(directory)
        || !fuzzsupport::writeInput(directory + QLatin1Char('/') + name, seed.constData(), std::size_t(seed.size()))) {
        std::fprintf(stderr, "cannot write %s/%s\n", qPrintable(directory), qPrintable(name));
        std::exit(1);
    }
}

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A text of the given length that compresses well but not to nothing.
QByteArray text(int length)
{
    QByteArray result;
    for (int i = 0; result.size() < length; ++i)
        result += "Camera " + QByteArray::number(i % 17) + ", zone " + QByteArray::number(i % 5) + ": motion.\n";
    result.truncate(length);
    return result;
}

// An action log whose clock stands still, so that its files are the same on
// every run.
class StillLog : public ko::ActionLog
{
public:
    using ko::ActionLog::ActionLog;

protected:
    QDateTime currentDateTime() const override { return QDateTime(QDate(2014, 5, 6), QTime(7, 8, 9)); }
};

void actionLogs()
{
    qputenv("USERNAME", "op");
    fuzzsupport::registerFuzzEntry();
    const QString path = g_work->path() + QStringLiteral("/seed.kol");
    {
        StillLog log(path);
        log.setSplitPolicy(ko::ActionLog::NoSplit, 0);
        log.mute(false);
        fuzzsupport::FuzzEntry entry;
        const char* texts[] = {"first", "K\303\274che & <garden>", ""};
        for (int i = 0; i < 3; ++i) {
            entry.text.value = QString::fromUtf8(texts[i]);
            entry.number.value = i * 7 - 3;
            entry.when.value = QDateTime(QDate(2014, 5, 6 + i), QTime(1, 2, 3));
            log.log(entry);
        }
    }
    const QByteArray live = fileBytes(path);
    put("actionlog", QStringLiteral("live.kol"), live);
    // Cut in the middle of the last entry, as by a process that died there.
    put("actionlog", QStringLiteral("partial.kol"), live.left(live.size() - 25));
    put("actionlog", QStringLiteral("closed.kol"), live + "</Entries>\n");
    put("actionlog", QStringLiteral("header-only.kol"), live.left(live.indexOf("<Entry ")));
    // A bad entity in the second entry: not well-formed.
    QByteArray corrupt = live;
    corrupt.replace(corrupt.indexOf("&amp;"), 5, "&nope;");
    put("actionlog", QStringLiteral("corrupt.kol"), corrupt);
    put("actionlog", QStringLiteral("invalid-header.kol"), "<Entries Version=\"v0.1\">" + live.mid(live.indexOf("<Entry ")));
}

template<typename Device, typename... Arguments>
QByteArray through(const QByteArray& plain, Arguments... arguments)
{
    QByteArray sealed;
    QBuffer buffer(&sealed);
    Device device(&buffer, arguments...);
    device.open(QIODevice::WriteOnly);
    // Written in uneven pieces, as a caller would.
    for (int at = 0; at < plain.size(); at += 1000)
        device.write(plain.mid(at, 1000));
    device.close();
    return sealed;
}

void streamDevices()
{
    const ko::crypto::secure_string key = fuzzsupport::key();
    put("cryptodevice", QStringLiteral("empty"), through<ko::crypto::IODevice>(QByteArray(), key));
    put("cryptodevice", QStringLiteral("short"), through<ko::crypto::IODevice>(text(100), key));
    // One full chunk and a short last one.
    put("cryptodevice", QStringLiteral("two-chunks"), through<ko::crypto::IODevice>(text(65536 + 50), key));
    put("zlibdevice", QStringLiteral("empty"), through<ko::ZlibDevice>(QByteArray(), ko::ZlibDevice::k_defaultCompression));
    put("zlibdevice", QStringLiteral("stored"), through<ko::ZlibDevice>(text(300), ko::ZlibDevice::k_noCompression));
    put("zlibdevice", QStringLiteral("fast"), through<ko::ZlibDevice>(text(2000), ko::ZlibDevice::k_bestSpeed));
    put("zlibdevice", QStringLiteral("best"), through<ko::ZlibDevice>(text(20000), ko::ZlibDevice::k_bestCompression));
}

// A settings map with a value of the kinds the formats treat differently.
QMap<QString, QVariant> settingsMap()
{
    return {
        {QStringLiteral("names"), QStringList{QStringLiteral("gate"), QStringLiteral("yard")}},
        {QStringLiteral("ports"), QVariantList{80, 443}},
        {QStringLiteral("day"), QDate(2014, 5, 6)},
        {QStringLiteral("at"), QTime(7, 8, 9)},
        {QStringLiteral("changed"), QDateTime(QDate(2014, 5, 6), QTime(7, 8, 9), Qt::UTC)},
        {QStringLiteral("id"), QUuid(QStringLiteral("{12345678-9abc-def0-1234-56789abcdef0}"))},
        {QStringLiteral("blob"), QByteArray("\x00\x01\xfe\xff", 4)},
        {QStringLiteral("window/pos"), QPoint(3, -4)},
        {QStringLiteral("window/area"), QRectF(0.5, 1, 2, 3.25)},
        {QStringLiteral("cams/size"), 2},
        {QStringLiteral("cams/1/since"), QDate(2020, 1, 2)},
        {QStringLiteral("cams/2/name"), QStringLiteral("K\u00fcche")},
        {QStringLiteral("ratio"), 0.1},
        {QStringLiteral("on"), true},
        {QStringLiteral("pattern"), QRegularExpression(QStringLiteral("^a+$"))},
    };
}

void settings()
{
    const QMap<QString, QVariant> map = settingsMap();
    const json::Schema::Ptr schema = fuzzsupport::settingsSchema();
    for (const int selector : {0, 1, 2, 3, 5, 7}) {
        const bool json = selector & 1;
        const ko::crypto::secure_string key = (selector & 2) ? fuzzsupport::key() : "";
        const json::Schema::Ptr used = (selector & 4) ? schema : json::Schema::Ptr();
        QByteArray bytes;
        QBuffer out(&bytes);
        out.open(QIODevice::WriteOnly);
        if (json)
            ko::EncryptedSettings::writeJson(out, makeJsonSettings(map, used), key);
        else
            ko::EncryptedSettings::writeIni(out, map, key);
        put("encryptedsettings", QStringLiteral("form-%1").arg(selector), bytes, selector);
    }
    for (const int selector : {0, 1}) {
        QByteArray bytes;
        QBuffer out(&bytes);
        out.open(QIODevice::WriteOnly);
        writeJsonQSettings(out, map, selector ? schema : json::Schema::Ptr());
        put("jsonsettings", QStringLiteral("settings-%1.json").arg(selector), bytes, selector);
    }
    put("jsonsettings", QStringLiteral("empty"), QByteArray(), 0);
}

void metaTypes()
{
    const QVariant values[] = {
        QDate(2014, 5, 6), QDateTime(QDate(2014, 5, 6), QTime(7, 8, 9), Qt::OffsetFromUTC, 3600),
        QStringList{QStringLiteral("a"), QStringLiteral("b")}, QVariantList{1, QStringLiteral("x"), QVariantList{2.5}},
        QVariantMap{{QStringLiteral("k"), QPointF(1.5, 2)}}, QRegularExpression(QStringLiteral("(?i)x[0-9]+")),
        QBitArray(13, true), QUrl(QStringLiteral("https://example.invalid/a?b#c")), QLineF(0, 1, 2, 3), QRect(1, 2, 3, 4),
        QByteArray("\x00\xff", 2), QUuid(QStringLiteral("{12345678-9abc-def0-1234-56789abcdef0}")),
    };
    int i = 0;
    for (const QVariant& value : values) {
        const json::Variant tagged = jsonVariantFromMetaType(value);
        const std::string image = tagged.value("#qdata").toString();
        put("variantmetatype", QStringLiteral("%1-%2").arg(i++).arg(QLatin1String(value.typeName())),
            QByteArray(image.data(), static_cast<int>(image.size())));
    }
}

void flatMaps()
{
    const json::Schema::Ptr schema = fuzzsupport::settingsSchema();
    const json::Variant document = makeJsonSettings(settingsMap(), schema);
    const std::string textForm = document.toJson();
    const QByteArray bytes(textForm.data(), static_cast<int>(textForm.size()));
    put("flatmap", QStringLiteral("settings-slash"), bytes, 2);
    put("flatmap", QStringLiteral("settings-dot"), bytes, 1);
    put("flatmap", QStringLiteral("lists"), R"([[1, [2, []]], {"": {"a/b": null}}, "x", -0.5e3])", 0);
}

void featureMatrices()
{
    struct Shape { int rows; int columns; };
    for (const Shape shape : {Shape{3, 5}, Shape{4, 8}, Shape{1, 33}}) {
        for (const bool json : {false, true}) {
            ko::FeatureMatrix matrix(shape.rows, shape.columns);
            for (int row = 0; row < shape.rows; ++row)
                matrix.addFeatureGroup(new ko::FeatureGroup(row));
            for (int column = 0; column < shape.columns; ++column)
                matrix.addUserGroup(new ko::UserGroup(column));
            for (int cell = 0; cell < shape.rows * shape.columns; cell += 3)
                matrix.setAllowed(cell / shape.columns, cell % shape.columns, false);
            const QString path = g_work->path() + (json ? QStringLiteral("/rights.json") : QStringLiteral("/rights.ini"));
            QFile::remove(path);
            {
                ko::Settings settings(path, json ? ko::EncryptedSettings::JsonFormat : QSettings::IniFormat);
                matrix.save(&settings);
            }
            put("featurematrix", QStringLiteral("%1x%2.%3").arg(shape.rows).arg(shape.columns).arg(json ? "json" : "ini"),
                fileBytes(path), json ? 1 : 0);
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: fuzz_seeds OUT_DIR\n");
        return 2;
    }
    g_out = QString::fromLocal8Bit(argv[1]);
    fuzzsupport::setUp();
    QTemporaryDir work;
    g_work = &work;
    ko::EncryptedSettings::clearEncryptionKey();
    actionLogs();
    streamDevices();
    settings();
    metaTypes();
    flatMaps();
    featureMatrices();
    return 0;
}
