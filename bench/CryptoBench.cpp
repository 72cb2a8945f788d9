// Throughput of the AES stream device and the zlib device; run with
//   build/release/bench/crypto_bench
// Each device is paired with its raw library peer on the same data in the
// same process: AES-256-GCM sealed chunk by chunk with libcrypto, and
// deflate/inflate with zlib through a 64 KiB buffer. The difference is what
// the QIODevice layer, buffering and framing cost.

#include <CommonKit/support/compression/ZlibDevice.h>
#include <CommonKit/support/crypto/IODevice.h>

#include "RawGcm.h"

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QByteArray>
#include <QRandomGenerator>

#include <zlib.h>

namespace {

constexpr int k_payloadSize = 8 * 1024 * 1024;
constexpr int k_writePiece = 16 * 1024;
constexpr int k_chunk = RawGcm::k_chunk;

const QByteArray& randomPayload()
{
    static const QByteArray data = [] {
        QByteArray bytes(k_payloadSize, Qt::Uninitialized);
        QRandomGenerator random(1);
        for (char& c : bytes)
            c = static_cast<char>(random.bounded(256));
        return bytes;
    }();
    return data;
}

const QByteArray& textPayload()
{
    static const QByteArray data = [] {
        static const char* const k_words[] = {"camera ", "event ", "export ", "clip ", "user ", "2024-05-06 ", "\n"};
        QByteArray bytes;
        bytes.reserve(k_payloadSize);
        QRandomGenerator random(2);
        while (bytes.size() < k_payloadSize)
            bytes += k_words[random.bounded(7)];
        bytes.truncate(k_payloadSize);
        return bytes;
    }();
    return data;
}

const ko::crypto::secure_string& benchKey()
{
    static const ko::crypto::secure_string key("benchmark key");
    return key;
}

QByteArray deviceEncrypt(const QByteArray& payload, int piece = k_writePiece)
{
    QByteArray out;
    out.reserve(payload.size() + payload.size() / 1000 + 64);
    QBuffer buffer(&out);
    ko::crypto::IODevice device(&buffer, benchKey());
    device.open(QIODevice::WriteOnly);
    for (int pos = 0; pos < payload.size(); pos += piece)
        device.write(payload.constData() + pos, std::min(piece, payload.size() - pos));
    device.close();
    return out;
}

// The argument is the size of the pieces written or read: small pieces go
// through the device's chunk buffer, pieces of a chunk or more skip it.
void BM_AesStreamDeviceWrite(benchmark::State& state)
{
    const QByteArray& payload = randomPayload();
    for (auto _ : state)
        benchmark::DoNotOptimize(deviceEncrypt(payload, static_cast<int>(state.range(0))));
    state.SetBytesProcessed(state.iterations() * payload.size());
}
BENCHMARK(BM_AesStreamDeviceWrite)->Arg(k_writePiece)->Arg(1 << 20)->Unit(benchmark::kMillisecond);

void BM_AesStreamDeviceRead(benchmark::State& state)
{
    QByteArray stream = deviceEncrypt(randomPayload());
    QByteArray block(static_cast<int>(state.range(0)), Qt::Uninitialized);
    for (auto _ : state) {
        QBuffer buffer(&stream);
        ko::crypto::IODevice device(&buffer, benchKey());
        device.open(QIODevice::ReadOnly);
        qint64 total = 0;
        qint64 n;
        while ((n = device.read(block.data(), block.size())) > 0)
            total += n;
        if (total != k_payloadSize)
            state.SkipWithError("decryption failed");
        benchmark::DoNotOptimize(total);
    }
    state.SetBytesProcessed(state.iterations() * k_payloadSize);
}
BENCHMARK(BM_AesStreamDeviceRead)->Arg(k_writePiece)->Arg(1 << 20)->Unit(benchmark::kMillisecond);

void BM_RawEvpGcmSeal(benchmark::State& state)
{
    const QByteArray& payload = randomPayload();
    RawGcm gcm;
    for (auto _ : state)
        benchmark::DoNotOptimize(gcm.seal(payload));
    state.SetBytesProcessed(state.iterations() * payload.size());
}
BENCHMARK(BM_RawEvpGcmSeal)->Unit(benchmark::kMillisecond);

void BM_RawEvpGcmOpen(benchmark::State& state)
{
    RawGcm gcm;
    const QByteArray sealed = gcm.seal(randomPayload());
    QByteArray plain(k_payloadSize, Qt::Uninitialized);
    for (auto _ : state) {
        if (!gcm.open(sealed, plain))
            state.SkipWithError("decryption failed");
        benchmark::DoNotOptimize(plain.data());
    }
    state.SetBytesProcessed(state.iterations() * k_payloadSize);
}
BENCHMARK(BM_RawEvpGcmOpen)->Unit(benchmark::kMillisecond);

QByteArray deviceCompress(const QByteArray& payload, int level)
{
    QByteArray out;
    out.reserve(payload.size() / 2);
    QBuffer buffer(&out);
    ko::ZlibDevice device(&buffer, level);
    device.open(QIODevice::WriteOnly);
    for (int pos = 0; pos < payload.size(); pos += k_writePiece)
        device.write(payload.constData() + pos, std::min(k_writePiece, payload.size() - pos));
    device.close();
    return out;
}

QByteArray rawDeflate(const QByteArray& payload, int level)
{
    QByteArray out;
    out.reserve(payload.size() / 2);
    z_stream z{};
    deflateInit(&z, level);
    unsigned char buffer[k_chunk];
    for (int pos = 0; pos <= payload.size(); pos += k_writePiece) {
        const int size = std::min(k_writePiece, payload.size() - pos);
        z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(payload.constData() + pos));
        z.avail_in = static_cast<uInt>(size);
        const int flush = pos + size >= payload.size() ? Z_FINISH : Z_NO_FLUSH;
        int result;
        do {
            z.next_out = buffer;
            z.avail_out = sizeof buffer;
            result = deflate(&z, flush);
            out.append(reinterpret_cast<const char*>(buffer), static_cast<int>(sizeof buffer - z.avail_out));
        } while (z.avail_out == 0 || (flush == Z_FINISH && result != Z_STREAM_END));
        if (flush == Z_FINISH)
            break;
    }
    deflateEnd(&z);
    return out;
}

