// Generates the glyph strip used by ko::CText2Image: an uncompressed 24-bit
// BMP holding one row of 15 cells of 16 x 20 pixels, in the order
// "0".."9", ":", ".", "-", blank, marker symbol.
//
// Each glyph is drawn on an 8 x 10 grid and scaled by two. Glyphs are white on
// black; the marker is a red disc.
//
// Usage: commonkit-glyphgen OUTPUT.bmp

#include <cstdint>
#include <cstdio>
#include <vector>

namespace {

constexpr int kCellWidth = 16;
constexpr int kCellHeight = 20;
constexpr int kGridRows = 10;

// Rows top to bottom; '#' is ink.
const char* const kGlyphs[15][kGridRows] = {
    {"..####..", ".##..##.", ".##..##.", ".##.###.", ".######.", ".###.##.", ".##..##.", ".##..##.", "..####..", "........"},
    {"...##...", "..###...", ".####...", "...##...", "...##...", "...##...", "...##...", "...##...", ".######.", "........"},
    {"..####..", ".##..##.", ".....##.", "....##..", "...##...", "..##....", ".##.....", ".##.....", ".######.", "........"},
    {"..####..", ".##..##.", ".....##.", ".....##.", "...###..", ".....##.", ".....##.", ".##..##.", "..####..", "........"},
    {"....##..", "...###..", "..####..", ".##.##..", ".##.##..", ".######.", "....##..", "....##..", "....##..", "........"},
    {".######.", ".##.....", ".##.....", ".#####..", ".....##.", ".....##.", ".....##.", ".##..##.", "..####..", "........"},
    {"..####..", ".##.....", ".##.....", ".#####..", ".##..##.", ".##..##.", ".##..##.", ".##..##.", "..####..", "........"},
    {".######.", ".....##.", ".....##.", "....##..", "...##...", "...##...", "..##....", "..##....", "..##....", "........"},
    {"..####..", ".##..##.", ".##..##.", ".##..##.", "..####..", ".##..##.", ".##..##.", ".##..##.", "..####..", "........"},
    {"..####..", ".##..##.", ".##..##.", ".##..##.", "..#####.", ".....##.", ".....##.", "....##..", "..###...", "........"},
    {"........", "........", "...##...", "...##...", "........", "........", "...##...", "...##...", "........", "........"},
    {"........", "........", "........", "........", "........", "........", "........", "...##...", "...##...", "........"},
    {"........", "........", "........", "........", ".######.", "........", "........", "........", "........", "........"},
    {"........", "........", "........", "........", "........", "........", "........", "........", "........", "........"},
    {"........", "..####..", ".######.", "########", "########", "########", "########", ".######.", "..####..", "........"},
};

void put16(std::vector<uint8_t>& out, uint32_t value)
{
    out.push_back(static_cast<uint8_t>(value));
    out.push_back(static_cast<uint8_t>(value >> 8));
}

void put32(std::vector<uint8_t>& out, uint32_t value)
{
    put16(out, value & 0xFFFF);
    put16(out, value >> 16);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s OUTPUT.bmp\n", argv[0]);
        return 2;
    }
    constexpr int cells = 15;
    constexpr int width = cells * kCellWidth;
    constexpr int rowBytes = width * 3; // 720, already a multiple of 4
    constexpr int pixelBytes = rowBytes * kCellHeight;

    std::vector<uint8_t> bmp;
    bmp.push_back('B');
    bmp.push_back('M');
    put32(bmp, 54 + pixelBytes); // file size
    put32(bmp, 0);               // reserved
    put32(bmp, 54);              // offset of the pixels
    put32(bmp, 40);              // BITMAPINFOHEADER
    put32(bmp, width);
    put32(bmp, kCellHeight);     // positive: bottom row first
    put16(bmp, 1);               // planes
    put16(bmp, 24);              // bits per pixel
    put32(bmp, 0);               // no compression
    put32(bmp, pixelBytes);
    put32(bmp, 2835);            // 72 dpi
    put32(bmp, 2835);
    put32(bmp, 0);
    put32(bmp, 0);

    for (int y = kCellHeight - 1; y >= 0; --y) {
        for (int cell = 0; cell < cells; ++cell) {
            const bool marker = cell == 14;
            for (int x = 0; x < kCellWidth; ++x) {
                const bool ink = kGlyphs[cell][y / 2][x / 2] == '#';
                const uint8_t blue = ink && !marker ? 255 : 0;
                const uint8_t green = ink && !marker ? 255 : 0;
                const uint8_t red = ink ? 255 : 0;
                bmp.push_back(blue);
                bmp.push_back(green);
                bmp.push_back(red);
            }
        }
    }

    std::FILE* file = std::fopen(argv[1], "wb");
    if (!file) {
        std::perror(argv[1]);
        return 1;
    }
    const bool ok = std::fwrite(bmp.data(), 1, bmp.size(), file) == bmp.size();
    if (std::fclose(file) != 0 || !ok) {
        std::perror(argv[1]);
        return 1;
    }
    return 0;
}
