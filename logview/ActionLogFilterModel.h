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
    explicit ActionLogFilterModel(QObject* parent = nullptr);
    ~ActionLogFilterModel() override;

    /// Replaces the filter; false (with the reason in *error) leaves the old
    /// one. An empty text shows every row.
    bool setFilterText(const QString& text, QString* error = nullptr);
    void setFilter(const ActionLogFilter& filter);
    const ActionLogFilter& filter() const { return m_filter; }

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    ActionLogFilter m_filter;
};

} // namespace ko
