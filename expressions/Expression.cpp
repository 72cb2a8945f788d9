#include <CommonKit/expressions/Expression.h>

#include "expressions/VariantStream_p.h"
#include <CommonKit/properties/BaseProperty.h>
#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/properties/TypeTool.h>
#include <CommonKit/support/core/QtDeprecated.h>

#include <QDataStream>
#include <QDate>
#include <QDateTime>
#include <QRegExp>
#include <QTextStream>
#include <QTime>

#include <typeinfo>

#if defined(__GNUG__)
#include <cxxabi.h>
#include <cstdlib>
#endif

namespace kogen {

namespace {

// Deeper trees are refused by the reader: they would only come from a
// damaged or hostile stream, and the recursion must stay within the stack.
constexpr int kMaxReadDepth = 1000;
thread_local int tReadDepth = 0;
// The longest tag registered so far, in bytes without the terminating zero.
int gLongestTag = 0;

// Reads a tag as QDataStream reads a char*: a byte count including the
// terminating zero, then the bytes; the tag ends at the first zero byte.
// Only the first longestTag + 1 bytes are kept (a longer tag cannot be
// registered) and the rest is skipped, so a huge count costs neither memory
// nor copying. Returns false when the stream ends first.
bool readTag(QDataStream& in, int longestTag, QByteArray* tag)
{
    quint32 length = 0;
    in >> length;
    if (in.status() != QDataStream::Ok)
        return false;
    const int kept = static_cast<int>(qMin<quint32>(length, static_cast<quint32>(longestTag) + 1));
    QByteArray bytes(kept, Qt::Uninitialized);
    if (kept > 0 && in.readRawData(bytes.data(), kept) != kept)
        return false;
    for (quint32 rest = length - static_cast<quint32>(kept); rest > 0;) {
        const int step = static_cast<int>(qMin<quint32>(rest, 1u << 30));
        if (in.skipRawData(step) != step) {
            in.setStatus(QDataStream::ReadPastEnd);
            return false;
        }
        rest -= static_cast<quint32>(step);
    }
    const int end = bytes.indexOf('\0');
    *tag = end < 0 ? bytes : bytes.left(end);
    return true;
}

QByteArray typeName(const std::type_info& info)
{
#if defined(__GNUG__)
    int status = 0;
    char* demangled = abi::__cxa_demangle(info.name(), nullptr, nullptr, &status);
    if (status == 0 && demangled) {
        QByteArray name(demangled);
        std::free(demangled);
        return name;
    }
    std::free(demangled);
    return QByteArray(info.name());
#else
    // MSVC already spells "class ns::Name".
    QByteArray name(info.name());
    if (name.startsWith("class "))
        name.remove(0, 6);
    return name;
#endif
}

} // namespace

// --- Expression -------------------------------------------------------------

Expression::Expression() = default;
Expression::Expression(const Expression& other) : QSharedData(other) {}
Expression& Expression::operator=(const Expression&) { return *this; }
Expression::~Expression() = default;

void Expression::collectPlaceholders(QList<QVariant>&) const {}

QVariant Expression::evaluate() const
{
    const PropertySet empty;
    return evaluate(empty, nullptr);
}

QString Expression::toString(PrintStyle style) const
{
    QString text;
    QTextStream out(&text, QIODevice::ReadWrite);
    print(out, style);
    out.flush();
    return text;
}

QList<QVariant> Expression::collectPlaceholders() const
{
    QList<QVariant> values;
    collectPlaceholders(values);
    return values;
}

bool Expression::equals(const Expression* a, const Expression* b)
{
    if (a == b)
        return true;
    if (!a || !b)
        return false;
    return a->equals(b);
}

QByteArray Expression::classTag(const Expression& node)
{
    return QByteArray("class ") + typeName(typeid(node));
}

QMap<QString, ExpressionHandle>& Expression::expressionClassMap()
{
    static QMap<QString, ExpressionHandle> map;
    return map;
}

bool Expression::registerExpressionClass(ExpressionHandle prototype)
{
    if (!prototype.constData())
        return false;
    const QString tag = QString::fromLatin1(classTag(*prototype));
    if (tag.isEmpty() || expressionClassMap().contains(tag))
        return false;
    expressionClassMap().insert(tag, prototype);
    gLongestTag = qMax(gLongestTag, tag.size());
    return true;
}

void Expression::writeExpression(QDataStream& out, ExpressionHandle expression)
{
    const QByteArray tag = classTag(*expression);
    out << tag.constData();
    expression->write(out);
}

int Expression::maxReadDepth() { return kMaxReadDepth; }

ExpressionHandle Expression::readExpression(QDataStream& in)
{
    ExpressionHandle result = ExpressionList::empty();
    QByteArray tagBytes;
    if (!readTag(in, gLongestTag, &tagBytes) || tagBytes.isEmpty())
        return result;
    const QString tag = QString::fromLatin1(tagBytes);
    const auto found = expressionClassMap().constFind(tag);
    if (found == expressionClassMap().constEnd())
        return result;

    if (tReadDepth >= kMaxReadDepth) {
        in.setStatus(QDataStream::ReadCorruptData);
        return result;
    }
    ++tReadDepth;
    result = found.value();
    result.data()->read(in); // data() detaches: the prototype itself stays untouched
    --tReadDepth;
    return result;
}

// --- ExpressionHandle ---------------------------------------------------------

ExpressionHandle::ExpressionHandle() : m_node(ExpressionList::empty().m_node) {}
ExpressionHandle::ExpressionHandle(const Expression& expression) : m_node(expression.clone()) {}
ExpressionHandle::ExpressionHandle(Expression* node) : m_node(node) {}
ExpressionHandle::~ExpressionHandle() = default;

bool ExpressionHandle::equals(ExpressionHandle other) const
{
    return Expression::equals(constData(), other.constData());
}

// --- ConstExpression ----------------------------------------------------------

ConstExpression::ConstExpression(const QVariant& value, bool placeholder)
    : m_value(value), m_placeholder(placeholder)
{
}
ConstExpression::ConstExpression(const ConstExpression& other)
    : Expression(other), m_value(other.m_value), m_placeholder(other.m_placeholder)
{
}
ConstExpression& ConstExpression::operator=(const ConstExpression& other)
{
    m_value = other.m_value;
    m_placeholder = other.m_placeholder;
    return *this;
}
ConstExpression::~ConstExpression() = default;

ConstExpression ConstExpression::date(int year, int month, int day)
{
    return ConstExpression(QDate(year, month, day), false);
}

ConstExpression ConstExpression::time(int hour, int minute, int second, int msec)
{
    return ConstExpression(QTime(hour, minute, second, msec), false);
}

ConstExpression ConstExpression::dateTime(int year, int month, int day, int hour, int minute, int second, int msec)
{
    return ConstExpression(QDateTime(QDate(year, month, day), QTime(hour, minute, second, msec)), false);
}

QVariant ConstExpression::evaluate(const PropertySet&, bool* isConstant) const
{
    if (isConstant)
        *isConstant = true;
    return m_value;
}

Expression* ConstExpression::clone() const { return new ConstExpression(*this); }

bool ConstExpression::equals(const Expression* other) const
{
    const auto* that = dynamic_cast<const ConstExpression*>(other);
    return that && that->m_value == m_value;
}

void ConstExpression::print(QTextStream& out, PrintStyle style) const
{
    if (!m_placeholder)
        style &= ~PrintStyle(PrintPlaceholders);
    printValue(out, m_value, style);
}

void ConstExpression::collectPlaceholders(QList<QVariant>& out) const
{
    if (!m_placeholder)
        return;
    if (TypeTool::isDate(m_value.type()))
        out.append(QVariant(TypeTool::dateMicroSeconds(m_value)));
    else
        out.append(m_value);
}

bool ConstExpression::isEmpty() const { return m_value.type() == QVariant::Invalid; }

void ConstExpression::printValue(QTextStream& out, const QVariant& value, PrintStyle style)
{
    if (style & PrintPlaceholders) {
        out << "?";
    } else if (TypeTool::isNumeric(value.type())) {
        out << stringValue(value);
    } else if (TypeTool::isDate(value.type())) {
        if (style & PrintSql)
            out << TypeTool::dateMicroSeconds(value);
        else
            out << stringValue(value);
    } else if (style & PrintSql) {
        QString text = stringValue(value);
        text.replace(QLatin1Char('\''), QLatin1String("''"));
        out << '\'' << text << '\'';
    } else {
        out << '"' << stringValue(value) << '"';
    }
}

QString ConstExpression::stringValue(const QVariant& value)
{
    if (value.type() == QVariant::RegExp)
        return value.toRegExp().pattern();
    return value.toString();
}

void ConstExpression::write(QDataStream& out) const
{
    out << qint32(1) << m_placeholder;
    writeVariant(out, m_value);
}

void ConstExpression::read(QDataStream& in)
{
    qint32 version = 0;
    in >> version >> m_placeholder;
    m_value = readVariant(in);
}

// --- ValueExpression ----------------------------------------------------------

ValueExpression::ValueExpression(const BaseProperty& property, const QString& alias)
    : m_name(property.propertyName()), m_alias(alias)
{
}
ValueExpression::ValueExpression(const QString& name, const QString& alias) : m_name(name), m_alias(alias) {}
ValueExpression::ValueExpression(const ValueExpression& other)
    : Expression(other), m_name(other.m_name), m_alias(other.m_alias)
{
}
ValueExpression& ValueExpression::operator=(const ValueExpression& other)
{
    m_name = other.m_name;
    m_alias = other.m_alias;
    return *this;
}
ValueExpression::~ValueExpression() = default;

QVariant ValueExpression::evaluate(const PropertySet& set, bool* isConstant) const
{
    if (isConstant)
        *isConstant = false;
    // The alias first: rows fetched under a column alias are found by it.
    if (const BaseProperty* property = set.find(m_alias))
        return property->variantValue();
    if (const BaseProperty* property = set.find(m_name))
        return property->variantValue();
    return QVariant();
}

Expression* ValueExpression::clone() const { return new ValueExpression(*this); }

bool ValueExpression::equals(const Expression* other) const
{
    const auto* that = dynamic_cast<const ValueExpression*>(other);
    return that && that->m_name == m_name && that->m_alias == m_alias;
}

void ValueExpression::print(QTextStream& out, PrintStyle style) const
{
    QString name = m_name;
    out << name.replace(QLatin1Char(' '), QLatin1Char('_'));
    if ((style & PrintSql) && !m_alias.isEmpty())
        out << " AS " << m_alias;
}

bool ValueExpression::isEmpty() const { return m_name.isEmpty(); }

void ValueExpression::write(QDataStream& out) const { out << qint32(2) << m_name << m_alias; }

void ValueExpression::read(QDataStream& in)
{
    qint32 version = 0;
    in >> version >> m_name >> m_alias;
}

// --- CastExpression -----------------------------------------------------------

CastExpression::CastExpression(QVariant::Type type, ExpressionHandle operand) : m_type(type), m_operand(operand) {}
CastExpression::CastExpression(const CastExpression& other)
    : Expression(other), m_type(other.m_type), m_operand(other.m_operand)
{
}
CastExpression& CastExpression::operator=(const CastExpression& other)
{
    m_type = other.m_type;
    m_operand = other.m_operand;
    return *this;
}
CastExpression::~CastExpression() = default;

QVariant CastExpression::evaluate(const PropertySet& set, bool* isConstant) const
{
    QVariant value = m_operand->evaluate(set, isConstant);
    if (value.canConvert(int(m_type))) {
        value.convert(int(m_type));
        return value;
    }
    // QVariant refuses conversions between dates and numbers.
    return TypeTool::castDate(value, m_type);
}

Expression* CastExpression::clone() const { return new CastExpression(*this); }

bool CastExpression::equals(const Expression* other) const
{
    const auto* that = dynamic_cast<const CastExpression*>(other);
    return that && that->m_type == m_type && m_operand.equals(that->m_operand);
}

void CastExpression::print(QTextStream& out, PrintStyle style) const
{
    const QLatin1String name(QVariant::typeToName(int(m_type)));
    if (style & PrintCode) {
        out << "(" << name << ")";
        m_operand->print(out, style | PrintNested);
    } else {
        out << "CAST(";
        m_operand->print(out, style);
        out << " AS " << name << ")";
    }
}

void CastExpression::collectPlaceholders(QList<QVariant>& out) const
{
    const int before = out.size();
    m_operand->collectPlaceholders(out);
    // Bound values carry the type that the printed cast names.
    for (int i = before; i < out.size(); ++i)
        out[i].convert(int(m_type));
}

bool CastExpression::isEmpty() const { return m_operand->isEmpty(); }

void CastExpression::write(QDataStream& out) const
{
    out << qint32(1) << m_type;
    writeExpression(out, m_operand);
}

void CastExpression::read(QDataStream& in)
{
    qint32 version = 0;
    qint32 type = 0;
    in >> version >> type;
    // Through quint32: every 32-bit pattern is a value of QVariant::Type.
    m_type = static_cast<QVariant::Type>(static_cast<quint32>(type));
    m_operand = readExpression(in);
}

CastExpression toBool(ExpressionHandle operand) { return CastExpression(QVariant::Bool, operand); }
CastExpression toInt(ExpressionHandle operand) { return CastExpression(QVariant::Int, operand); }
CastExpression toUInt(ExpressionHandle operand) { return CastExpression(QVariant::UInt, operand); }
CastExpression toLongLong(ExpressionHandle operand) { return CastExpression(QVariant::LongLong, operand); }
CastExpression toULongLong(ExpressionHandle operand) { return CastExpression(QVariant::ULongLong, operand); }
CastExpression toDouble(ExpressionHandle operand) { return CastExpression(QVariant::Double, operand); }
CastExpression toString(ExpressionHandle operand) { return CastExpression(QVariant::String, operand); }
CastExpression toDate(ExpressionHandle operand) { return CastExpression(QVariant::Date, operand); }
CastExpression toTime(ExpressionHandle operand) { return CastExpression(QVariant::Time, operand); }
CastExpression toDateTime(ExpressionHandle operand) { return CastExpression(QVariant::DateTime, operand); }

// --- Operator -----------------------------------------------------------------

Operator::Operator() = default;
Operator::Operator(ExpressionHandle child) { m_children.append(child); }
Operator::Operator(ExpressionHandle first, ExpressionHandle second)
{
    m_children.append(first);
    m_children.append(second);
}
Operator::Operator(const Operator& other) : Expression(other), m_children(other.m_children) {}
Operator& Operator::operator=(const Operator& other)
{
    m_children = other.m_children;
    return *this;
}
Operator::~Operator() = default;

void Operator::append(ExpressionHandle child) { m_children.append(child); }

bool Operator::equals(const Expression* other) const
{
    const auto* that = dynamic_cast<const Operator*>(other);
    if (!that || that->m_children.size() != m_children.size())
        return false;
    for (int i = 0; i < m_children.size(); ++i) {
        if (!m_children.at(i).equals(that->m_children.at(i)))
            return false;
    }
    return true;
}

void Operator::collectPlaceholders(QList<QVariant>& out) const
{
    for (const ExpressionHandle& child : m_children)
        child->collectPlaceholders(out);
}

bool Operator::isEmpty() const { return m_children.isEmpty(); }

void Operator::write(QDataStream& out) const
{
    out << qint32(1) << qint32(m_children.size());
    for (const ExpressionHandle& child : m_children)
        writeExpression(out, child);
}

void Operator::read(QDataStream& in)
{
    m_children.clear();
    qint32 version = 0;
    qint32 count = 0;
    in >> version >> count;
    // Every child takes at least the four bytes of its tag length, so the
    // loop ends with the stream's data even for a hostile count.
    for (qint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
        ExpressionHandle child = readExpression(in);
        if (in.status() != QDataStream::Ok)
            break;
        m_children.append(child);
    }
}

// --- ExpressionList -------------------------------------------------------------

ExpressionList::ExpressionList() = default;
ExpressionList::ExpressionList(ExpressionHandle first) : Operator(first) {}
ExpressionList::ExpressionList(ExpressionHandle first, ExpressionHandle second) : Operator(first, second) {}
ExpressionList::ExpressionList(const QList<QVariant>& values)
{
    for (const QVariant& value : values)
        append(value);
}
ExpressionList::ExpressionList(const ExpressionList& other) = default;
ExpressionList& ExpressionList::operator=(const ExpressionList& other) = default;
ExpressionList::~ExpressionList() = default;

ExpressionList& ExpressionList::append(ExpressionHandle child)
{
    Operator::append(child);
    return *this;
}

ExpressionList& ExpressionList::append(const BaseProperty& property)
{
    return append(ExpressionHandle(ValueExpression(property, QString())));
}

ExpressionList& ExpressionList::append(const QVariant& value)
{
    return append(ExpressionHandle(ConstExpression(value, true)));
}

ExpressionList& ExpressionList::append(const ExpressionList& list)
{
    const QList<ExpressionHandle> items = list.children();
    for (const ExpressionHandle& child : items)
        Operator::append(child);
    return *this;
}

ExpressionHandle ExpressionList::operator[](int index) const { return children().at(index); }

int ExpressionList::size() const { return children().size(); }

const Expression& Operator::emptyChild()
{
    // The node outlives the returned handle: empty() keeps it in a static.
    return *ExpressionList::empty();
}

ExpressionHandle ExpressionList::empty()
{
    static const ExpressionHandle list(new ExpressionList());
    return list;
}

QVariant ExpressionList::evaluate(const PropertySet& set, bool* isConstant) const
{
    bool constant = true;
    QVariantList values;
    for (const ExpressionHandle& child : children()) {
        bool childConstant = false;
        values.append(child->evaluate(set, &childConstant));
        constant = constant && childConstant;
    }
    if (isConstant)
        *isConstant = constant;
    return values;
}

Expression* ExpressionList::clone() const { return new ExpressionList(*this); }

void ExpressionList::print(QTextStream& out, PrintStyle style) const
{
    const PrintStyle itemStyle = style & ~PrintStyle(PrintNested);
    bool first = true;
    for (const ExpressionHandle& child : children()) {
        if (!first)
            out << ",";
        first = false;
        child->print(out, itemStyle);
    }
}

ExpressionList operator<<(const BaseProperty& first, const BaseProperty& second)
{
    return ExpressionList(ValueExpression(first), ValueExpression(second));
}

ExpressionList operator<<(const BaseProperty& first, ExpressionHandle second)
{
    return ExpressionList(ValueExpression(first), second);
}

ExpressionList operator<<(ExpressionHandle first, const BaseProperty& second)
{
    return ExpressionList(first, ValueExpression(second));
}

ExpressionList operator<<(ExpressionHandle first, ExpressionHandle second) { return ExpressionList(first, second); }

QDataStream& operator<<(QDataStream& out, ExpressionHandle expression)
{
    Expression::writeExpression(out, expression);
    return out;
}

QTextStream& operator<<(QTextStream& out, ExpressionHandle expression)
{
    expression->print(out, Expression::PrintSql);
    return out;
}

} // namespace kogen
