#pragma once

#include <CommonKit/support/core/Export.h>

#include <boost/intrusive_ptr.hpp>

#include <QString>

#include <string>

namespace ko {

/// An immutable, reference-counted UTF-8 string. Copies share one buffer; the
/// count is atomic, so copies may live on different threads.
class COMMONKIT_EXPORT IntrusiveString
{
public:
    /// The empty string (no buffer).
    IntrusiveString();
    /// A copy of the NUL-terminated UTF-8 text; null is the empty string.
    IntrusiveString(const char* text);          // NOLINT: implicit by design
    /// A copy of the bytes of text (taken as UTF-8), embedded NULs included.
    IntrusiveString(const std::string& text);   // NOLINT
    /// The UTF-8 form of text.
    IntrusiveString(const QString& text);       // NOLINT

    /// The NUL-terminated bytes; valid while this string or a copy lives.
    const char* c_str() const;
    /// The number of bytes, without the terminating NUL.
    std::size_t size() const;
    /// Whether the string has no bytes.
    bool empty() const { return size() == 0; }

    /// A copy of the bytes.
    std::string toStdString() const;
    /// The bytes decoded from UTF-8.
    QString toQString() const;

    /// Whether both hold the same bytes.
    friend COMMONKIT_EXPORT bool operator==(const IntrusiveString& a, const IntrusiveString& b);
    /// Whether the bytes differ.
    friend bool operator!=(const IntrusiveString& a, const IntrusiveString& b) { return !(a == b); }

    /// The shared, counted buffer (defined in the library).
    struct Buffer;

private:
    boost::intrusive_ptr<Buffer> m_buffer;
};

/// Counts one more reference to buffer; called by boost::intrusive_ptr.
COMMONKIT_EXPORT void intrusive_ptr_add_ref(IntrusiveString::Buffer* buffer);
/// Drops one reference to buffer and frees it with the last; called by
/// boost::intrusive_ptr.
COMMONKIT_EXPORT void intrusive_ptr_release(IntrusiveString::Buffer* buffer);

} // namespace ko
