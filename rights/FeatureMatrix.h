#pragma once

#include <CommonKit/rights/Feature.h>
#include <CommonKit/support/core/Export.h>

#include <QList>
#include <QMap>
#include <QPair>

#include <vector>

namespace ko {

class IPersistDestination;

/// Which user groups may use which feature groups: a grid of yes/no cells with
/// one row per feature group and one column per user group. Every cell starts
/// as allowed.
///
/// Indexing: the row of a feature group is its id, so feature-group ids run
/// from 0 to rows() - 1; a column is whatever number the caller uses for a
/// user group. rows() and columns() count the groups added, not the sizes given
/// to the constructor; the application adds exactly as many groups as it
/// allocated. Cells outside the allocated grid read as forbidden and cannot be
/// set.
///
/// The matrix owns the groups given to it (and, through them, the features).
///
/// Persisted form, in the settings group "FeatureMatrix": "Rows" and "Columns"
/// (the group counts) and "Matrix", the cells row by row packed into 32-bit
/// words (first cell in the least significant bit), each word written as its
/// unsigned decimal number followed by "+". See docs/rights-matrix.md.
class COMMONKIT_EXPORT FeatureMatrix
{
public:
    /// A grid of rows x columns cells, all allowed, with no groups yet. A
    /// negative size counts as 0.
    FeatureMatrix(int rows, int columns);
    /// Deletes the groups (and, through them, the features).
    virtual ~FeatureMatrix();
    FeatureMatrix(const FeatureMatrix&) = delete;
    FeatureMatrix& operator=(const FeatureMatrix&) = delete;

    /// Writes "Rows", "Columns" and "Matrix" into the group "FeatureMatrix" and
    /// clears the dirty flag. The cells written are those of rows 0 to
    /// rows() - 1 and columns 0 to columns() - 1. The marks of
    /// disableAbilityToChange() are not saved. A null destination logs a
    /// warning and writes nothing.
    virtual void save(IPersistDestination* destination) const;
    /// Reads the grid back. Stored dimensions that differ from rows() and
    /// columns() are logged as an error and change nothing. A short "Matrix"
    /// text stops the reading silently; the cells read so far keep their new
    /// values. A complete read clears the dirty flag, except that a grid whose
    /// cell count is a multiple of 32 always ends by looking for one more word
    /// and so keeps the flag set if a cell changed. A null destination logs a
    /// warning and reads nothing.
    virtual void load(IPersistDestination* destination);

    /// Stores the group under its id and takes ownership. An earlier group of
    /// the same id is replaced but not deleted: it goes back to the caller.
    /// A null pointer is ignored.
    void addFeatureGroup(FeatureGroup* group);
    /// The same for user groups.
    void addUserGroup(UserGroup* group);
    /// Adds the feature to the feature group of that id, which must have been
    /// added before. Without such a group the feature is deleted and a warning
    /// logged.
    void addFeatureToGroup(Feature* feature, int groupId);
    /// Whether a feature group of that id was added.
    bool containsFeatureGroup(int groupId) const { return m_featureGroups.contains(groupId); }

    /// The feature groups by id; the matrix keeps ownership.
    const QMap<int, FeatureGroup*>& featureGroups() const { return m_featureGroups; }
    /// The user groups by id; the matrix keeps ownership.
    const QMap<int, UserGroup*>& userGroups() const { return m_userGroups; }

    /// The cell's value; false outside the allocated grid.
    bool isAllowed(int row, int column) const;
    /// Sets the cell. Sets the dirty flag only when the cell changes; a cell
    /// outside the allocated grid is ignored with a logged warning. Cells
    /// marked by disableAbilityToChange() can be set too.
    void setAllowed(int row, int column, bool allowed);
    /// True when some feature group (in ascending id order) contains the
    /// feature and is allowed for the column.
    bool isFeatureAllowed(int featureId, int column) const;

    /// Marks a cell as one the user interface must not let the user change.
    /// Duplicates are kept; the cell itself does not change.
    void disableAbilityToChange(int row, int column);
    /// The marked cells in the order they were marked.
    const QList<QPair<int, int>>& lockedCells() const { return m_lockedCells; }
    /// Whether the cell was marked by disableAbilityToChange().
    bool isChangeDisabled(int row, int column) const;

    /// Whether a cell changed since the last save() or complete load().
    bool isDirty() const { return m_dirty; }
    /// The number of feature groups added.
    int rows() const { return m_featureGroups.size(); }
    /// The number of user groups added.
    int columns() const { return m_userGroups.size(); }

private:
    bool inGrid(int row, int column) const;

    QMap<int, FeatureGroup*> m_featureGroups;
    QMap<int, UserGroup*> m_userGroups;
    int m_gridRows;
    int m_gridColumns;
    std::vector<std::vector<bool>> m_grid;
    QList<QPair<int, int>> m_lockedCells;
    mutable bool m_dirty;
};

} // namespace ko
