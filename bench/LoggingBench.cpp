// Writing and reading action log entries; run with
//   build/release/bench/logging_bench
// Each benchmark handles N entries of a kind with three values (text,
// number, date-time) plus time and user. BM_RawXmlScan runs a bare
// QXmlStreamReader over the same bytes in the same process: the difference to
// BM_ReadEntries is what creating and filling the entries costs.

#include <CommonKit/logging/LogEntryFactory.h>
#include <CommonKit/logging/XMLLogReader.h>
#include <CommonKit/logging/XMLLogWriter.h>

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QFile>
#include <QTemporaryFile>
#include <QTextStream>

#include <memory>
#include <vector>

namespace {

class BenchEntry : public ko::LogEntry
{
public:
    BenchEntry()
        : text("Text", QStringLiteral("text")), number("Numb", QStringLiteral("number")),
          when("When", QStringLiteral("when"))
    {
        append(&text);
        append(&number);
        append(&when);
    }
    ko::FourChars type() const override { return ko::FourChars("Bnch"); }
    ko::LogCategory category() const override { return ko::LogCategory(ko::CategorySystem); }
    QString format() const override { return QStringLiteral("%1 %2 %3"); }
    QString title() const override { return QStringLiteral("Bench"); }

    ko::TLogValue<QString> text;
    ko::TLogValue<int> number;
    ko::TLogValue<QDateTime> when;
};

ko::LogEntry* createBenchEntry()
{
    return new BenchEntry;
}

const bool registered =
    (ko::logEntryFactory().registerCreator(ko::FourChars("Bnch"), createBenchEntry, "Bench"), true);

std::vector<std::unique_ptr<BenchEntry>> makeEntries(int count)
{
    std::vector<std::unique_ptr<BenchEntry>> entries;
    for (int i = 0; i < count; ++i) {
        auto entry = std::make_unique<BenchEntry>();
        entry->setUser(QStringLiteral("operator %1").arg(i % 7));
        entry->text.value = QStringLiteral("Camera \"%1\" & <monitor> Grüße").arg(i);
        entry->number.value = i;
        entry->when.value = entry->time().addSecs(-i);
        entries.push_back(std::move(entry));
    }
    return entries;
}

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

void BM_ReadEntries(benchmark::State& state)
{
    QTemporaryFile file;
    file.open();
    file.write(writeLive(makeEntries(static_cast<int>(state.range(0)))));
    file.flush();
    const qint64 size = file.size();
    for (auto _ : state) {
        QFile input(file.fileName());
        input.open(QIODevice::ReadOnly | QIODevice::Text);
        ko::XMLLogReader reader(&input);
        int count = 0;
        while (!reader.atEnd() && !reader.hasError()) {
            std::unique_ptr<ko::LogEntry> entry(reader.readNextLogEntry());
            count += entry ? 1 : 0;
        }
        if (count != state.range(0))
            state.SkipWithError("entries lost");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * size);
}
BENCHMARK(BM_ReadEntries)->Arg(100)->Arg(10000);

// The peer of BM_ReadEntries: the same file scanned by a bare
// QXmlStreamReader that only visits the attributes, creating no entries.
void BM_RawXmlScan(benchmark::State& state)
{
    QTemporaryFile file;
    file.open();
    file.write(writeLive(makeEntries(static_cast<int>(state.range(0)))));
    file.flush();
    const qint64 size = file.size();
    for (auto _ : state) {
        QFile input(file.fileName());
        input.open(QIODevice::ReadOnly | QIODevice::Text);
        QXmlStreamReader reader(&input);
        int attributes = 0;
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement)
                attributes += reader.attributes().size();
        }
        benchmark::DoNotOptimize(attributes);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * size);
}
BENCHMARK(BM_RawXmlScan)->Arg(100)->Arg(10000);

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
