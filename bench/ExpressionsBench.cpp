// Evaluation of a typical filter over many records (and against SQLite on
// the same rows), printing it as SQL and as code, and a stream round trip.

#include <CommonKit/expressions/Expressions.h>
#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertySet.h>

#include <benchmark/benchmark.h>

#include <QDataStream>
#include <QRandomGenerator>

#include <sqlite3.h>

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

// A filter of two comparisons (an int and a string property), an IN of five
// values and AND/OR, over 100,000 rows, each a PropertySet of its own; the
// peer is the same filter printed as SQL and run by SQLite as a prepared
// statement over an in-memory table of the same rows, in the same process.
constexpr int k_filterRows = 100000;

struct FilterRows
{
    std::vector<kogen::PropertySet> sets;
    kogen::ExpressionHandle filter;
    sqlite3* db = nullptr;
    sqlite3_stmt* count = nullptr;
    QString sql;

    FilterRows()
    {
        kogen::IntProperty events(QStringLiteral("events"));
        kogen::IntProperty zone(QStringLiteral("zone"));
        kogen::StringProperty name(QStringLiteral("name"));
        kogen::ElementOf zones(zone);
        zones << 1 << 3 << 5 << 7 << 9;
        filter = (events >= QVariant(10) && name != QVariant(QStringLiteral("Roof"))) || zones;
        sql = filter->toString(kogen::Expression::PrintSql);

        sqlite3_open(":memory:", &db);
        sqlite3_exec(db, "CREATE TABLE t(events INTEGER, zone INTEGER, name TEXT)", nullptr, nullptr, nullptr);
        sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
        sqlite3_stmt* insert = nullptr;
        sqlite3_prepare_v2(db, "INSERT INTO t VALUES(?, ?, ?)", -1, &insert, nullptr);
        static const QString names[] = {QStringLiteral("Gate"), QStringLiteral("Roof"), QStringLiteral("Yard")};
        QRandomGenerator random(11);
        sets.reserve(k_filterRows);
        for (int i = 0; i < k_filterRows; ++i) {
            const int e = random.bounded(0, 120);
            const int z = random.bounded(0, 12);
            const QString& n = names[random.bounded(3)];
            kogen::PropertySet set;
            auto* p = new kogen::IntProperty(QStringLiteral("events"));
            p->setVariantValue(e);
            set.add(p);
            p = new kogen::IntProperty(QStringLiteral("zone"));
            p->setVariantValue(z);
            set.add(p);
            auto* s = new kogen::StringProperty(QStringLiteral("name"));
            s->setVariantValue(n);
            set.add(s);
            sets.push_back(set);
            const QByteArray utf8 = n.toUtf8();
            sqlite3_bind_int(insert, 1, e);
            sqlite3_bind_int(insert, 2, z);
            sqlite3_bind_text(insert, 3, utf8.constData(), utf8.size(), SQLITE_TRANSIENT);
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
        sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
        const QByteArray query = (QStringLiteral("SELECT count(*) FROM t WHERE ") + sql).toUtf8();
        if (sqlite3_prepare_v2(db, query.constData(), -1, &count, nullptr) != SQLITE_OK)
            count = nullptr;
    }
    ~FilterRows()
    {
        sqlite3_finalize(count);
        sqlite3_close(db);
    }

    int evaluate() const
    {
        int matches = 0;
        for (const kogen::PropertySet& set : sets)
            matches += filter->evaluate(set, nullptr).toBool() ? 1 : 0;
        return matches;
    }

    int select() const
    {
        sqlite3_reset(count);
        return sqlite3_step(count) == SQLITE_ROW ? sqlite3_column_int(count, 0) : -1;
    }
};

FilterRows& filterRows()
{
    static FilterRows rows;
    return rows;
}

void BM_FilterOverPropertySets(benchmark::State& state)
{
    FilterRows& rows = filterRows();
    int matches = 0;
    for (auto _ : state)
        matches = rows.evaluate();
    if (matches != rows.select())
        state.SkipWithError("the filter and SQLite disagree");
    state.SetItemsProcessed(state.iterations() * k_filterRows);
    state.counters["matches"] = matches;
    state.SetLabel(rows.sql.toStdString());
}
BENCHMARK(BM_FilterOverPropertySets)->Unit(benchmark::kMillisecond);

void BM_FilterSqlitePeer(benchmark::State& state)
{
    FilterRows& rows = filterRows();
    if (!rows.count) {
        state.SkipWithError(sqlite3_errmsg(rows.db));
        return;
    }
    int matches = 0;
    for (auto _ : state)
        matches = rows.select();
    state.SetItemsProcessed(state.iterations() * k_filterRows);
    state.counters["matches"] = matches;
    state.SetLabel(rows.sql.toStdString());
}
BENCHMARK(BM_FilterSqlitePeer)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
