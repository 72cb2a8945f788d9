// Evaluation of a typical filter over many records, printing it as SQL and
// as code, and a stream round trip.

#include <CommonKit/expressions/Expressions.h>
#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertySet.h>

#include <benchmark/benchmark.h>

#include <QDataStream>
#include <QRandomGenerator>

#include <vector>

namespace {

struct Fixture
{
    kogen::PropertySet set;
    kogen::IntProperty* events = new kogen::IntProperty(QStringLiteral("events"));
    kogen::IntProperty* zone = new kogen::IntProperty(QStringLiteral("zone"));
    kogen::StringProperty* name = new kogen::StringProperty(QStringLiteral("name"));
    kogen::BoolProperty* recording = new kogen::BoolProperty(QStringLiteral("recording"));
    kogen::ExpressionHandle filter;
    struct Row { int events; int zone; QString name; bool recording; };
    std::vector<Row> rows;

    Fixture()
    {
        set.add(events);
        set.add(zone);
        set.add(name);
        set.add(recording);
        kogen::ElementOf zones(*zone);
        zones << 1 << 3 << 5 << 7;
        filter = ((*events >= QVariant(10) && zones) || *recording == QVariant(true)) &&
                 *name != QVariant(QStringLiteral("Roof")) && (*events * QVariant(2) - kogen::ConstExpression(1, true)) < kogen::ConstExpression(200, true);
        QRandomGenerator random(7);
        static const QString names[] = {QStringLiteral("Gate"), QStringLiteral("Roof"), QStringLiteral("Yard")};
        for (int i = 0; i < 1000; ++i)
            rows.push_back({random.bounded(0, 120), random.bounded(0, 9), names[random.bounded(3)], random.bounded(4) == 0});
    }
};

Fixture& fixture()
{
    static Fixture f;
    return f;
}

void BM_EvaluateFilterOverRecords(benchmark::State& state)
{
    Fixture& f = fixture();
    int matches = 0;
    for (auto _ : state) {
        for (const Fixture::Row& row : f.rows) {
            f.events->setVariantValue(row.events);
            f.zone->setVariantValue(row.zone);
            f.name->setVariantValue(row.name);
            f.recording->setVariantValue(row.recording);
            matches += f.filter->evaluate(f.set, nullptr).toBool() ? 1 : 0;
        }
    }
    benchmark::DoNotOptimize(matches);
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(f.rows.size()));
}
BENCHMARK(BM_EvaluateFilterOverRecords);

void BM_PrintSqlWithPlaceholders(benchmark::State& state)
{
    Fixture& f = fixture();
    for (auto _ : state) {
        QString text = f.filter->toString(kogen::Expression::PrintSql | kogen::Expression::PrintPlaceholders);
        QList<QVariant> values = f.filter->collectPlaceholders();
        benchmark::DoNotOptimize(text);
        benchmark::DoNotOptimize(values);
    }
}
BENCHMARK(BM_PrintSqlWithPlaceholders);

void BM_PrintCode(benchmark::State& state)
{
    Fixture& f = fixture();
    for (auto _ : state) {
        QString text = f.filter->toString(kogen::Expression::PrintCode);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(BM_PrintCode);

void BM_StreamRoundTrip(benchmark::State& state)
{
    Fixture& f = fixture();
    for (auto _ : state) {
        QByteArray bytes;
        {
            QDataStream out(&bytes, QIODevice::WriteOnly);
            out << f.filter;
        }
        QDataStream in(bytes);
        kogen::ExpressionHandle back = kogen::Expression::readExpression(in);
        benchmark::DoNotOptimize(back);
    }
}
BENCHMARK(BM_StreamRoundTrip);

} // namespace

BENCHMARK_MAIN();
