#include <CommonKit/support/json/Path.h>

#include <CommonKit/support/json/Variant.h>
#include "support/json/VariantAccess_p.h"

#include <algorithm>

namespace json {

Path::Path(const std::string& text, char separator)
{
    setPath(text, separator);
}

void Path::setPath(const std::string& text, char separator)
{
    m_segments.clear();
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find(separator, start);
        if (end == std::string::npos)
            end = text.size();
        if (end > start)
            m_segments.push_back(text.substr(start, end - start));
        start = end + 1;
    }
}

std::string Path::toString(char separator) const
{
    std::string text;
    for (std::size_t i = 0; i < m_segments.size(); ++i) {
        if (i > 0)
            text += separator;
        text += m_segments[i];
    }
    return text;
}

bool Path::fromJsonPointer(const std::string& pointer, Path* path)
{
    std::vector<std::string> segments;
    if (!pointer.empty() && pointer[0] != '/')
        return false;
    for (std::size_t i = 0; i < pointer.size(); ++i) {
        const char c = pointer[i];
        if (c == '/')
            segments.emplace_back();
        else if (c != '~')
            segments.back() += c;
        else if (i + 1 < pointer.size() && (pointer[i + 1] == '0' || pointer[i + 1] == '1'))
            segments.back() += pointer[++i] == '0' ? '~' : '/';
        else
            return false;
    }
    path->m_segments = std::move(segments);
    return true;
}

std::string Path::toJsonPointer() const
{
    std::string pointer;
    for (const std::string& segment : m_segments) {
        pointer += '/';
        for (const char c : segment) {
            if (c == '~')
                pointer += "~0";
            else if (c == '/')
                pointer += "~1";
            else
                pointer += c;
        }
    }
    return pointer;
}

void Path::removeLast()
{
    if (!m_segments.empty())
        m_segments.pop_back();
}

Path Path::parent() const
{
    Path result(*this);
    result.removeLast();
    return result;
}

bool Path::listIndex(const std::string& segment, std::size_t* index) const
{
    // Up to nine digits: enough for k_maxIndex and free of overflow.
    if (segment.empty() || segment.size() > 9)
        return false;
    std::size_t value = 0;
    for (const char c : segment) {
        if (c < '0' || c > '9')
            return false;
        value = value * 10 + static_cast<std::size_t>(c - '0');
    }
    if (value < m_base)
        return false;
    if (index)
        *index = value - m_base;
    return true;
}

namespace {

// The child of node that segment names, or null when there is none.
const Node* child(const Path& path, const Node& node, const std::string& segment)
{
    if (node.is_object()) {
        const auto found = node.find(segment);
        return found == node.end() ? nullptr : &*found;
    }
    std::size_t index = 0;
    if (node.is_array() && path.listIndex(segment, &index) && index < node.size())
        return &node[index];
    return nullptr;
}

// Whether set() can make a place for segment inside node (which exists).
bool canEnter(const Path& path, const Node& node, const std::string& segment)
{
    std::size_t index = 0;
    // A null place becomes a list as long as the index asks for.
    if (node.is_null())
        return !path.autoArrayIndex() || !path.listIndex(segment, &index) || index <= Path::k_maxIndex;
    if (node.is_object())
        return true;
    if (!node.is_array() || !path.listIndex(segment, &index) || index > Path::k_maxIndex)
        return false;
    return index < node.size() || path.autoArrayIndex();
}

// Appends a member named key to an object that has none of that name. The
// object's vector would copy every member, values deeply, whenever it grows
// (its keys are const, so the pairs cannot move); the room is made here with
// the values moved instead.
Node& appendMember(Node& object, const std::string& key)
{
    auto& members = object.get_ref<Node::object_t&>();
    if (members.size() == members.capacity()) {
        Node::object_t grown;
        grown.reserve(std::max<std::size_t>(4, members.capacity() * 2));
        for (auto& existing : members)
            grown.emplace_back(existing.first, std::move(existing.second));
        members.swap(grown);
    }
    members.emplace_back(key, Node());
    return members.back().second;
}

// Makes the place for segment inside node, where there is none yet (a null
// node becomes a list or an object first).
Node& create(const Path& path, Node& node, const std::string& segment)
{
    std::size_t index = 0;
    if (node.is_null())
        node = path.autoArrayIndex() && path.listIndex(segment, &index) ? Node::array() : Node::object();
    if (node.is_object())
        return appendMember(node, segment);
    path.listIndex(segment, &index);
    node.get_ref<Node::array_t&>().resize(index + 1);
    return node[index];
}

} // namespace

bool Path::locate(const Variant& root, Variant* found) const
{
    const Node* node = &VariantAccess::node(root);
    for (const std::string& segment : m_segments) {
        node = child(*this, *node, segment);
        if (!node)
            return false;
    }
    if (found)
        *found = VariantAccess::alias(root, *node);
    return true;
}

std::vector<Variant> Path::trail(const Variant& root) const
{
    std::vector<Variant> values{root};
    const Node* node = &VariantAccess::node(root);
    for (const std::string& segment : m_segments) {
        node = child(*this, *node, segment);
        if (!node)
            break;
        values.push_back(VariantAccess::alias(root, *node));
    }
    return values;
}

Variant Path::value(const Variant& root) const
{
    Variant result;
    locate(root, &result);
    return result;
}

bool Path::set(Variant& root, const Variant& value) const
{
    Node copy = VariantAccess::node(value); // before root changes: value may share it
    Node* node = &VariantAccess::mutableNode(root);
    // Check the whole way first, so that a failure changes nothing. The
    // places that exist are found on the way and not searched again.
    static const Node fresh;
    const Node* at = node;
    std::size_t found = 0; // the leading segments whose places exist
    for (const std::string& segment : m_segments) {
        if (!canEnter(*this, *at, segment))
            return false;
        const Node* next = at == &fresh ? nullptr : child(*this, *at, segment);
        if (next) {
            node = const_cast<Node*>(next); // inside the root made mutable above
            ++found;
        }
        at = next ? next : &fresh; // everything below is created
    }
    for (std::size_t i = found; i < m_segments.size(); ++i)
        node = &create(*this, *node, m_segments[i]);
    *node = std::move(copy);
    return true;
}

bool Path::remove(Variant& root) const
{
    if (m_segments.empty() || !locate(root))
        return false;
    Node* node = &VariantAccess::mutableNode(root);
    for (std::size_t i = 0; i + 1 < m_segments.size(); ++i)
        node = const_cast<Node*>(child(*this, *node, m_segments[i]));
    const std::string& last = m_segments.back();
    if (node->is_object()) {
        node->erase(last);
    } else {
        std::size_t index = 0;
        listIndex(last, &index);
        node->erase(index);
    }
    return true;
}

} // namespace json
