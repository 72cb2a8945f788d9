#include <CommonKit/util/Text2Image.h>
#include "testlib/TestFiles.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstring>
#include <set>
#include <vector>

namespace {

using Block = std::vector<unsigned char>;

QByteArray stripBytes()
{
    QFile file(QStringLiteral(":/Text2Image/digits.bmp"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

Block render(ko::CText2Image& renderer, char c)
{
    Block block(static_cast<size_t>(ko::CText2Image::sizeOfCharImage()), 0xAB);
    renderer.digit2Image(block.data(), c);
    return block;
}

TEST(CText2Image, GeometryAndHeaderOfTheStrip)
{
    ko::CText2Image renderer;
    EXPECT_EQ(ko::CText2Image::getWidth(), 16);
    EXPECT_EQ(ko::CText2Image::getHeight(), 20);
    EXPECT_EQ(ko::CText2Image::sizeOfCharImage(), 960);
    const QByteArray strip = stripBytes();
    ASSERT_EQ(renderer.glyphCount(), static_cast<quint32>((strip.size() - 54) / 960));
    EXPECT_EQ(renderer.glyphCount(), 15u);
    ASSERT_NE(renderer.bitmapHeader(), nullptr);
    EXPECT_EQ(std::memcmp(renderer.bitmapHeader(), strip.constData(), 54), 0);
    EXPECT_EQ(strip.at(28), 24); // bits per pixel
}

// Each cell row by row from the strip; every glyph but the blank has ink and
// differs from the others.
TEST(CText2Image, EachCellIsCopiedRowByRowFromTheStrip)
{
    ko::CText2Image renderer;
    const QByteArray strip = stripBytes();
    const char* pixels = strip.constData() + 54;
    const int stripRow = 15 * 48;
    Block symbol(960, 0xAB);
    renderer.symbol2Image(symbol.data(), ko::CText2Image::eSymbolMarker);
    const char characters[] = "0123456789:.- ";
    std::set<Block> seen = {symbol};
    for (int cell = 0; cell < 15; ++cell) {
        const Block block = cell < 14 ? render(renderer, characters[cell]) : symbol;
        for (int row = 0; row < 20; ++row)
            ASSERT_EQ(std::memcmp(block.data() + row * 48, pixels + row * stripRow + cell * 48, 48), 0)
                << "cell " << cell << " row " << row;
        const bool hasInk = std::any_of(block.begin(), block.end(), [](unsigned char b) { return b != 0; });
        EXPECT_EQ(hasInk, characters[cell] != ' ') << "cell " << cell;
        EXPECT_TRUE(cell == 14 || seen.insert(block).second) << "cell " << cell << " repeats another";
    }
}

// Characters outside the table take the cell of their code minus that of
// '0' when there is one, and leave the block alone when not; so does an
// unknown symbol.
TEST(CText2Image, OtherCharactersCountFromZeroOrWriteNothing)
{
    ko::CText2Image renderer;
    Block symbol(960, 0xAB);
    renderer.symbol2Image(symbol.data(), ko::CText2Image::eSymbolMarker);
    const Block untouched(960, 0xAB);
    struct Case { char c; Block expected; };
    const Case cases[] = {
        {';', render(renderer, '.')}, {'<', render(renderer, '-')}, {'=', render(renderer, ' ')}, {'>', symbol},
        {'A', untouched}, {'/', untouched}, {'\0', untouched}, {'\x7f', untouched}, {'\xE4', untouched},
        {'?', untouched},
    };
    for (const Case& c : cases)
        EXPECT_EQ(render(renderer, c.c), c.expected) << static_cast<int>(c.c);
    Block unknown(960, 0xAB);
    renderer.symbol2Image(unknown.data(), static_cast<ko::CText2Image::eGraphicSymbol>(1));
    EXPECT_EQ(unknown, untouched);
}

// Blocks from allocCharImage_RGB(), from a copy whose original is gone.
TEST(CText2Image, CopiesOutliveTheOriginal)
{
    Block expected;
    ko::CText2Image copy;
    {
        ko::CText2Image original;
        expected = render(original, '7');
        copy = ko::CText2Image(original);
    }
    unsigned char* block = copy.allocCharImage_RGB();
    copy.digit2Image(block, '7');
    EXPECT_EQ(std::memcmp(block, expected.data(), 960), 0);
    copy.freeCharImage_RGB(block);
}

TEST(CText2Image, CommittedStripIsWhatTheGeneratorWrites)
{
    QTemporaryDir dir;
    const QString generated = dir.filePath(QStringLiteral("digits.bmp"));
    ASSERT_EQ(QProcess::execute(QStringLiteral(COMMONKIT_GLYPHGEN), {generated}), 0);
    const QByteArray committed = cktest::readFile(QStringLiteral(COMMONKIT_GLYPH_STRIP));
    ASSERT_FALSE(committed.isEmpty());
    EXPECT_EQ(cktest::readFile(generated), committed);
    EXPECT_EQ(stripBytes(), committed);
}

} // namespace
