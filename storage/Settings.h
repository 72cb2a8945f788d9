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
    /// Copies the pointer and the ownership flag (see above).
    Settings(const Settings& other);
    /// Copies the pointer and the ownership flag (see above).
    Settings& operator=(const Settings& other);
    /// Deletes the QSettings when owned (which writes pending changes).
    ~Settings() override;

    /// The file the QSettings keeps its values in.
    QString fileName() const;

    /// This object for "ko::IPersistDestination" and "ko::Settings",
    /// otherwise null.
    void* getInterface(const char* name) override;
    /// This object for "ko::IPersistDestination" and "ko::Settings",
    /// otherwise null.
    const void* getInterface(const char* name) const override;

    /// QSettings::beginGroup().
    void beginGroup(const QString& prefix) override;
    /// QSettings::endGroup().
    void endGroup() override;
    /// QSettings::beginWriteArray().
    void beginWriteArray(const QString& prefix, int size) override;
    /// QSettings::beginReadArray().
    int beginReadArray(const QString& prefix) override;
    /// QSettings::endArray().
    void endArray() override;
    /// QSettings::setArrayIndex().
    void setArrayIndex(int i) override;
    /// QSettings::setValue().
    void setValue(const QString& key, const QVariant& value) override;
    /// QSettings::value().
    QVariant value(const QString& key, const QVariant& defaultValue) const override;
    /// QSettings::remove().
    void remove(const QString& key) override;
    /// QSettings::contains().
    bool contains(const QString& key) const override;
    /// QSettings::sync().
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
