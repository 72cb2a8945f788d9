// Writing and reading a settings file of 10,000 keys through QSettings: the
// JSON format against QSettings::IniFormat holding the same map; run with
//   build/release/bench/jsonsettings_bench
// QSettings keeps a file it has read and reads it again only when its time
// stamp or size changed, so each iteration moves the time stamp on.
//
// For comparison, a third format that reads and writes nothing: its reader
// hands over the finished map the JSON reader makes of the file, its writer
// drops the map. What it costs is what QSettings spends around any reader or
// writer of a format registered with registerFormat().

#include <CommonKit/json/JsonSettings.h>

#include "BenchTemp.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

// 50 groups of 150 values, and an array of 833 entries with 3 values each:
// 7500 + 2499 + the array's size = 10,000 keys.
void fill(QSettings& settings)
{
    for (int group = 0; group < 50; ++group) {
        for (int key = 0; key < 150; ++key) {
            const QString name = QStringLiteral("group%1/key%2").arg(group).arg(key);
            switch (key % 4) {
            case 0:
                settings.setValue(name, group * 1000 + key);
                break;
            case 1:
                settings.setValue(name, key / 7.0);
                break;
            case 2:
                settings.setValue(name, QStringLiteral("text value %1").arg(key));
                break;
            default:
                settings.setValue(name, key % 2 == 0);
            }
        }
    }
    settings.beginWriteArray(QStringLiteral("cams"));
    for (int i = 0; i < 833; ++i) {
        settings.setArrayIndex(i);
        settings.setValue(QStringLiteral("name"), QStringLiteral("camera %1").arg(i));
        settings.setValue(QStringLiteral("port"), 8000 + i);
        settings.setValue(QStringLiteral("enabled"), i % 3 != 0);
    }
    settings.endArray();
}

QSettings::SettingsMap& finishedMap()
{
    static QSettings::SettingsMap map;
    return map;
}

bool handOverFinishedMap(QIODevice&, QSettings::SettingsMap& map)
{
    map = finishedMap();
    return true;
}

bool writeNothing(QIODevice&, const QSettings::SettingsMap&)
{
    return true;
}

struct Files
{
    Files()
    {
        json = registerJsonQSettingsFormat(QStringLiteral("json"), QUrl());
        nothing = QSettings::registerFormat(QStringLiteral("nothing"), handOverFinishedMap, writeNothing);
        jsonPath = dir.filePath(QStringLiteral("settings.json"));
        iniPath = dir.filePath(QStringLiteral("settings.ini"));
        nothingPath = dir.filePath(QStringLiteral("settings.nothing"));
        {
            QSettings jsonSettings(jsonPath, json);
            QSettings iniSettings(iniPath, QSettings::IniFormat);
            fill(jsonSettings);
            fill(iniSettings);
        }
        QFile::copy(jsonPath, nothingPath);
        QFile file(jsonPath);
        if (!file.open(QIODevice::ReadOnly) || !readJsonQSettings(file, finishedMap()))
            qFatal("cannot read %s", qPrintable(jsonPath));
    }

    QTemporaryDir dir{benchTempPath(QStringLiteral("settings-XXXXXX"))};
    QSettings::Format json;
    QSettings::Format nothing;
    QString jsonPath;
    QString iniPath;
    QString nothingPath;
};

Files& files()
{
    static Files instance;
    return instance;
}

void readSettings(benchmark::State& state, const QString& path, QSettings::Format format)
{
    QFile file(path);
    QDateTime stamp = QDateTime::currentDateTimeUtc();
    int keys = 0;
    for (auto _ : state) {
        state.PauseTiming();
        stamp = stamp.addSecs(1);
        file.setFileTime(stamp, QFileDevice::FileModificationTime);
        state.ResumeTiming();
        QSettings settings(path, format);
        keys = settings.allKeys().size();
        benchmark::DoNotOptimize(keys);
    }
    state.counters["keys"] = keys;
    state.counters["bytes"] = static_cast<double>(file.size());
}

// Each iteration writes a new file: every key set, then sync().
void writeSettings(benchmark::State& state, const QString& path, QSettings::Format format)
{
    for (auto _ : state) {
        QFile::remove(path);
        QSettings settings(path, format);
        fill(settings);
        settings.sync();
        if (settings.status() != QSettings::NoError)
            state.SkipWithError("writing failed");
    }
    state.counters["bytes"] = static_cast<double>(QFileInfo(path).size());
}

void BM_WriteJsonSettings(benchmark::State& state)
{
    writeSettings(state, files().dir.filePath(QStringLiteral("written.json")), files().json);
}
BENCHMARK(BM_WriteJsonSettings)->Unit(benchmark::kMillisecond);

void BM_WriteIniSettings(benchmark::State& state)
{
    writeSettings(state, files().dir.filePath(QStringLiteral("written.ini")), QSettings::IniFormat);
}
BENCHMARK(BM_WriteIniSettings)->Unit(benchmark::kMillisecond);

void BM_ReadJsonSettings(benchmark::State& state)
{
    readSettings(state, files().jsonPath, files().json);
}
BENCHMARK(BM_ReadJsonSettings)->Unit(benchmark::kMillisecond);

void BM_ReadIniSettings(benchmark::State& state)
{
    readSettings(state, files().iniPath, QSettings::IniFormat);
}
BENCHMARK(BM_ReadIniSettings)->Unit(benchmark::kMillisecond);

void BM_WriteNothingSettings(benchmark::State& state)
{
    writeSettings(state, files().dir.filePath(QStringLiteral("written.nothing")), files().nothing);
}
BENCHMARK(BM_WriteNothingSettings)->Unit(benchmark::kMillisecond);

void BM_ReadNothingSettings(benchmark::State& state)
{
    readSettings(state, files().nothingPath, files().nothing);
}
BENCHMARK(BM_ReadNothingSettings)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
