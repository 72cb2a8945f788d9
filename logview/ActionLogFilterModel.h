#pragma once

#include <CommonKit/logview/ActionLogFilter.h>
#include <CommonKit/support/core/Export.h>

#include <QSortFilterProxyModel>

namespace ko {

/// Shows the rows of an ActionLogModel whose entry a filter accepts (see
/// ActionLogFilter for the fields and docs/filter-language.md for the
/// language). The same filter text selects the same entries as
/// `commonkit log show FILE --where FILTER`.
class COMMONKIT_EXPORT ActionLogFilterModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    /// A model with an empty filter and no source model yet; set one with
    /// setSourceModel().
    explicit ActionLogFilterModel(QObject* parent = nullptr);
    /// Destroys the model; the source model is not owned.
    ~ActionLogFilterModel() override;

    /// Replaces the filter; false (with the reason in *error) leaves the old
    /// one. An empty text shows every row.
    bool setFilterText(const QString& text, QString* error = nullptr);
    /// Replaces the filter by a copy of filter and filters the rows again.
    void setFilter(const ActionLogFilter& filter);
    /// The filter in use.
    const ActionLogFilter& filter() const { return m_filter; }

protected:
    /// Accepts the row when the filter is empty or accepts the row's
    /// ActionLogModel::FieldsRole data (of column 0); with a source model
    /// that lacks the role every field is NULL.
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    ActionLogFilter m_filter;
};

} // namespace ko
