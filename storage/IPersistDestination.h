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
    virtual void beginGroup(const QString& prefix) = 0;
    virtual void endGroup() = 0;
    virtual void beginWriteArray(const QString& prefix, int size) = 0;
    /// Returns the array's size.
    virtual int beginReadArray(const QString& prefix) = 0;
    virtual void endArray() = 0;
    virtual void setArrayIndex(int i) = 0;
    virtual void setValue(const QString& key, const QVariant& value) = 0;
    virtual QVariant value(const QString& key, const QVariant& defaultValue) const = 0;
    virtual void remove(const QString& key) = 0;
    virtual bool contains(const QString& key) const = 0;
    virtual void sync() = 0;
};

} // namespace ko
