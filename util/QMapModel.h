#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/json/ObjectModel.h>

#include <QVariantMap>

#include <memory>

/// The JSON object model of QVariantMap: lets a map stand where the JSON
/// library expects a native object, converted with jsonVariant (meta-type
/// tagging on) and qVariant.
///
/// Both type names are "QVariantMap". The model owns one working map:
/// objectPtrFromVariant fills it and returns a pointer to it, the same
/// pointer every time, so a caller copies the map before the next call.
class COMMONKIT_EXPORT QMapModel : public json::CObjectModel
{
public:
    /// A model with both type names "QVariantMap" and an empty working map.
    QMapModel();
    /// Destroys the model and its working map.
    ~QMapModel() override;

    /// object points to a QVariantMap; a null object gives a null variant.
    json::Variant variantFromCObject(const void* object) override;
    /// The value converted to a map (empty when it is no object), in the
    /// working map.
    void* objectPtrFromVariant(const json::Variant& value) override;

private:
    std::unique_ptr<QVariantMap> m_map;
};
