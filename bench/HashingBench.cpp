// The library's DES crypt against the system's crypt(3) (libcrypt) and
// libcrypto's DES crypt, on the same passwords and salts in this process;
// and the Blowfish obscuring routine. Run with
//   build/release/bench/hashing_bench

#include <CommonKit/storage/BlowFish.h>
#include <CommonKit/storage/Crypt.h>

#include <benchmark/benchmark.h>

#include <crypt.h>

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

} // namespace

BENCHMARK_MAIN();
