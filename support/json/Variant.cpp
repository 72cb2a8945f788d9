#include <CommonKit/support/json/Variant.h>

#include <CommonKit/support/json/JsonPrinter.h>
#include "support/json/VariantAccess_p.h"

#include <cmath>
#include <limits>

namespace json {

const Node& VariantAccess::node(const Variant& value)
{
    static const Node nullNode;
    return value.m_node ? *static_cast<const Node*>(value.m_node.get()) : nullNode;
}

Node& VariantAccess::mutableNode(Variant& value)
{
    if (!value.m_node)
        value.m_node = std::make_shared<Node>();
    else if (value.m_node.use_count() > 1)
        value.m_node = std::make_shared<Node>(*static_cast<const Node*>(value.m_node.get()));
    return *static_cast<Node*>(value.m_node.get());
}

Variant VariantAccess::make(Node&& node)
{
    Variant result;
    if (!node.is_null())
        result.m_node = std::make_shared<Node>(std::move(node));
    return result;
}

Variant VariantAccess::alias(const Variant& owner, const Node& child)
{
    Variant result;
    if (!child.is_null())
        result.m_node = std::shared_ptr<void>(owner.m_node, const_cast<Node*>(&child));
    return result;
}

namespace {

Variant fromNode(Node node)
{
    return VariantAccess::make(std::move(node));
}

template<typename T>
T fail(T fallback, bool* ok)
{
    if (ok)
        *ok = false;
    return fallback;
}

template<typename T>
T succeed(T value, bool* ok)
{
    if (ok)
        *ok = true;
    return value;
}

// Whole reals in [low, high) convert to integers.
bool wholeInRange(double value, double low, double high)
{
    return std::isfinite(value) && std::floor(value) == value && value >= low && value < high;
}

} // namespace

Variant::Variant(bool value) : Variant(fromNode(Node(value))) {}
Variant::Variant(int value) : Variant(fromNode(Node(static_cast<std::int64_t>(value)))) {}
Variant::Variant(long value) : Variant(fromNode(Node(static_cast<std::int64_t>(value)))) {}
Variant::Variant(long long value) : Variant(fromNode(Node(static_cast<std::int64_t>(value)))) {}
Variant::Variant(unsigned int value) : Variant(fromNode(Node(static_cast<std::uint64_t>(value)))) {}
Variant::Variant(unsigned long value) : Variant(fromNode(Node(static_cast<std::uint64_t>(value)))) {}
Variant::Variant(unsigned long long value) : Variant(fromNode(Node(static_cast<std::uint64_t>(value)))) {}
Variant::Variant(double value) : Variant(fromNode(Node(value))) {}
Variant::Variant(const char* text) : Variant(fromNode(Node(std::string(text ? text : "")))) {}
Variant::Variant(const char* text, std::size_t length) : Variant(fromNode(Node(std::string(text, length)))) {}
Variant::Variant(const std::string& text) : Variant(fromNode(Node(text))) {}

Variant::Type Variant::type() const
{
    const Node& node = VariantAccess::node(*this);
    switch (node.type()) {
    case Node::value_t::boolean:
        return Type::Boolean;
    case Node::value_t::number_integer:
    case Node::value_t::number_unsigned:
        return Type::Integer;
    case Node::value_t::number_float:
        return Type::Real;
    case Node::value_t::string:
        return Type::String;
    case Node::value_t::object:
        return Type::Object;
    case Node::value_t::array:
        return Type::List;
    default:
        return Type::Null;
    }
}

const char* Variant::typeName(Type type)
{
    switch (type) {
    case Type::Null:
        return "null";
    case Type::Boolean:
        return "boolean";
    case Type::Integer:
        return "integer";
    case Type::Real:
        return "real";
    case Type::String:
        return "string";
    case Type::Object:
        return "object";
    case Type::List:
        return "list";
    }
    return "null";
}

bool Variant::isUnsigned() const
{
    const Node& node = VariantAccess::node(*this);
    return node.is_number_unsigned()
        && node.get<std::uint64_t>() > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
}

bool Variant::toBool(bool fallback, bool* ok) const
{
    const Node& node = VariantAccess::node(*this);
    return node.is_boolean() ? succeed(node.get<bool>(), ok) : fail(fallback, ok);
}

std::int64_t Variant::toInt64(std::int64_t fallback, bool* ok) const
{
    const Node& node = VariantAccess::node(*this);
    if (node.is_number_unsigned()) {
        const auto value = node.get<std::uint64_t>();
        if (value <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
            return succeed(static_cast<std::int64_t>(value), ok);
        return fail(fallback, ok);
    }
    if (node.is_number_integer())
        return succeed(node.get<std::int64_t>(), ok);
    if (node.is_number_float() && wholeInRange(node.get<double>(), -9223372036854775808.0, 9223372036854775808.0))
        return succeed(static_cast<std::int64_t>(node.get<double>()), ok);
    return fail(fallback, ok);
}

std::uint64_t Variant::toUInt64(std::uint64_t fallback, bool* ok) const
{
    const Node& node = VariantAccess::node(*this);
    if (node.is_number_unsigned())
        return succeed(node.get<std::uint64_t>(), ok);
    if (node.is_number_integer()) {
        const auto value = node.get<std::int64_t>();
        return value >= 0 ? succeed(static_cast<std::uint64_t>(value), ok) : fail(fallback, ok);
    }
    if (node.is_number_float() && wholeInRange(node.get<double>(), 0.0, 18446744073709551616.0))
        return succeed(static_cast<std::uint64_t>(node.get<double>()), ok);
    return fail(fallback, ok);
}

double Variant::toDouble(double fallback, bool* ok) const
{
    const Node& node = VariantAccess::node(*this);
    if (node.is_number_float())
        return succeed(node.get<double>(), ok);
    if (node.is_number_unsigned())
        return succeed(static_cast<double>(node.get<std::uint64_t>()), ok);
    if (node.is_number_integer())
        return succeed(static_cast<double>(node.get<std::int64_t>()), ok);
    return fail(fallback, ok);
}

std::string Variant::toString(const std::string& fallback, bool* ok) const
{
    const Node& node = VariantAccess::node(*this);
    return node.is_string() ? succeed(node.get_ref<const std::string&>(), ok) : fail(fallback, ok);
}

std::size_t Variant::size() const
{
    const Node& node = VariantAccess::node(*this);
    return node.is_structured() ? node.size() : 0;
}

bool Variant::contains(const std::string& key) const
{
    const Node& node = VariantAccess::node(*this);
    return node.is_object() && node.contains(key);
}

Variant Variant::value(const std::string& key) const
{
    const Node& node = VariantAccess::node(*this);
    if (!node.is_object())
        return Variant();
    const auto found = node.find(key);
    return found == node.end() ? Variant() : VariantAccess::alias(*this, *found);
}

void Variant::set(const std::string& key, const Variant& value)
{
    if (!isNull() && !isObject())
        throw TypeError(std::string("json::Variant::set: the value is a ") + typeName(type()) + ", not an object");
    // Copy first: value may share this tree.
    Node copy = VariantAccess::node(value);
    Node& node = VariantAccess::mutableNode(*this);
    if (node.is_null())
        node = Node::object();
    node[key] = std::move(copy);
}

bool Variant::remove(const std::string& key)
{
    if (!contains(key))
        return false;
    VariantAccess::mutableNode(*this).erase(key);
    return true;
}

std::vector<std::string> Variant::keys() const
{
    std::vector<std::string> result;
    const Node& node = VariantAccess::node(*this);
    if (node.is_object()) {
        result.reserve(node.size());
        for (auto it = node.begin(); it != node.end(); ++it)
            result.push_back(it.key());
    }
    return result;
}

Variant Variant::at(std::size_t index) const
{
    const Node& node = VariantAccess::node(*this);
    if (!node.is_array() || index >= node.size())
        return Variant();
    return VariantAccess::alias(*this, node[index]);
}

namespace {

Node& listNode(Variant& variant, const char* operation)
{
    if (!variant.isNull() && !variant.isList())
        throw TypeError(std::string("json::Variant::") + operation + ": the value is a "
                        + Variant::typeName(variant.type()) + ", not a list");
    Node& node = VariantAccess::mutableNode(variant);
    if (node.is_null())
        node = Node::array();
    return node;
}

} // namespace

void Variant::append(const Variant& value)
{
    Node copy = VariantAccess::node(value);
    listNode(*this, "append").push_back(std::move(copy));
}

void Variant::setAt(std::size_t index, const Variant& value)
{
    Node copy = VariantAccess::node(value);
    Node& node = listNode(*this, "setAt");
    if (index >= node.size())
        node.get_ref<Node::array_t&>().resize(index + 1);
    node[index] = std::move(copy);
}

void Variant::resize(std::size_t size)
{
    listNode(*this, "resize").get_ref<Node::array_t&>().resize(size);
}

bool Variant::removeAt(std::size_t index)
{
    if (!isList() || index >= size())
        return false;
    VariantAccess::mutableNode(*this).erase(index);
    return true;
}

std::string Variant::toJson() const
{
    std::string text;
    JsonPrinter printer(&JsonPrinter::appendToString, &text);
    printer.setIndent(std::string());
    printer.print(*this);
    return text;
}

void Variant::attachSchema(const boost::intrusive_ptr<Schema>& schema)
{
    m_schema = schema;
}

bool operator==(const Variant& a, const Variant& b)
{
    return a.m_node == b.m_node || VariantAccess::node(a) == VariantAccess::node(b);
}

Object::Object()
{
    VariantAccess::mutableNode(*this) = Node::object();
}

Object::Object(const Variant& value) : Variant(value.isObject() ? value : Object()) {}

List::List()
{
    VariantAccess::mutableNode(*this) = Node::array();
}

List::List(const Variant& value) : Variant(value.isList() ? value : List()) {}

VariantIterator::VariantIterator(const Variant& value)
    : m_container(value.isComposite() ? value : Variant()), m_size(m_container.size())
{
}

bool VariantIterator::atEnd() const
{
    return m_index >= m_size;
}

void VariantIterator::next()
{
    if (m_index < m_size)
        ++m_index;
}

std::string VariantIterator::key() const
{
    const Node& node = VariantAccess::node(m_container);
    if (!node.is_object() || m_index >= m_size)
        return std::string();
    return (node.get_ref<const Node::object_t&>().begin() + static_cast<std::ptrdiff_t>(m_index))->first;
}

Variant VariantIterator::value() const
{
    const Node& node = VariantAccess::node(m_container);
    if (m_index >= m_size)
        return Variant();
    if (node.is_array())
        return VariantAccess::alias(m_container, node[m_index]);
    const auto& members = node.get_ref<const Node::object_t&>();
    return VariantAccess::alias(m_container, (members.begin() + static_cast<std::ptrdiff_t>(m_index))->second);
}

} // namespace json
