// Writing and reading action log entries; run with
//   build/release/bench/logging_bench
// Each entry is of a kind with three values (text, number, date-time) plus
// time and user. BM_RawXmlScan runs a bare QXmlStreamReader over the same
// file in the same process: the difference to BM_ReadEntries is what
// creating and filling the entries costs. The size of the file read is
// COMMONKIT_BENCH_LOG_MB megabytes (default 4).

#include <CommonKit/logging/ActionLog.h>
#include <CommonKit/logging/XMLLogReader.h>
#include <CommonKit/logging/XMLLogWriter.h>

#include "BenchLog.h"

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

#include <memory>
#include <vector>

namespace {

QByteArray writeLive(const std::vector<std::unique_ptr<BenchEntry>>& entries)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QTextStream stream(&buffer);
    ko::XMLLogWriter writer(&stream, QString(), QDateTime::currentDateTime());
    writer.setStartDocumentName(QStringLiteral("bench.kol"));
    writer.writeStartDocument();
    for (const auto& entry : entries)
        entry->writeTo(writer);
    return buffer.data();
}

void BM_WriteEntries(benchmark::State& state)
{
    const auto entries = makeEntries(static_cast<int>(state.range(0)));
    qint64 bytes = 0;
    for (auto _ : state) {
        const QByteArray data = writeLive(entries);
        bytes += data.size();
        benchmark::DoNotOptimize(data.constData());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(bytes);
}
BENCHMARK(BM_WriteEntries)->Arg(100)->Arg(10000);

// The log file the read benchmarks share: written by ko::ActionLog itself,
// of about COMMONKIT_BENCH_LOG_MB megabytes (default 4; scripts/bench.sh
// gives 50, the size the reader is meant for).
struct LogFile
{
    QTemporaryDir dir{benchTempPath(QStringLiteral("log-XXXXXX"))};
    QString path = dir.filePath(QStringLiteral("bench.kol"));
    int entries = 0;
    qint64 size = 0;

    LogFile()
    {
        bool ok = false;
        int megabytes = qEnvironmentVariableIntValue("COMMONKIT_BENCH_LOG_MB", &ok);
        if (!ok || megabytes <= 0)
            megabytes = 4;
        entries = writeBenchLog(path, megabytes);
        size = QFileInfo(path).size();
    }
};

const LogFile& logFile()
{
    static const LogFile file;
    return file;
}

// Entries and bytes per second of a pass over the whole file.
void reportFile(benchmark::State& state, const LogFile& file)
{
    state.SetItemsProcessed(state.iterations() * file.entries);
    state.SetBytesProcessed(state.iterations() * file.size);
    state.counters["entries"] = file.entries;
    state.counters["file_bytes"] = static_cast<double>(file.size);
}

void BM_ReadEntries(benchmark::State& state)
{
    const LogFile& file = logFile();
    for (auto _ : state) {
        QFile input(file.path);
        input.open(QIODevice::ReadOnly | QIODevice::Text);
        ko::XMLLogReader reader(&input);
        int count = 0;
        while (!reader.atEnd() && !reader.hasFault()) {
            std::unique_ptr<ko::LogEntry> entry(reader.readNextLogEntry());
            count += entry ? 1 : 0;
        }
        if (count != file.entries)
            state.SkipWithError("entries lost");
    }
    reportFile(state, logFile());
}
BENCHMARK(BM_ReadEntries)->Unit(benchmark::kMillisecond);

// The same file through the action log, which keeps every entry in memory.
void BM_ActionLogReadLog(benchmark::State& state)
{
    const LogFile& file = logFile();
    for (auto _ : state) {
        ko::ActionLog log(file.path);
        log.readLog();
        if (log.count() != file.entries)
            state.SkipWithError("entries lost");
    }
    reportFile(state, logFile());
}
BENCHMARK(BM_ActionLogReadLog)->Unit(benchmark::kMillisecond);

// The peer of both readers: the same file scanned by a bare
// QXmlStreamReader that only visits the attributes, creating no entries.
void BM_RawXmlScan(benchmark::State& state)
{
    const LogFile& file = logFile();
    for (auto _ : state) {
        QFile input(file.path);
        input.open(QIODevice::ReadOnly | QIODevice::Text);
        QXmlStreamReader reader(&input);
        int attributes = 0;
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement)
                attributes += reader.attributes().size();
        }
        benchmark::DoNotOptimize(attributes);
    }
    reportFile(state, logFile());
}
BENCHMARK(BM_RawXmlScan)->Unit(benchmark::kMillisecond);

// Appending one entry through the action log: stamping, the replaced-file
// check, writing and the flush that puts each entry into the file before
// log() returns.
void BM_ActionLogAppend(benchmark::State& state)
{
    QTemporaryDir dir(benchTempPath(QStringLiteral("append-XXXXXX")));
    ko::ActionLog log(dir.filePath(QStringLiteral("append.kol")));
    log.setSplitPolicy(ko::ActionLog::NoSplit, 0);
    log.mute(false);
    const auto samples = makeEntries(1000);
    size_t i = 0;
    for (auto _ : state)
        log.log(*samples[i++ % samples.size()]);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ActionLogAppend);

// Its peer: the bytes the action log wrote for the same entries, appended
// with QFile::write and flushed one entry at a time.
void BM_QFileAppendPeer(benchmark::State& state)
{
    QTemporaryDir dir(benchTempPath(QStringLiteral("append-XXXXXX")));
    QList<QByteArray> pieces;
    {
        const QString path = dir.filePath(QStringLiteral("sample.kol"));
        {
            ko::ActionLog log(path);
            log.setSplitPolicy(ko::ActionLog::NoSplit, 0);
            log.mute(false);
            const auto samples = makeEntries(1000);
            for (const auto& entry : samples)
                log.log(*entry);
        }
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        const QByteArray bytes = file.readAll();
        const QByteArray start("<Entry ");
        int at = bytes.indexOf(start);
        while (at >= 0) {
            const int next = bytes.indexOf(start, at + 1);
            pieces.append(bytes.mid(at, next < 0 ? -1 : next - at));
            at = next;
        }
    }
    if (pieces.size() != 1000) {
        state.SkipWithError("could not split the sample log");
        return;
    }
    QFile out(dir.filePath(QStringLiteral("append.kol")));
    out.open(QIODevice::WriteOnly | QIODevice::Append);
    int i = 0;
    for (auto _ : state) {
        out.write(pieces.at(i++ % pieces.size()));
        out.flush();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_QFileAppendPeer);

// Most of the reader's own cost: every entry parses two date-times in the
// locale's short format.
void BM_ParseLocaleDateTime(benchmark::State& state)
{
    ko::TLogValue<QDateTime> value("When", QStringLiteral("when"), QDateTime::currentDateTime());
    const QString text = value.toString();
    for (auto _ : state) {
        value.fromString(text);
        benchmark::DoNotOptimize(value.value);
    }
}
BENCHMARK(BM_ParseLocaleDateTime);

} // namespace

BENCHMARK_MAIN();
