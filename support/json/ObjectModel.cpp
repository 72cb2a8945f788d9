#include <CommonKit/support/json/ObjectModel.h>

#include <map>
#include <mutex>

namespace json {

namespace {

struct Models
{
    std::mutex mutex;
    std::map<std::string, std::shared_ptr<CObjectModel>> byName;
};

Models& models()
{
    static Models instance;
    return instance;
}

} // namespace

CObjectModel::CObjectModel(const std::string& cTypeName, const std::string& jsonTypeName)
    : m_cTypeName(cTypeName), m_jsonTypeName(jsonTypeName)
{
}

CObjectModel::~CObjectModel() = default;

Variant CObjectModel::toVariant(const void* object)
{
    return object ? variantFromCObject(object) : Variant();
}

void* CObjectModel::fromVariant(const Variant& value)
{
    return objectPtrFromVariant(value);
}

void CObjectModel::registerModel(const std::shared_ptr<CObjectModel>& model)
{
    if (!model)
        return;
    std::lock_guard<std::mutex> lock(models().mutex);
    models().byName[model->cTypeName()] = model;
    models().byName[model->jsonTypeName()] = model;
}

std::shared_ptr<CObjectModel> CObjectModel::find(const std::string& typeName)
{
    std::lock_guard<std::mutex> lock(models().mutex);
    const auto found = models().byName.find(typeName);
    return found == models().byName.end() ? nullptr : found->second;
}

} // namespace json
