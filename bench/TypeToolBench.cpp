// Mixed-type comparison and arithmetic of kogen::TypeTool; run with
//   build/release/bench/typetool_bench
// Each TypeTool benchmark walks the same pairs of values as its peer, which
// does the closest thing plain QVariant offers (operator== for equality, a
// conversion to double for ordering and sums), so the ratio of the two shows
// what the type rules cost on top of QVariant's own conversions.

#include <CommonKit/properties/TypeTool.h>

#include <benchmark/benchmark.h>

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QVariant>

#include <utility>
#include <vector>

namespace {

using Pairs = std::vector<std::pair<QVariant, QVariant>>;

// Numbers of all five types against each other.
Pairs numericPairs()
{
    const QVariant values[] = {QVariant(-7), QVariant(42u), QVariant(123456789012LL),
                               QVariant(9000000000ULL), QVariant(2.5)};
    Pairs pairs;
    for (const QVariant& a : values)
        for (const QVariant& b : values)
            pairs.emplace_back(a, b);
    return pairs;
}

// Numbers, dates and texts mixed.
Pairs mixedPairs()
{
    Pairs pairs = numericPairs();
    const QDate day(2024, 5, 6);
    pairs.emplace_back(day, QDateTime(day, QTime(7, 8, 9), Qt::UTC));
    pairs.emplace_back(QTime(7, 8, 9), 25689000);
    pairs.emplace_back(QStringLiteral("camera 12"), QStringLiteral("camera 7"));
    pairs.emplace_back(QStringLiteral("17"), 17);
    return pairs;
}

void BM_TypeToolCompare(benchmark::State& state)
{
    const Pairs pairs = mixedPairs();
    for (auto _ : state) {
        for (const auto& pair : pairs) {
            kogen::TypeTool tool(false, true);
            benchmark::DoNotOptimize(tool.compare(pair.first, pair.second));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(pairs.size()));
}
BENCHMARK(BM_TypeToolCompare);

void BM_DoubleComparePeer(benchmark::State& state)
{
    const Pairs pairs = mixedPairs();
    for (auto _ : state) {
        for (const auto& pair : pairs) {
            const double d = pair.first.toDouble() - pair.second.toDouble();
            benchmark::DoNotOptimize((d > 0) - (d < 0));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(pairs.size()));
}
BENCHMARK(BM_DoubleComparePeer);

void BM_TypeToolEquals(benchmark::State& state)
{
    const Pairs pairs = mixedPairs();
    for (auto _ : state) {
        for (const auto& pair : pairs) {
            kogen::TypeTool tool(false, true);
            benchmark::DoNotOptimize(tool.equals(pair.first, pair.second));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(pairs.size()));
}
BENCHMARK(BM_TypeToolEquals);

void BM_QVariantEqualsPeer(benchmark::State& state)
{
    const Pairs pairs = mixedPairs();
    for (auto _ : state) {
        for (const auto& pair : pairs)
            benchmark::DoNotOptimize(pair.first == pair.second);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(pairs.size()));
}
BENCHMARK(BM_QVariantEqualsPeer);

void BM_TypeToolAdd(benchmark::State& state)
{
    const Pairs pairs = numericPairs();
    for (auto _ : state) {
        for (const auto& pair : pairs) {
            kogen::TypeTool tool(false, true);
            benchmark::DoNotOptimize(tool.do_add(pair.first, pair.second));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(pairs.size()));
}
BENCHMARK(BM_TypeToolAdd);

void BM_DoubleAddPeer(benchmark::State& state)
{
    const Pairs pairs = numericPairs();
    for (auto _ : state) {
        for (const auto& pair : pairs)
            benchmark::DoNotOptimize(QVariant(pair.first.toDouble() + pair.second.toDouble()));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(pairs.size()));
}
BENCHMARK(BM_DoubleAddPeer);

void BM_TypeToolMultiplyDivide(benchmark::State& state)
{
    const Pairs pairs = numericPairs();
    for (auto _ : state) {
        for (const auto& pair : pairs) {
            kogen::TypeTool tool(true, true);
            benchmark::DoNotOptimize(tool.do_divide(tool.do_multiply(pair.first, pair.second), pair.second));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(pairs.size()));
}
BENCHMARK(BM_TypeToolMultiplyDivide);

void BM_TypeToolDateAdd(benchmark::State& state)
{
    const QVariant day(QDate(2024, 5, 6));
    const QVariant moment(QDateTime(QDate(2024, 5, 6), QTime(7, 8, 9, 123), Qt::UTC));
    qlonglong step = 0;
    for (auto _ : state) {
        kogen::TypeTool tool(false, true);
        benchmark::DoNotOptimize(tool.do_add(day, Q_INT64_C(86400000000) * (step % 7)));
        benchmark::DoNotOptimize(tool.do_subtract(moment, step));
        step += 40000;
    }
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(BM_TypeToolDateAdd);

} // namespace

BENCHMARK_MAIN();
