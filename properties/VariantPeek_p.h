#pragma once

#include <QMetaType>
#include <QVariant>

namespace kogen {

// QVariant's type(), toBool() and constData() are out-of-line calls, and an
// expression asks them for every node of every row it evaluates. These read
// the same answers in line from the variant's public data handle, for the two
// kinds the evaluation loops test first.

/// Whether the variant holds a bool; if so, its value goes to *truth.
inline bool holdsBool(const QVariant& value, bool* truth)
{
    const QVariant::Private& d = value.data_ptr();
    if (d.type != QMetaType::Bool)
        return false;
    *truth = d.data.b;
    return true;
}

/// Whether the variant holds an int; if so, its value goes to *number.
inline bool holdsInt(const QVariant& value, int* number)
{
    const QVariant::Private& d = value.data_ptr();
    if (d.type != QMetaType::Int)
        return false;
    *number = d.data.i;
    return true;
}

} // namespace kogen
