#include <CommonKit/util/QMapModel.h>

#include <CommonKit/json/VariantConversion.h>

QMapModel::QMapModel()
    : json::CObjectModel(QVariant::typeToName(QVariant::Map), QVariant::typeToName(QVariant::Map)),
      m_map(std::make_unique<QVariantMap>())
{
}

QMapModel::~QMapModel() = default;

json::Variant QMapModel::variantFromCObject(const void* object)
{
    if (!object)
        return json::Variant();
    return jsonVariant(QVariant(*static_cast<const QVariantMap*>(object)), true);
}

void* QMapModel::objectPtrFromVariant(const json::Variant& value)
{
    *m_map = qVariant(value).toMap();
    return m_map.get();
}
