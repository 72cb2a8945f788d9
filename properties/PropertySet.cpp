#include <CommonKit/properties/PropertySet.h>

#include <CommonKit/properties/Properties.h>
#include <CommonKit/support/core/Log.h>

#include <QTextStream>

#include <string>

namespace kogen {
namespace {

const char* const k_setRule = "=======================================";

// An entry's property; an empty entry (left by setVariantValues for an
// unknown name) reads as the IllegalProperty.
const BaseProperty& propertyOf(const boost::shared_ptr<BaseProperty>& entry)
{
    if (entry)
        return *entry;
    return IllegalProperty::instance();
}

// Sets are mostly small: up to this many entries a name is found by walking
// the entries in order, comparing lengths first and then the characters in
// line, which is several times cheaper than the map's search, whose every
// step is an out-of-line string ordering. Both find the same entry: names
// are unique.
constexpr int k_linearSearchLimit = 8;

bool sameName(const QString& a, const QString& b)
{
    const int size = a.size();
    return size == b.size()
        && (a.constData() == b.constData()
            || std::char_traits<char16_t>::compare(reinterpret_cast<const char16_t*>(a.constData()),
                                                   reinterpret_cast<const char16_t*>(b.constData()),
                                                   static_cast<std::size_t>(size)) == 0);
}

PropertySet::PropertyMap::const_iterator entryOf(const PropertySet::PropertyMap& map, const QString& name)
{
    if (map.size() > k_linearSearchLimit)
        return map.constFind(name);
    auto it = map.constBegin();
    const auto end = map.constEnd();
    while (it != end && !sameName(it.key(), name))
        ++it;
    return it;
}

} // namespace

PropertySet::PropertySet() = default;
PropertySet::PropertySet(const PropertySet& other) = default;
PropertySet& PropertySet::operator=(const PropertySet& other) = default;
PropertySet::~PropertySet() = default;

void PropertySet::add(BaseProperty* property)
{
    if (!property)
        return;
    // The library-wide null object lives outside every set: wrapping it in
    // an owning pointer would delete a static object.
    if (property == &IllegalProperty::instance()) {
        ko::LogLine(ko::Log::Warning, "kogen::PropertySet::add")
            << "the library-wide IllegalProperty cannot be added to a set; ignored";
        return;
    }
    // The same heap property handed over twice: a second owner would delete
    // it while the first still holds it.
    const auto it = m_properties.constFind(property->propertyName());
    if (it != m_properties.constEnd() && it.value().get() == property)
        return;
    add(boost::shared_ptr<BaseProperty>(property));
}

void PropertySet::add(boost::shared_ptr<BaseProperty> property)
{
    if (!property)
        return;
    if (property.get() == &IllegalProperty::instance()) {
        ko::LogLine(ko::Log::Warning, "kogen::PropertySet::add")
            << "the library-wide IllegalProperty cannot be added to a set; ignored";
        return;
    }
    const QString name = property->propertyName();
    m_properties.insert(name, std::move(property));
}

void PropertySet::remove(const QString& name)
{
    // A copy of the name: the caller may pass a reference to the key stored
    // in this very entry (set.remove(set.begin().key())), which the removal
    // frees while the map still compares against it.
    const QString key = name;
    m_properties.remove(key);
}

void PropertySet::clear()
{
    m_properties.clear();
}

bool PropertySet::contains(const QString& name) const
{
    return entryOf(m_properties, name) != m_properties.constEnd();
}

int PropertySet::count() const
{
    return m_properties.size();
}

QStringList PropertySet::allPropertyNames() const
{
    return m_properties.keys();
}

PropertySet::iterator PropertySet::begin()
{
    return m_properties.begin();
}

PropertySet::iterator PropertySet::end()
{
    return m_properties.end();
}

PropertySet::const_iterator PropertySet::begin() const
{
    return m_properties.constBegin();
}

PropertySet::const_iterator PropertySet::end() const
{
    return m_properties.constEnd();
}

BaseProperty& PropertySet::operator[](const QString& name)
{
    // A const search: a lookup must not detach the map shared with other copies.
    const auto it = entryOf(m_properties, name);
    if (it != m_properties.constEnd() && it.value())
        return *it.value();
    return IllegalProperty::instance();
}

const BaseProperty& PropertySet::operator[](const QString& name) const
{
    const auto it = entryOf(m_properties, name);
    if (it != m_properties.constEnd() && it.value())
        return *it.value();
    return IllegalProperty::instance();
}

const BaseProperty* PropertySet::find(const QString& name) const
{
    // The empty name sorts first, so only the first entry can have it: a
    // quick answer for the common lookup of an empty alias.
    if (name.isEmpty() && (m_properties.isEmpty() || !m_properties.constBegin().key().isEmpty()))
        return nullptr;
    const auto it = entryOf(m_properties, name);
    if (it == m_properties.constEnd())
        return nullptr;
    return it.value() ? it.value().get() : &IllegalProperty::instance();
}

QMap<QString, QVariant> PropertySet::variantValues() const
{
    QMap<QString, QVariant> values;
    for (auto it = m_properties.constBegin(); it != m_properties.constEnd(); ++it)
        values.insert(it.key(), propertyOf(it.value()).variantValue());
    return values;
}

bool PropertySet::setVariantValues(const QMap<QString, QVariant>& values)
{
    bool result = true;
    for (auto it = values.constBegin(); it != values.constEnd(); ++it) {
        // The map's own index operation: it inserts an empty entry for a
        // name not yet present. Callers rely on seeing such names afterwards.
        boost::shared_ptr<BaseProperty>& entry = m_properties[it.key()];
        if (!entry || !entry->setVariantValue(it.value()))
            result = false;
    }
    return result;
}

void PropertySet::validate()
{
    // Walk a snapshot: a validator may add or remove properties of this set
    // (the set then detaches from the snapshot), and the snapshot keeps the
    // properties alive meanwhile.
    const PropertyMap snapshot = m_properties;
    for (auto it = snapshot.constBegin(); it != snapshot.constEnd(); ++it) {
        if (it.value())
            it.value()->validate(*this);
    }
}

bool PropertySet::operator==(const PropertySet& other) const
{
    if (allPropertyNames() != other.allPropertyNames())
        return false;
    if (m_properties.isEmpty())
        return true;
    for (auto it = m_properties.constBegin(); it != m_properties.constEnd(); ++it) {
        const BaseProperty& property = propertyOf(it.value());
        const QVariant value = property.variantValue();
        if (!value.isValid())
            return false;
        const QVariant otherValue = other[property.propertyName()].variantValue();
        if (!otherValue.isValid())
            return false;
        if (value != otherValue)
            return false;
    }
    return true;
}

QTextStream& PropertySet::dump(QTextStream& stream) const
{
    stream << k_setRule << "\n";
    for (auto it = m_properties.constBegin(); it != m_properties.constEnd(); ++it) {
        propertyOf(it.value()).dump(stream);
        stream << "\n";
    }
    stream << k_setRule;
    return stream;
}

int PropertySet::metaTypeId()
{
    static const int id = qRegisterMetaType<PropertySet>("kogen::PropertySet");
    return id;
}

namespace {
// Register the meta-type when the library loads.
[[maybe_unused]] const int k_metaTypeAtLoad = PropertySet::metaTypeId();
} // namespace

} // namespace kogen
