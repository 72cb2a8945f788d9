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
    /// The description for the user interface; empty until set.
    QString description() const { return m_description; }
    /// Sets the description.
    void setDescription(const QString& description) { m_description = description; }
    /// The tooltip for the user interface; empty until set.
    QString tooltip() const { return m_tooltip; }
    /// Sets the tooltip text.
    void setTooltip(const QString& tooltip) { m_tooltip = tooltip; }

protected:
    /// An item of that id with empty texts.
    explicit RightsItem(int id) : m_id(id) {}
    /// Not virtual: objects are deleted through their own classes only.
    ~RightsItem() = default;
    /// Copies the id and both texts.
    RightsItem(const RightsItem& other) = default;
    /// Copies the id and both texts.
    RightsItem& operator=(const RightsItem& other) = default;

    /// The application's id of the item.
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
    /// A feature of that id with empty texts.
    explicit Feature(int id);
    /// Copies the id and both texts.
    Feature(const Feature& other) = default;
    /// Copies the id and both texts.
    Feature& operator=(const Feature& other) = default;
    virtual ~Feature();

    /// The feature's id.
    int feature() const { return id(); }
};

/// A group of features; one row of the rights matrix. The group owns its
/// features.
class COMMONKIT_EXPORT FeatureGroup : public detail::RightsItem
{
public:
    /// An empty group of that id (the row of the matrix) with empty texts.
    explicit FeatureGroup(int id);
    /// Copies hold copies of the features (made with Feature's copy
    /// constructor), so that each group deletes only its own.
    FeatureGroup(const FeatureGroup& other);
    /// Deletes this group's features and takes the id, the texts and copies
    /// of other's features. If allocating a copy throws, the group is left
    /// as it was.
    FeatureGroup& operator=(const FeatureGroup& other);
    /// Deletes the features.
    virtual ~FeatureGroup();

    /// The group's id, which is its row in the FeatureMatrix.
    int featureGroup() const { return id(); }

    /// Stores the feature under its id and takes ownership. An earlier feature
    /// of the same id is replaced but not deleted: it goes back to the caller.
    /// A null pointer is ignored. A Feature object belongs to one group only; a
    /// feature that is in several groups needs one Feature object per group.
    void addFeature(Feature* feature);
    /// Whether the group holds a feature of that id.
    bool containsFeature(int featureId) const { return m_features.contains(featureId); }
    /// The features by id; the group keeps ownership.
    const QMap<int, Feature*>& features() const { return m_features; }

private:
    void deleteFeatures();

    QMap<int, Feature*> m_features;
};

/// A group of users; one column of the rights matrix.
class COMMONKIT_EXPORT UserGroup : public detail::RightsItem
{
public:
    /// A user group of that id with empty texts.
    explicit UserGroup(int id);
    /// Copies the id and both texts.
    UserGroup(const UserGroup& other) = default;
    /// Copies the id and both texts.
    UserGroup& operator=(const UserGroup& other) = default;
    virtual ~UserGroup();

    /// The user group's id.
    int userGroup() const { return id(); }
};

} // namespace ko
