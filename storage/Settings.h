#pragma once

#include <CommonKit/storage/IPersistDestination.h>

#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace ko {

/// A persistence destination that forwards every operation to a QSettings,
/// which may use any registered format.
///
/// Copying copies the QSettings pointer and the ownership flag as they are: a
/// copy of an owning wrapper owns the same object too, and assigning to a
/// wrapper does not release what it held before. Copy only non-owning
/// wrappers, or make sure that one owning copy outlives all others and that
/// only one of them is destroyed while owning.
class COMMONKIT_EXPORT Settings : public IPersistDestination
{
public:
    /// A QSettings made by its default constructor (organisation and
    /// application taken from the application object); owned.
    Settings();
    /// QSettings(fileName, format); owned.
    Settings(const QString& fileName, QSettings::Format format);
    /// Wraps the given object; not owned.
    explicit Settings(QSettings* wrapped);
    Settings(const Settings& other);
    Settings& operator=(const Settings& other);
    /// Deletes the QSettings when owned (which writes pending changes).
    ~Settings() override;

    QString fileName() const;

    void* getInterface(const char* name) override;
    const void* getInterface(const char* name) const override;

    void beginGroup(const QString& prefix) override;
    void endGroup() override;
    void beginWriteArray(const QString& prefix, int size) override;
    int beginReadArray(const QString& prefix) override;
    void endArray() override;
    void setArrayIndex(int i) override;
    void setValue(const QString& key, const QVariant& value) override;
    QVariant value(const QString& key, const QVariant& defaultValue) const override;
    void remove(const QString& key) override;
    bool contains(const QString& key) const override;
    void sync() override;

private:
    QSettings* settings;
    bool owned;
};

} // namespace ko

/// True when key ends with any entry of suffixes (case-sensitive); false for an
/// empty list. Keys are full paths, so the suffix "Password" matches
/// "General/Password" in any group.
COMMONKIT_EXPORT bool excludeKey(const QString& key, const QStringList& suffixes);

/// Replaces the whole content of destination by that of source, leaving out the
/// keys that end with an entry of excluded, then syncs destination. Returns
/// whether destination reports QSettings::NoError afterwards.
COMMONKIT_EXPORT bool assign(QSettings& destination, const QSettings& source, const QStringList& excluded);
