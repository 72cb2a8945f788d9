#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/json/Variant.h>

#include <memory>
#include <string>

namespace json {

/// The object model of a native type: lets values of that type stand where a
/// JSON value is expected, by converting them to and from json::Variant.
///
/// A model is known by two names: the native type's name and the name under
/// which JSON documents refer to it (often the same). Subclasses implement
/// the two conversions; callers use toVariant() and fromVariant(), and find
/// registered models by either name with find().
///
/// objectPtrFromVariant returns a pointer to a native object that the model
/// owns; it stays valid until the next call on the same model, so callers
/// copy the object before converting again. A model is not safe for
/// concurrent conversions.
class COMMONKIT_EXPORT CObjectModel
{
public:
    /// A model known by the native type's name and the JSON type's name.
    CObjectModel(const std::string& cTypeName, const std::string& jsonTypeName);
    virtual ~CObjectModel();

    CObjectModel(const CObjectModel&) = delete;
    CObjectModel& operator=(const CObjectModel&) = delete;

    /// The JSON value of the native object at `object` (never null).
    virtual Variant variantFromCObject(const void* object) = 0;
    /// A native object made from value, owned by the model.
    virtual void* objectPtrFromVariant(const Variant& value) = 0;

    /// The native type's name.
    const std::string& cTypeName() const { return m_cTypeName; }
    /// The name JSON documents use for the type.
    const std::string& jsonTypeName() const { return m_jsonTypeName; }

    /// variantFromCObject, with null for a null object.
    Variant toVariant(const void* object);
    /// objectPtrFromVariant.
    void* fromVariant(const Variant& value);

    /// Process-wide models by name. A later model with a name replaces the
    /// earlier one under that name; registering a null model does nothing.
    static void registerModel(const std::shared_ptr<CObjectModel>& model);
    /// The model registered under name as native or JSON type name; null
    /// when there is none.
    static std::shared_ptr<CObjectModel> find(const std::string& typeName);

private:
    std::string m_cTypeName;
    std::string m_jsonTypeName;
};

} // namespace json
