#include <CommonKit/logview/ActionLogModel.h>

#include <CommonKit/logging/ActionLog.h>
#include <CommonKit/logview/ActionLogFilter.h>

#include <QMutexLocker>
#include <QThread>

namespace ko {

ActionLogModel::ActionLogModel(ActionLog* log, QObject* parent) : QAbstractTableModel(parent), m_log(log)
{
    if (!log)
        return;
    // Taking the rows and connecting under the log's lock: no entry is missed
    // or seen twice. The log emits with its lock held, on the logging thread.
    QMutexLocker locker(log->m_mutex);
    for (int i = 0; i < log->count(); ++i)
        m_rows.append(rowOf(*log, i));
    connect(log, &ActionLog::logEntriesAdded, this,
            [this, log](int first, int last) {
                for (int i = first; i <= last; ++i)
                    queue({true, i, i, rowOf(*log, i)});
            },
            Qt::DirectConnection);
    connect(log, &ActionLog::logEntriesRemoved, this,
            [this](int first, int last) { queue({false, first, last, Row()}); }, Qt::DirectConnection);
    connect(log, &QObject::destroyed, this, [this] {
        beginResetModel();
        m_rows.clear();
        endResetModel();
    });
}

ActionLogModel::~ActionLogModel() = default;

ActionLogModel::Row ActionLogModel::rowOf(ActionLog& log, int index)
{
    Row row;
    LogEntry* entry = log.entry(index);
    if (!entry)
        return row;
    row.time = entry->time();
    row.user = entry->user();
    row.category = entry->category().name;
    row.title = entry->title();
    row.description = entry->description();
    row.type = entry->type().toString();
    row.fields = ActionLogFilter::fieldsOf(*entry);
    return row;
}

void ActionLogModel::queue(Change change)
{
    {
        QMutexLocker locker(&m_queueMutex);
        m_queue.push_back(std::move(change));
    }
    if (QThread::currentThread() == thread())
        applyQueued();
    else
        QMetaObject::invokeMethod(this, &ActionLogModel::applyQueued, Qt::QueuedConnection);
}

void ActionLogModel::applyQueued()
{
    for (;;) {
        Change change;
        {
            QMutexLocker locker(&m_queueMutex);
            if (m_queue.empty())
                return;
            change = std::move(m_queue.front());
            m_queue.pop_front();
        }
        apply(change);
    }
}

void ActionLogModel::apply(Change& change)
{
    if (change.insert) {
        const int at = qBound(0, change.first, m_rows.size());
        beginInsertRows(QModelIndex(), at, at);
        m_rows.insert(at, std::move(change.row));
        endInsertRows();
        return;
    }
    // The log reports "remove all" with the count as the last index.
    const int first = qMax(0, change.first);
    const int last = qMin(change.last, m_rows.size() - 1);
    if (first > last)
        return;
    beginRemoveRows(QModelIndex(), first, last);
    m_rows.remove(first, last - first + 1);
    endRemoveRows();
}

int ActionLogModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int ActionLogModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ActionLogModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return QVariant();
    const Row& row = m_rows.at(index.row());
    if (role == FieldsRole)
        return row.fields;
    if (role == TypeRole)
        return row.type;
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return QVariant();
    switch (index.column()) {
    case TimeColumn:
        return row.time;
    case UserColumn:
        return row.user;
    case CategoryColumn:
        return row.category;
    case TitleColumn:
        return row.title;
    case DescriptionColumn:
        return row.description;
    default:
        return QVariant();
    }
}

QVariant ActionLogModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case TimeColumn:
        return tr("Time");
    case UserColumn:
        return tr("User");
    case CategoryColumn:
        return tr("Category");
    case TitleColumn:
        return tr("Title");
    case DescriptionColumn:
        return tr("Description");
    default:
        return QVariant();
    }
}

} // namespace ko
