#include <CommonKit/expressions/Membership.h>

#include <CommonKit/properties/BaseProperty.h>
#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/properties/TypeTool.h>

#include <QTextStream>

namespace kogen {

// --- ElementOf ------------------------------------------------------------------

ElementOf::ElementOf() = default;
ElementOf::ElementOf(const BaseProperty& property) : Operator(ValueExpression(property, QString())) {}
ElementOf::ElementOf(ExpressionHandle value) : Operator(value) {}
ElementOf::ElementOf(const ElementOf& other) = default;
ElementOf& ElementOf::operator=(const ElementOf& other) = default;
ElementOf::~ElementOf() = default;

ElementOf& ElementOf::append(const QVariant& value)
{
    Operator::append(ConstExpression(value, true));
    return *this;
}

ElementOf& ElementOf::append(ExpressionHandle member)
{
    Operator::append(member);
    return *this;
}

ElementOf& ElementOf::append(const ExpressionList& members)
{
    for (const ExpressionHandle& member : members.children())
        Operator::append(member);
    return *this;
}

ElementOf& ElementOf::operator<<(const QList<QVariant>& values)
{
    for (const QVariant& value : values)
        append(value);
    return *this;
}

ElementOf& ElementOf::operator<<(const QStringList& values)
{
    for (const QString& value : values)
        append(QVariant(value));
    return *this;
}

QVariant ElementOf::evaluate(const PropertySet& set, bool* isConstant) const
{
    const QList<ExpressionHandle>& operands = children();
    bool valueConstant = false;
    const QVariant value = child(0).evaluate(set, &valueConstant);
    bool constant = valueConstant;
    bool found = false;
    for (int i = 1; i < operands.size() && !found; ++i) {
        bool memberConstant = false;
        const QVariant member = operands.at(i)->evaluate(set, &memberConstant);
        constant = constant && memberConstant;
        found = TypeTool(valueConstant, memberConstant).equals(value, member);
    }
    if (isConstant)
        *isConstant = constant;
    return found;
}

Expression* ElementOf::clone() const { return new ElementOf(*this); }

bool ElementOf::equals(const Expression* other) const
{
    return dynamic_cast<const ElementOf*>(other) && Operator::equals(other);
}

void ElementOf::print(QTextStream& out, PrintStyle style) const
{
    const QList<ExpressionHandle>& operands = children();
    operands.value(0)->print(out, style | PrintNested);
    out << " IN (";
    const PrintStyle memberStyle = style & ~PrintStyle(PrintNested);
    for (int i = 1; i < operands.size(); ++i) {
        if (i > 1)
            out << ",";
        operands.at(i)->print(out, memberStyle);
    }
    out << ")";
}

// --- SwitchCase -----------------------------------------------------------------

SwitchCase::SwitchCase(ExpressionHandle selector) : Operator(selector, ExpressionHandle()) {}
SwitchCase::SwitchCase(const BaseProperty& property)
    : Operator(ValueExpression(property, QString()), ExpressionHandle())
{
}
SwitchCase::SwitchCase(const SwitchCase& other) = default;
SwitchCase& SwitchCase::operator=(const SwitchCase& other) = default;
SwitchCase::~SwitchCase() = default;

SwitchCase& SwitchCase::switchCase(ExpressionHandle value, ExpressionHandle result)
{
    Operator::append(value);
    Operator::append(result);
    return *this;
}

SwitchCase& SwitchCase::defaultCase(ExpressionHandle result)
{
    QList<ExpressionHandle>& operands = mutableChildren();
    while (operands.size() < 2)
        operands.append(ExpressionHandle());
    operands[1] = result;
    return *this;
}

QVariant SwitchCase::evaluate(const PropertySet& set, bool* isConstant) const
{
    // The children are evaluated without constant flags, so the result
    // always counts as constant.
    if (isConstant)
        *isConstant = true;
    const QList<ExpressionHandle>& operands = children();
    const QVariant selector = child(0).evaluate(set, nullptr);
    TypeTool tool(true, true);
    for (int i = 2; i + 1 < operands.size(); i += 2) {
        const QVariant value = operands.at(i)->evaluate(set, nullptr);
        if (tool.equals(selector, value))
            return operands.at(i + 1)->evaluate(set, nullptr);
    }
    return child(1).evaluate(set, nullptr);
}

Expression* SwitchCase::clone() const { return new SwitchCase(*this); }

bool SwitchCase::equals(const Expression* other) const
{
    return dynamic_cast<const SwitchCase*>(other) && Operator::equals(other);
}

void SwitchCase::print(QTextStream& out, PrintStyle style) const
{
    const QList<ExpressionHandle>& operands = children();
    const PrintStyle partStyle = style & ~PrintStyle(PrintNested);
    const ExpressionHandle selector = operands.value(0);
    const ExpressionHandle otherwise = operands.value(1);
    if (style & PrintSql) {
        out << "CASE ";
        if (!selector->isEmpty())
            selector->print(out, partStyle);
        for (int i = 2; i + 1 < operands.size(); i += 2) {
            out << " WHEN ";
            operands.at(i)->print(out, partStyle);
            out << " THEN ";
            operands.at(i + 1)->print(out, partStyle);
        }
        if (!otherwise->isEmpty()) {
            out << " ELSE ";
            otherwise->print(out, partStyle);
        }
        out << " END";
    } else if (selector->isEmpty()) {
        for (int i = 2; i + 1 < operands.size(); i += 2) {
            if (i > 2)
                out << "else ";
            out << "if (";
            operands.at(i)->print(out, partStyle);
            out << ") return ";
            operands.at(i + 1)->print(out, partStyle);
            out << ";\n";
        }
        if (!otherwise->isEmpty()) {
            out << "else return ";
            otherwise->print(out, partStyle);
        }
    } else {
        out << "switch(";
        selector->print(out, partStyle);
        out << ")\n{\n";
        for (int i = 2; i + 1 < operands.size(); i += 2) {
            out << "\tcase ";
            operands.at(i)->print(out, partStyle);
            out << ": return ";
            operands.at(i + 1)->print(out, partStyle);
            out << ";\n";
        }
        if (!otherwise->isEmpty()) {
            out << "default: return ";
            otherwise->print(out, partStyle);
        }
        out << "\n}\n";
    }
}

SwitchCase ifThen(ExpressionHandle condition, ExpressionHandle then, ExpressionHandle otherwise)
{
    return SwitchCase(ExpressionHandle()).switchCase(condition, then).defaultCase(otherwise);
}

} // namespace kogen
