#include <CommonKit/logview/ActionLogFilterModel.h>

#include <CommonKit/logview/ActionLogModel.h>

namespace ko {

ActionLogFilterModel::ActionLogFilterModel(QObject* parent) : QSortFilterProxyModel(parent) {}

ActionLogFilterModel::~ActionLogFilterModel() = default;

bool ActionLogFilterModel::setFilterText(const QString& text, QString* error)
{
    ActionLogFilter filter;
    if (!filter.setFilterText(text, error))
        return false;
    setFilter(filter);
    return true;
}

void ActionLogFilterModel::setFilter(const ActionLogFilter& filter)
{
    m_filter = filter;
    invalidateFilter();
}

bool ActionLogFilterModel::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    if (m_filter.isEmpty())
        return true;
    const QModelIndex index = sourceModel()->index(sourceRow, 0, sourceParent);
    return m_filter.accepts(sourceModel()->data(index, ActionLogModel::FieldsRole).toMap());
}

} // namespace ko
