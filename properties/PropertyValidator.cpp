#include <CommonKit/properties/PropertyValidator.h>

#include <CommonKit/properties/BaseProperty.h>
#include <CommonKit/properties/Properties.h>

namespace kogen {

PropertyValidator::~PropertyValidator() = default;

void PropertyValidator::setValid(BaseProperty& property, bool valid)
{
    property.m_valid = valid;
}

void PropertyValidator::setValidationMessage(BaseProperty& property, const QString& message)
{
    property.m_validationMessage = message;
}

void PropertyValidator::pass(BaseProperty& property)
{
    property.m_valid = true;
    property.m_validationMessage.clear();
}

void PropertyValidator::failOutOfRange(BaseProperty& property)
{
    property.m_valid = false;
    property.m_validationMessage = QObject::tr("Value out of range.");
}

DefaultIntValidator::DefaultIntValidator(int minimum, int maximum)
    : m_minimum(minimum), m_maximum(maximum)
{
}

DefaultIntValidator::~DefaultIntValidator() = default;

bool DefaultIntValidator::validate(PropertySet&, BaseProperty& property)
{
    const int value = IntProperty::getValue(property, 0);
    if (m_minimum <= value && value <= m_maximum)
        pass(property);
    else
        failOutOfRange(property);
    return property.isValid();
}

DefaultUIntValidator::DefaultUIntValidator(quint32 minimum, quint32 maximum)
    : m_minimum(minimum), m_maximum(maximum)
{
}

DefaultUIntValidator::~DefaultUIntValidator() = default;

bool DefaultUIntValidator::validate(PropertySet&, BaseProperty& property)
{
    const quint32 value = UIntProperty::getValue(property, 0);
    if (m_minimum <= value && value <= m_maximum)
        pass(property);
    else
        failOutOfRange(property);
    return property.isValid();
}

DefaultU64Validator::DefaultU64Validator(quint64 minimum, quint64 maximum)
    : m_minimum(minimum), m_maximum(maximum)
{
}

DefaultU64Validator::~DefaultU64Validator() = default;

bool DefaultU64Validator::validate(PropertySet&, BaseProperty& property)
{
    // Only the low 32 bits take part (see the header).
    const quint64 value = static_cast<quint32>(U64Property::getValue(property, 0));
    if (m_minimum <= value && value <= m_maximum)
        pass(property);
    else
        failOutOfRange(property);
    return property.isValid();
}

DefaultFloatValidator::DefaultFloatValidator(float minimum, float maximum)
    : m_minimum(minimum), m_maximum(maximum)
{
}

DefaultFloatValidator::~DefaultFloatValidator() = default;

bool DefaultFloatValidator::validate(PropertySet&, BaseProperty& property)
{
    const float value = FloatProperty::getValue(property, 0.0f);
    // Written so that NaN fails: its first comparison is false.
    if (value >= m_minimum && !(value > m_maximum))
        pass(property);
    else
        failOutOfRange(property);
    return property.isValid();
}

DefaultDoubleValidator::DefaultDoubleValidator(double minimum, double maximum)
    : m_minimum(minimum), m_maximum(maximum)
{
}

DefaultDoubleValidator::~DefaultDoubleValidator() = default;

bool DefaultDoubleValidator::validate(PropertySet&, BaseProperty& property)
{
    const double value = DoubleProperty::getValue(property, 0.0);
    if (value >= m_minimum && !(value > m_maximum))
        pass(property);
    else
        failOutOfRange(property);
    return property.isValid();
}

} // namespace kogen
