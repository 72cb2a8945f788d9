// Demo section: frame times, four-character codes and the digit renderer.

#include "Command.h"
#include "Demo.h"

#include <CommonKit/util/FourChars.h>
#include <CommonKit/util/Text2Image.h>
#include <CommonKit/util/TimeFunctions.h>
#include <CommonKit/util/TimeTranscoder.h>

#include <vector>

namespace cktool {
namespace {

bool runUtilDemo(DemoContext& context)
{
    QTextStream& out = context.out;
    bool ok = true;

    const QDateTime moment(QDate(2024, 5, 6), QTime(7, 8, 9, 123), Qt::UTC);
    const quint64 frameTime = ko::toFrameTime(moment);
    const ko::CTimeTranscoder transcoder(static_cast<unsigned long long>(frameTime + 456));
    out << tr("Frame time of %1: %2").arg(moment.toString(Qt::ISODateWithMs)).arg(frameTime) << "\n"
        << tr("  +456 us, local display text %1, identifier %2, microsecond %3")
               .arg(QString::fromStdString(transcoder.toString()),
                    QString::fromStdString(transcoder.toIdString()))
               .arg(transcoder.microsecond())
        << "\n";
    ok = ok && ko::fromFrameTime(frameTime) == moment && transcoder.microsecond() == 456;

    for (const char* letters : {"ExpS", "Time", "ABC"}) {
        const ko::FourChars code(letters);
        out << tr("Code \"%1\" = 0x%2").arg(code.toString()).arg(static_cast<unsigned int>(code), 8, 16, QLatin1Char('0'))
            << "\n";
        ok = ok && ko::FourChars(static_cast<unsigned int>(code)).toString().trimmed() == QLatin1String(letters);
    }

    ko::CText2Image renderer;
    std::vector<unsigned char> block(static_cast<size_t>(ko::CText2Image::sizeOfCharImage()));
    renderer.digit2Image(block.data(), '7');
    // Show the glyph of "7" as text, top row first (the block is stored bottom row first).
    out << tr("Glyph strip: %1 glyphs of %2 x %3 pixels; \"7\" looks like this:")
               .arg(renderer.glyphCount()).arg(ko::CText2Image::getWidth()).arg(ko::CText2Image::getHeight())
        << "\n";
    for (int row = ko::CText2Image::getHeight() - 1; row >= 0; row -= 2) {
        QString line = QStringLiteral("  ");
        for (int x = 0; x < ko::CText2Image::getWidth(); x += 2)
            line += block[static_cast<size_t>(row * 48 + x * 3)] ? QLatin1Char('#') : QLatin1Char('.');
        out << line << "\n";
    }
    ok = ok && renderer.glyphCount() == 15;
    return ok;
}

const DemoRegistration registration({70, QT_TRANSLATE_NOOP("cktool", "Time, codes and glyphs"), runUtilDemo});

} // namespace
} // namespace cktool
