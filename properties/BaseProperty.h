#pragma once

#include <CommonKit/support/core/Export.h>

#include <QString>
#include <QVariant>

#include <boost/shared_ptr.hpp>

class QTextStream;

namespace kogen {

class PropertySet;
class PropertyValidator;

/// One named, typed, described value that an object exposes generically.
///
/// Concrete classes (IntProperty, StringProperty, ...) each add one value of
/// their own type. Every property can be read and written as a QVariant;
/// the static getValue/setValue pairs of the concrete classes give typed
/// access and throw ko::UnexpectedTypeException on a property of another
/// class.
///
/// A property may carry a validator. The validator is shared, not cloned, when
/// the property is copied; it records its verdict in the property's valid flag
/// and validation message, which change only while a validator runs.
class COMMONKIT_EXPORT BaseProperty
{
public:
    virtual ~BaseProperty();

    /// Runs the attached validator with this property and returns its
    /// verdict. Without a validator it returns true and leaves the valid flag
    /// and the message as they are.
    virtual bool validate(PropertySet& set);

    /// The class name, e.g. "IntProperty".
    virtual QString type() const = 0;

    /// Writes the property as text: name, description and value lines and a
    /// rule of 44 hyphens, each line ended by "\n".
    virtual QTextStream& dump(QTextStream& stream) const = 0;

    /// The value wrapped in a QVariant of the class's own type.
    virtual QVariant variantValue() const = 0;

    /// Stores the value if the variant converts to the class's type and
    /// returns true; otherwise returns false and keeps the old value. Whether
    /// it converts is QVariant::canConvert()'s answer, which looks at types
    /// only: the text "abc" is stored in an IntProperty as 0. Neither
    /// validates nor changes the valid flag.
    virtual bool setVariantValue(const QVariant& value) = 0;

    /// The name given at construction; the key under which a PropertySet
    /// holds the property.
    QString propertyName() const { return m_name; }

    /// The text that describes the property to the user; empty until set.
    /// The null object (IllegalProperty) keeps an empty description and no
    /// validator: the setters do nothing on it, so that a lookup of a
    /// mistyped name cannot change what every other lookup sees.
    QString description() const { return m_description; }
    /// Sets the description (not on the IllegalProperty, see description()).
    void setDescription(const QString& description);

    /// The attached validator; a null pointer for none.
    boost::shared_ptr<PropertyValidator> validator() const { return m_validator; }
    /// Attaches a validator, shared with whoever else holds it, in place of
    /// the one before; a null pointer removes it. Ignored on the
    /// IllegalProperty. Does not run the validator.
    void setValidator(const boost::shared_ptr<PropertyValidator>& validator);

    /// The result of the last validation (false until a validator has run).
    bool isValid() const { return m_valid; }
    /// The message left by the last validation; empty after it passed.
    QString validationMessage() const { return m_validationMessage; }

protected:
    /// A property with an empty name, not yet valid.
    BaseProperty();
    /// A property of that name, not yet valid, without description or
    /// validator.
    explicit BaseProperty(const QString& name);
    /// Copies name, description, verdict and the shared validator.
    BaseProperty(const BaseProperty& other);
    /// Copies name, description, verdict and the shared validator.
    BaseProperty& operator=(const BaseProperty& other);

    /// Writes the name and description lines.
    void dumpHeader(QTextStream& stream) const;
    /// Writes the closing rule of hyphens.
    static void dumpFooter(QTextStream& stream);

private:
    friend class PropertyValidator;

    QString m_description;
    QString m_validationMessage;
    bool m_valid;
    boost::shared_ptr<PropertyValidator> m_validator;
    QString m_name;
};

} // namespace kogen
