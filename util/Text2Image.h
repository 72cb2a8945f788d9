#pragma once

#include <CommonKit/support/core/Export.h>

#include <QtGlobal>

#include <memory>

namespace ko {

/// Renders time-stamp characters as 16 x 20 pixel, 24-bit glyph blocks taken
/// from the glyph strip ":/Text2Image/digits.bmp", so that text can be stamped
/// into raw video frames without a font engine.
///
/// Characters: "0".."9", ":", ".", "-", blank, and one graphic symbol. A block is
/// 960 bytes: 20 rows of 48 bytes, bottom row first, pixels in blue, green, red
/// order (the bitmap's own layout).
class COMMONKIT_EXPORT CText2Image
{
public:
    /// The graphic symbols of the strip.
    enum eGraphicSymbol {
        eSymbolMarker = 0 ///< The marker glyph, cell 14 of the strip.
    };

    /// Loads the glyph strip from the resources; when it is missing or
    /// shorter than one glyph, glyphCount() is 0 and nothing is ever written.
    CText2Image();
    /// Shares the glyph data with other.
    CText2Image(const CText2Image& other);
    /// Copies share the glyph data with the original.
    CText2Image& operator=(const CText2Image& other);
    /// Releases the glyph data when no copy uses it any more.
    ~CText2Image();

    /// A new, uninitialised 960-byte block; release it with freeCharImage_RGB.
    unsigned char* allocCharImage_RGB();
    /// Releases a block from allocCharImage_RGB(); null is allowed.
    void freeCharImage_RGB(unsigned char* block);

    /// Writes the glyph of c into a 960-byte block. Other characters than
    /// those listed above take cell (c - '0'), so ';' to '>' give cells 11 to
    /// 14; a cell outside the strip, or a strip that failed to load, writes
    /// nothing.
    void digit2Image(unsigned char* destination, char c);
    /// Writes the symbol's glyph; unknown symbols write nothing.
    void symbol2Image(unsigned char* destination, eGraphicSymbol symbol);

    /// The glyph width in pixels, 16.
    static int getWidth() { return 16; }
    /// The glyph height in pixels, 20.
    static int getHeight() { return 20; }
    /// The bytes of one glyph block, 960.
    static int sizeOfCharImage() { return 16 * 20 * 3; }

    /// The number of glyph cells in the strip (0 when it failed to load).
    quint32 glyphCount() const { return m_glyphCount; }
    /// The 54 bitmap header bytes of the strip, or null.
    const unsigned char* bitmapHeader() const { return m_header.get(); }

private:
    void copyGlyph(unsigned char* destination, qint64 cell) const;

    std::shared_ptr<unsigned char[]> m_pixels;
    std::shared_ptr<unsigned char[]> m_header;
    quint32 m_glyphCount = 0;
};

} // namespace ko
