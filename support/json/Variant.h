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

COMMONKIT_EXPORT void intrusive_ptr_add_ref(const Schema* schema);
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
    enum class Type { Null, Boolean, Integer, Real, String, Object, List };

    Variant() = default;
    Variant(std::nullptr_t) {} // NOLINT: implicit by design
    Variant(bool value);       // NOLINT
    Variant(int value);        // NOLINT
    Variant(long value);       // NOLINT
    Variant(long long value);  // NOLINT
    Variant(unsigned int value);        // NOLINT
    Variant(unsigned long value);       // NOLINT
    Variant(unsigned long long value);  // NOLINT
    Variant(double value);              // NOLINT
    Variant(const char* text);          // NOLINT
    Variant(const char* text, std::size_t length);
    Variant(const std::string& text);   // NOLINT

    Variant(const Variant&) = default;
    Variant(Variant&&) noexcept = default;
    Variant& operator=(const Variant&) = default;
    Variant& operator=(Variant&&) noexcept = default;
    ~Variant() = default;

    Type type() const;
    static const char* typeName(Type type);

    bool isNull() const { return type() == Type::Null; }
    bool isBoolean() const { return type() == Type::Boolean; }
    bool isInteger() const { return type() == Type::Integer; }
    bool isReal() const { return type() == Type::Real; }
    bool isNumber() const { return isInteger() || isReal(); }
    bool isString() const { return type() == Type::String; }
    bool isObject() const { return type() == Type::Object; }
    bool isList() const { return type() == Type::List; }
    bool isComposite() const { return isObject() || isList(); }
    /// An integer stored unsigned: one above INT64_MAX, or one made from an
    /// unsigned C++ type.
    bool isUnsigned() const;

    /// Scalar values. Each returns its type's value, converts between the
    /// number types where the value fits, and otherwise returns the fallback
    /// and sets *ok to false.
    bool toBool(bool fallback = false, bool* ok = nullptr) const;
    std::int64_t toInt64(std::int64_t fallback = 0, bool* ok = nullptr) const;
    std::uint64_t toUInt64(std::uint64_t fallback = 0, bool* ok = nullptr) const;
    double toDouble(double fallback = 0.0, bool* ok = nullptr) const;
    /// The text of a string; the fallback for every other type.
    std::string toString(const std::string& fallback = std::string(), bool* ok = nullptr) const;

    /// Members of an object and elements of a list; 0 for scalars.
    std::size_t size() const;
    bool empty() const { return size() == 0; }

    /// Object access. Reading a member of a non-object or a missing member
    /// gives null. set() turns a null value into an empty object first and
    /// throws TypeError for any other non-object. A new member goes to the end;
    /// setting an existing one keeps its position.
    bool contains(const std::string& key) const;
    Variant value(const std::string& key) const;
    Variant operator[](const std::string& key) const { return value(key); }
    void set(const std::string& key, const Variant& value);
    bool remove(const std::string& key);
    std::vector<std::string> keys() const;

    /// List access. at() gives null outside the list. append(), setAt() and
    /// resize() turn a null value into an empty list first and throw TypeError
    /// for any other non-list; setAt() and resize() fill with nulls.
    Variant at(std::size_t index) const;
    Variant operator[](std::size_t index) const { return at(index); }
    void append(const Variant& value);
    void setAt(std::size_t index, const Variant& value);
    void resize(std::size_t size);
    bool removeAt(std::size_t index);

    /// Compact JSON text (no blanks, no line breaks); JsonPrinter gives other
    /// forms.
    std::string toJson() const;

    /// Deep comparison. Numbers compare by value across integer and real;
    /// objects compare member by member in order, so the order of keys counts.
    friend COMMONKIT_EXPORT bool operator==(const Variant& a, const Variant& b);
    friend bool operator!=(const Variant& a, const Variant& b) { return !(a == b); }

    /// The schema that describes this value, for converters that ask it how
    /// to read the value (Schema::member() and items() describe the parts).
    /// Copies of the Variant carry it along; members and elements read from
    /// it do not, and it takes no part in comparisons. Null by default.
    void attachSchema(const boost::intrusive_ptr<Schema>& schema);
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
    Object();
    explicit Object(const Variant& value);
};

/// A Variant that is always a list. Made from a Variant that is not a list it
/// is an empty list.
class COMMONKIT_EXPORT List : public Variant
{
public:
    List();
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
    explicit VariantIterator(const Variant& value);

    bool atEnd() const;
    void next();
    VariantIterator& operator++()
    {
        next();
        return *this;
    }

    /// The member's key (empty for list elements).
    std::string key() const;
    /// The position of the member or element, from 0.
    std::size_t index() const { return m_index; }
    Variant value() const;

private:
    Variant m_container;
    std::size_t m_index = 0;
    std::size_t m_size = 0;
};

} // namespace json
