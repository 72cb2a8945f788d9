#include <CommonKit/util/Text2Image.h>

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QResource>
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

TEST(CText2Image, OtherCharactersCountFromZero)
{
    // Cell = character code - code of '0', for characters outside the table.
    ko::CText2Image renderer;
    Block symbol(960, 0xAB);
    renderer.symbol2Image(symbol.data(), ko::CText2Image::eSymbolMarker);
    struct Case { char c; Block expected; };
    const Case cases[] = {
        {';', render(renderer, '.')}, {'<', render(renderer, '-')}, {'=', render(renderer, ' ')}, {'>', symbol},
    };
    for (const Case& c : cases)
        EXPECT_EQ(render(renderer, c.c), c.expected) << c.c;
}

TEST(CText2Image, UnknownCharactersAndSymbolsWriteNothing)
{
    ko::CText2Image renderer;
    const Block untouched(960, 0xAB);
    for (char c : {'A', '/', '\0', '\x7f', static_cast<char>(0xE4), '?'})
        EXPECT_EQ(render(renderer, c), untouched) << static_cast<int>(c);
    Block symbol(960, 0xAB);
    renderer.symbol2Image(symbol.data(), static_cast<ko::CText2Image::eGraphicSymbol>(1));
    EXPECT_EQ(symbol, untouched);
}

TEST(CText2Image, CopiesShareTheGlyphsAndOutliveTheOriginal)
{
    Block expected;
    ko::CText2Image copy;
    {
        ko::CText2Image original;
        expected = render(original, '7');
        ko::CText2Image constructed(original);
        copy = constructed;
    }
    EXPECT_EQ(render(copy, '7'), expected);
    unsigned char* block = copy.allocCharImage_RGB();
    copy.digit2Image(block, '7');
    EXPECT_EQ(std::memcmp(block, expected.data(), 960), 0);
    copy.freeCharImage_RGB(block);
}

TEST(CText2Image, CommittedStripIsWhatTheGeneratorWrites)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString generated = dir.filePath(QStringLiteral("digits.bmp"));
    ASSERT_EQ(QProcess::execute(QStringLiteral(COMMONKIT_GLYPHGEN), {generated}), 0);
    QFile fresh(generated);
    QFile committed(QStringLiteral(COMMONKIT_GLYPH_STRIP));
    ASSERT_TRUE(fresh.open(QIODevice::ReadOnly));
    ASSERT_TRUE(committed.open(QIODevice::ReadOnly));
    const QByteArray committedBytes = committed.readAll();
    EXPECT_EQ(fresh.readAll(), committedBytes);
    EXPECT_EQ(stripBytes(), committedBytes);
}

} // namespace
