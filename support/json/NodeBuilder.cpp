#include "support/json/NodeBuilder_p.h"
#include "support/json/TextClasses_p.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace json {
namespace {

// The members of an object while it is being read. The ordered object keeps
// them as pairs with a const key, which its vector copies (deeply, values
// included) instead of moving whenever it grows; gathered here they move, and
// they go into the object once, at its end, into exactly the room they need.
// Repeated keys are found here (a short search, or a hash index for larger
// objects), so the ordered map's linear search is skipped too.
using Members = std::vector<std::pair<std::string, Node>>;

// Puts values in their places in the tree under construction.
class Assembler
{
public:
    explicit Assembler(Node* root) : m_root(root) {}

    bool inObject() const { return m_open[m_depth - 1].node->is_object(); }
    bool nested() const { return m_depth > 0; }
    std::string& key() { return m_key; }

    void place(Node&& value) { placed(std::move(value)); }

    // The containers being filled are kept, with the room their member lists
    // grew, when they close: the next container at that depth reuses it.
    void open(Node&& container)
    {
        Node* node = placed(std::move(container));
        if (m_depth == m_open.size())
            m_open.emplace_back();
        Open& opened = m_open[m_depth++];
        opened.node = node;
        opened.members.clear();
        if (!opened.index.empty())
            opened.index = {};
    }

    void close()
    {
        Open& done = m_open[--m_depth];
        if (done.node->is_object()) {
            auto& object = done.node->get_ref<Node::object_t&>();
            object.reserve(done.members.size());
            for (auto& member : done.members)
                object.emplace_back(std::move(member.first), std::move(member.second));
        }
    }

private:
    // Objects of fewer members are searched from the front; from this size on
    // they get a hash index, so that large ones stay linear to build.
    static constexpr std::size_t k_indexFrom = 16;

    struct Open
    {
        Node* node = nullptr;
        Members members;                                     // objects: the members read so far
        std::unordered_map<std::string, std::size_t> index; // larger objects: key to position

        // The position of the member named key, or members.size().
        std::size_t find(const std::string& key) const
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

