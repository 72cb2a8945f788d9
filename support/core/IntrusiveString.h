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
    IntrusiveString();
    IntrusiveString(const char* text);          // NOLINT: implicit by design
    IntrusiveString(const std::string& text);   // NOLINT
    IntrusiveString(const QString& text);       // NOLINT

    const char* c_str() const;
    std::size_t size() const;
    bool empty() const { return size() == 0; }

    std::string toStdString() const;
    QString toQString() const;

    friend COMMONKIT_EXPORT bool operator==(const IntrusiveString& a, const IntrusiveString& b);
    friend bool operator!=(const IntrusiveString& a, const IntrusiveString& b) { return !(a == b); }

    struct Buffer;

private:
    boost::intrusive_ptr<Buffer> m_buffer;
};

COMMONKIT_EXPORT void intrusive_ptr_add_ref(IntrusiveString::Buffer* buffer);
COMMONKIT_EXPORT void intrusive_ptr_release(IntrusiveString::Buffer* buffer);

} // namespace ko
