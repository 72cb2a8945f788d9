#pragma once

// Command lines of the tool kept in tables under tests/data/tool.

#include "testlib/DataTable.h"

#include <QDir>
#include <QStringList>

namespace cktest {

// The fields of the row from `first` on, as arguments; a field "@name" stands
// for the file `name` in `directory`.
inline QStringList argumentsOf(const DataRow& row, std::size_t first, const QDir& directory = QDir())
{
    QStringList arguments;
    for (std::size_t i = first; i < row.fields.size(); ++i) {
        const QString field = QString::fromStdString(row[i]);
        arguments << (field.startsWith(QLatin1Char('@')) ? directory.filePath(field.mid(1)) : field);
    }
    return arguments;
}

} // namespace cktest
