// Frame-time and four-character-code conversions; run with
//   build/release/bench/util_bench
// CTimeTranscoder formats through QDateTime::toString, so it is compared here
// with a plain QDateTime::toString of the same instants to show that cost.

#include <CommonKit/util/FourChars.h>
#include <CommonKit/util/TimeFunctions.h>
#include <CommonKit/util/TimeTranscoder.h>

#include <benchmark/benchmark.h>

#include <QDateTime>

namespace {

void BM_FourCharsFromString(benchmark::State& state)
{
    const QString text = QStringLiteral("ExpS");
    for (auto _ : state)
        benchmark::DoNotOptimize(static_cast<unsigned int>(ko::FourChars(text)));
}
BENCHMARK(BM_FourCharsFromString);

void BM_FourCharsToString(benchmark::State& state)
{
    const ko::FourChars code(0x45787053u);
    for (auto _ : state)
        benchmark::DoNotOptimize(code.toString());
}
BENCHMARK(BM_FourCharsToString);

void BM_ToFrameTime(benchmark::State& state)
{
    const QDateTime moment(QDate(2024, 5, 6), QTime(7, 8, 9, 123), Qt::UTC);
    for (auto _ : state)
        benchmark::DoNotOptimize(ko::toFrameTime(moment));
}
BENCHMARK(BM_ToFrameTime);

void BM_FromFrameTime(benchmark::State& state)
{
    quint64 frameTime = 1714979289123000ULL;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ko::fromFrameTime(frameTime));
        frameTime += 40000;
    }
}
BENCHMARK(BM_FromFrameTime);

void BM_TimeTranscoder(benchmark::State& state)
{
    unsigned long long frameTime = 1714979289123000ULL;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ko::CTimeTranscoder(frameTime).toIdString());
        frameTime += 40000;
    }
}
BENCHMARK(BM_TimeTranscoder);

void BM_QDateTimeToStringPeer(benchmark::State& state)
{
    qint64 ms = 1714979289123LL;
    for (auto _ : state) {
        const QDateTime local = QDateTime::fromMSecsSinceEpoch(ms, Qt::UTC).toLocalTime();
        benchmark::DoNotOptimize(local.toString(QStringLiteral("yyyyMMdd_hhmmss_zzz")).toStdString());
        ms += 40;
    }
}
BENCHMARK(BM_QDateTimeToStringPeer);

} // namespace

BENCHMARK_MAIN();
