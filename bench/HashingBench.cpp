// The library's DES crypt against the system's crypt(3) (libcrypt) and
// libcrypto's DES crypt, on the same passwords and salts in this process;
// and the Blowfish obscuring routine against one BF_cfb64_encrypt call over
// the same bytes with the same key and vector. Run with
//   build/release/bench/hashing_bench

#include <CommonKit/storage/BlowFish.h>
#include <CommonKit/storage/Crypt.h>

#include <benchmark/benchmark.h>

#include <QtGlobal>

#include <crypt.h>
#include <openssl/blowfish.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

struct Sample
{
    std::string password;
    std::string salt;
};

// 256 passwords of 4 to 12 printable characters with varying salts.
const std::vector<Sample>& samples()
{
    static const std::vector<Sample> list = [] {
        const std::string alphabet = "./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
        std::mt19937 generator(4711);
        std::uniform_int_distribution<int> length(4, 12);
        std::uniform_int_distribution<int> printable(0x21, 0x7e);
        std::vector<Sample> result;
        for (int i = 0; i < 256; ++i) {
            Sample sample;
            sample.password.resize(static_cast<size_t>(length(generator)));
            for (char& c : sample.password)
                c = static_cast<char>(printable(generator));
            sample.salt = {alphabet[generator() % 64], alphabet[generator() % 64]};
            result.push_back(sample);
        }
        return result;
    }();
    return list;
}

void BM_CryptR(benchmark::State& state)
{
    const std::vector<Sample>& list = samples();
    char buffer[14];
    size_t i = 0;
    for (auto _ : state) {
        const Sample& sample = list[i++ % list.size()];
        benchmark::DoNotOptimize(kogen::Crypt::crypt_r(sample.password.c_str(), sample.salt.c_str(), buffer));
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()));
}
BENCHMARK(BM_CryptR);

void BM_CryptQString(benchmark::State& state)
{
    std::vector<std::pair<QString, QString>> list;
    for (const Sample& sample : samples())
        list.emplace_back(QString::fromLatin1(sample.salt.c_str()), QString::fromLatin1(sample.password.c_str()));
    size_t i = 0;
    for (auto _ : state) {
        const auto& sample = list[i++ % list.size()];
        benchmark::DoNotOptimize(kogen::Crypt::crypt(sample.first, sample.second));
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()));
}
BENCHMARK(BM_CryptQString);

// Peer: the system's crypt_r.
void BM_SystemCryptPeer(benchmark::State& state)
{
    const std::vector<Sample>& list = samples();
    auto data = std::make_unique<crypt_data>();
    data->initialized = 0;
    size_t i = 0;
    for (auto _ : state) {
        const Sample& sample = list[i++ % list.size()];
        benchmark::DoNotOptimize(crypt_r(sample.password.c_str(), sample.salt.c_str(), data.get()));
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()));
}
BENCHMARK(BM_SystemCryptPeer);

// Peer: libcrypto's DES crypt, through crypt_sll.
void BM_LibcryptoCryptPeer(benchmark::State& state)
{
    const std::vector<Sample>& list = samples();
    size_t i = 0;
    for (auto _ : state) {
        const Sample& sample = list[i++ % list.size()];
        benchmark::DoNotOptimize(kogen::Crypt::crypt_sll(sample.password.c_str(), sample.salt.c_str()));
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()));
}
BENCHMARK(BM_LibcryptoCryptPeer);

void BM_BlowFishEncode(benchmark::State& state)
{
    const QByteArray data(static_cast<int>(state.range(0)), 'x');
    for (auto _ : state) {
        const std::unique_ptr<QByteArray> encoded(ko::BlowFish::blowFishEncode(data));
        benchmark::DoNotOptimize(encoded->constData());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}
BENCHMARK(BM_BlowFishEncode)->Arg(16)->Arg(4096)->Arg(65536);

// 64 MiB of varied bytes for the bulk rows.
const QByteArray& bulk()
{
    static const QByteArray data = [] {
        QByteArray bytes(64 << 20, Qt::Uninitialized);
        std::mt19937 generator(99);
        for (char& c : bytes)
            c = static_cast<char>(generator());
        return bytes;
    }();
    return data;
}

// The key and vector built into ko::BlowFish (storage/BlowFish.cpp).
const unsigned char k_blowFishKey[4] = {0x6b, 0x31, 0xd4, 0x0e};
const unsigned char k_blowFishVector[8] = {0x52, 0x9a, 0x07, 0xe3, 0x1c, 0x44, 0xb8, 0x6f};

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED
// The peer: the same bytes in one BF_cfb64_encrypt call into a new array.
QByteArray rawBlowFish(const QByteArray& data, const BF_KEY& key)
{
    QByteArray out(data.size(), Qt::Uninitialized);
    unsigned char vector[8];
    std::copy(k_blowFishVector, k_blowFishVector + 8, vector);
    int position = 0;
    BF_cfb64_encrypt(reinterpret_cast<const unsigned char*>(data.constData()),
                     reinterpret_cast<unsigned char*>(out.data()), data.size(), &key, vector, &position, BF_ENCRYPT);
    return out;
}

BF_KEY blowFishKey()
{
    BF_KEY key;
    BF_set_key(&key, sizeof k_blowFishKey, k_blowFishKey);
    return key;
}
QT_WARNING_POP

void BM_BlowFishBulk(benchmark::State& state)
{
    const QByteArray& data = bulk();
    std::unique_ptr<QByteArray> encoded;
    for (auto _ : state) {
        encoded.reset(ko::BlowFish::blowFishEncode(data));
        benchmark::DoNotOptimize(encoded->constData());
    }
    if (!encoded || *encoded != rawBlowFish(data, blowFishKey()))
        state.SkipWithError("differs from one BF_cfb64_encrypt pass");
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * data.size());
}
BENCHMARK(BM_BlowFishBulk)->Unit(benchmark::kMillisecond);

void BM_BlowFishBulkPeer(benchmark::State& state)
{
    const QByteArray& data = bulk();
    const BF_KEY key = blowFishKey();
    for (auto _ : state)
        benchmark::DoNotOptimize(rawBlowFish(data, key).constData());
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * data.size());
}
BENCHMARK(BM_BlowFishBulkPeer)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
