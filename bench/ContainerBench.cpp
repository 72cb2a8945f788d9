// The encrypted container and the JSON support library; run with
//   build/release/bench/container_bench
// Container throughput is compared with writing and reading the same bytes
// through a plain QFile; the JSON parser and printer with QJsonDocument on
// the same text.

#include <CommonKit/storage/EncryptedFile.h>
#include <CommonKit/support/crypto/RSAKeyPair.h>
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/JsonPrinter.h>

#include <benchmark/benchmark.h>

#include <QJsonDocument>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

const int k_payloadSize = 8 << 20;

const QByteArray& payload()
{
    static const QByteArray data = [] {
        QByteArray bytes(k_payloadSize, Qt::Uninitialized);
        QRandomGenerator random(42);
        // Text-like: compressible, but not trivially.
        for (int i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<char>('a' + random.bounded(i % 7 == 0 ? 26 : 4));
        return bytes;
    }();
    return data;
}

QTemporaryDir& scratch()
{
    static QTemporaryDir dir;
    return dir;
}

void BM_PlainFileWriteRead(benchmark::State& state)
{
    const QString path = scratch().filePath(QStringLiteral("plain"));
    QByteArray back;
    for (auto _ : state) {
        QFile out(path);
        out.open(QIODevice::WriteOnly | QIODevice::Truncate);
        out.write(payload());
        out.close();
        QFile in(path);
        in.open(QIODevice::ReadOnly);
        back = in.readAll();
        benchmark::DoNotOptimize(back.data());
    }
    state.SetBytesProcessed(state.iterations() * k_payloadSize);
}
BENCHMARK(BM_PlainFileWriteRead)->Unit(benchmark::kMillisecond);

// Arguments: encrypted (0/1), compression level (0 = none), signed (0/1).
void BM_ContainerWriteRead(benchmark::State& state)
{
    static ko::crypto::RSAKeyPair keyPair = [] {
        ko::crypto::RSAKeyPair pair;
        if (!pair.generate(2048))
            std::abort();
        return pair;
    }();
    const ko::crypto::secure_string key = state.range(0) ? "benchmark key" : "";
    const int level = static_cast<int>(state.range(1));
    const ko::crypto::RSAKeyPair signer = state.range(2) ? keyPair : ko::crypto::RSAKeyPair();
    const QString path = scratch().filePath(QStringLiteral("box"));
    QByteArray back;
    bool ok = true;
    for (auto _ : state) {
        ko::EncryptedFile out;
        ok = out.create(QFileInfo(path), key, level, ko::crypto::MessageDigest::SHA256) && ok;
        out.write(payload());
        out.close(signer, "bench");
        ko::EncryptedFile in;
        ok = in.open(QFileInfo(path), key) && ok;
        back = in.readAll();
        if (state.range(2))
            ok = in.verify(keyPair) && ok;
        benchmark::DoNotOptimize(back.data());
    }
    if (!ok || back != payload())
        state.SkipWithError("the container did not read back what was written");
    state.SetBytesProcessed(state.iterations() * k_payloadSize);
}
BENCHMARK(BM_ContainerWriteRead)
    ->Args({0, 0, 0})
    ->Args({0, 0, 1})
    ->Args({1, 0, 0})
    ->Args({0, 1, 0})
    ->Args({1, 6, 1})
    ->Unit(benchmark::kMillisecond);

// A settings-like document of about 1 MB.
const std::string& document()
{
    static const std::string text = [] {
        json::Variant root;
        json::List cameras;
        for (int i = 0; i < 4000; ++i) {
            json::Object camera;
            camera.set("name", "Camera " + std::to_string(i));
            camera.set("id", i);
            camera.set("ratio", i / 7.0);
            camera.set("enabled", i % 3 != 0);
            camera.set("address", "rtsp://10.0." + std::to_string(i % 256) + ".1/stream");
            cameras.append(camera);
        }
        root.set("cameras", cameras);
        return json::JsonPrinter::toString(root);
    }();
    return text;
}

// One object of 50000 members (about 1 MB): the time to build it shows
// whether placing a member costs more as the object grows.
const std::string& wideObject()
{
    static const std::string text = [] {
        std::string result = "{";
        for (int i = 0; i < 50000; ++i)
            result += (i ? ",\"member" : "\"member") + std::to_string(i) + "\":" + std::to_string(i);
        return result + "}";
    }();
    return text;
}

// Argument 0: the settings-like document; 1: the wide object.
const std::string& parseInput(const benchmark::State& state)
{
    return state.range(0) == 0 ? document() : wideObject();
}

void BM_JsonParser(benchmark::State& state)
{
    const std::string& text = parseInput(state);
    for (auto _ : state) {
        json::JsonParser parser;
        parser.parse(text);
        benchmark::DoNotOptimize(parser.parseComplete());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_JsonParser)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_QJsonDocumentParse(benchmark::State& state)
{
    const std::string& input = parseInput(state);
    const QByteArray text = QByteArray::fromStdString(input);
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(text));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(input.size()));
}
BENCHMARK(BM_QJsonDocumentParse)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_JsonPrinter(benchmark::State& state)
{
    json::JsonParser parser;
    parser.parse(document());
    const json::Variant value = parser.parseComplete();
    for (auto _ : state)
        benchmark::DoNotOptimize(json::JsonPrinter::toString(value));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(document().size()));
}
BENCHMARK(BM_JsonPrinter)->Unit(benchmark::kMillisecond);

void BM_QJsonDocumentPrint(benchmark::State& state)
{
    const QJsonDocument value = QJsonDocument::fromJson(QByteArray::fromStdString(document()));
    for (auto _ : state)
        benchmark::DoNotOptimize(value.toJson(QJsonDocument::Indented));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(document().size()));
}
BENCHMARK(BM_QJsonDocumentPrint)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
