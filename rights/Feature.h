#pragma once

#include <CommonKit/support/core/Export.h>

#include <QMap>
#include <QString>

namespace ko {

namespace detail {

/// What features, feature groups and user groups all carry: the id the
/// application gives them and two texts for the user interface, empty until
/// set. Each class names its id accessor after itself.
class COMMONKIT_EXPORT RightsItem
{
public:
    QString description() const { return m_description; }
    void setDescription(const QString& description) { m_description = description; }
    QString tooltip() const { return m_tooltip; }
    void setTooltip(const QString& tooltip) { m_tooltip = tooltip; }

protected:
    explicit RightsItem(int id) : m_id(id) {}
    /// Not virtual: objects are deleted through their own classes only.
    ~RightsItem() = default;
    RightsItem(const RightsItem& other) = default;
    RightsItem& operator=(const RightsItem& other) = default;

    int id() const { return m_id; }

private:
    int m_id;
    QString m_description;
    QString m_tooltip;
};

} // namespace detail

/// A feature of the application that the rights matrix controls, known by the
/// id the application gives it.
class COMMONKIT_EXPORT Feature : public detail::RightsItem
{
public:
    explicit Feature(int id);
    Feature(const Feature& other) = default;
    Feature& operator=(const Feature& other) = default;
    virtual ~Feature();

    int feature() const { return id(); }
};

/// A group of features; one row of the rights matrix. The group owns its
/// features.
class COMMONKIT_EXPORT FeatureGroup : public detail::RightsItem
{
public:
    explicit FeatureGroup(int id);
    /// Copies hold copies of the features (made with Feature's copy
    /// constructor), so that each group deletes only its own.
    FeatureGroup(const FeatureGroup& other);
    FeatureGroup& operator=(const FeatureGroup& other);
    virtual ~FeatureGroup();

    int featureGroup() const { return id(); }

    /// Stores the feature under its id and takes ownership. An earlier feature
    /// of the same id is replaced but not deleted: it goes back to the caller.
    /// A null pointer is ignored. A Feature object belongs to one group only; a
    /// feature that is in several groups needs one Feature object per group.
    void addFeature(Feature* feature);
    bool containsFeature(int featureId) const { return m_features.contains(featureId); }
    const QMap<int, Feature*>& features() const { return m_features; }

private:
    void deleteFeatures();

    QMap<int, Feature*> m_features;
};

/// A group of users; one column of the rights matrix.
class COMMONKIT_EXPORT UserGroup : public detail::RightsItem
{
public:
    explicit UserGroup(int id);
    UserGroup(const UserGroup& other) = default;
    UserGroup& operator=(const UserGroup& other) = default;
    virtual ~UserGroup();

    int userGroup() const { return id(); }
};

} // namespace ko
