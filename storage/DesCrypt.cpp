// The DES-based crypt: key schedule, the 25-fold salted encryption of a zero
// block, and the encoding of the result. See DesCrypt.h for the tables and
// their bit layout.

#include <CommonKit/storage/Crypt.h>
#include "storage/DesCrypt_p.h"

#include <cstring>

namespace kogen {

namespace {

using des::kHashAlphabet;
using des::kPc2Tables;
using des::kShifts;
using des::kSpBoxes;

// The six-bit value of a salt character; codes of 128 and above count as 0.
unsigned int saltValue(unsigned char c)
{
    return c < 128 ? des::kSaltValues[c] : 0u;
}

// The swap mask of a salt character. Salt bit j (least significant first) of
// the first character exchanges expansion bits j and j + 24, of the second
// character bits 6 + j and 30 + j. Expansion bit j of group g sits at bit
// 5 - j of byte g (see DesCrypt.h), so the mask is the six-bit value
// reversed, in byte 0 for the first character and byte 1 for the second.
unsigned int saltMask(unsigned char c, int index)
{
    const unsigned int value = saltValue(c);
    unsigned int reversed = 0;
    for (int j = 0; j < 6; ++j) {
        if ((value >> j) & 1u)
            reversed |= 1u << (5 - j);
    }
    return reversed << (8 * index);
}

inline unsigned int rotateLeft(unsigned int value, int n)
{
    return (value << n) | (value >> (32 - n));
}

// The 13 characters: the two salt bytes, then the 64 result bits six at a
// time from the most significant end, the last character holding the final
// four bits followed by two zero bits.
void encodeHash(unsigned char salt0, unsigned char salt1, unsigned int left, unsigned int right, char* out)
{
    out[0] = static_cast<char>(salt0);
    out[1] = static_cast<char>(salt1);
    const uint64_t bits = (static_cast<uint64_t>(left) << 32) | right;
    for (int i = 0; i < 10; ++i)
        out[2 + i] = kHashAlphabet[(bits >> (58 - 6 * i)) & 63u];
    out[12] = kHashAlphabet[(bits << 2) & 63u];
}

} // namespace

unsigned int Crypt::FourBytesToInt(const unsigned char* bytes, int offset)
{
    return static_cast<unsigned int>(bytes[offset]) | (static_cast<unsigned int>(bytes[offset + 1]) << 8)
           | (static_cast<unsigned int>(bytes[offset + 2]) << 16) | (static_cast<unsigned int>(bytes[offset + 3]) << 24);
}

void Crypt::IntToFourBytes(unsigned int value, unsigned char* bytes, int offset)
{
    bytes[offset] = static_cast<unsigned char>(value & 0xffu);
    bytes[offset + 1] = static_cast<unsigned char>((value >> 8) & 0xffu);
    bytes[offset + 2] = static_cast<unsigned char>((value >> 16) & 0xffu);
    bytes[offset + 3] = static_cast<unsigned char>(value >> 24);
}

void Crypt::PermOperation(unsigned int& a, unsigned int& b, int n, unsigned int mask)
{
    const unsigned int t = ((a >> n) ^ b) & mask;
    b ^= t;
    a ^= t << n;
}

void Crypt::HPermOperation(unsigned int& a, int n, unsigned int mask)
{
    const unsigned int t = ((a >> n) ^ a) & mask;
    a ^= t ^ (t << n);
}

Crypt::sched Crypt::SetDESKey(QByteArray key)
{
    // The key bytes are the password characters shifted left by one bit, so
    // that bit 8 of each byte (the parity bit, which PC-1 drops) is zero.
    unsigned char bytes[8] = {};
    const int count = qMin(key.size(), 8);
    for (int i = 0; i < count; ++i)
        bytes[i] = static_cast<unsigned char>(static_cast<unsigned char>(key.at(i)) << 1);

    // Read as a little-endian 64-bit value, key byte i sits in bits 8i to
    // 8i + 7 with key bit 8i + 1 at 8i + 7. Transposing this 8 x 8 bit matrix
    // (in three steps: 4 x 4 blocks, then 2 x 2, then single bits) puts
    // column c of all key bytes into byte 8 - c, key byte i at bit i.
    unsigned int low = FourBytesToInt(bytes, 0);
    unsigned int high = FourBytesToInt(bytes, 4);
    PermOperation(low, high, 4, 0x0f0f0f0fu);
    HPermOperation(low, 14, 0x0000ccccu);
    HPermOperation(high, 14, 0x0000ccccu);
    HPermOperation(low, 7, 0x00aa00aau);
    HPermOperation(high, 7, 0x00aa00aau);
    unsigned char transposed[8];
    IntToFourBytes(low, transposed, 0);
    IntToFourBytes(high, transposed, 4);
    const auto column = [&transposed](int n) { return static_cast<unsigned int>(transposed[8 - n]); };
    // PC-1: C is columns 1 to 3 of key bytes 8 to 1, then column 4 of key
    // bytes 8 to 5; D is columns 7 to 5, then column 4 of key bytes 4 to 1.
    unsigned int c = (column(1) << 20) | (column(2) << 12) | (column(3) << 4) | (column(4) >> 4);
    unsigned int d = (column(7) << 20) | (column(6) << 12) | (column(5) << 4) | (column(4) & 0x0fu);

    sched schedule{};
    for (int round = 0; round < 16; ++round) {
        const int shift = kShifts[static_cast<size_t>(round)];
        c = ((c << shift) | (c >> (28 - shift))) & 0x0fffffffu;
        d = ((d << shift) | (d >> (28 - shift))) & 0x0fffffffu;
        unsigned int first = 0, second = 0;
        for (int chunk = 0; chunk < 4; ++chunk) {
            const int shiftDown = 21 - 7 * chunk;
            first |= kPc2Tables[0][static_cast<size_t>(chunk)][(c >> shiftDown) & 0x7fu];
            second |= kPc2Tables[1][static_cast<size_t>(chunk)][(d >> shiftDown) & 0x7fu];
        }
        schedule.keys[2 * round] = first;
        schedule.keys[2 * round + 1] = second;
    }
    return schedule;
}

void Crypt::DEncrypt(unsigned int& left, unsigned int& right, const unsigned int* keys, unsigned int eSwap)
{
    for (int half = 0; half < 2; ++half) {
        const unsigned int r = half == 0 ? right : left;
        // Expansion: group g is bits 4g to 4g + 5 of r, counted circularly
        // from bit 0 = bit 32.
        unsigned int u = (rotateLeft(r, 5) & 0x3fu) | (((r >> 23) & 0x3fu) << 8) | (((r >> 19) & 0x3fu) << 16)
                         | (((r >> 15) & 0x3fu) << 24);
        unsigned int t = ((r >> 11) & 0x3fu) | (((r >> 7) & 0x3fu) << 8) | (((r >> 3) & 0x3fu) << 16)
                         | ((rotateLeft(r, 1) & 0x3fu) << 24);
        // The salt exchanges expansion bit i with bit i + 24.
        const unsigned int swapped = (u ^ t) & eSwap;
        u ^= swapped ^ keys[2 * half];
        t ^= swapped ^ keys[2 * half + 1];
        const unsigned int f = kSpBoxes[0][u & 0x3fu] | kSpBoxes[1][(u >> 8) & 0x3fu]
                               | kSpBoxes[2][(u >> 16) & 0x3fu] | kSpBoxes[3][(u >> 24) & 0x3fu]
                               | kSpBoxes[4][t & 0x3fu] | kSpBoxes[5][(t >> 8) & 0x3fu]
                               | kSpBoxes[6][(t >> 16) & 0x3fu] | kSpBoxes[7][(t >> 24) & 0x3fu];
        if (half == 0)
            left ^= f;
        else
            right ^= f;
    }
}

Crypt::Block Crypt::Body(const unsigned int* schedule, unsigned int eSwap0, unsigned int eSwap1)
{
    const unsigned int eSwap = eSwap0 | eSwap1;
    // The initial permutation of the zero block is the zero block. Between
    // two encryptions the final and the initial permutation cancel, leaving
    // the exchange of the halves.
    unsigned int left = 0, right = 0;
    for (int iteration = 0; iteration < 25; ++iteration) {
        for (int round = 0; round < 16; round += 2)
            DEncrypt(left, right, schedule + 2 * round, eSwap);
        const unsigned int t = left;
        left = right;
        right = t;
    }
    // Final permutation.
    PermOperation(left, right, 1, 0x55555555u);
    PermOperation(right, left, 8, 0x00ff00ffu);
    PermOperation(right, left, 2, 0x33333333u);
    PermOperation(left, right, 16, 0x0000ffffu);
    PermOperation(left, right, 4, 0x0f0f0f0fu);
    return {left, right};
}

void Crypt::setkey_r(const char* key, sched* data)
{
    // Only the first 8 bytes count; stop at the terminating zero.
    const size_t length = key ? strnlen(key, 8) : 0;
    *data = SetDESKey(QByteArray(key ? key : "", static_cast<int>(length)));
}

void Crypt::encrypt_r(const sched* data, const unsigned char salt[2], char* buffer)
{
    const Block block = Body(data->keys, saltMask(salt[0], 0), saltMask(salt[1], 1));
    encodeHash(salt[0], salt[1], block.left, block.right, buffer);
}

char* Crypt::crypt_r(const char* key, const char* salt, char* buffer)
{
    if (!buffer)
        return nullptr;
    unsigned char saltBytes[2] = {0, 0};
    if (salt && salt[0]) {
        saltBytes[0] = static_cast<unsigned char>(salt[0]);
        saltBytes[1] = static_cast<unsigned char>(salt[1]);
    }
    sched schedule;
    setkey_r(key, &schedule);
    encrypt_r(&schedule, saltBytes, buffer);
    buffer[13] = '\0';
    return buffer;
}

QString Crypt::crypt(QString salt, QString password)
{
    const QByteArray saltBytes = salt.left(2).toLatin1();
    const unsigned char salt0 = saltBytes.size() > 0 ? static_cast<unsigned char>(saltBytes.at(0)) : 0;
    const unsigned char salt1 = saltBytes.size() > 1 ? static_cast<unsigned char>(saltBytes.at(1)) : 0;
    const sched schedule = SetDESKey(password.left(8).toLatin1());
    const Block block = Body(schedule.keys, saltMask(salt0, 0), saltMask(salt1, 1));
    char hash[13];
    encodeHash(salt0, salt1, block.left, block.right, hash);
    return QString::fromLatin1(hash, 13);
}

} // namespace kogen
