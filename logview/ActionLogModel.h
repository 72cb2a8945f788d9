#pragma once

#include <CommonKit/support/core/Export.h>

#include <QAbstractTableModel>
#include <QDateTime>
#include <QMutex>
#include <QPointer>
#include <QVariantMap>
#include <QVector>

#include <deque>

namespace ko {

class ActionLog;

/// A table of the entries of an action log, for views: one row per entry,
/// columns time, user, category, title and description. It follows the log's
/// row signals, so it stays live while entries are logged, also from other
/// threads: changes made on another thread reach the model through its
/// thread's event loop, in the order the log made them.
///
/// Delete the model on its own thread while no other thread logs, or before
/// the log.
///
/// Each row keeps a copy of what it shows, so a view never reads an entry that
/// another thread is removing. FieldsRole gives the entry's fields by name
/// (ActionLogFilter::fieldsOf), for filtering.
class COMMONKIT_EXPORT ActionLogModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// The columns, in their order.
    enum Column {
        TimeColumn = 0,    ///< The entry's date-time (a QDateTime).
        UserColumn,        ///< The user.
        CategoryColumn,    ///< The translated category name.
        TitleColumn,       ///< The translated title of the kind.
        DescriptionColumn, ///< The entry's description (LogEntry::description()).
        ColumnCount        ///< The number of columns.
    };
    /// Roles beyond the display role (which the tool tip role repeats); they
    /// give the same answer for every column of a row.
    enum Role {
        FieldsRole = Qt::UserRole + 1, ///< The entry's fields, a QVariantMap (ActionLogFilter::fieldsOf()).
        TypeRole                       ///< The kind's four-letter type code as text.
    };

    /// The log is not owned; the model empties itself when the log is deleted.
    explicit ActionLogModel(ActionLog* log, QObject* parent = nullptr);
    /// Destroys the model; see the class notes on threads.
    ~ActionLogModel() override;

    /// The number of entries shown; 0 for a valid parent (a flat table).
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// ColumnCount; 0 for a valid parent.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// The cell for Qt::DisplayRole and Qt::ToolTipRole (see Column), or the
    /// row's FieldsRole or TypeRole; an invalid QVariant otherwise.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// The translated column titles (context "ko::ActionLogModel") for the
    /// horizontal display role; QAbstractTableModel's answer otherwise.
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Row
    {
        QDateTime time;
        QString user;
        QString category;
        QString title;
        QString description;
        QString type;
        QVariantMap fields;
    };
    struct Change
    {
        bool insert;
        int first;
        int last;
        Row row;
    };

    static Row rowOf(ActionLog& log, int index);
    void queue(Change change);
    void applyQueued();
    void apply(Change& change);

    QPointer<ActionLog> m_log;
    QVector<Row> m_rows;
    QMutex m_queueMutex;
    std::deque<Change> m_queue;
};

} // namespace ko
