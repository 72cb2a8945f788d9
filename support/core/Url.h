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
    /// The empty URL, which is not valid.
    Url() = default;
    /// Wraps url.
    explicit Url(const QUrl& url) : m_url(url) {}
    /// text parsed as a URL in QUrl's strict mode; malformed text gives an
    /// invalid URL.
    explicit Url(const QString& text);

    /// A local file path becomes a file: URL; anything else is parsed as a URL.
    /// A path is a text starting with "/", "./" or "../", or an absolute path
    /// of the platform (e.g. "C:/x" on Windows); it is cleaned first, and a
    /// relative one stays relative.
    static Url fromUserInput(const QString& text);

    /// Whether the URL is valid and not empty.
    bool isValid() const { return m_url.isValid() && !m_url.isEmpty(); }
    /// Whether it is a file: URL.
    bool isLocalFile() const { return m_url.isLocalFile(); }
    /// The scheme, e.g. "file" or "https"; empty for a relative reference.
    QString scheme() const { return m_url.scheme(); }
    /// The URL as text (QUrl::toString()).
    QString toString() const { return m_url.toString(); }
    /// The local path of a file: URL; empty for other URLs.
    QString toLocalFile() const { return m_url.toLocalFile(); }
    /// The wrapped QUrl.
    const QUrl& qUrl() const { return m_url; }

    /// relative resolved against this URL (RFC 3986).
    Url resolved(const Url& relative) const { return Url(m_url.resolved(relative.m_url)); }

    /// Whether the QUrls are equal.
    friend bool operator==(const Url& a, const Url& b) { return a.m_url == b.m_url; }
    /// Whether the QUrls differ.
    friend bool operator!=(const Url& a, const Url& b) { return !(a == b); }

private:
    QUrl m_url;
};

} // namespace ko
