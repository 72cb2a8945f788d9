#include <CommonKit/properties/Properties.h>

#include <CommonKit/support/core/Exception.h>

#include <QTextStream>

#include <cmath>
#include <limits>
#include <vector>

namespace kogen {
namespace {

const char* const k_wrongType = "Property has the wrong type.";

[[noreturn]] void throwWrongType(const BaseProperty& property, const char* expectedType)
{
    throw ko::UnexpectedTypeException(property.propertyName(), property.type(),
                                      QLatin1String(expectedType), QLatin1String(k_wrongType));
}

bool isIllegal(const BaseProperty& property)
{
    return dynamic_cast<const IllegalProperty*>(&property) != nullptr;
}

// The float nearest to a double, as IEEE rounding to nearest gives it, without
// relying on a conversion of an out-of-range value: a value just above the
// largest float still rounds down to it; from halfway between the largest
// float and 2^128 on, the result is infinite.
float narrowToFloat(double value)
{
    const double largest = static_cast<double>(std::numeric_limits<float>::max());
    if (std::isfinite(value) && std::fabs(value) > largest) {
        const double overflow = std::ldexp(1.0, 128) - std::ldexp(1.0, 103);
        const float limit = std::fabs(value) >= overflow ? std::numeric_limits<float>::infinity()
                                                         : std::numeric_limits<float>::max();
        return value > 0 ? limit : -limit;
    }
    return static_cast<float>(value);
}

// The embedded sets being walked by this thread, innermost last. A set that
// (through copies) contains its own property would otherwise recurse without
// end in variantValue() and dump().
thread_local std::vector<const PropertySetProperty*> t_activeSets;

class ActiveSetGuard
{
public:
    explicit ActiveSetGuard(const PropertySetProperty* property) : m_entered(false)
    {
        for (const PropertySetProperty* active : t_activeSets) {
            if (active == property)
                return;
        }
        t_activeSets.push_back(property);
        m_entered = true;
    }
    ~ActiveSetGuard()
    {
        if (m_entered)
            t_activeSets.pop_back();
    }
    ActiveSetGuard(const ActiveSetGuard&) = delete;
    ActiveSetGuard& operator=(const ActiveSetGuard&) = delete;

