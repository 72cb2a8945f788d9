#pragma once

#include <CommonKit/support/core/Export.h>

#include <QString>
#include <QUrl>

namespace ko {

/// A URL value; a thin wrapper over QUrl that resolves file paths and relative
/// references the way the library's resource lookups need.
class COMMONKIT_EXPORT Url
{
public:
    Url() = default;
    explicit Url(const QUrl& url) : m_url(url) {}
    explicit Url(const QString& text);

    /// A local file path becomes a file: URL; anything else is parsed as a URL.
    static Url fromUserInput(const QString& text);

    bool isValid() const { return m_url.isValid() && !m_url.isEmpty(); }
    bool isLocalFile() const { return m_url.isLocalFile(); }
    QString scheme() const { return m_url.scheme(); }
    QString toString() const { return m_url.toString(); }
    QString toLocalFile() const { return m_url.toLocalFile(); }
    const QUrl& qUrl() const { return m_url; }

    /// relative resolved against this URL (RFC 3986).
    Url resolved(const Url& relative) const { return Url(m_url.resolved(relative.m_url)); }

    friend bool operator==(const Url& a, const Url& b) { return a.m_url == b.m_url; }
    friend bool operator!=(const Url& a, const Url& b) { return !(a == b); }

private:
    QUrl m_url;
};

} // namespace ko
