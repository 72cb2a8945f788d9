#include <CommonKit/support/core/Url.h>

#include <QDir>

namespace ko {

Url::Url(const QString& text) : m_url(text, QUrl::StrictMode) {}

Url Url::fromUserInput(const QString& text)
{
    const bool looksLikePath = text.startsWith(QLatin1Char('/')) || text.startsWith(QLatin1String("./"))
        || text.startsWith(QLatin1String("../")) || QDir::isAbsolutePath(text);
    if (looksLikePath)
        return Url(QUrl::fromLocalFile(QDir::cleanPath(text)));
    return Url(QUrl(text, QUrl::StrictMode));
}

} // namespace ko
