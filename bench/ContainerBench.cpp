// The encrypted container and the JSON support library; run with
//   build/release/bench/container_bench
// Each container row writes a payload through ko::EncryptedFile and reads it
// back (COMMONKIT_BENCH_CONTAINER_MB megabytes, default 256, in a folder
// under COMMONKIT_BENCH_TMP); its peer does the same work directly over
// memory buffers: SHA-256 of the payload, zlib at the same level, AES-256-GCM
// in the same 64 KiB chunks and, for a signed file, an RSA signature over the
// SHA-256, then the way back. The JSON parser and printer are compared with
// QJsonDocument on the same text.

#include <CommonKit/storage/EncryptedFile.h>
#include <CommonKit/support/crypto/RSAKeyPair.h>
#include <CommonKit/support/json/JsonParser.h>
#include <CommonKit/support/json/JsonPrinter.h>

#include "BenchTemp.h"
#include "RawGcm.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <nlohmann/json.hpp>

#include <openssl/evp.h>
#include <openssl/rsa.h>
#include <zlib.h>

#include <cstring>
#include <memory>
#include <random>

namespace {

constexpr int k_block = 1 << 20;

int payloadSize()
{
    bool ok = false;
    const int megabytes = qEnvironmentVariableIntValue("COMMONKIT_BENCH_CONTAINER_MB", &ok);
    return (ok && megabytes > 0 ? megabytes : 256) << 20;
}

// Log-like text: words, numbers and line breaks; compressible, not trivially.
const QByteArray& payload()
{
    static const QByteArray data = [] {
        static const char* const words[] = {"camera ", "event ", "export ", "clip ", "user ", "motion ",
                                            "2026-05-06 ", "recording ", "zone ", "\n"};
        const int size = payloadSize();
        QByteArray bytes;
        bytes.reserve(size + 32);
        std::mt19937 random(42);
        while (bytes.size() < size) {
            const unsigned n = random();
            bytes += words[n % 10];
            if (n & 0x100)
                bytes += QByteArray::number((n >> 12) % 100000) + ' ';
        }
        bytes.truncate(size);
        return bytes;
    }();
    return data;
}

QTemporaryDir& scratch()
{
    static QTemporaryDir dir(benchTempPath(QStringLiteral("container-XXXXXX")));
    return dir;
}

struct ContainerRow
{
    bool encrypted;
    int level;
    bool signedFile;
};

ContainerRow containerRow(const benchmark::State& state)
{
    return {state.range(0) != 0, static_cast<int>(state.range(1)), state.range(2) != 0};
}

// Arguments: encrypted (0/1), zlib level (0 = none), signed (0/1).
void BM_ContainerWriteRead(benchmark::State& state)
{
    static ko::crypto::RSAKeyPair keyPair = [] {
        ko::crypto::RSAKeyPair pair;
        if (!pair.generate(2048))
            std::abort();
        return pair;
    }();
    const ContainerRow row = containerRow(state);
    const QByteArray& data = payload();
    const ko::crypto::secure_string key = row.encrypted ? "benchmark key" : "";
    const ko::crypto::RSAKeyPair signer = row.signedFile ? keyPair : ko::crypto::RSAKeyPair();
    const QString path = scratch().filePath(QStringLiteral("box"));
    QByteArray block(k_block, Qt::Uninitialized);
    bool ok = true;
    for (auto _ : state) {
        ko::EncryptedFile out;
        ok = out.create(QFileInfo(path), key, row.level, ko::crypto::MessageDigest::SHA256) && ok;
        for (int at = 0; at < data.size(); at += k_block)
            out.write(data.constData() + at, std::min(k_block, data.size() - at));
        out.close(signer, "bench");
        ko::EncryptedFile in;
        ok = in.open(QFileInfo(path), key) && ok;
        qint64 at = 0;
        qint64 n;
        while ((n = in.read(block.data(), k_block)) > 0) {
            ok = ok && at + n <= data.size() && std::memcmp(block.constData(), data.constData() + at, size_t(n)) == 0;
            at += n;
        }
        ok = ok && at == data.size() && (!row.signedFile || in.verify(keyPair));
    }
    QFile::remove(path);
    if (!ok)
        state.SkipWithError("the container did not read back what was written");
    state.SetBytesProcessed(state.iterations() * data.size());
    state.counters["payload_bytes"] = data.size();
}

// The peer's private key and its digest, signing and checking contexts.
struct RawRsa
{
    EVP_PKEY* key = EVP_RSA_gen(2048);
    ~RawRsa() { EVP_PKEY_free(key); }

    std::string sign(const unsigned char* digest) const
    {
        std::unique_ptr<EVP_PKEY_CTX, decltype(&EVP_PKEY_CTX_free)> ctx(EVP_PKEY_CTX_new(key, nullptr),
                                                                         EVP_PKEY_CTX_free);
        size_t size = 0;
        if (EVP_PKEY_sign_init(ctx.get()) != 1 || EVP_PKEY_CTX_set_rsa_padding(ctx.get(), RSA_PKCS1_PADDING) != 1
            || EVP_PKEY_CTX_set_signature_md(ctx.get(), EVP_sha256()) != 1
            || EVP_PKEY_sign(ctx.get(), nullptr, &size, digest, 32) != 1)
            return {};
        std::string signature(size, '\0');
        if (EVP_PKEY_sign(ctx.get(), reinterpret_cast<unsigned char*>(&signature[0]), &size, digest, 32) != 1)
            return {};
        signature.resize(size);
        return signature;
    }

