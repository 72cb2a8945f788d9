#pragma once

#include <CommonKit/support/core/Export.h>

#include <boost/intrusive_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace json {

class Object;
class List;
class VariantIterator;
class Schema;

/// Counts one more Schema::Ptr to schema (declared again in Schema.h).
COMMONKIT_EXPORT void intrusive_ptr_add_ref(const Schema* schema);
/// Counts one Schema::Ptr less (declared again in Schema.h).
COMMONKIT_EXPORT void intrusive_ptr_release(const Schema* schema);

/// Thrown when a Variant is used as a type it does not have, for example when
/// a member is set on a string.
class COMMONKIT_EXPORT TypeError : public std::logic_error
{
public:
    using std::logic_error::logic_error;
};

/// A JSON value: null, boolean, integer, real, string, object or list.
///
/// Integers keep their exact 64-bit value, signed or unsigned (an integer
/// above INT64_MAX is stored unsigned). Objects keep their members in the
/// order in which they were first set.
///
/// Variants have value semantics with cheap copies: a copy shares the tree
/// until one of them is changed (copy on write), and a member or element read
/// from a value shares that part of the tree in the same way. A Variant may be
/// read from several threads at once; changing one needs the usual exclusion.
class COMMONKIT_EXPORT Variant
{
public:
    /// The kinds of JSON value.
    enum class Type {
        Null,    ///< null (also a default-made Variant)
        Boolean, ///< true or false
        Integer, ///< a whole number, signed or unsigned 64-bit
        Real,    ///< a double
        String,  ///< UTF-8 text
        Object,  ///< members by key, in the order first set
        List,    ///< elements by index
    };

    /// Null.
    Variant() = default;
    /// Null.
    Variant(std::nullptr_t) {} // NOLINT: implicit by design
    /// A boolean.
    Variant(bool value); // NOLINT
    /// A signed integer.
    Variant(int value); // NOLINT
    /// A signed integer.
    Variant(long value); // NOLINT
    /// A signed integer.
    Variant(long long value); // NOLINT
    /// An integer stored unsigned (see isUnsigned()).
    Variant(unsigned int value); // NOLINT
    /// An integer stored unsigned (see isUnsigned()).
    Variant(unsigned long value); // NOLINT
    /// An integer stored unsigned (see isUnsigned()).
    Variant(unsigned long long value); // NOLINT
    /// A real.
    Variant(double value); // NOLINT
    /// A string from NUL-terminated UTF-8 text; empty for a null pointer.
    Variant(const char* text); // NOLINT
    /// A string from length bytes of UTF-8 text (which may hold NULs).
    Variant(const char* text, std::size_t length);
    /// A string from UTF-8 text.
    Variant(const std::string& text); // NOLINT

    /// Shares other's tree until one of them changes.
    Variant(const Variant& other) = default;
    /// Takes other's tree.
    Variant(Variant&& other) noexcept = default;
    /// Shares other's tree until one of them changes.
    Variant& operator=(const Variant& other) = default;
    /// Takes other's tree.
    Variant& operator=(Variant&& other) noexcept = default;
    ~Variant() = default;

    /// The kind of value held.
    Type type() const;
    /// The name of a type for messages: "null", "boolean", "integer",
    /// "real", "string", "object" or "list".
    static const char* typeName(Type type);

    /// type() == Type::Null.
    bool isNull() const { return type() == Type::Null; }
    /// type() == Type::Boolean.
    bool isBoolean() const { return type() == Type::Boolean; }
    /// type() == Type::Integer.
    bool isInteger() const { return type() == Type::Integer; }
    /// type() == Type::Real.
    bool isReal() const { return type() == Type::Real; }
    /// An integer or a real.
    bool isNumber() const { return isInteger() || isReal(); }
    /// type() == Type::String.
    bool isString() const { return type() == Type::String; }
    /// type() == Type::Object.
    bool isObject() const { return type() == Type::Object; }
    /// type() == Type::List.
    bool isList() const { return type() == Type::List; }
    /// An object or a list.
    bool isComposite() const { return isObject() || isList(); }
    /// An integer stored unsigned: one above INT64_MAX, or one made from an
    /// unsigned C++ type.
    bool isUnsigned() const;

    /// Scalar values. Each returns its type's value, converts between the
    /// number types where the value fits, and otherwise returns the fallback
    /// and sets *ok to false.
    bool toBool(bool fallback = false, bool* ok = nullptr) const;
    /// An integer, or a real with a whole value, in the signed 64-bit range.
    std::int64_t toInt64(std::int64_t fallback = 0, bool* ok = nullptr) const;
    /// An integer, or a real with a whole value, in the unsigned 64-bit range.
    std::uint64_t toUInt64(std::uint64_t fallback = 0, bool* ok = nullptr) const;
    /// A real, or an integer as the nearest double.
    double toDouble(double fallback = 0.0, bool* ok = nullptr) const;
    /// The text of a string; the fallback for every other type.
    std::string toString(const std::string& fallback = std::string(), bool* ok = nullptr) const;

