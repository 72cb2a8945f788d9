#include <CommonKit/util/FourChars.h>

#include <QTextStream>
#include <QtEndian>

namespace ko {

FourChars::FourChars(const QString& text) : FourChars(QStringRef(&text))
{
}

FourChars::FourChars(const QStringRef& text) : m_value(0)
{
    // As text.toLatin1() (a character beyond Latin-1 becomes '?') padded
    // with blanks, byte by byte.
    for (int i = 0; i < 4; ++i) {
        const ushort c = i < text.size() ? text.at(i).unicode() : ushort(' ');
        m_value = (m_value << 8) | (c > 0xff ? unsigned('?') : unsigned(c));
    }
}

FourChars::FourChars(const char* text) : m_value(0)
{
    QByteArray bytes(text ? text : "");
    initFourChars(bytes);
}

FourChars::FourChars(const QString* text) : m_value(0)
{
    if (text)
        *this = FourChars(*text);
}

void FourChars::initFourChars(QByteArray& bytes)
{
    while (bytes.size() < 4)
        bytes.append(' ');
    m_value = qFromBigEndian<quint32>(bytes.constData());
}

QString FourChars::toString() const
{
    char bytes[4];
    qToBigEndian<quint32>(m_value, bytes);
    return QString::fromLatin1(bytes, 4);
}

void FourChars::writeTo(QTextStream& stream) const
{
    stream << toString();
}

} // namespace ko
