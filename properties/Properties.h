#pragma once

#include <CommonKit/properties/BaseProperty.h>
#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/support/core/Export.h>

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QTime>
#include <QVariant>

// The concrete property classes and the null object IllegalProperty.
//
// Each class holds one value of its own type and has a public constructor
// taking the name. The static getValue(property, defaultValue) returns the
// value of a property of that class, the default for the
// IllegalProperty, and throws ko::UnexpectedTypeException (name, actual type,
// expected type, "Property has the wrong type.") for any other class.
// setValue(property, value) stores a value the same way and throws for any
// other class, the IllegalProperty included.

namespace kogen {

/// A bool; dumped as 0 or 1.
class COMMONKIT_EXPORT BoolProperty : public BaseProperty
{
public:
    /// A property of that name holding false.
    explicit BoolProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    BoolProperty(const BoolProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    BoolProperty& operator=(const BoolProperty& other);
    ~BoolProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a BoolProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static bool getValue(const BaseProperty& property, bool defaultValue);
    /// Stores the value in a BoolProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, bool value);

protected:
    /// A property with an empty name holding false, for subclasses.
    BoolProperty();

private:
    bool m_value;
};

/// A signed 32-bit integer.
class COMMONKIT_EXPORT IntProperty : public BaseProperty
{
public:
    /// A property of that name holding 0.
    explicit IntProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    IntProperty(const IntProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    IntProperty& operator=(const IntProperty& other);
    ~IntProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a IntProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static int getValue(const BaseProperty& property, int defaultValue);
    /// Stores the value in a IntProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, int value);

protected:
    /// A property with an empty name holding 0, for subclasses.
    IntProperty();

private:
    int m_value;
};

/// An unsigned 32-bit integer.
class COMMONKIT_EXPORT UIntProperty : public BaseProperty
{
public:
    /// A property of that name holding 0.
    explicit UIntProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    UIntProperty(const UIntProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    UIntProperty& operator=(const UIntProperty& other);
    ~UIntProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a UIntProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static quint32 getValue(const BaseProperty& property, quint32 defaultValue);
    /// Stores the value in a UIntProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, quint32 value);

protected:
    /// A property with an empty name holding 0, for subclasses.
    UIntProperty();

private:
    quint32 m_value;
};

/// An unsigned 64-bit integer.
class COMMONKIT_EXPORT U64Property : public BaseProperty
{
public:
    /// A property of that name holding 0.
    explicit U64Property(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    U64Property(const U64Property& other);
    /// Copies name, description, verdict, shared validator and value.
    U64Property& operator=(const U64Property& other);
    ~U64Property() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a U64Property; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static quint64 getValue(const BaseProperty& property, quint64 defaultValue);
    /// Stores the value in a U64Property. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, quint64 value);

protected:
    /// A property with an empty name holding 0, for subclasses.
    U64Property();

private:
    quint64 m_value;
};

/// A 32-bit float, set from a variant's toDouble() narrowed to float.
class COMMONKIT_EXPORT FloatProperty : public BaseProperty
{
public:
    /// A property of that name holding 0.
    explicit FloatProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    FloatProperty(const FloatProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    FloatProperty& operator=(const FloatProperty& other);
    ~FloatProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a FloatProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static float getValue(const BaseProperty& property, float defaultValue);
    /// Stores the value in a FloatProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, float value);

protected:
    /// A property with an empty name holding 0, for subclasses.
    FloatProperty();

private:
    float m_value;
};

/// A 64-bit float.
class COMMONKIT_EXPORT DoubleProperty : public BaseProperty
{
public:
    /// A property of that name holding 0.
    explicit DoubleProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    DoubleProperty(const DoubleProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    DoubleProperty& operator=(const DoubleProperty& other);
    ~DoubleProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a DoubleProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static double getValue(const BaseProperty& property, double defaultValue);
    /// Stores the value in a DoubleProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, double value);

protected:
    /// A property with an empty name holding 0, for subclasses.
    DoubleProperty();

private:
    double m_value;
};

/// A text.
class COMMONKIT_EXPORT StringProperty : public BaseProperty
{
public:
    /// A property of that name holding a null string.
    explicit StringProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    StringProperty(const StringProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    StringProperty& operator=(const StringProperty& other);
    ~StringProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a StringProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static QString getValue(const BaseProperty& property, const QString& defaultValue);
    /// Stores the value in a StringProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, const QString& value);

protected:
    /// A property with an empty name holding a null string, for subclasses.
    StringProperty();

private:
    QString m_value;
};

/// A list of texts. setVariantValue takes a variant that converts to a string
/// list as it is; any other variant is taken through toString() and split at
/// every "," (empty parts kept), so it always succeeds.
/// Note: setValue on a property of another class reports the expected type as
/// "StringProperty" (getValue reports "StringListProperty").
class COMMONKIT_EXPORT StringListProperty : public BaseProperty
{
public:
    /// A property of that name holding an empty list.
    explicit StringListProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    StringListProperty(const StringListProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    StringListProperty& operator=(const StringListProperty& other);
    ~StringListProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a StringListProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static QStringList getValue(const BaseProperty& property, const QStringList& defaultValue);
    /// Stores the value in a StringListProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, const QStringList& value);

protected:
    /// A property with an empty name holding an empty list, for subclasses.
    StringListProperty();

private:
    QStringList m_value;
};

/// A byte array; the dump shows only its length.
class COMMONKIT_EXPORT ByteArrayProperty : public BaseProperty
{
public:
    /// A property of that name holding an empty array.
    explicit ByteArrayProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    ByteArrayProperty(const ByteArrayProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    ByteArrayProperty& operator=(const ByteArrayProperty& other);
    ~ByteArrayProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a ByteArrayProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static QByteArray getValue(const BaseProperty& property, const QByteArray& defaultValue);
    /// Stores the value in a ByteArrayProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, const QByteArray& value);

protected:
    /// A property with an empty name holding an empty array, for subclasses.
    ByteArrayProperty();

private:
    QByteArray m_value;
};

/// A rectangle; the dump shows left, top, width and height.
class COMMONKIT_EXPORT RectProperty : public BaseProperty
{
public:
    /// A property of that name holding a null rectangle.
    explicit RectProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    RectProperty(const RectProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    RectProperty& operator=(const RectProperty& other);
    ~RectProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a RectProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static QRect getValue(const BaseProperty& property, const QRect& defaultValue);
    /// Stores the value in a RectProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, const QRect& value);

protected:
    /// A property with an empty name holding a null rectangle, for subclasses.
    RectProperty();

private:
    QRect m_value;
};

/// A date. It has no typed accessors: read and write it with variantValue()
/// and setVariantValue().
class COMMONKIT_EXPORT DateProperty : public BaseProperty
{
public:
    /// A property of that name holding a null date.
    explicit DateProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    DateProperty(const DateProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    DateProperty& operator=(const DateProperty& other);
    ~DateProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

protected:
    /// A property with an empty name holding a null date, for subclasses.
    DateProperty();

private:
    QDate m_value;
};

/// A time of day.
class COMMONKIT_EXPORT TimeProperty : public BaseProperty
{
public:
    /// A property of that name holding a null time.
    explicit TimeProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    TimeProperty(const TimeProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    TimeProperty& operator=(const TimeProperty& other);
    ~TimeProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a TimeProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static QTime getValue(const BaseProperty& property, const QTime& defaultValue);
    /// Stores the value in a TimeProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, const QTime& value);

protected:
    /// A property with an empty name holding a null time, for subclasses.
    TimeProperty();

private:
    QTime m_value;
};

/// A date and time.
class COMMONKIT_EXPORT DateTimeProperty : public BaseProperty
{
public:
    /// A property of that name holding a null date-time.
    explicit DateTimeProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    DateTimeProperty(const DateTimeProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    DateTimeProperty& operator=(const DateTimeProperty& other);
    ~DateTimeProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a DateTimeProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static QDateTime getValue(const BaseProperty& property, const QDateTime& defaultValue);
    /// Stores the value in a DateTimeProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, const QDateTime& value);

protected:
    /// A property with an empty name holding a null date-time, for subclasses.
    DateTimeProperty();

private:
    QDateTime m_value;
};

/// Any QVariant, stored as it is; setVariantValue always succeeds.
class COMMONKIT_EXPORT VariantProperty : public BaseProperty
{
public:
    /// A property of that name holding an invalid QVariant.
    explicit VariantProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    VariantProperty(const VariantProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    VariantProperty& operator=(const VariantProperty& other);
    ~VariantProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a VariantProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static QVariant getValue(const BaseProperty& property, const QVariant& defaultValue);
    /// Stores the value in a VariantProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, const QVariant& value);

protected:
    /// A property with an empty name holding an invalid QVariant, for subclasses.
    VariantProperty();

private:
    QVariant m_value;
};

/// An embedded property set, held by value (a copy shares the embedded
/// properties). variantValue() is a map of every embedded property's name to
/// its variantValue(); setVariantValue takes such a map and sets the embedded
/// properties of those names, returning false if the value is no map, a name
/// is unknown (nothing is added) or a property refuses its value. Where a
/// set contains its own property (through copies), the inner occurrence has
/// an invalid variantValue() and dumps as "(contains itself)".
class COMMONKIT_EXPORT PropertySetProperty : public BaseProperty
{
public:
    /// A property with an empty name holding an empty set.
    PropertySetProperty();
    /// A property of that name holding an empty set.
    explicit PropertySetProperty(const QString& name);
    /// Copies name, description, verdict, shared validator and value.
    PropertySetProperty(const PropertySetProperty& other);
    /// Copies name, description, verdict, shared validator and value.
    PropertySetProperty& operator=(const PropertySetProperty& other);
    ~PropertySetProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    /// The value of a PropertySetProperty; defaultValue for the IllegalProperty. Throws
    /// ko::UnexpectedTypeException for a property of any other class.
    static PropertySet getValue(const BaseProperty& property, const PropertySet& defaultValue);
    /// Stores the value in a PropertySetProperty. Throws ko::UnexpectedTypeException
    /// for a property of any other class, the IllegalProperty included.
    static void setValue(BaseProperty& property, const PropertySet& value);

private:
    PropertySet m_value;
};

/// The null object: what a property set answers for a name it lacks. It has
/// an empty name and no value, refuses every write, dumps as "IllegaProperty"
/// and validates as true (it has no validator; setValidator and
/// setDescription do nothing on it). There is one library-wide instance,
/// which no set owns.
class COMMONKIT_EXPORT IllegalProperty : public BaseProperty
{
public:
    /// A copy, which behaves as the null object too but is not the
    /// library-wide instance.
    IllegalProperty(const IllegalProperty& other);
    ~IllegalProperty() override;

    /// The library-wide instance.
    static IllegalProperty& instance();

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

private:
    IllegalProperty();
    IllegalProperty& operator=(const IllegalProperty& other) = delete;
};

} // namespace kogen
