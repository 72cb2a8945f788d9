#pragma once

// DES constants for the crypt implementation in DesCrypt.cpp, and the lookup
// tables derived from them at compile time. Internal header, not installed.
//
// Bit numbering follows the DES standard: bit 1 is the most significant bit
// of a block or word. The derived tables use this layout:
//   - a 32-bit half block holds bit 1 in its most significant bit;
//   - the 48-bit expansion of a half block (and a 48-bit round key) is split
//     into eight 6-bit groups; groups 0 to 3 sit in the low six bits of the
//     four bytes of one word, groups 4 to 7 likewise in a second word, so
//     that the salt swaps (expansion bit i with bit i + 24) exchange equal
//     positions of the two words.

#include <array>
#include <cstdint>

namespace kogen {
namespace des {

// Key permutation PC-1 is not tabled here: C and D are the columns of the
// 8 x 8 bit matrix of the key bytes, which SetDESKey gets by transposing that
// matrix (see there).

// Left rotations of C and D before each round.
constexpr std::array<int, 16> kShifts = {1, 1, 2, 2, 2, 2, 2, 2, 1, 2, 2, 2, 2, 2, 2, 1};

// Key permutation PC-2: round key bit i comes from bit kPc2[i] of C·D.
constexpr std::array<int, 48> kPc2 = {14, 17, 11, 24, 1,  5,  3,  28, 15, 6,  21, 10, 23, 19, 12, 4,
                                      26, 8,  16, 7,  27, 20, 13, 2,  41, 52, 31, 37, 47, 55, 30, 40,
                                      51, 45, 33, 48, 44, 49, 39, 56, 34, 53, 46, 42, 50, 36, 29, 32};

// Permutation P applied to the S-box outputs.
constexpr std::array<int, 32> kP = {16, 7, 20, 21, 29, 12, 28, 17, 1,  15, 23, 26, 5,  18, 31, 10,
                                    2,  8, 24, 14, 32, 27, 3,  9,  19, 13, 30, 6,  22, 11, 4,  25};

// The eight S-boxes: kSBoxes[box][row][column].
constexpr std::array<std::array<std::array<uint8_t, 16>, 4>, 8> kSBoxes = {{
    {{{14, 4, 13, 1, 2, 15, 11, 8, 3, 10, 6, 12, 5, 9, 0, 7},
      {0, 15, 7, 4, 14, 2, 13, 1, 10, 6, 12, 11, 9, 5, 3, 8},
      {4, 1, 14, 8, 13, 6, 2, 11, 15, 12, 9, 7, 3, 10, 5, 0},
      {15, 12, 8, 2, 4, 9, 1, 7, 5, 11, 3, 14, 10, 0, 6, 13}}},
    {{{15, 1, 8, 14, 6, 11, 3, 4, 9, 7, 2, 13, 12, 0, 5, 10},
      {3, 13, 4, 7, 15, 2, 8, 14, 12, 0, 1, 10, 6, 9, 11, 5},
      {0, 14, 7, 11, 10, 4, 13, 1, 5, 8, 12, 6, 9, 3, 2, 15},
      {13, 8, 10, 1, 3, 15, 4, 2, 11, 6, 7, 12, 0, 5, 14, 9}}},
    {{{10, 0, 9, 14, 6, 3, 15, 5, 1, 13, 12, 7, 11, 4, 2, 8},
      {13, 7, 0, 9, 3, 4, 6, 10, 2, 8, 5, 14, 12, 11, 15, 1},
      {13, 6, 4, 9, 8, 15, 3, 0, 11, 1, 2, 12, 5, 10, 14, 7},
      {1, 10, 13, 0, 6, 9, 8, 7, 4, 15, 14, 3, 11, 5, 2, 12}}},
    {{{7, 13, 14, 3, 0, 6, 9, 10, 1, 2, 8, 5, 11, 12, 4, 15},
      {13, 8, 11, 5, 6, 15, 0, 3, 4, 7, 2, 12, 1, 10, 14, 9},
      {10, 6, 9, 0, 12, 11, 7, 13, 15, 1, 3, 14, 5, 2, 8, 4},
      {3, 15, 0, 6, 10, 1, 13, 8, 9, 4, 5, 11, 12, 7, 2, 14}}},
    {{{2, 12, 4, 1, 7, 10, 11, 6, 8, 5, 3, 15, 13, 0, 14, 9},
      {14, 11, 2, 12, 4, 7, 13, 1, 5, 0, 15, 10, 3, 9, 8, 6},
      {4, 2, 1, 11, 10, 13, 7, 8, 15, 9, 12, 5, 6, 3, 0, 14},
      {11, 8, 12, 7, 1, 14, 2, 13, 6, 15, 0, 9, 10, 4, 5, 3}}},
    {{{12, 1, 10, 15, 9, 2, 6, 8, 0, 13, 3, 4, 14, 7, 5, 11},
      {10, 15, 4, 2, 7, 12, 9, 5, 6, 1, 13, 14, 0, 11, 3, 8},
      {9, 14, 15, 5, 2, 8, 12, 3, 7, 0, 4, 10, 1, 13, 11, 6},
      {4, 3, 2, 12, 9, 5, 15, 10, 11, 14, 1, 7, 6, 0, 8, 13}}},
    {{{4, 11, 2, 14, 15, 0, 8, 13, 3, 12, 9, 7, 5, 10, 6, 1},
      {13, 0, 11, 7, 4, 9, 1, 10, 14, 3, 5, 12, 2, 15, 8, 6},
      {1, 4, 11, 13, 12, 3, 7, 14, 10, 15, 6, 8, 0, 5, 9, 2},
      {6, 11, 13, 8, 1, 4, 10, 7, 9, 5, 0, 15, 14, 2, 3, 12}}},
    {{{13, 2, 8, 4, 6, 15, 11, 1, 10, 9, 3, 14, 5, 0, 12, 7},
      {1, 15, 13, 8, 10, 3, 7, 4, 12, 5, 6, 11, 0, 14, 9, 2},
      {7, 11, 4, 1, 9, 12, 14, 2, 0, 6, 10, 13, 15, 3, 5, 8},
      {2, 1, 14, 7, 4, 10, 8, 13, 15, 12, 9, 0, 3, 5, 6, 11}}},
}};

// The traditional crypt alphabet: the hash characters, and the salt
// characters with their six-bit values.
constexpr char kHashAlphabet[] = "./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

// Six-bit value of a salt character below 128: its position in the hash
// alphabet; ':' to '@' give 5 to 11 and '[' to '`' give 32 to 37, as in the
// traditional tables; every other code gives 0.
constexpr std::array<uint8_t, 128> makeSaltValues()
{
    std::array<uint8_t, 128> values{};
    for (int i = 0; i < 64; ++i)
        values[static_cast<size_t>(kHashAlphabet[i])] = static_cast<uint8_t>(i);
    for (int c = ':'; c <= '@'; ++c)
        values[static_cast<size_t>(c)] = static_cast<uint8_t>(c - ':' + 5);
    for (int c = '['; c <= '`'; ++c)
        values[static_cast<size_t>(c)] = static_cast<uint8_t>(c - '[' + 32);
    return values;
}
constexpr std::array<uint8_t, 128> kSaltValues = makeSaltValues();

// kSpBoxes[box][v]: the S-box output of the six-bit input v, placed in its
// nibble of the round output and permuted by P. The round function is the OR
// of eight of these.
using SpBoxes = std::array<std::array<uint32_t, 64>, 8>;
constexpr SpBoxes makeSpBoxes()
{
    SpBoxes boxes{};
    for (int box = 0; box < 8; ++box) {
        for (int v = 0; v < 64; ++v) {
            const int row = ((v >> 4) & 2) | (v & 1);
            const int column = (v >> 1) & 15;
            const uint32_t unpermuted = static_cast<uint32_t>(kSBoxes[static_cast<size_t>(box)][static_cast<size_t>(row)]
                                                                     [static_cast<size_t>(column)])
                                        << (28 - 4 * box);
            uint32_t permuted = 0;
            for (int bit = 0; bit < 32; ++bit) {
                if ((unpermuted >> (32 - kP[static_cast<size_t>(bit)])) & 1u)
                    permuted |= 1u << (31 - bit);
            }
            boxes[static_cast<size_t>(box)][static_cast<size_t>(v)] = permuted;
        }
    }
    return boxes;
}
constexpr SpBoxes kSpBoxes = makeSpBoxes();

// PC-2 by table: kPc2Tables[half][chunk][v] gives the round-key bits that
// the seven bits v of C (half 0) or D (half 1) contribute, chunk 0 being bits
// 1 to 7 of the half. Half 0 feeds expansion groups 0 to 3 (the first word),
// half 1 groups 4 to 7 (the second word).
using Pc2Tables = std::array<std::array<std::array<uint32_t, 128>, 4>, 2>;
constexpr Pc2Tables makePc2Tables()
{
    Pc2Tables tables{};
    for (int half = 0; half < 2; ++half) {
        for (int chunk = 0; chunk < 4; ++chunk) {
            for (int v = 0; v < 128; ++v) {
                uint32_t word = 0;
                for (int k = 0; k < 7; ++k) {
                    if (!((v >> (6 - k)) & 1))
                        continue;
                    const int sourceBit = 28 * half + 7 * chunk + k + 1; // 1 to 56 in C·D
                    for (int out = 24 * half; out < 24 * half + 24; ++out) {
                        if (kPc2[static_cast<size_t>(out)] != sourceBit)
                            continue;
                        const int position = out - 24 * half; // 0 to 23 within the word
                        word |= 1u << (8 * (position / 6) + 5 - position % 6);
                    }
                }
                tables[static_cast<size_t>(half)][static_cast<size_t>(chunk)][static_cast<size_t>(v)] = word;
            }
        }
    }
    return tables;
}
constexpr Pc2Tables kPc2Tables = makePc2Tables();

} // namespace des
} // namespace kogen
