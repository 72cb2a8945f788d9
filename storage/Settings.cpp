#include <CommonKit/storage/Settings.h>

#include <cstring>
#include <utility>
#include <vector>

namespace ko {

Settings::Settings() : settings(new QSettings), owned(true) {}

Settings::Settings(const QString& fileName, QSettings::Format format)
    : settings(new QSettings(fileName, format)), owned(true)
{
}

Settings::Settings(QSettings* wrapped) : settings(wrapped), owned(false) {}

// Shallow on purpose: see the class comment.
Settings::Settings(const Settings& other) : IPersistDestination(other), settings(other.settings), owned(other.owned) {}

Settings& Settings::operator=(const Settings& other)
{
    settings = other.settings;
    owned = other.owned;
    return *this;
}

Settings::~Settings()
{
    if (owned && settings)
        delete settings;
}

QString Settings::fileName() const
{
    return settings->fileName();
}

void* Settings::getInterface(const char* name)
{
    if (!name)
        return nullptr;
    if (std::strcmp(name, "ko::IPersistDestination") == 0)
        return static_cast<IPersistDestination*>(this);
    if (std::strcmp(name, "ko::Settings") == 0)
        return this;
    return nullptr;
}

const void* Settings::getInterface(const char* name) const
{
    return const_cast<Settings*>(this)->getInterface(name);
}

void Settings::beginGroup(const QString& prefix)
{
    settings->beginGroup(prefix);
}

void Settings::endGroup()
{
    settings->endGroup();
}

void Settings::beginWriteArray(const QString& prefix, int size)
{
    settings->beginWriteArray(prefix, size);
}

int Settings::beginReadArray(const QString& prefix)
{
    return settings->beginReadArray(prefix);
}

void Settings::endArray()
{
    settings->endArray();
}

void Settings::setArrayIndex(int i)
{
    settings->setArrayIndex(i);
}

void Settings::setValue(const QString& key, const QVariant& value)
{
    settings->setValue(key, value);
}

QVariant Settings::value(const QString& key, const QVariant& defaultValue) const
{
    return settings->value(key, defaultValue);
}

void Settings::remove(const QString& key)
{
    settings->remove(key);
}

bool Settings::contains(const QString& key) const
{
    return settings->contains(key);
}

void Settings::sync()
{
    settings->sync();
}

} // namespace ko

bool excludeKey(const QString& key, const QStringList& suffixes)
{
    for (const QString& suffix : suffixes) {
        if (key.endsWith(suffix, Qt::CaseSensitive))
            return true;
    }
    return false;
}

bool assign(QSettings& destination, const QSettings& source, const QStringList& excluded)
{
    // Read everything before clearing, so that assigning a store to itself (or
    // to another QSettings on the same file) keeps the kept keys.
    std::vector<std::pair<QString, QVariant>> entries;
    const QStringList keys = source.allKeys();
    entries.reserve(static_cast<size_t>(keys.size()));
    for (const QString& key : keys) {
        if (!excludeKey(key, excluded))
            entries.emplace_back(key, source.value(key, QVariant()));
    }
    destination.clear();
    for (const auto& entry : entries)
        destination.setValue(entry.first, entry.second);
    destination.sync();
    return destination.status() == QSettings::NoError;
}
