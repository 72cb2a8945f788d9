#pragma once

#include <CommonKit/support/core/Export.h>

#include <QByteArray>
#include <QString>

#include <type_traits>

class QTextStream;

namespace ko {

/// A four-character code packed into 32 bits, first character in the most
/// significant byte: FourChars("Time") == 0x54696D65. Shorter texts are padded
/// with blanks, longer ones keep their first four characters.
class COMMONKIT_EXPORT FourChars
{
public:
    /// The code 0 (four NUL bytes).
    FourChars() : m_value(0) {}
    /// The code with this packed value.
    FourChars(unsigned int value) : m_value(value) {}  // NOLINT: implicit by design
    /// Any other integer is taken as its unsigned 32-bit value. Without this
    /// a literal 0 would fit the unsigned and the text pointer constructors
    /// equally well, and `FourChars c = 0;` would not compile.
    template <typename Integer, std::enable_if_t<std::is_integral<Integer>::value, int> = 0>
    FourChars(Integer value) : m_value(static_cast<unsigned int>(value)) {}  // NOLINT
    /// The code of the first four characters of text, taken as Latin-1
    /// (other characters become '?'); padded with blanks.
    FourChars(const QString& text);                     // NOLINT
    /// The code of the first four bytes of a NUL-terminated Latin-1 text;
    /// padded with blanks. A null pointer gives four blanks.
    FourChars(const char* text);                        // NOLINT: Latin-1 text
    /// As the QString constructor, without copying the text (a reader's
    /// attribute).
    explicit FourChars(const QStringRef& text);
    /// As the QString constructor; a null pointer leaves the code 0.
    explicit FourChars(const QString* text);
    /// Copies the code.
    FourChars(const FourChars& other) = default;
    /// Assigns the code.
    FourChars& operator=(const FourChars& other) = default;

    /// The packed 32-bit value.
    operator unsigned int() const { return m_value; }

    /// The four bytes, most significant first, as Latin-1 characters.
    QString toString() const;
    /// Writes toString() to stream.
    void writeTo(QTextStream& stream) const;

protected:
    /// Sets the code from the first four bytes, padding bytes with blanks to
    /// four first (bytes is changed).
    void initFourChars(QByteArray& bytes);

private:
    unsigned int m_value;
};

} // namespace ko
