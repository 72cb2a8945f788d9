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
    explicit BoolProperty(const QString& name);
    BoolProperty(const BoolProperty& other);
    BoolProperty& operator=(const BoolProperty& other);
    ~BoolProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static bool getValue(const BaseProperty& property, bool defaultValue);
    static void setValue(BaseProperty& property, bool value);

protected:
    BoolProperty();

private:
    bool m_value;
};

/// A signed 32-bit integer.
class COMMONKIT_EXPORT IntProperty : public BaseProperty
{
public:
    explicit IntProperty(const QString& name);
    IntProperty(const IntProperty& other);
    IntProperty& operator=(const IntProperty& other);
    ~IntProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static int getValue(const BaseProperty& property, int defaultValue);
    static void setValue(BaseProperty& property, int value);

protected:
    IntProperty();

private:
    int m_value;
};

/// An unsigned 32-bit integer.
class COMMONKIT_EXPORT UIntProperty : public BaseProperty
{
public:
    explicit UIntProperty(const QString& name);
    UIntProperty(const UIntProperty& other);
    UIntProperty& operator=(const UIntProperty& other);
    ~UIntProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static quint32 getValue(const BaseProperty& property, quint32 defaultValue);
    static void setValue(BaseProperty& property, quint32 value);

protected:
    UIntProperty();

private:
    quint32 m_value;
};

/// An unsigned 64-bit integer.
class COMMONKIT_EXPORT U64Property : public BaseProperty
{
public:
    explicit U64Property(const QString& name);
    U64Property(const U64Property& other);
    U64Property& operator=(const U64Property& other);
    ~U64Property() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static quint64 getValue(const BaseProperty& property, quint64 defaultValue);
    static void setValue(BaseProperty& property, quint64 value);

protected:
    U64Property();

private:
    quint64 m_value;
};

/// A 32-bit float, set from a variant's toDouble() narrowed to float.
class COMMONKIT_EXPORT FloatProperty : public BaseProperty
{
public:
    explicit FloatProperty(const QString& name);
    FloatProperty(const FloatProperty& other);
    FloatProperty& operator=(const FloatProperty& other);
    ~FloatProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static float getValue(const BaseProperty& property, float defaultValue);
    static void setValue(BaseProperty& property, float value);

protected:
    FloatProperty();

private:
    float m_value;
};

/// A 64-bit float.
class COMMONKIT_EXPORT DoubleProperty : public BaseProperty
{
public:
    explicit DoubleProperty(const QString& name);
    DoubleProperty(const DoubleProperty& other);
    DoubleProperty& operator=(const DoubleProperty& other);
    ~DoubleProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static double getValue(const BaseProperty& property, double defaultValue);
    static void setValue(BaseProperty& property, double value);

protected:
    DoubleProperty();

private:
    double m_value;
};

/// A text.
class COMMONKIT_EXPORT StringProperty : public BaseProperty
{
public:
    explicit StringProperty(const QString& name);
    StringProperty(const StringProperty& other);
    StringProperty& operator=(const StringProperty& other);
    ~StringProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static QString getValue(const BaseProperty& property, const QString& defaultValue);
    static void setValue(BaseProperty& property, const QString& value);

protected:
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
    explicit StringListProperty(const QString& name);
    StringListProperty(const StringListProperty& other);
    StringListProperty& operator=(const StringListProperty& other);
    ~StringListProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static QStringList getValue(const BaseProperty& property, const QStringList& defaultValue);
    static void setValue(BaseProperty& property, const QStringList& value);

protected:
    StringListProperty();

private:
    QStringList m_value;
};

/// A byte array; the dump shows only its length.
class COMMONKIT_EXPORT ByteArrayProperty : public BaseProperty
{
public:
    explicit ByteArrayProperty(const QString& name);
    ByteArrayProperty(const ByteArrayProperty& other);
    ByteArrayProperty& operator=(const ByteArrayProperty& other);
    ~ByteArrayProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static QByteArray getValue(const BaseProperty& property, const QByteArray& defaultValue);
    static void setValue(BaseProperty& property, const QByteArray& value);

protected:
    ByteArrayProperty();

private:
    QByteArray m_value;
};

/// A rectangle; the dump shows left, top, width and height.
class COMMONKIT_EXPORT RectProperty : public BaseProperty
{
public:
    explicit RectProperty(const QString& name);
    RectProperty(const RectProperty& other);
    RectProperty& operator=(const RectProperty& other);
    ~RectProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static QRect getValue(const BaseProperty& property, const QRect& defaultValue);
    static void setValue(BaseProperty& property, const QRect& value);

protected:
    RectProperty();

private:
    QRect m_value;
};

/// A date. It has no typed accessors: read and write it with variantValue()
/// and setVariantValue().
class COMMONKIT_EXPORT DateProperty : public BaseProperty
{
public:
    explicit DateProperty(const QString& name);
    DateProperty(const DateProperty& other);
    DateProperty& operator=(const DateProperty& other);
    ~DateProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

protected:
    DateProperty();

private:
    QDate m_value;
};

/// A time of day.
class COMMONKIT_EXPORT TimeProperty : public BaseProperty
{
public:
    explicit TimeProperty(const QString& name);
    TimeProperty(const TimeProperty& other);
    TimeProperty& operator=(const TimeProperty& other);
    ~TimeProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static QTime getValue(const BaseProperty& property, const QTime& defaultValue);
    static void setValue(BaseProperty& property, const QTime& value);

protected:
    TimeProperty();

private:
    QTime m_value;
};

/// A date and time.
class COMMONKIT_EXPORT DateTimeProperty : public BaseProperty
{
public:
    explicit DateTimeProperty(const QString& name);
    DateTimeProperty(const DateTimeProperty& other);
    DateTimeProperty& operator=(const DateTimeProperty& other);
    ~DateTimeProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static QDateTime getValue(const BaseProperty& property, const QDateTime& defaultValue);
    static void setValue(BaseProperty& property, const QDateTime& value);

protected:
    DateTimeProperty();

private:
    QDateTime m_value;
};

/// Any QVariant, stored as it is; setVariantValue always succeeds.
class COMMONKIT_EXPORT VariantProperty : public BaseProperty
{
public:
    explicit VariantProperty(const QString& name);
    VariantProperty(const VariantProperty& other);
    VariantProperty& operator=(const VariantProperty& other);
    ~VariantProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static QVariant getValue(const BaseProperty& property, const QVariant& defaultValue);
    static void setValue(BaseProperty& property, const QVariant& value);

protected:
    VariantProperty();

private:
    QVariant m_value;
};

/// An embedded property set, held by value (a copy shares the embedded
/// properties). variantValue() is a map of every embedded property's name to
/// its variantValue(); setVariantValue takes such a map and sets the embedded
/// properties of those names, returning false if the value is no map, a name
/// is unknown (nothing is added) or a property refuses its value.
class COMMONKIT_EXPORT PropertySetProperty : public BaseProperty
{
public:
    PropertySetProperty();
    explicit PropertySetProperty(const QString& name);
    PropertySetProperty(const PropertySetProperty& other);
    PropertySetProperty& operator=(const PropertySetProperty& other);
    ~PropertySetProperty() override;

    QString type() const override;
    QTextStream& dump(QTextStream& stream) const override;
    QVariant variantValue() const override;
    bool setVariantValue(const QVariant& value) override;

    static PropertySet getValue(const BaseProperty& property, const PropertySet& defaultValue);
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
