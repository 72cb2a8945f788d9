#include <CommonKit/util/Text2Image.h>

#include <QByteArray>
#include <QLocale>
#include <QResource>

#include <cstring>

namespace ko {

namespace {

constexpr int kHeaderSize = 54;
constexpr int kBytesPerGlyphRow = 16 * 3;
constexpr int kRows = 20;
constexpr int kSymbolCell = 14;

QByteArray loadStrip()
{
    QResource resource(QStringLiteral(":/Text2Image/digits.bmp"), QLocale());
    if (!resource.isValid() || !resource.data())
        return QByteArray();
    QByteArray bytes(reinterpret_cast<const char*>(resource.data()),
                     static_cast<int>(resource.size()));
    if (resource.compressionAlgorithm() == QResource::ZlibCompression)
        bytes = qUncompress(bytes);
    else if (resource.compressionAlgorithm() != QResource::NoCompression)
        bytes = resource.uncompressedData(); // rcc built to prefer zstd
    return bytes;
}

qint64 cellOf(char c)
{
    switch (c) {
    case ':': return 10;
    case '.': return 11;
    case '-': return 12;
    case ' ': return 13;
    default: return static_cast<qint64>(c) - '0';
    }
}

} // namespace

CText2Image::CText2Image()
{
    const QByteArray strip = loadStrip();
    const int glyphBytes = sizeOfCharImage();
    if (strip.size() < kHeaderSize + glyphBytes)
        return;
    m_header.reset(new unsigned char[kHeaderSize]);
    std::memcpy(m_header.get(), strip.constData(), kHeaderSize);
    const int pixelBytes = strip.size() - kHeaderSize;
    m_pixels.reset(new unsigned char[pixelBytes]);
    std::memcpy(m_pixels.get(), strip.constData() + kHeaderSize, static_cast<size_t>(pixelBytes));
    m_glyphCount = static_cast<quint32>(pixelBytes / glyphBytes);
}

CText2Image::CText2Image(const CText2Image& other) = default;
CText2Image& CText2Image::operator=(const CText2Image& other) = default;
CText2Image::~CText2Image() = default;

unsigned char* CText2Image::allocCharImage_RGB()
{
    return new unsigned char[static_cast<size_t>(sizeOfCharImage())];
}

void CText2Image::freeCharImage_RGB(unsigned char* block)
{
    delete[] block;
}

void CText2Image::digit2Image(unsigned char* destination, char c)
{
    copyGlyph(destination, cellOf(c));
}

void CText2Image::symbol2Image(unsigned char* destination, eGraphicSymbol symbol)
{
    if (symbol == eSymbolMarker)
        copyGlyph(destination, kSymbolCell);
}

void CText2Image::copyGlyph(unsigned char* destination, qint64 cell) const
{
    if (!m_pixels || !destination || cell < 0 || cell >= m_glyphCount)
        return;
    const size_t stripRow = static_cast<size_t>(m_glyphCount) * kBytesPerGlyphRow;
    for (int row = 0; row < kRows; ++row) {
        const unsigned char* source = m_pixels.get() + row * stripRow
            + static_cast<size_t>(cell) * kBytesPerGlyphRow;
        std::memcpy(destination + row * kBytesPerGlyphRow, source, kBytesPerGlyphRow);
    }
}

} // namespace ko
