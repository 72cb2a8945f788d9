#include <CommonKit/properties/BaseProperty.h>

#include <CommonKit/properties/Properties.h>
#include <CommonKit/properties/PropertyValidator.h>

#include <QTextStream>

namespace kogen {

BaseProperty::BaseProperty() : m_valid(false)
{
}

BaseProperty::BaseProperty(const QString& name) : m_valid(false), m_name(name)
{
}

BaseProperty::BaseProperty(const BaseProperty& other) = default;

// Copies description, validation message, valid flag, validator (shared) and
// name, in the order of the members.
BaseProperty& BaseProperty::operator=(const BaseProperty& other) = default;

BaseProperty::~BaseProperty() = default;

void BaseProperty::setDescription(const QString& description)
{
    if (dynamic_cast<const IllegalProperty*>(this))
        return;
    m_description = description;
}

void BaseProperty::setValidator(const boost::shared_ptr<PropertyValidator>& validator)
{
    if (dynamic_cast<const IllegalProperty*>(this))
        return;
    m_validator = validator;
}

bool BaseProperty::validate(PropertySet& set)
{
    if (!m_validator)
        return true;
    // Hold the validator while it runs: it may replace itself on the property.
    const boost::shared_ptr<PropertyValidator> validator = m_validator;
    return validator->validate(set, *this);
}

void BaseProperty::dumpHeader(QTextStream& stream) const
{
    stream << "Property name: " << m_name << "\n"
           << "Property description: " << m_description << "\n";
}

void BaseProperty::dumpFooter(QTextStream& stream)
{
    stream << "--------------------------------------------\n";
}

} // namespace kogen