void BM_ZlibDeviceCompress(benchmark::State& state)
{
    const QByteArray& payload = textPayload();
    const int level = static_cast<int>(state.range(0));
    qint64 size = 0;
    for (auto _ : state)
        size = deviceCompress(payload, level).size();
    state.SetBytesProcessed(state.iterations() * payload.size());
    state.counters["ratio"] = static_cast<double>(payload.size()) / static_cast<double>(size);
}
BENCHMARK(BM_ZlibDeviceCompress)->Arg(1)->Arg(-1)->Unit(benchmark::kMillisecond);

void BM_RawDeflate(benchmark::State& state)
{
    const QByteArray& payload = textPayload();
    const int level = static_cast<int>(state.range(0));
    qint64 size = 0;
    for (auto _ : state)
        size = rawDeflate(payload, level).size();
    state.SetBytesProcessed(state.iterations() * payload.size());
    state.counters["ratio"] = static_cast<double>(payload.size()) / static_cast<double>(size);
}
BENCHMARK(BM_RawDeflate)->Arg(1)->Arg(-1)->Unit(benchmark::kMillisecond);

void BM_ZlibDeviceDecompress(benchmark::State& state)
{
    QByteArray compressed = deviceCompress(textPayload(), -1);
    QByteArray block(k_writePiece, Qt::Uninitialized);
    for (auto _ : state) {
        QBuffer buffer(&compressed);
        ko::ZlibDevice device(&buffer);
        device.open(QIODevice::ReadOnly);
        qint64 total = 0;
        qint64 n;
        while ((n = device.read(block.data(), block.size())) > 0)
            total += n;
        if (total != k_payloadSize)
            state.SkipWithError("inflate failed");
    }
    state.SetBytesProcessed(state.iterations() * k_payloadSize);
}
BENCHMARK(BM_ZlibDeviceDecompress)->Unit(benchmark::kMillisecond);

void BM_RawInflate(benchmark::State& state)
{
    const QByteArray compressed = rawDeflate(textPayload(), -1);
    QByteArray block(k_writePiece, Qt::Uninitialized);
    for (auto _ : state) {
        z_stream z{};
        inflateInit(&z);
        z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(compressed.constData()));
        z.avail_in = static_cast<uInt>(compressed.size());
        qint64 total = 0;
        int result;
        do {
            z.next_out = reinterpret_cast<Bytef*>(block.data());
            z.avail_out = static_cast<uInt>(block.size());
            result = inflate(&z, Z_NO_FLUSH);
            total += block.size() - static_cast<int>(z.avail_out);
        } while (result == Z_OK);
        inflateEnd(&z);
        if (result != Z_STREAM_END || total != k_payloadSize)
            state.SkipWithError("inflate failed");
    }
    state.SetBytesProcessed(state.iterations() * k_payloadSize);
}
BENCHMARK(BM_RawInflate)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
