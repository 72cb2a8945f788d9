#include "support/json/NodeBuilder_p.h"

#include <unordered_map>
#include <utility>
#include <vector>

namespace json {
namespace {

// The members of an object while it is being read. The ordered object keeps
// them as pairs with a const key, which its vector copies (deeply, values
// included) instead of moving whenever it grows; gathered here they move, and
// they go into the object once, at its end, into exactly the room they need.
// The builder finds repeated keys itself (a short search, or a hash index for
// larger objects), so the ordered map's linear search is skipped too.
using Members = std::vector<std::pair<std::string, Node>>;

class Builder : public nlohmann::json_sax<Node>
{
public:
    explicit Builder(Node* root) : m_root(root) {}

    bool null() override { return place(Node(nullptr)); }
    bool boolean(bool value) override { return place(Node(value)); }
    bool number_integer(number_integer_t value) override { return place(Node(value)); }
    bool number_unsigned(number_unsigned_t value) override { return place(Node(value)); }
    bool number_float(number_float_t value, const string_t&) override { return place(Node(value)); }
    bool string(string_t& value) override { return place(Node(std::move(value))); }
    bool binary(binary_t& value) override { return place(Node::binary(std::move(value))); }

    bool start_object(std::size_t) override { return open(Node::object()); }
    bool key(string_t& value) override
    {
        m_key = std::move(value);
        return true;
    }
    bool end_object() override { return close(); }
    bool start_array(std::size_t) override { return open(Node::array()); }
    bool end_array() override { return close(); }

    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception& failure) override
    {
        m_error = failure.what();
        return false;
    }

    const std::string& error() const { return m_error; }

private:
    // Objects of fewer members are searched from the front; from this size on
    // they get a hash index, so that large ones stay linear to build.
    static constexpr std::size_t k_indexFrom = 16;

    struct Open
    {
        Node* node;
        Members members;                                     // objects: the members read so far
        std::unordered_map<std::string, std::size_t> index; // larger objects: key to position

        // The position of the member named key, or members.size().
        std::size_t find(const Members& members, const std::string& key) const
        {
            if (!index.empty()) {
                const auto found = index.find(key);
                return found == index.end() ? members.size() : found->second;
            }
            for (std::size_t i = 0; i < members.size(); ++i) {
                if (members[i].first == key)
                    return i;
            }
            return members.size();
        }
    };

    Node* placed(Node&& value)
    {
        if (m_open.empty()) {
            *m_root = std::move(value);
            return m_root;
        }
        Open& parent = m_open.back();
        if (parent.node->is_array()) {
            auto& elements = parent.node->get_ref<Node::array_t&>();
            elements.push_back(std::move(value));
            return &elements.back();
        }
        Members& members = parent.members;
        const std::size_t existing = parent.find(members, m_key);
        if (existing != members.size()) {
            members[existing].second = std::move(value);
            return &members[existing].second;
        }
        if (!parent.index.empty() || members.size() + 1 >= k_indexFrom) {
            if (parent.index.empty()) {
                for (std::size_t i = 0; i < members.size(); ++i)
                    parent.index.emplace(members[i].first, i);
            }
            parent.index.emplace(m_key, members.size());
        }
        members.emplace_back(std::move(m_key), std::move(value));
        return &members.back().second;
    }

    bool place(Node&& value)
    {
        placed(std::move(value));
        return true;
    }

    bool open(Node&& container)
    {
        m_open.push_back(Open{placed(std::move(container)), {}, {}});
        return true;
    }

    bool close()
    {
        Open& done = m_open.back();
        if (done.node->is_object()) {
            auto& object = done.node->get_ref<Node::object_t&>();
            object.reserve(done.members.size());
            for (auto& member : done.members)
                object.emplace_back(std::move(member.first), std::move(member.second));
        }
        m_open.pop_back();
        return true;
    }

    Node* m_root;
    std::vector<Open> m_open;
    std::string m_key;
    std::string m_error;
};

} // namespace

bool buildNode(const std::string& text, Node* result, std::string* error)
{
    Node built;
    Builder builder(&built);
    if (!Node::sax_parse(text, &builder, nlohmann::detail::input_format_t::json, true, false)) {
        *error = builder.error();
        return false;
    }
    *result = std::move(built);
    return true;
}

} // namespace json
