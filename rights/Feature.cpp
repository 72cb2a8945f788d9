#include <CommonKit/rights/Feature.h>

namespace ko {

Feature::Feature(int id) : RightsItem(id) {}

Feature::~Feature() = default;

FeatureGroup::FeatureGroup(int id) : RightsItem(id) {}

FeatureGroup::FeatureGroup(const FeatureGroup& other) : RightsItem(other)
{
    for (auto it = other.m_features.cbegin(); it != other.m_features.cend(); ++it)
        m_features.insert(it.key(), new Feature(*it.value()));
}

FeatureGroup& FeatureGroup::operator=(const FeatureGroup& other)
{
    if (this == &other)
        return *this;
    // Copy before deleting, so that a failed allocation leaves this group as it was.
    QMap<int, Feature*> copies;
    for (auto it = other.m_features.cbegin(); it != other.m_features.cend(); ++it)
        copies.insert(it.key(), new Feature(*it.value()));
    deleteFeatures();
    RightsItem::operator=(other);
    m_features = copies;
    return *this;
}

FeatureGroup::~FeatureGroup()
{
    deleteFeatures();
}

void FeatureGroup::deleteFeatures()
{
    for (Feature* feature : qAsConst(m_features))
        delete feature;
    m_features.clear();
}

void FeatureGroup::addFeature(Feature* feature)
{
    if (feature)
        m_features.insert(feature->feature(), feature);
}

UserGroup::UserGroup(int id) : RightsItem(id) {}

UserGroup::~UserGroup() = default;

} // namespace ko
