// Memory rows: what the library holds and how high the resident memory
// climbs. Run with
//   build/release/bench/memory_bench --out FILE [--log-mb N] [--container-mb N,N,...]
// Each row runs in a fresh child process (this program started again with
// --row), so one row's peak does not hide another's. The child prints one
// JSON object; the parent collects them into FILE for scripts/bench_table.py.
//
// Rows:
//   propertyset  heap bytes per property of a PropertySet of 10,000 int
//                properties (glibc's mallinfo2 before and after), next to a
//                QMap<QString, QVariant> of the same names and values;
//   logread      the peak resident memory (VmHWM) that ActionLog::readLog
//                adds while reading a log, next to the heap its entries hold
//                after reading;
//   container    the peak resident memory of a process that seals a payload
//                (generated block by block, never held whole) through an
//                encrypted, compressed and signed ko::EncryptedFile and
//                extracts it again.

#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/storage/EncryptedFile.h>
#include <CommonKit/support/crypto/RSAKeyPair.h>

#include "BenchLog.h"
#include "BenchTemp.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <QVariant>

#include <malloc.h>

#include <cstdio>
#include <cstring>
#include <random>

namespace {

// The process's peak or current resident size in bytes, from /proc/self/status.
qint64 statusBytes(const char* field)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(field))
            return line.mid(int(std::strlen(field))).trimmed().split(' ').value(0).toLongLong() * 1024;
    }
    return -1;
}

qint64 heapInUse()
{
    return static_cast<qint64>(mallinfo2().uordblks);
}

QJsonObject propertySetRow()
{
    constexpr int count = 10000;
    const qint64 before = heapInUse();
    qint64 ours = 0;
    {
        kogen::PropertySet set;
        for (int i = 0; i < count; ++i) {
            auto* property = new kogen::IntProperty(QStringLiteral("property%1").arg(i));
            property->setVariantValue(i);
            set.add(property);
        }
        ours = heapInUse() - before;
    }
    const qint64 between = heapInUse();
    QMap<QString, QVariant> map;
    for (int i = 0; i < count; ++i)
        map.insert(QStringLiteral("property%1").arg(i), i);
    const qint64 peer = heapInUse() - between;
    return {{"ours", double(ours) / count}, {"peer", double(peer) / count}, {"count", count}};
}

QJsonObject logReadRow(const QString& path)
{
    const qint64 residentBefore = statusBytes("VmRSS:");
    const qint64 heapBefore = heapInUse();
    ko::ActionLog log(path);
    log.readLog();
    const qint64 held = heapInUse() - heapBefore;
    const qint64 peak = statusBytes("VmHWM:") - residentBefore;
    return {{"ours", double(peak)}, {"peer", double(held)}, {"entries", log.count()},
            {"file_bytes", double(QFileInfo(path).size())}};
}

QJsonObject containerRow(const QString& path, qint64 megabytes)
{
    const qint64 residentBefore = statusBytes("VmRSS:");
    ko::crypto::RSAKeyPair keyPair;
    const bool generated = keyPair.generate(2048);
    const ko::crypto::secure_string key("benchmark key");
    const qint64 size = megabytes << 20;
    constexpr int block = 1 << 20;
    QByteArray piece(block, Qt::Uninitialized);
    // The same pseudo-random log-like blocks again when reading back.
    auto fill = [&piece](std::mt19937& random) {
        static const char* const words[] = {"camera ", "event ", "export ", "clip ", "user ", "zone ", "\n"};
        int at = 0;
        while (at < block) {
            const char* word = words[random() % 7];
            const int n = std::min(int(std::strlen(word)), block - at);
            std::memcpy(piece.data() + at, word, size_t(n));
            at += n;
        }
    };
    bool ok = generated;
    {
        std::mt19937 random(5);
        ko::EncryptedFile out;
        ok = ok && out.create(QFileInfo(path), key, ko::ZlibDevice::k_bestSpeed, ko::crypto::MessageDigest::SHA256);
        for (qint64 at = 0; ok && at < size; at += block) {
            fill(random);
            ok = out.write(piece) == block;
        }
        out.close(keyPair, "bench");
    }
    {
        std::mt19937 random(5);
        QByteArray back(block, Qt::Uninitialized);
        ko::EncryptedFile in;
        ok = ok && in.open(QFileInfo(path), key);
        for (qint64 at = 0; ok && at < size; at += block) {
            fill(random);
            ok = in.read(back.data(), block) == block && back == piece;
        }
        ok = ok && in.verify(keyPair);
    }
    QFile::remove(path);
    const qint64 peak = statusBytes("VmHWM:");
    return {{"ours", double(peak)}, {"baseline", double(residentBefore)}, {"payload_bytes", double(size)},
            {"ok", ok}};
}

int runRow(const QStringList& arguments)
{
    const QString row = arguments.value(0);
    QJsonObject result;
    if (row == QLatin1String("propertyset"))
        result = propertySetRow();
    else if (row == QLatin1String("logread"))
        result = logReadRow(arguments.value(1));
    else if (row == QLatin1String("container"))
        result = containerRow(arguments.value(1), arguments.value(2).toLongLong());
    else
        return 2;
    std::fputs(QJsonDocument(result).toJson(QJsonDocument::Compact).constData(), stdout);
    return 0;
}

// Runs one row in a child process and returns its object with the row's name.
QJsonObject child(const QString& name, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), QStringList{QStringLiteral("--row")} + arguments);
    process.waitForFinished(-1);
    QJsonObject result = QJsonDocument::fromJson(process.readAllStandardOutput()).object();
    if (process.exitCode() != 0 || result.isEmpty())
        std::fprintf(stderr, "memory row %s failed\n", qPrintable(name));
    result.insert(QStringLiteral("name"), name);
    return result;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QStringList arguments = app.arguments().mid(1);
    if (arguments.value(0) == QLatin1String("--row"))
        return runRow(arguments.mid(1));

    QString out;
    int logMegabytes = 50;
    QStringList containerMegabytes{QStringLiteral("256"), QStringLiteral("1024")};
    for (int i = 0; i + 1 < arguments.size(); i += 2) {
        if (arguments[i] == QLatin1String("--out"))
            out = arguments[i + 1];
        else if (arguments[i] == QLatin1String("--log-mb"))
            logMegabytes = arguments[i + 1].toInt();
        else if (arguments[i] == QLatin1String("--container-mb"))
            containerMegabytes = arguments[i + 1].split(QLatin1Char(','));
    }
    if (out.isEmpty() || logMegabytes <= 0) {
        std::fprintf(stderr, "usage: %s --out FILE [--log-mb N] [--container-mb N,N,...]\n", argv[0]);
        return 2;
    }

    QTemporaryDir dir(benchTempPath(QStringLiteral("memory-XXXXXX")));
    QJsonArray rows;
    rows.append(child(QStringLiteral("propertyset"), {QStringLiteral("propertyset")}));
    const QString log = dir.filePath(QStringLiteral("bench.kol"));
    writeBenchLog(log, logMegabytes);
    rows.append(child(QStringLiteral("logread"), {QStringLiteral("logread"), log}));
    QFile::remove(log);
    for (const QString& megabytes : containerMegabytes) {
        rows.append(child(QStringLiteral("container/") + megabytes,
                          {QStringLiteral("container"), dir.filePath(QStringLiteral("box")), megabytes}));
    }

    QFile file(out);
    if (!file.open(QIODevice::WriteOnly))
        return 1;
    file.write(QJsonDocument(QJsonObject{{"memory", rows}}).toJson());
    return 0;
}
