// commonkit stamp: renders a time-stamp text from the glyph strip into a BMP.

#include "Command.h"
#include "CommandLine.h"

#include <CommonKit/util/Text2Image.h>

#include <QFile>
#include <QSaveFile>
#include <QTextStream>
#include <QtEndian>

#include <cstring>
#include <vector>

namespace cktool {
namespace {

const char kStampCharacters[] = "0123456789:.- *";

void appendLittleEndian(QByteArray& out, quint32 value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out.append(static_cast<char>((value >> (8 * i)) & 0xFF));
}

QByteArray bitmapHeader(int width, int height)
{
    const quint32 pixelBytes = static_cast<quint32>(width * 3 * height);
    QByteArray header;
    header.append("BM");
    appendLittleEndian(header, 54 + pixelBytes, 4);
    appendLittleEndian(header, 0, 4);
    appendLittleEndian(header, 54, 4);
    appendLittleEndian(header, 40, 4);
    appendLittleEndian(header, static_cast<quint32>(width), 4);
    appendLittleEndian(header, static_cast<quint32>(height), 4);
    appendLittleEndian(header, 1, 2);
    appendLittleEndian(header, 24, 2);
    appendLittleEndian(header, 0, 4);
    appendLittleEndian(header, pixelBytes, 4);
    appendLittleEndian(header, 2835, 4);
    appendLittleEndian(header, 2835, 4);
    appendLittleEndian(header, 0, 4);
    appendLittleEndian(header, 0, 4);
    return header;
}

int runStamp(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("stamp"),
                            tr("Renders a time-stamp text with the library's glyph strip and writes it as "
                               "a 24-bit BMP. Characters: digits, ':', '.', '-', blank, and '*' for the "
                               "marker symbol."));
    commandLine.addPositional(QStringLiteral("text"), tr("The text, such as \"12:34:56.789\"."));
    const QCommandLineOption outOption(QStringLiteral("out"), tr("The BMP file to write."),
                                       QStringLiteral("file"));
    commandLine.addOption(outOption);
    if (!commandLine.parse(arguments, 1, 1))
        return 0;
    if (!commandLine.isSet(QStringLiteral("out")))
        throw CommandError(tr("stamp: --out FILE is required"), 2);

    const QString text = commandLine.positional().constFirst();
    if (text.isEmpty())
        throw CommandError(tr("stamp: the text is empty"));
    const QByteArray latin = text.toLatin1();
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i).unicode() > 0x7F || latin.at(i) == 0 || !std::strchr(kStampCharacters, latin.at(i)))
            throw CommandError(tr("stamp: no glyph for '%1' at position %2").arg(text.at(i)).arg(i + 1));
    }

    ko::CText2Image renderer;
    if (renderer.glyphCount() == 0)
        throw CommandError(tr("stamp: the glyph strip could not be loaded"));
    const int glyphWidth = ko::CText2Image::getWidth();
    const int glyphHeight = ko::CText2Image::getHeight();
    const int glyphRowBytes = glyphWidth * 3;
    const int width = glyphWidth * static_cast<int>(latin.size());
    const int rowBytes = (width * 3 + 3) & ~3;

    std::vector<unsigned char> block(static_cast<size_t>(ko::CText2Image::sizeOfCharImage()));
    QByteArray pixels(rowBytes * glyphHeight, '\0');
    for (int i = 0; i < latin.size(); ++i) {
        if (latin.at(i) == '*')
            renderer.symbol2Image(block.data(), ko::CText2Image::eSymbolMarker);
        else
            renderer.digit2Image(block.data(), latin.at(i));
        for (int row = 0; row < glyphHeight; ++row)
            std::memcpy(pixels.data() + row * rowBytes + i * glyphRowBytes, block.data() + row * glyphRowBytes,
                   static_cast<size_t>(glyphRowBytes));
    }

    const QString fileName = commandLine.value(QStringLiteral("out"));
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        throw CommandError(tr("stamp: cannot write %1: %2").arg(fileName, file.errorString()));
    QByteArray bytes = bitmapHeader(width, glyphHeight);
    // The strip and our rows share the layout, except for row padding.
    bytes.append(pixels);
    file.write(bytes);
    if (!file.commit())
        throw CommandError(tr("stamp: cannot write %1: %2").arg(fileName, file.errorString()));
    QTextStream(stdout) << tr("wrote %1 (%2 x %3 pixels)").arg(fileName).arg(width).arg(glyphHeight) << "\n";
    return 0;
}

const CommandRegistration registration(
    {"stamp", QT_TRANSLATE_NOOP("cktool", "Render a time stamp from the glyph strip as a BMP"), runStamp});

} // namespace
} // namespace cktool
