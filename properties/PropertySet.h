#pragma once

#include <CommonKit/properties/BaseProperty.h>
#include <CommonKit/support/core/Export.h>

#include <QMap>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <boost/shared_ptr.hpp>

class QTextStream;

namespace kogen {

/// A name-keyed collection of properties, iterated in ascending name order.
///
/// Copies are cheap and share their property objects: a value changed through
/// one copy is seen through every other, while adding or removing a name
/// affects only the copy it is done on. Separate copies may be used from
/// separate threads; one set object, and the properties behind it, by one
/// thread at a time.
///
/// Looking up an absent name returns the library-wide IllegalProperty and
/// never inserts anything.
class COMMONKIT_EXPORT PropertySet
{
public:
    /// The entries: name to shared property. An entry may be empty (see
    /// setVariantValues()).
    using PropertyMap = QMap<QString, boost::shared_ptr<BaseProperty>>;
    /// Iterates the entries in name order; it.value() may be replaced.
    using iterator = PropertyMap::iterator;
    /// Iterates the entries in name order, read-only.
    using const_iterator = PropertyMap::const_iterator;

    /// An empty set.
    PropertySet();
    /// A copy that shares the property objects (see the class description).
    PropertySet(const PropertySet& other);
    /// Shares other's property objects in place of its own.
    PropertySet& operator=(const PropertySet& other);
    ~PropertySet();

    /// Takes ownership of a heap property and adds it (see below). A null
    /// pointer, the library-wide IllegalProperty and a property this set
    /// already holds under its name are ignored.
    void add(BaseProperty* property);
    /// Inserts the property under its propertyName(), replacing (and
    /// releasing) an entry of the same name. A null pointer and the
    /// library-wide IllegalProperty are ignored.
    void add(boost::shared_ptr<BaseProperty> property);
    /// Removes the entry of that name, if there is one.
    void remove(const QString& name);
    /// Removes every entry.
    void clear();

    /// Whether the set has an entry of that name (an empty one included).
    bool contains(const QString& name) const;
    /// The number of entries.
    int count() const;
    /// The entry names in ascending order.
    QStringList allPropertyNames() const;

    /// The first entry; detaches this set's map from its copies.
    iterator begin();
    /// Past the last entry.
    iterator end();
    /// The first entry.
    const_iterator begin() const;
    /// Past the last entry.
    const_iterator end() const;

    /// The property of that name, or the library-wide IllegalProperty for a
    /// name without entry or with an empty one.
    BaseProperty& operator[](const QString& name);
    /// The property of that name, or the library-wide IllegalProperty.
    const BaseProperty& operator[](const QString& name) const;
    /// contains() and operator[] in one lookup: null when the set has no entry
    /// of that name, else what operator[] returns (the IllegalProperty for an
    /// empty entry).
    const BaseProperty* find(const QString& name) const;

    /// Every property's name mapped to its variantValue().
    QMap<QString, QVariant> variantValues() const;

    /// Sets each named property from its value, in key order, and returns
    /// true only if every one was found and accepted its value. A failing
    /// entry does not stop the others. A name the set lacks is inserted with
    /// an empty entry (and makes the result false): count(), contains() and
    /// allPropertyNames() then include it. Remove such names before anything
    /// else iterates the set; the iterating operations treat an empty entry
    /// like the IllegalProperty.
    bool setVariantValues(const QMap<QString, QVariant>& values);

    /// Runs every property's validator, in name order. The verdicts are left
    /// in the properties; exceptions of a validator stop the loop and pass.
    void validate();

    /// Equal when both sets have the same names and every property's value is
    /// valid and equal (QVariant equality) to the value of the property of
    /// the same name in the other set. A set holding an invalid value is
    /// unequal to every set, itself included.
    bool operator==(const PropertySet& other) const;
    /// The negation of operator==().
    bool operator!=(const PropertySet& other) const { return !(*this == other); }

    /// Writes a rule of 39 "=" and "\n", each property's dump followed by an
    /// empty line, and the rule again without a line end.
    QTextStream& dump(QTextStream& stream) const;

    /// The id under which PropertySet is registered with Qt's meta-type
    /// system as "kogen::PropertySet" (registered when the library loads).
    static int metaTypeId();

private:
    PropertyMap m_properties;
};

} // namespace kogen

Q_DECLARE_TYPEINFO(kogen::PropertySet, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(kogen::PropertySet)