    // A repeated key keeps its first place and takes the last value.
    Node* placed(Node&& value)
    {
        if (m_depth == 0) {
            *m_root = std::move(value);
            return m_root;
        }
        Open& parent = m_open[m_depth - 1];
        if (parent.node->is_array()) {
            auto& elements = parent.node->get_ref<Node::array_t&>();
            elements.push_back(std::move(value));
            return &elements.back();
        }
        Members& members = parent.members;
        const std::size_t existing = parent.find(m_key);
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

    Node* m_root;
    std::vector<Open> m_open; // the first m_depth are open, outermost first
    std::size_t m_depth = 0;
    std::string m_key;
};

void appendUtf8(std::string& out, std::uint32_t code)
{
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

// Reads the values of a text the syntax checker has accepted, in one pass
// without a second check: every token is known to be well formed, so each
// loop only looks for where its token ends. Integers become signed (negative)
// or unsigned (otherwise) 64-bit values when they fit, and reals otherwise;
// reals are read correctly rounded. A real beyond the range of a double is
// the one thing the checker cannot know about, and is refused.
class Reader
{
public:
    Reader(const std::string& text, Node* root)
        : m_p(text.data()), m_end(text.data() + text.size()), m_tree(root)
    {
    }

    bool read(std::string* error)
    {
        for (;;) {
            skipSpace();
            const Step step = value(error);
            if (step == Step::Failed)
                return false;
            if (step == Step::Opened)
                continue; // its first element or member follows
            // After a value: close what ends here, then go on with the next
            // element or member.
            for (;;) {
                if (!m_tree.nested())
                    return true;
                skipSpace();
                const char c = *m_p++;
                if (c == ',') {
                    if (m_tree.inObject())
                        memberName();
                    break;
                }
                m_tree.close();
            }
        }
    }

private:
    void skipSpace()
    {
        for (;;) {
            m_p = skipBlankRun(m_p, m_end);
            if (m_p == m_end || !isSpace(*m_p))
                return;
            ++m_p;
        }
    }

    // Reads "name" and the colon after it into the tree's key.
    void memberName()
    {
        skipSpace();
        ++m_p; // the opening quote
        string(m_tree.key());
        skipSpace();
        ++m_p; // the colon
    }

    // What reading a value did: placed it, or opened a container that has
    // a first element (or member, whose name is read), or failed.
    enum class Step { Placed, Opened, Failed };

    // Reads one value; containers are opened here and filled by read(), so
    // that deep nesting takes no stack.
    Step value(std::string* error)
    {
        switch (*m_p) {
        case '{':
        case '[': {
            const bool object = *m_p++ == '{';
            m_tree.open(object ? Node::object() : Node::array());
            skipSpace();
            if (*m_p == (object ? '}' : ']')) {
                ++m_p;
                m_tree.close();
                return Step::Placed;
            }
            if (object)
                memberName();
            return Step::Opened;
        }
        case '"': {
            ++m_p;
            std::string text;
            string(text);
            m_tree.place(Node(std::move(text)));
            return Step::Placed;
        }
        case 't':
            m_p += 4;
            m_tree.place(Node(true));
            return Step::Placed;
        case 'f':
            m_p += 5;
            m_tree.place(Node(false));
            return Step::Placed;
        case 'n':
            m_p += 4;
            m_tree.place(Node(nullptr));
            return Step::Placed;
        default:
            return number(error) ? Step::Placed : Step::Failed;
        }
    }

    // Reads the rest of a string after its opening quote, unescaped.
    void string(std::string& out)
    {
        const char* start = m_p;
        while (*m_p != '"' && *m_p != '\\')
            ++m_p;
        out.assign(start, m_p);
        while (*m_p != '"') {
            ++m_p; // the backslash
            const char c = *m_p++;
            switch (c) {
            case 'b': out += '\b'; break;
            case 'f': out += '\f'; break;
            case 'n': out += '\n'; break;
            case 'r': out += '\r'; break;
            case 't': out += '\t'; break;
            case 'u': {
                std::uint32_t code = hex4();
                if (code >= 0xD800 && code <= 0xDBFF) {
                    m_p += 2; // the low half's "\u"
                    code = 0x10000 + ((code - 0xD800) << 10) + (hex4() - 0xDC00);
                }
                appendUtf8(out, code);
                break;
            }
            default: out += c; break; // '"', '\\', '/'
            }
            start = m_p;
            while (*m_p != '"' && *m_p != '\\')
                ++m_p;
            out.append(start, m_p);
        }
        ++m_p; // the closing quote
    }

    std::uint32_t hex4()
    {
        std::uint32_t code = 0;
        for (int i = 0; i < 4; ++i)
            code = code * 16 + static_cast<std::uint32_t>(hexValue(*m_p++));
        return code;
    }

    bool number(std::string* error)
    {
        const char* start = m_p;
        const bool negative = *m_p == '-';
        if (negative)
            ++m_p;
        std::uint64_t magnitude = 0;
        bool fits = true;
        while (m_p < m_end && isDigit(*m_p)) {
            const auto digit = static_cast<std::uint64_t>(*m_p++ - '0');
            if (magnitude > (std::numeric_limits<std::uint64_t>::max() - digit) / 10)
                fits = false;
            magnitude = magnitude * 10 + digit;
        }
        const bool integer = m_p == m_end || (*m_p != '.' && *m_p != 'e' && *m_p != 'E');
        if (integer && fits) {
            if (!negative) {
                m_tree.place(Node(magnitude));
                return true;
            }
            constexpr std::uint64_t k_lowest = std::uint64_t(1) << 63; // |INT64_MIN|
            if (magnitude <= k_lowest) {
                m_tree.place(Node(magnitude == k_lowest ? std::numeric_limits<std::int64_t>::min()
                                                        : -static_cast<std::int64_t>(magnitude)));
                return true;
            }
        }
        while (m_p < m_end && (isExponentOrDigit(*m_p) || *m_p == '.'))
            ++m_p;
        double real = 0.0;
        const std::from_chars_result read = std::from_chars(start, m_p, real);
        if (read.ec == std::errc::result_out_of_range) {
            if (overflows(start, m_p)) {
                *error = "number overflow parsing '" + std::string(start, m_p) + "'";
                return false;
            }
            real = negative ? -0.0 : 0.0; // too small for a double: zero, as the C library reads it
        }
        m_tree.place(Node(real));
        return true;
    }

    static bool isExponentOrDigit(char c) { return isDigit(c) || c == 'e' || c == 'E' || c == '+' || c == '-'; }

    // For a number out of the range of a double: whether it is too large (as
    // opposed to too close to zero), from the power of ten of its first
    // significant digit.
    static bool overflows(const char* p, const char* end)
    {
        if (*p == '-')
            ++p;
        long long power = 0;
        bool significant = false;
        for (; p < end && isDigit(*p); ++p) {
            significant = significant || *p != '0';
            if (significant)
                ++power;
        }
        if (p < end && *p == '.') {
            for (++p; p < end && isDigit(*p); ++p) {
                if (significant)
                    break;
                if (*p != '0')
                    significant = true;
                else
                    --power;
            }
            while (p < end && isDigit(*p))
                ++p;
        }
        long long exponent = 0;
        if (p < end && (*p == 'e' || *p == 'E')) {
            ++p;
            const bool negativeExponent = *p == '-';
            if (*p == '-' || *p == '+')
                ++p;
            for (; p < end && isDigit(*p); ++p)
                exponent = exponent < 100000000 ? exponent * 10 + (*p - '0') : exponent;
            if (negativeExponent)
                exponent = -exponent;
        }
        return power + exponent > 0;
    }

    const char* m_p;
    const char* m_end;
    Assembler m_tree;
};

} // namespace

bool buildNode(const std::string& text, Node* result, std::string* error)
{
    Node built;
    Reader reader(text, &built);
    if (!reader.read(error))
        return false;
    *result = std::move(built);
    return true;
}

} // namespace json
