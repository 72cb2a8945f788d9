#pragma once

#include <CommonKit/support/core/Export.h>

#include <QObject>
#include <QString>

namespace kogen {

class BaseProperty;
class PropertySet;

/// Decides whether a property's current value is acceptable and records the
/// verdict in the property: its valid flag and its validation message.
///
/// One validator may serve many properties (they hold it through a shared
/// pointer). The set argument is the set the property is validated in, for
/// verdicts that depend on other properties of the same set.
class COMMONKIT_EXPORT PropertyValidator
{
public:
    PropertyValidator() = default;
    /// The base holds no state; copying is for subclasses that do.
    PropertyValidator(const PropertyValidator&) = default;
    /// The base holds no state; copying is for subclasses that do.
    PropertyValidator& operator=(const PropertyValidator&) = default;

    /// Judges the property's current value, records the verdict in the
    /// property (through the protected helpers below) and returns it.
    virtual bool validate(PropertySet& set, BaseProperty& property) = 0;
    virtual ~PropertyValidator();

protected:
    /// The only ways to write a property's verdict: sets the valid flag.
    static void setValid(BaseProperty& property, bool valid);
    /// Sets the property's validation message.
    static void setValidationMessage(BaseProperty& property, const QString& message);
    /// Sets the flag to true and clears the message.
    static void pass(BaseProperty& property);
    /// Sets the flag to false and the message to the translation of
    /// "Value out of range." (context "QObject").
    static void failOutOfRange(BaseProperty& property);
};

// The range validators accept a value v when minimum <= v <= maximum. They
// read the value with the typed getValue of their property class (default 0),
// so a property of another class makes validate() throw
// ko::UnexpectedTypeException, leaving flag and message as they were. On a
// pass the flag becomes true and the message is cleared; on a failure the
// flag becomes false and the message is the translated "Value out of range.".
// The bounds are fixed at construction and not checked against each other:
// an empty range fails every value.

/// For IntProperty.
class COMMONKIT_EXPORT DefaultIntValidator : public QObject, public PropertyValidator
{
public:
    /// Accepts the values from minimum to maximum, both included.
    DefaultIntValidator(int minimum, int maximum);
    ~DefaultIntValidator() override;
    /// Passes the value of a IntProperty within the range and fails any
    /// other; throws ko::UnexpectedTypeException for a property of another
    /// class, leaving its verdict alone.
    bool validate(PropertySet& set, BaseProperty& property) override;
    /// The smallest accepted value.
    int minimum() const { return m_minimum; }
    /// The largest accepted value.
    int maximum() const { return m_maximum; }

private:
    int m_minimum;
    int m_maximum;
};

/// For UIntProperty.
class COMMONKIT_EXPORT DefaultUIntValidator : public QObject, public PropertyValidator
{
public:
    /// Accepts the values from minimum to maximum, both included.
    DefaultUIntValidator(quint32 minimum, quint32 maximum);
    ~DefaultUIntValidator() override;
    /// Passes the value of a UIntProperty within the range and fails any
    /// other; throws ko::UnexpectedTypeException for a property of another
    /// class, leaving its verdict alone.
    bool validate(PropertySet& set, BaseProperty& property) override;
    /// The smallest accepted value.
    quint32 minimum() const { return m_minimum; }
    /// The largest accepted value.
    quint32 maximum() const { return m_maximum; }

private:
    quint32 m_minimum;
    quint32 m_maximum;
};

/// For U64Property. Note: only the low 32 bits of the property's value are
/// compared with the 64-bit bounds, so 2^32 + 5 passes the range 0 to 10.
/// Existing callers depend on this, so it stays.
class COMMONKIT_EXPORT DefaultU64Validator : public QObject, public PropertyValidator
{
public:
    /// Accepts the values from minimum to maximum, both included.
    DefaultU64Validator(quint64 minimum, quint64 maximum);
    ~DefaultU64Validator() override;
    /// Passes a U64Property whose value's low 32 bits lie within the range
    /// and fails any other; throws ko::UnexpectedTypeException for a
    /// property of another class, leaving its verdict alone.
    bool validate(PropertySet& set, BaseProperty& property) override;
    /// The smallest accepted value.
    quint64 minimum() const { return m_minimum; }
    /// The largest accepted value.
    quint64 maximum() const { return m_maximum; }

private:
    quint64 m_minimum;
    quint64 m_maximum;
};

/// For FloatProperty. NaN fails.
class COMMONKIT_EXPORT DefaultFloatValidator : public QObject, public PropertyValidator
{
public:
    /// Accepts the values from minimum to maximum, both included.
    DefaultFloatValidator(float minimum, float maximum);
    ~DefaultFloatValidator() override;
    /// Passes the value of a FloatProperty within the range and fails any
    /// other; throws ko::UnexpectedTypeException for a property of another
    /// class, leaving its verdict alone.
    bool validate(PropertySet& set, BaseProperty& property) override;
    /// The smallest accepted value.
    float minimum() const { return m_minimum; }
    /// The largest accepted value.
    float maximum() const { return m_maximum; }

private:
    float m_minimum;
    float m_maximum;
};

/// For DoubleProperty. NaN fails.
class COMMONKIT_EXPORT DefaultDoubleValidator : public QObject, public PropertyValidator
{
public:
    /// Accepts the values from minimum to maximum, both included.
    DefaultDoubleValidator(double minimum, double maximum);
    ~DefaultDoubleValidator() override;
    /// Passes the value of a DoubleProperty within the range and fails any
    /// other; throws ko::UnexpectedTypeException for a property of another
    /// class, leaving its verdict alone.
    bool validate(PropertySet& set, BaseProperty& property) override;
    /// The smallest accepted value.
    double minimum() const { return m_minimum; }
    /// The largest accepted value.
    double maximum() const { return m_maximum; }

private:
    double m_minimum;
    double m_maximum;
};

} // namespace kogen
