#include <CommonKit/expressions/Operators.h>

#include <CommonKit/properties/BaseProperty.h>
#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/properties/TypeTool.h>
#include <CommonKit/support/core/QtDeprecated.h>
#include "properties/VariantPeek_p.h"

#include <QDataStream>
#include <QDateTime>
#include <QTextStream>

namespace kogen {

namespace {

ExpressionHandle valueOf(const BaseProperty& property) { return ValueExpression(property, QString()); }
ExpressionHandle placeholder(const QVariant& value) { return ConstExpression(value, true); }

// The truth of a value that is or converts to a bool; false if it does not.
bool asBool(const QVariant& value, bool* truth)
{
    if (holdsBool(value, truth))
        return true;
    if (!value.canConvert(QMetaType::Bool))
        return false;
    *truth = value.toBool();
    return true;
}

// Prints the operand that follows a minus sign (of a subtraction or a
// negation). SQL reads "--" as the start of a comment, so an operand whose
// text begins with "-" is set apart by one blank: "c- -5", "- -x".
void printAfterMinus(QTextStream& out, const ExpressionHandle& operand, Expression::PrintStyle style)
{
    const QString text = operand->toString(style);
    if (text.startsWith(QLatin1Char('-')))
        out << ' ';
    out << text;
}

// Prints the children separated by a text, in parentheses when nested and
// holding two or more operands.
void printChain(QTextStream& out, Expression::PrintStyle style, const QList<ExpressionHandle>& children,
                const char* separator)
{
    const bool parenthesise = (style & Expression::PrintNested) && children.size() >= 2;
    if (parenthesise)
        out << "(";
    const bool minus = qstrcmp(separator, "-") == 0;
    bool first = true;
    for (const ExpressionHandle& child : children) {
        if (!first)
            out << separator;
        if (!first && minus)
            printAfterMinus(out, child, style | Expression::PrintNested);
        else
            child->print(out, style | Expression::PrintNested);
        first = false;
    }
    if (parenthesise)
        out << ")";
}

void writeKind(QDataStream& out, qint32 kind) { out << qint32(1) << kind; }

qint32 readKind(QDataStream& in)
{
    qint32 version = 0;
    qint32 kind = 0;
    in >> version >> kind;
    return kind;
}

} // namespace

// --- Comparator -----------------------------------------------------------------

Comparator::Comparator(ExpressionHandle left, CompOp op, ExpressionHandle right) : Operator(left, right), m_op(op) {}
Comparator::Comparator(CompOp op) : m_op(op) {}
Comparator::Comparator(const Comparator& other) = default;
Comparator& Comparator::operator=(const Comparator& other) = default;
Comparator::~Comparator() = default;

QVariant Comparator::evaluate(const PropertySet& set, bool* isConstant) const
{
    bool leftConstant = false;
    bool rightConstant = false;
    const QVariant left = child(0).evaluate(set, &leftConstant);
    const QVariant right = child(1).evaluate(set, &rightConstant);
    if (isConstant)
        *isConstant = leftConstant && rightConstant;

    TypeTool tool(leftConstant, rightConstant);
    bool result = false;
    switch (m_op) {
    case Equal: result = tool.equals(left, right); break;
    case NotEqual: result = !tool.equals(left, right); break;
    case Less: result = tool.compare(left, right) < 0; break;
    case LessEqual: result = tool.compare(left, right) < 1; break;
    case Greater: result = tool.compare(left, right) > 0; break;
    case GreaterEqual: result = tool.compare(left, right) >= 0; break;
    default: return QVariant();
    }
    return tool.returnOK(QVariant(result));
}

Expression* Comparator::clone() const { return new Comparator(*this); }

bool Comparator::equals(const Expression* other) const
{
    const auto* that = dynamic_cast<const Comparator*>(other);
    return that && that->m_op == m_op && Operator::equals(other);
}

void Comparator::print(QTextStream& out, PrintStyle style) const
{
    const char* text = "";
    switch (m_op) {
    case NotEqual: text = " != "; break;
    case Less: text = " < "; break;
    case Equal: text = (style & PrintCode) ? " == " : " = "; break;
    case Greater: text = " > "; break;
    case LessEqual: text = " <= "; break;
    case GreaterEqual: text = " >= "; break;
    }
    const QList<ExpressionHandle>& operands = children();
    operands.value(0)->print(out, style | PrintNested);
    out << text;
    operands.value(1)->print(out, style | PrintNested);
}

void Comparator::write(QDataStream& out) const
{
    writeKind(out, m_op);
    Operator::write(out);
}

void Comparator::read(QDataStream& in)
{
    m_op = static_cast<CompOp>(readKind(in));
    Operator::read(in);
}

// --- BooleanOperator ----------------------------------------------------------

BooleanOperator::BooleanOperator(ExpressionHandle left, BoolOp op, ExpressionHandle right)
    : Operator(left, right), m_op(op)
{
}
BooleanOperator::BooleanOperator(BoolOp op) : m_op(op) {}
BooleanOperator::BooleanOperator(const BooleanOperator& other) = default;
BooleanOperator& BooleanOperator::operator=(const BooleanOperator& other) = default;
BooleanOperator::~BooleanOperator() = default;

ExpressionHandle BooleanOperator::join(const ExpressionList& list, BoolOp op)
{
    if (list.size() == 0)
        return ExpressionList::empty();
    if (list.size() == 1)
        return list[0];
    BooleanOperator result(op);
    for (const ExpressionHandle& child : list.children())
        result.append(child);
    return result;
}

void BooleanOperator::append(ExpressionHandle child) { Operator::append(child); }

BooleanOperator& BooleanOperator::chain(BoolOp op, ExpressionHandle right)
{
    if (m_op == op) {
        append(right);
    } else {
        BooleanOperator joined(ExpressionHandle(*this), op, right);
        *this = joined;
    }
    return *this;
}

BooleanOperator BooleanOperator::operator&&(ExpressionHandle right) const { return BooleanOperator(*this).chain(And, right); }
BooleanOperator BooleanOperator::operator||(ExpressionHandle right) const { return BooleanOperator(*this).chain(Or, right); }
BooleanOperator& BooleanOperator::operator&=(ExpressionHandle right) { return chain(And, right); }
BooleanOperator& BooleanOperator::operator|=(ExpressionHandle right) { return chain(Or, right); }

QVariant BooleanOperator::evaluate(const PropertySet& set, bool* isConstant) const
{
    bool constant = true;
    QVariant result = (m_op == And);
    for (const ExpressionHandle& child : children()) {
        bool childConstant = false;
        const QVariant value = child->evaluate(set, &childConstant);
        constant = constant && childConstant;
        bool truth = false;
        if (asBool(value, &truth)) {
            if (m_op == And && !truth) {
                result = false;
                break;
            }
            if (m_op == Or && truth) {
                result = true;
                break;
            }
        } else if (m_op == And) {
            // AND stops at the first operand that is not a boolean, even if a
            // later one would be false; OR skips it.
            result = QVariant();
            break;
        }
    }
    if (isConstant)
        *isConstant = constant;
    return result;
}

Expression* BooleanOperator::clone() const { return new BooleanOperator(*this); }

bool BooleanOperator::equals(const Expression* other) const
{
    const auto* that = dynamic_cast<const BooleanOperator*>(other);
    return that && that->m_op == m_op && Operator::equals(other);
}

void BooleanOperator::print(QTextStream& out, PrintStyle style) const
{
    const bool code = style & PrintCode;
    const char* separator = m_op == And ? (code ? " && " : " AND ") : (code ? " || " : " OR ");
    printChain(out, style, children(), separator);
}

void BooleanOperator::write(QDataStream& out) const
{
    writeKind(out, m_op);
    Operator::write(out);
}

void BooleanOperator::read(QDataStream& in)
{
    m_op = static_cast<BoolOp>(readKind(in));
    Operator::read(in);
}

// --- NotOperator ----------------------------------------------------------------

NotOperator::NotOperator(ExpressionHandle operand) : Operator(operand) {}
NotOperator::NotOperator(const NotOperator& other) = default;
NotOperator& NotOperator::operator=(const NotOperator& other) = default;
NotOperator::~NotOperator() = default;

QVariant NotOperator::evaluate(const PropertySet& set, bool* isConstant) const
{
    const QVariant value = child(0).evaluate(set, isConstant);
    bool truth = false;
    if (asBool(value, &truth))
        return !truth;
    return QVariant();
}

Expression* NotOperator::clone() const { return new NotOperator(*this); }

bool NotOperator::equals(const Expression* other) const
{
    return dynamic_cast<const NotOperator*>(other) && Operator::equals(other);
}

void NotOperator::print(QTextStream& out, PrintStyle style) const
{
    out << ((style & PrintCode) ? " ! " : " NOT ");
    children().value(0)->print(out, style | PrintNested);
}

// --- NumericOperator ------------------------------------------------------------

NumericOperator::NumericOperator(ExpressionHandle left, NumOp op, ExpressionHandle right)
    : Operator(left, right), m_op(op)
{
}
NumericOperator::NumericOperator(NumOp op) : m_op(op) {}
NumericOperator::NumericOperator(const NumericOperator& other) = default;
NumericOperator& NumericOperator::operator=(const NumericOperator& other) = default;
NumericOperator::~NumericOperator() = default;

ExpressionHandle NumericOperator::join(const ExpressionList& list, NumOp op)
{
    if (list.size() == 0)
        return ExpressionList::empty();
    if (list.size() == 1)
        return list[0];
    NumericOperator result(op);
    for (const ExpressionHandle& child : list.children())
        result.append(child);
    return result;
}

void NumericOperator::append(ExpressionHandle child) { Operator::append(child); }

NumericOperator& NumericOperator::chain(NumOp op, ExpressionHandle right)
{
    if (m_op == op) {
        append(right);
    } else {
        NumericOperator joined(ExpressionHandle(*this), op, right);
        *this = joined;
    }
    return *this;
}

NumericOperator NumericOperator::operator+(ExpressionHandle right) const { return NumericOperator(*this).chain(Add, right); }
NumericOperator NumericOperator::operator-(ExpressionHandle right) const { return NumericOperator(*this).chain(Subtract, right); }
NumericOperator NumericOperator::operator*(ExpressionHandle right) const { return NumericOperator(*this).chain(Multiply, right); }
NumericOperator NumericOperator::operator/(ExpressionHandle right) const { return NumericOperator(*this).chain(Divide, right); }
NumericOperator NumericOperator::operator%(ExpressionHandle right) const { return NumericOperator(*this).chain(Modulo, right); }
NumericOperator NumericOperator::operator&(ExpressionHandle right) const { return NumericOperator(*this).chain(BitAnd, right); }
NumericOperator NumericOperator::operator|(ExpressionHandle right) const { return NumericOperator(*this).chain(BitOr, right); }
NumericOperator NumericOperator::operator^(ExpressionHandle right) const { return NumericOperator(*this).chain(BitXor, right); }
NumericOperator& NumericOperator::operator+=(ExpressionHandle right) { return chain(Add, right); }
NumericOperator& NumericOperator::operator-=(ExpressionHandle right) { return chain(Subtract, right); }
NumericOperator& NumericOperator::operator*=(ExpressionHandle right) { return chain(Multiply, right); }
NumericOperator& NumericOperator::operator/=(ExpressionHandle right) { return chain(Divide, right); }
NumericOperator& NumericOperator::operator%=(ExpressionHandle right) { return chain(Modulo, right); }
NumericOperator& NumericOperator::operator&=(ExpressionHandle right) { return chain(BitAnd, right); }
NumericOperator& NumericOperator::operator|=(ExpressionHandle right) { return chain(BitOr, right); }
NumericOperator& NumericOperator::operator^=(ExpressionHandle right) { return chain(BitXor, right); }

bool NumericOperator::apply(QVariant& accumulator, bool& accumulatorIsConstant, qint32 op, const QVariant& value,
                            bool valueIsConstant)
{
    if (op < Add || op > BitXor)
        return false;
    TypeTool tool(accumulatorIsConstant, valueIsConstant);
    switch (op) {
    case Add: accumulator = tool.do_add(accumulator, value); break;
    case Subtract: accumulator = tool.do_subtract(accumulator, value); break;
    case Multiply: accumulator = tool.do_multiply(accumulator, value); break;
    case Divide: accumulator = tool.do_divide(accumulator, value); break;
    case Modulo: accumulator = tool.do_modulo(accumulator, value); break;
    case BitAnd: accumulator = tool.do_bitand(accumulator, value); break;
    case BitOr: accumulator = tool.do_bitor(accumulator, value); break;
    default: accumulator = tool.do_bitxor(accumulator, value); break;
    }
    accumulatorIsConstant = accumulatorIsConstant && valueIsConstant;
    return tool.wasOK();
}

QVariant NumericOperator::evaluate(const PropertySet& set, bool* isConstant) const
{
    const QList<ExpressionHandle>& operands = children();
    if (operands.isEmpty()) {
        if (isConstant)
            *isConstant = true;
        return QVariant();
    }
    bool constant = false;
    QVariant accumulator = operands.first()->evaluate(set, &constant);
    bool failed = false;
    for (int i = 1; i < operands.size(); ++i) {
        bool valueConstant = false;
        const QVariant value = operands.at(i)->evaluate(set, &valueConstant);
        const bool applied = apply(accumulator, constant, m_op, value, valueConstant);
        // The operand was evaluated: it counts even when apply() gave up
        // before looking at it (an unknown kind read from a stream).
        constant = constant && valueConstant;
        if (!applied) {
            failed = true;
            break;
        }
    }
    if (isConstant)
        *isConstant = constant;
    return failed ? QVariant() : accumulator;
}

Expression* NumericOperator::clone() const { return new NumericOperator(*this); }

bool NumericOperator::equals(const Expression* other) const
{
    const auto* that = dynamic_cast<const NumericOperator*>(other);
    return that && that->m_op == m_op && Operator::equals(other);
}

void NumericOperator::print(QTextStream& out, PrintStyle style) const
{
    const char* separator = "";
    switch (m_op) {
    case Add: separator = "+"; break;
    case Subtract: separator = "-"; break;
    case Multiply: separator = "*"; break;
    case Divide: separator = "/"; break;
    case Modulo: separator = (style & PrintCode) ? "%" : " mod "; break;
    case BitAnd: separator = "&"; break;
    case BitOr: separator = "|"; break;
    case BitXor: separator = "^"; break;
    }
    printChain(out, style, children(), separator);
}

void NumericOperator::write(QDataStream& out) const
{
    writeKind(out, m_op);
    Operator::write(out);
}

void NumericOperator::read(QDataStream& in)
{
    m_op = static_cast<NumOp>(readKind(in));
    Operator::read(in);
}

// --- UnaryOperator --------------------------------------------------------------

UnaryOperator::UnaryOperator(UnaryOp op, ExpressionHandle operand) : Operator(operand), m_op(op) {}
UnaryOperator::UnaryOperator(const UnaryOperator& other) = default;
UnaryOperator& UnaryOperator::operator=(const UnaryOperator& other) = default;
UnaryOperator::~UnaryOperator() = default;

QVariant UnaryOperator::evaluate(const PropertySet& set, bool* isConstant) const
{
    bool childConstant = false;
    const QVariant value = child(0).evaluate(set, &childConstant);
    QVariant result;
    bool constant = true;
    if (TypeTool::isNumeric(value.type())) {
        // A kind outside the enum (only a stream can hold one) keeps the 0.
        result = QVariant(0);
        TypeTool tool(true, childConstant);
        if (m_op == Negate) {
            result = tool.do_subtract(result, value);
            constant = childConstant;
        } else if (m_op == BitNot) {
            // An exclusive or with 0: it yields the operand itself.
            result = tool.do_bitxor(result, value);
            constant = childConstant;
        }
    } else if (m_op == Negate && TypeTool::isDate(value.type())) {
        COMMONKIT_DEPRECATED_BEGIN
        const QDateTime epoch = QDateTime::fromTime_t(0);
        COMMONKIT_DEPRECATED_END
        result = TypeTool(true, childConstant).do_subtract(epoch, value);
        constant = childConstant;
    } else if (m_op == Negate && value.canConvert(QMetaType::QString)) {
        // A key that sorts in reverse order; it counts as constant.
        result = TypeTool::invertString(value.toString());
    }
    if (isConstant)
        *isConstant = constant;
    return result;
}

Expression* UnaryOperator::clone() const { return new UnaryOperator(*this); }

bool UnaryOperator::equals(const Expression* other) const
{
    const auto* that = dynamic_cast<const UnaryOperator*>(other);
    return that && that->m_op == m_op && Operator::equals(other);
}

void UnaryOperator::print(QTextStream& out, PrintStyle style) const
{
    const ExpressionHandle operand = children().value(0);
    if (style & PrintOrder) {
        operand->print(out, style);
        if (m_op == Negate)
            out << " DESC";
        return;
    }
    if (m_op == Negate) {
        out << "-";
        printAfterMinus(out, operand, style | PrintNested);
    } else {
        out << "~";
        operand->print(out, style | PrintNested);
    }
}

void UnaryOperator::write(QDataStream& out) const
{
    writeKind(out, m_op);
    Operator::write(out);
}

void UnaryOperator::read(QDataStream& in)
{
    m_op = static_cast<UnaryOp>(readKind(in));
    Operator::read(in);
}

// --- builders ---------------------------------------------------------------------

#define KOGEN_COMPARATOR_BUILDERS(symbol, kind)                                                          \
    Comparator operator symbol(const BaseProperty& left, const BaseProperty& right)                     \
    {                                                                                                    \
        return Comparator(valueOf(left), Comparator::kind, valueOf(right));                              \
    }                                                                                                    \
    Comparator operator symbol(const BaseProperty& left, const QVariant& right)                         \
    {                                                                                                    \
        return Comparator(valueOf(left), Comparator::kind, placeholder(right));                          \
    }                                                                                                    \
    Comparator operator symbol(const BaseProperty& left, ExpressionHandle right)                        \
    {                                                                                                    \
        return Comparator(valueOf(left), Comparator::kind, right);                                       \
    }                                                                                                    \
    Comparator operator symbol(ExpressionHandle left, ExpressionHandle right)                           \
    {                                                                                                    \
        return Comparator(left, Comparator::kind, right);                                                \
    }

KOGEN_COMPARATOR_BUILDERS(==, Equal)
KOGEN_COMPARATOR_BUILDERS(!=, NotEqual)
KOGEN_COMPARATOR_BUILDERS(<, Less)
KOGEN_COMPARATOR_BUILDERS(<=, LessEqual)
KOGEN_COMPARATOR_BUILDERS(>, Greater)
KOGEN_COMPARATOR_BUILDERS(>=, GreaterEqual)
#undef KOGEN_COMPARATOR_BUILDERS

BooleanOperator operator&&(ExpressionHandle left, ExpressionHandle right)
{
    return BooleanOperator(left, BooleanOperator::And, right);
}

BooleanOperator operator||(ExpressionHandle left, ExpressionHandle right)
{
    return BooleanOperator(left, BooleanOperator::Or, right);
}

NotOperator operator!(ExpressionHandle operand) { return NotOperator(operand); }

#define KOGEN_NUMERIC_BUILDERS(symbol, kind)                                                             \
    NumericOperator operator symbol(const BaseProperty& left, const QVariant& right)                    \
    {                                                                                                    \
        return NumericOperator(valueOf(left), NumericOperator::kind, placeholder(right));                \
    }                                                                                                    \
    NumericOperator operator symbol(ExpressionHandle left, ExpressionHandle right)                      \
    {                                                                                                    \
        return NumericOperator(left, NumericOperator::kind, right);                                      \
    }

KOGEN_NUMERIC_BUILDERS(+, Add)
KOGEN_NUMERIC_BUILDERS(-, Subtract)
KOGEN_NUMERIC_BUILDERS(*, Multiply)
KOGEN_NUMERIC_BUILDERS(/, Divide)
KOGEN_NUMERIC_BUILDERS(%, Modulo)
KOGEN_NUMERIC_BUILDERS(&, BitAnd)
KOGEN_NUMERIC_BUILDERS(|, BitOr)
KOGEN_NUMERIC_BUILDERS(^, BitXor)
#undef KOGEN_NUMERIC_BUILDERS

UnaryOperator operator-(const BaseProperty& operand) { return UnaryOperator(UnaryOperator::Negate, valueOf(operand)); }
UnaryOperator operator-(ExpressionHandle operand) { return UnaryOperator(UnaryOperator::Negate, operand); }
UnaryOperator operator~(ExpressionHandle operand) { return UnaryOperator(UnaryOperator::BitNot, operand); }
ExpressionHandle operator+(ExpressionHandle operand) { return operand; }
ValueExpression operator+(const BaseProperty& operand) { return ValueExpression(operand, QString()); }

} // namespace kogen
