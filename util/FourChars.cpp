#include <CommonKit/util/FourChars.h>

#include <QTextStream>
#include <QtEndian>

namespace ko {

FourChars::FourChars(const QString& text) : m_value(0)
{
    QByteArray bytes = text.toLatin1();
    initFourChars(bytes);
}

FourChars::FourChars(const char* text) : m_value(0)
{
    QByteArray bytes(text ? text : "");
    initFourChars(bytes);
}

FourChars::FourChars(const QString* text) : m_value(0)
{
    if (text) {
        QByteArray bytes = text->toLatin1();
        initFourChars(bytes);
    }
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
