#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/json/Variant.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace json {

/// Converts values of one native type to and from JSON. Schema keeps one for
/// each application data type registered with
/// Schema::registerApplicationDataType(); the type's JSON form is described by
/// the schema node its URI names.
class COMMONKIT_EXPORT ApplicationDataType
{
public:
    virtual ~ApplicationDataType();

    /// The JSON form of the native value at `object`.
    virtual Variant toVariant(const void* object) const = 0;
    /// Sets the native value at `object` (an existing, constructed value)
    /// from `value`; false when `value` does not have the type's JSON form,
    /// and then *object may be partly set.
    virtual bool fromVariant(const Variant& value, void* object) const = 0;
};

/// An application data type whose JSON form is an object with one member per
/// property of a value type T, read and written through T's accessors:
///
///     auto point = std::make_shared<json::ObjectValueProperty<QPoint>>();
///     point->add("x", &QPoint::x, &QPoint::setX).add("y", &QPoint::y, &QPoint::setY);
///
/// A getter is anything callable as get(const T&), a setter anything callable
/// as set(T&, value); the getter's result type chooses the JSON type:
/// integers for integral types, reals for floating-point types, booleans and
/// strings (std::string) for theirs. Members print in the order they were
/// added, and fromVariant() calls the setters in that order, which matters
/// where one setter depends on another (a rectangle's width on its left edge).
template<typename T>
class ObjectValueProperty : public ApplicationDataType
{
public:
    /// Adds the member key, read with getter(const T&) and written with
    /// setter(T&, value); returns this type, for chained calls.
    template<typename Getter, typename Setter>
    ObjectValueProperty& add(std::string key, Getter getter, Setter setter)
    {
        using Value = std::decay_t<std::invoke_result_t<Getter, const T&>>;
        Member member;
        member.key = std::move(key);
        member.get = [getter](const T& object) { return toJson<Value>(std::invoke(getter, object)); };
        member.set = [setter](const Variant& value, T& object) {
            Value converted{};
            if (!fromJson(value, &converted))
                return false;
            std::invoke(setter, object, converted);
            return true;
        };
        m_members.push_back(std::move(member));
        return *this;
    }

    /// The object with every member added, in order.
    Variant toVariant(const T& object) const
    {
        Variant result = Object();
        for (const Member& member : m_members)
            result.set(member.key, member.get(object));
        return result;
    }

    /// False unless value is an object holding every member with a value of
    /// the member's type (a whole real counts as an integer).
    bool fromVariant(const Variant& value, T* object) const
    {
        if (!value.isObject())
            return false;
        for (const Member& member : m_members) {
            if (!value.contains(member.key) || !member.set(value.value(member.key), *object))
                return false;
        }
        return true;
    }

    Variant toVariant(const void* object) const override { return toVariant(*static_cast<const T*>(object)); }
    bool fromVariant(const Variant& value, void* object) const override
    {
        return fromVariant(value, static_cast<T*>(object));
    }

    /// The member keys in order.
    std::vector<std::string> keys() const
    {
        std::vector<std::string> result;
        for (const Member& member : m_members)
            result.push_back(member.key);
        return result;
    }

private:
    struct Member
    {
        std::string key;
        std::function<Variant(const T&)> get;
        std::function<bool(const Variant&, T&)> set;
    };

    template<typename Value>
    static Variant toJson(const Value& value)
    {
        if constexpr (std::is_same_v<Value, bool> || std::is_same_v<Value, std::string>)
            return Variant(value);
        else if constexpr (std::is_integral_v<Value> && std::is_signed_v<Value>)
            return Variant(static_cast<long long>(value));
        else if constexpr (std::is_integral_v<Value>)
            return Variant(static_cast<unsigned long long>(value));
        else
            return Variant(static_cast<double>(value));
    }

    template<typename Value>
    static bool fromJson(const Variant& json, Value* value)
    {
        bool ok = false;
        if constexpr (std::is_same_v<Value, bool>) {
            *value = json.toBool(false, &ok);
        } else if constexpr (std::is_same_v<Value, std::string>) {
            *value = json.toString(std::string(), &ok);
        } else if constexpr (std::is_integral_v<Value> && std::is_signed_v<Value>) {
            const std::int64_t number = json.toInt64(0, &ok);
            ok = ok && number >= std::numeric_limits<Value>::min() && number <= std::numeric_limits<Value>::max();
            *value = static_cast<Value>(number);
        } else if constexpr (std::is_integral_v<Value>) {
            const std::uint64_t number = json.toUInt64(0, &ok);
            ok = ok && number <= std::numeric_limits<Value>::max();
            *value = static_cast<Value>(number);
        } else {
            *value = static_cast<Value>(json.toDouble(0.0, &ok));
        }
        return ok;
    }

    std::vector<Member> m_members;
};

} // namespace json