    // False when the property is already being walked further out.
    bool entered() const { return m_entered; }

private:
    bool m_entered;
};

} // namespace

// Constructors, copying and type() of a class whose value starts
// value-initialised (false, 0, null string, null rectangle, ...).
#define KOGEN_PROPERTY_BASICS(Class)                                                  \
    Class::Class() : m_value() {}                                                     \
    Class::Class(const QString& name) : BaseProperty(name), m_value() {}              \
    Class::Class(const Class& other) = default;                                       \
    Class& Class::operator=(const Class& other) = default;                            \
    Class::~Class() = default;                                                        \
    QString Class::type() const { return QStringLiteral(#Class); }

// The static typed accessors. setExpected is the type named by setValue's
// exception.
#define KOGEN_PROPERTY_ACCESSORS(Class, Result, Param, setExpected)                    \
    Result Class::getValue(const BaseProperty& property, Param defaultValue)          \
    {                                                                                 \
        if (const auto* typed = dynamic_cast<const Class*>(&property))                \
            return typed->m_value;                                                    \
        if (isIllegal(property))                                                      \
            return defaultValue;                                                      \
        throwWrongType(property, #Class);                                             \
    }                                                                                 \
    void Class::setValue(BaseProperty& property, Param value)                         \
    {                                                                                 \
        auto* typed = dynamic_cast<Class*>(&property);                                \
        if (!typed)                                                                   \
            throwWrongType(property, setExpected);                                    \
        typed->m_value = value;                                                       \
    }

// setVariantValue of a class that takes any variant Qt can convert to its
// type, through the given QVariant member.
#define KOGEN_PROPERTY_CONVERTING_SETTER(Class, metaType, toType)                     \
    bool Class::setVariantValue(const QVariant& value)                                \
    {                                                                                 \
        if (!value.canConvert(metaType))                                              \
            return false;                                                             \
        m_value = value.toType();                                                     \
        return true;                                                                  \
    }

// dump() with a value line written by the expression valueText.
#define KOGEN_PROPERTY_DUMP(Class, valueText)                                         \
    QTextStream& Class::dump(QTextStream& stream) const                               \
    {                                                                                 \
        dumpHeader(stream);                                                           \
        stream << "Property value: " << (valueText) << "\n";                          \
        dumpFooter(stream);                                                           \
        return stream;                                                                \
    }

// ---- bool, numbers

KOGEN_PROPERTY_BASICS(BoolProperty)
KOGEN_PROPERTY_ACCESSORS(BoolProperty, bool, bool, "BoolProperty")
KOGEN_PROPERTY_CONVERTING_SETTER(BoolProperty, QMetaType::Bool, toBool)
KOGEN_PROPERTY_DUMP(BoolProperty, static_cast<int>(m_value))
QVariant BoolProperty::variantValue() const { return QVariant(m_value); }

KOGEN_PROPERTY_BASICS(IntProperty)
KOGEN_PROPERTY_ACCESSORS(IntProperty, int, int, "IntProperty")
KOGEN_PROPERTY_CONVERTING_SETTER(IntProperty, QMetaType::Int, toInt)
KOGEN_PROPERTY_DUMP(IntProperty, m_value)
QVariant IntProperty::variantValue() const { return QVariant(m_value); }

KOGEN_PROPERTY_BASICS(UIntProperty)
KOGEN_PROPERTY_ACCESSORS(UIntProperty, quint32, quint32, "UIntProperty")
KOGEN_PROPERTY_CONVERTING_SETTER(UIntProperty, QMetaType::UInt, toUInt)
KOGEN_PROPERTY_DUMP(UIntProperty, m_value)
QVariant UIntProperty::variantValue() const { return QVariant(m_value); }

KOGEN_PROPERTY_BASICS(U64Property)
KOGEN_PROPERTY_ACCESSORS(U64Property, quint64, quint64, "U64Property")
KOGEN_PROPERTY_CONVERTING_SETTER(U64Property, QMetaType::ULongLong, toULongLong)
KOGEN_PROPERTY_DUMP(U64Property, static_cast<qulonglong>(m_value))
QVariant U64Property::variantValue() const { return QVariant(static_cast<qulonglong>(m_value)); }

KOGEN_PROPERTY_BASICS(FloatProperty)
KOGEN_PROPERTY_ACCESSORS(FloatProperty, float, float, "FloatProperty")
KOGEN_PROPERTY_DUMP(FloatProperty, m_value)
QVariant FloatProperty::variantValue() const { return QVariant(m_value); }
bool FloatProperty::setVariantValue(const QVariant& value)
{
    if (!value.canConvert(QMetaType::Double))
        return false;
    m_value = narrowToFloat(value.toDouble());
    return true;
}

KOGEN_PROPERTY_BASICS(DoubleProperty)
KOGEN_PROPERTY_ACCESSORS(DoubleProperty, double, double, "DoubleProperty")
KOGEN_PROPERTY_CONVERTING_SETTER(DoubleProperty, QMetaType::Double, toDouble)
KOGEN_PROPERTY_DUMP(DoubleProperty, m_value)
QVariant DoubleProperty::variantValue() const { return QVariant(m_value); }

// ---- texts and bytes

KOGEN_PROPERTY_BASICS(StringProperty)
KOGEN_PROPERTY_ACCESSORS(StringProperty, QString, const QString&, "StringProperty")
KOGEN_PROPERTY_CONVERTING_SETTER(StringProperty, QMetaType::QString, toString)
KOGEN_PROPERTY_DUMP(StringProperty, m_value)
QVariant StringProperty::variantValue() const { return QVariant(m_value); }

KOGEN_PROPERTY_BASICS(StringListProperty)
// setValue names "StringProperty" as the expected type; clients match on it.
KOGEN_PROPERTY_ACCESSORS(StringListProperty, QStringList, const QStringList&, "StringProperty")
KOGEN_PROPERTY_DUMP(StringListProperty, m_value.join(QLatin1Char(',')))
QVariant StringListProperty::variantValue() const { return QVariant(m_value); }
bool StringListProperty::setVariantValue(const QVariant& value)
{
    if (value.canConvert(QMetaType::QStringList))
        m_value = value.toStringList();
    else
        m_value = value.toString().split(QLatin1Char(','), Qt::KeepEmptyParts, Qt::CaseSensitive);
    return true;
}

KOGEN_PROPERTY_BASICS(ByteArrayProperty)
KOGEN_PROPERTY_ACCESSORS(ByteArrayProperty, QByteArray, const QByteArray&, "ByteArrayProperty")
KOGEN_PROPERTY_CONVERTING_SETTER(ByteArrayProperty, QMetaType::QByteArray, toByteArray)
QVariant ByteArrayProperty::variantValue() const { return QVariant(m_value); }
QTextStream& ByteArrayProperty::dump(QTextStream& stream) const
{
    dumpHeader(stream);
    stream << "Property value: (QByteArray of length " << m_value.size() << " )\n";
    dumpFooter(stream);
    return stream;
}

// ---- geometry and time

KOGEN_PROPERTY_BASICS(RectProperty)
KOGEN_PROPERTY_ACCESSORS(RectProperty, QRect, const QRect&, "RectProperty")
KOGEN_PROPERTY_CONVERTING_SETTER(RectProperty, QMetaType::QRect, toRect)
QVariant RectProperty::variantValue() const { return QVariant(m_value); }
QTextStream& RectProperty::dump(QTextStream& stream) const
{
    // Width and height in 64 bits: right - left + 1 overflows int for the
    // widest rectangles.
    const qint64 width = static_cast<qint64>(m_value.right()) - m_value.left() + 1;
    const qint64 height = static_cast<qint64>(m_value.bottom()) - m_value.top() + 1;
    dumpHeader(stream);
    stream << "Property value: (" << m_value.left() << "," << m_value.top() << "," << width << ","
           << height << ")\n";
    dumpFooter(stream);
    return stream;
}

// A date property is read and written only through variants.
KOGEN_PROPERTY_BASICS(DateProperty)
KOGEN_PROPERTY_CONVERTING_SETTER(DateProperty, QMetaType::QDate, toDate)
KOGEN_PROPERTY_DUMP(DateProperty, m_value.toString(Qt::TextDate))
QVariant DateProperty::variantValue() const { return QVariant(m_value); }

KOGEN_PROPERTY_BASICS(TimeProperty)
KOGEN_PROPERTY_ACCESSORS(TimeProperty, QTime, const QTime&, "TimeProperty")
KOGEN_PROPERTY_CONVERTING_SETTER(TimeProperty, QMetaType::QTime, toTime)
KOGEN_PROPERTY_DUMP(TimeProperty, m_value.toString(Qt::TextDate))
QVariant TimeProperty::variantValue() const { return QVariant(m_value); }

KOGEN_PROPERTY_BASICS(DateTimeProperty)
KOGEN_PROPERTY_ACCESSORS(DateTimeProperty, QDateTime, const QDateTime&, "DateTimeProperty")
KOGEN_PROPERTY_CONVERTING_SETTER(DateTimeProperty, QMetaType::QDateTime, toDateTime)
KOGEN_PROPERTY_DUMP(DateTimeProperty, m_value.toString(Qt::TextDate))
QVariant DateTimeProperty::variantValue() const { return QVariant(m_value); }

// ---- variants and embedded sets

KOGEN_PROPERTY_BASICS(VariantProperty)
KOGEN_PROPERTY_ACCESSORS(VariantProperty, QVariant, const QVariant&, "VariantProperty")
KOGEN_PROPERTY_DUMP(VariantProperty, m_value.toString())
QVariant VariantProperty::variantValue() const { return m_value; }
bool VariantProperty::setVariantValue(const QVariant& value)
{
    m_value = value;
    return true;
}

KOGEN_PROPERTY_BASICS(PropertySetProperty)
KOGEN_PROPERTY_ACCESSORS(PropertySetProperty, PropertySet, const PropertySet&, "PropertySetProperty")

QVariant PropertySetProperty::variantValue() const
{
    const ActiveSetGuard guard(this);
    if (!guard.entered())
        return QVariant();
    return QVariant(m_value.variantValues());
}

bool PropertySetProperty::setVariantValue(const QVariant& value)
{
    if (!value.canConvert(QMetaType::QVariantMap))
        return false;
    const QVariantMap values = value.toMap();
    bool result = true;
    for (auto it = values.constBegin(); it != values.constEnd(); ++it) {
        // An unknown key finds the IllegalProperty, which refuses the value.
        if (!m_value[it.key()].setVariantValue(it.value()))
            result = false;
    }
    return result;
}

QTextStream& PropertySetProperty::dump(QTextStream& stream) const
{
    const ActiveSetGuard guard(this);
    dumpHeader(stream);
    if (guard.entered()) {
        stream << "Embedded property set: " << "\n";
        m_value.dump(stream) << "\n";
    } else {
        stream << "Embedded property set: (contains itself)\n";
    }
    dumpFooter(stream);
    return stream;
}

// ---- the null object

IllegalProperty::IllegalProperty() = default;
IllegalProperty::IllegalProperty(const IllegalProperty& other) = default;
IllegalProperty::~IllegalProperty() = default;

IllegalProperty& IllegalProperty::instance()
{
    static IllegalProperty illegal;
    return illegal;
}

QString IllegalProperty::type() const
{
    return QStringLiteral("IllegalProperty");
}

QTextStream& IllegalProperty::dump(QTextStream& stream) const
{
    // The missing letter is part of the established output.
    stream << "IllegaProperty" << "\n";
    return stream;
}

QVariant IllegalProperty::variantValue() const
{
    return QVariant();
}

bool IllegalProperty::setVariantValue(const QVariant&)
{
    return false;
}

namespace {
// Create the library-wide instance when the library loads.
[[maybe_unused]] const IllegalProperty& k_illegalAtLoad = IllegalProperty::instance();
} // namespace

} // namespace kogen
