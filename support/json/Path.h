#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/json/Variant.h>

#include <cstddef>
#include <string>
#include <vector>

namespace json {

/// A location inside a JSON value, written as segments joined by a separator:
/// "cams/2/name" is member "name" of element 2 of the list in member "cams".
///
/// A segment names an object member by its key, or a list element by its
/// index in decimal. Indices count from the array base index (0 by default;
/// 1 for the one-based arrays of settings files). A decimal segment below the
/// base, or one applied to an object, is a plain key.
///
/// With auto array index on, set() creates a list where a decimal segment
/// meets a missing value and grows a list to reach an index beyond its end
/// (filling with nulls); with it off, set() creates objects everywhere and
/// only replaces existing list elements. No list grows past k_maxIndex.
class COMMONKIT_EXPORT Path
{
public:
    /// The largest list index set() makes room for.
    static constexpr std::size_t k_maxIndex = (1u << 20) - 1;

    /// The empty path: the root itself.
    Path() = default;
    /// The path of text (see setPath()).
    explicit Path(const std::string& text, char separator = '/');

    /// Replaces the segments by those of the text; empty segments (doubled,
    /// leading or trailing separators) are dropped.
    void setPath(const std::string& text, char separator = '/');
    /// The segments joined by the separator, as they stand (not escaped).
    std::string toString(char separator = '/') const;

    /// The path a JSON pointer (RFC 6901: "" or "/a/0/b", with "~0" for '~'
    /// and "~1" for '/') names; empty segments are kept ("/" names the member
    /// with the empty key). False, with path unchanged, when the text is no
    /// JSON pointer.
    static bool fromJsonPointer(const std::string& pointer, Path* path);
    /// The path written as a JSON pointer ("" for the empty path).
    std::string toJsonPointer() const;

    /// The segments, root first.
    const std::vector<std::string>& segments() const { return m_segments; }
    /// The number of segments.
    std::size_t size() const { return m_segments.size(); }
    /// Whether the path is the root.
    bool empty() const { return m_segments.empty(); }
    /// Adds a segment at the end (taken as it is, even empty).
    void append(const std::string& segment) { m_segments.push_back(segment); }
    /// Removes the last segment, if any.
    void removeLast();
    /// This path without its last segment.
    Path parent() const;

    /// The index of a list's first element in segments; below 0 counts as 0.
    void setArrayBaseIndex(int base) { m_base = base < 0 ? 0 : static_cast<std::size_t>(base); }
    /// The index of a list's first element in segments (0 by default).
    int arrayBaseIndex() const { return static_cast<int>(m_base); }
    /// Whether set() makes and grows lists for index segments (see above).
    void setAutoArrayIndex(bool on) { m_autoIndex = on; }
    /// Whether set() makes and grows lists (off by default).
    bool autoArrayIndex() const { return m_autoIndex; }

    /// The list position a segment stands for (index minus base), or false
    /// when it is not an index.
    bool listIndex(const std::string& segment, std::size_t* index) const;

    /// Whether the location exists in root; found receives its value. The
    /// empty path is root itself.
    bool locate(const Variant& root, Variant* found = nullptr) const;
    /// The values on the way to the location: root first, then the value each
    /// segment leads to. It ends early where a segment names nothing, so it
    /// holds size() + 1 values exactly when the location exists.
    std::vector<Variant> trail(const Variant& root) const;
    /// The value at the location, null when it does not exist.
    Variant value(const Variant& root) const;
    /// Stores value at the location, creating the objects and lists on the
    /// way. False, with root unchanged, when the location cannot be made: a
    /// segment meets a string, number or boolean, a list meets a segment that
    /// is not an index, or an index lies beyond the list's end without auto
    /// array index (or beyond k_maxIndex).
    bool set(Variant& root, const Variant& value) const;
    /// Removes the member or element at the location; false when it does not
    /// exist. Elements after a removed one move up.
    bool remove(Variant& root) const;

private:
    std::vector<std::string> m_segments;
    std::size_t m_base = 0;
    bool m_autoIndex = false;
};

} // namespace json
