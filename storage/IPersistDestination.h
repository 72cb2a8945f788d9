#pragma once

#include <CommonKit/support/core/Export.h>
#include <CommonKit/support/core/IInterface.h>

#include <QString>
#include <QVariant>

namespace ko {

/// Where a persistable object loads its state from and saves it to. The
/// operations mirror the group, array and key-value operations of QSettings:
/// keys use "/" as separator, and arrays follow the QSettings layout (entries
/// under one-based indices and a "size" key).
///
/// getInterface() of an implementation answers at least "ko::IPersistDestination".
class COMMONKIT_EXPORT IPersistDestination : public IInterface
{
public:
    /// Puts `prefix` before every key until the matching endGroup(); groups
    /// nest.
    virtual void beginGroup(const QString& prefix) = 0;
    /// Ends the innermost group.
    virtual void endGroup() = 0;
    /// Starts writing an array of `size` entries under `prefix` (size -1:
    /// as many as the indices set); the size is written by endArray().
    virtual void beginWriteArray(const QString& prefix, int size) = 0;
    /// Starts reading the array under `prefix`. Returns the array's size.
    virtual int beginReadArray(const QString& prefix) = 0;
    /// Ends the array begun last.
    virtual void endArray() = 0;
    /// Makes the keys that follow those of entry `i` (zero-based) of the
    /// current array.
    virtual void setArrayIndex(int i) = 0;
    /// Stores `value` under `key`, replacing what was there.
    virtual void setValue(const QString& key, const QVariant& value) = 0;
    /// The value under `key`, or `defaultValue` when there is none.
    virtual QVariant value(const QString& key, const QVariant& defaultValue) const = 0;
    /// Removes `key` and every key below it.
    virtual void remove(const QString& key) = 0;
    /// Whether there is a value under `key`.
    virtual bool contains(const QString& key) const = 0;
    /// Writes pending changes to permanent storage and reads what others
    /// changed there.
    virtual void sync() = 0;
};

} // namespace ko