    /// Members of an object and elements of a list; 0 for scalars.
    std::size_t size() const;
    /// size() == 0: an empty object or list, or a scalar.
    bool empty() const { return size() == 0; }

    /// Object access. Reading a member of a non-object or a missing member
    /// gives null. set() turns a null value into an empty object first and
    /// throws TypeError for any other non-object. A new member goes to the end;
    /// setting an existing one keeps its position.
    bool contains(const std::string& key) const;
    /// The member named key; null when there is none.
    Variant value(const std::string& key) const;
    /// value(key).
    Variant operator[](const std::string& key) const { return value(key); }
    /// Sets the member named key to value (see above for non-objects).
    void set(const std::string& key, const Variant& value);
    /// Removes the member named key; false when there was none.
    bool remove(const std::string& key);
    /// The member names in order; empty for anything but an object.
    std::vector<std::string> keys() const;

    /// List access. at() gives null outside the list. append(), setAt() and
    /// resize() turn a null value into an empty list first and throw TypeError
    /// for any other non-list; setAt() and resize() fill with nulls.
    Variant at(std::size_t index) const;
    /// at(index).
    Variant operator[](std::size_t index) const { return at(index); }
    /// Adds value as the last element.
    void append(const Variant& value);
    /// Sets the element at index, growing the list to reach it.
    void setAt(std::size_t index, const Variant& value);
    /// Cuts the list to size elements or grows it with nulls.
    void resize(std::size_t size);
    /// Removes the element at index (later ones move up); false when index
    /// is outside the list.
    bool removeAt(std::size_t index);

    /// Compact JSON text (no blanks, no line breaks); JsonPrinter gives other
    /// forms.
    std::string toJson() const;

    /// Deep comparison. Numbers compare by value across integer and real;
    /// objects compare member by member in order, so the order of keys counts.
    friend COMMONKIT_EXPORT bool operator==(const Variant& a, const Variant& b);
    /// !(a == b).
    friend bool operator!=(const Variant& a, const Variant& b) { return !(a == b); }

    /// The schema that describes this value, for converters that ask it how
    /// to read the value (Schema::member() and items() describe the parts).
    /// Copies of the Variant carry it along; members and elements read from
    /// it do not, and it takes no part in comparisons. Null by default.
    void attachSchema(const boost::intrusive_ptr<Schema>& schema);
    /// The schema attached with attachSchema(); null when there is none.
    const boost::intrusive_ptr<Schema>& schema() const { return m_schema; }

private:
    friend struct VariantAccess;
    /// The value as an nlohmann::ordered_json, shared copy on write; empty
    /// for null.
    std::shared_ptr<void> m_node;
    boost::intrusive_ptr<Schema> m_schema;
};

/// A Variant that is always an object. Made from a Variant that is not an
/// object it is an empty object.
class COMMONKIT_EXPORT Object : public Variant
{
public:
    /// An empty object.
    Object();
    /// value when it is an object (sharing its tree), else an empty object.
    explicit Object(const Variant& value);
};

/// A Variant that is always a list. Made from a Variant that is not a list it
/// is an empty list.
class COMMONKIT_EXPORT List : public Variant
{
public:
    /// An empty list.
    List();
    /// value when it is a list (sharing its tree), else an empty list.
    explicit List(const Variant& value);
};

/// Walks the members of an object or the elements of a list:
///     for (json::VariantIterator it(value); !it.atEnd(); it.next())
///         use(it.key(), it.value());
/// The iterator holds its own copy of the value, so changing the original
/// while iterating is safe (the iterator keeps seeing the old value). A scalar
/// has nothing to walk.
class COMMONKIT_EXPORT VariantIterator
{
public:
    /// Starts at the first member or element of value.
    explicit VariantIterator(const Variant& value);

    /// Whether every member or element has been visited.
    bool atEnd() const;
    /// Moves to the next member or element.
    void next();
    /// next().
    VariantIterator& operator++()
    {
        next();
        return *this;
    }

    /// The member's key (empty for list elements).
    std::string key() const;
    /// The position of the member or element, from 0.
    std::size_t index() const { return m_index; }
    /// The member's or element's value (null at the end).
    Variant value() const;

private:
    Variant m_container;
    std::size_t m_index = 0;
    std::size_t m_size = 0;
};

} // namespace json