    bool verify(const unsigned char* digest, const std::string& signature) const
    {
        std::unique_ptr<EVP_PKEY_CTX, decltype(&EVP_PKEY_CTX_free)> ctx(EVP_PKEY_CTX_new(key, nullptr),
                                                                         EVP_PKEY_CTX_free);
        return EVP_PKEY_verify_init(ctx.get()) == 1
            && EVP_PKEY_CTX_set_rsa_padding(ctx.get(), RSA_PKCS1_PADDING) == 1
            && EVP_PKEY_CTX_set_signature_md(ctx.get(), EVP_sha256()) == 1
            && EVP_PKEY_verify(ctx.get(), reinterpret_cast<const unsigned char*>(signature.data()), signature.size(),
                               digest, 32) == 1;
    }
};

QByteArray rawDeflate(const QByteArray& data, int level)
{
    QByteArray out(static_cast<int>(compressBound(static_cast<uLong>(data.size()))), Qt::Uninitialized);
    uLongf size = static_cast<uLongf>(out.size());
    if (compress2(reinterpret_cast<Bytef*>(out.data()), &size, reinterpret_cast<const Bytef*>(data.constData()),
                  static_cast<uLong>(data.size()), level) != Z_OK)
        return {};
    out.resize(static_cast<int>(size));
    return out;
}

// The way back of the peer: inflate (when compressed) through a 1 MiB block,
// digest and compare each block with the payload, like the container's reader.
bool rawCheck(const QByteArray& stored, bool compressed, const QByteArray& data, unsigned char* digest)
{
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> md(EVP_MD_CTX_new(), EVP_MD_CTX_free);
    EVP_DigestInit_ex(md.get(), EVP_sha256(), nullptr);
    bool ok = true;
    qint64 at = 0;
    auto take = [&](const char* bytes, qint64 n) {
        EVP_DigestUpdate(md.get(), bytes, size_t(n));
        ok = ok && at + n <= data.size() && std::memcmp(bytes, data.constData() + at, size_t(n)) == 0;
        at += n;
    };
    if (!compressed) {
        for (qint64 pos = 0; pos < stored.size(); pos += k_block)
            take(stored.constData() + pos, std::min<qint64>(k_block, stored.size() - pos));
    } else {
        QByteArray block(k_block, Qt::Uninitialized);
        z_stream z{};
        inflateInit(&z);
        z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(stored.constData()));
        z.avail_in = static_cast<uInt>(stored.size());
        int result;
        do {
            z.next_out = reinterpret_cast<Bytef*>(block.data());
            z.avail_out = k_block;
            result = inflate(&z, Z_NO_FLUSH);
            take(block.constData(), k_block - qint64(z.avail_out));
        } while (result == Z_OK);
        inflateEnd(&z);
        ok = ok && result == Z_STREAM_END;
    }
    EVP_DigestFinal_ex(md.get(), digest, nullptr);
    return ok && at == data.size();
}

void BM_ContainerPeer(benchmark::State& state)
{
    static RawRsa rsa;
    const ContainerRow row = containerRow(state);
    const QByteArray& data = payload();
    RawGcm gcm;
    bool ok = true;
    for (auto _ : state) {
        unsigned char digest[32];
        EVP_Digest(data.constData(), size_t(data.size()), digest, nullptr, EVP_sha256(), nullptr);
        QByteArray stored = row.level != 0 ? rawDeflate(data, row.level) : data;
        if (row.encrypted)
            stored = gcm.seal(stored);
        const std::string signature = row.signedFile ? rsa.sign(digest) : std::string();

        if (row.encrypted) {
            QByteArray plain(stored.size() - 16 * ((stored.size() + RawGcm::k_chunk + 15) / (RawGcm::k_chunk + 16)),
                             Qt::Uninitialized);
            ok = gcm.open(stored, plain) && ok;
            stored = plain;
        }
        unsigned char back[32];
        ok = rawCheck(stored, row.level != 0, data, back) && std::memcmp(back, digest, 32) == 0 && ok;
        ok = ok && (!row.signedFile || rsa.verify(back, signature));
    }
    if (!ok)
        state.SkipWithError("the peer did not read back what it wrote");
    state.SetBytesProcessed(state.iterations() * data.size());
    state.counters["payload_bytes"] = data.size();
}

// Stored, encrypted, compressed (level 1), and compressed + encrypted + signed.
#define CONTAINER_ROWS(name)                                                                                   \
    BENCHMARK(name)->Args({0, 0, 0})->Args({1, 0, 0})->Args({0, 1, 0})->Args({1, 1, 1})                      \
        ->Unit(benchmark::kMillisecond)->Iterations(1)
CONTAINER_ROWS(BM_ContainerWriteRead);
CONTAINER_ROWS(BM_ContainerPeer);

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

// The tree library's own parser into the ordered tree that json::Variant
// holds: what building that tree costs without our syntax check.
void BM_NlohmannParse(benchmark::State& state)
{
    const std::string& text = parseInput(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(nlohmann::ordered_json::parse(text));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_NlohmannParse)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

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
