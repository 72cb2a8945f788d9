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
    FourChars() : m_value(0) {}
    FourChars(unsigned int value) : m_value(value) {}  // NOLINT: implicit by design
    /// Any other integer is taken as its unsigned 32-bit value. Without this
    /// a literal 0 would fit the unsigned and the text pointer constructors
    /// equally well, and `FourChars c = 0;` would not compile.
    template <typename Integer, std::enable_if_t<std::is_integral<Integer>::value, int> = 0>
    FourChars(Integer value) : m_value(static_cast<unsigned int>(value)) {}  // NOLINT
    FourChars(const QString& text);                     // NOLINT
    FourChars(const char* text);                        // NOLINT: Latin-1 text
    /// As the QString form, without copying the text (a reader's attribute).
    explicit FourChars(const QStringRef& text);
    /// A null pointer leaves the code 0.
    explicit FourChars(const QString* text);
    FourChars(const FourChars& other) = default;
    FourChars& operator=(const FourChars& other) = default;

    operator unsigned int() const { return m_value; }

    /// The four bytes, most significant first, as Latin-1 characters.
    QString toString() const;
    void writeTo(QTextStream& stream) const;

protected:
    void initFourChars(QByteArray& bytes);

private:
    unsigned int m_value;
};

} // namespace ko
