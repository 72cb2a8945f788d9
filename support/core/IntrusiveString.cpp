#include <CommonKit/support/core/IntrusiveString.h>

#include <atomic>
#include <cstring>
#include <new>

namespace ko {

// Header followed by the bytes and a terminating zero, in one allocation.
struct IntrusiveString::Buffer
{
    std::atomic<long> refs{0};
    std::size_t size = 0;

    char* data() { return reinterpret_cast<char*>(this + 1); }

    static Buffer* create(const char* bytes, std::size_t size)
    {
        void* memory = ::operator new(sizeof(Buffer) + size + 1);
        auto* buffer = new (memory) Buffer;
        buffer->size = size;
        if (size)
            std::memcpy(buffer->data(), bytes, size);
        buffer->data()[size] = '\0';
        return buffer;
    }
};

void intrusive_ptr_add_ref(IntrusiveString::Buffer* buffer)
{
    buffer->refs.fetch_add(1, std::memory_order_relaxed);
}

void intrusive_ptr_release(IntrusiveString::Buffer* buffer)
{
    if (buffer->refs.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        buffer->~Buffer();
        ::operator delete(buffer);
    }
}

IntrusiveString::IntrusiveString() = default;

IntrusiveString::IntrusiveString(const char* text)
{
    if (text && *text)
        m_buffer = Buffer::create(text, std::strlen(text));
}

IntrusiveString::IntrusiveString(const std::string& text)
{
    if (!text.empty())
        m_buffer = Buffer::create(text.data(), text.size());
}

IntrusiveString::IntrusiveString(const QString& text)
    : IntrusiveString(text.toStdString())
{
}

const char* IntrusiveString::c_str() const
{
    return m_buffer ? m_buffer->data() : "";
}

std::size_t IntrusiveString::size() const
{
    return m_buffer ? m_buffer->size : 0;
}

std::string IntrusiveString::toStdString() const
{
    return std::string(c_str(), size());
}

QString IntrusiveString::toQString() const
{
    return QString::fromUtf8(c_str(), static_cast<int>(size()));
}

bool operator==(const IntrusiveString& a, const IntrusiveString& b)
{
    return a.size() == b.size() && std::memcmp(a.c_str(), b.c_str(), a.size()) == 0;
}

} // namespace ko
