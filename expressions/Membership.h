#pragma once

#include <CommonKit/expressions/Expression.h>

#include <QStringList>

namespace kogen {

/// Membership test "x IN (a,b,c)". Always a bool, also for a NULL tested
/// value.
///
/// Children: [0] the tested value, then the members in insertion order.
class COMMONKIT_EXPORT ElementOf : public Operator
{
public:
    explicit ElementOf(const BaseProperty& property);
    explicit ElementOf(ExpressionHandle value);
    ElementOf(const ElementOf& other);
    ElementOf& operator=(const ElementOf& other);
    ~ElementOf() override;

    /// A placeholder constant.
    ElementOf& append(const QVariant& value);
    ElementOf& append(ExpressionHandle member);
    ElementOf& append(const ExpressionList& members);

    ElementOf& operator<<(const QVariant& value) { return append(value); }
    ElementOf& operator<<(ExpressionHandle member) { return append(member); }
    ElementOf& operator<<(const ExpressionList& members) { return append(members); }
    ElementOf& operator<<(const QList<QVariant>& values);
    ElementOf& operator<<(const QStringList& values);

    using Expression::evaluate;
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    bool equals(const Expression* other) const override;
    void print(QTextStream& out, PrintStyle style) const override;

protected:
    ElementOf();
};

/// A value switch: "CASE x WHEN v THEN r ... ELSE d END". With an empty
/// selector the case values are conditions (an if/else chain).
///
/// Children: [0] the selector, [1] the default result (the empty list for
/// none), then pairs of case value and result in insertion order.
///
/// Nodes of this class can be written to a stream but not read back.
class COMMONKIT_EXPORT SwitchCase : public Operator
{
public:
    explicit SwitchCase(ExpressionHandle selector);
    explicit SwitchCase(const BaseProperty& property);
    SwitchCase(const SwitchCase& other);
    SwitchCase& operator=(const SwitchCase& other);
    ~SwitchCase() override;

    SwitchCase& switchCase(ExpressionHandle value, ExpressionHandle result);
    SwitchCase& defaultCase(ExpressionHandle result);

    using Expression::evaluate;
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    bool equals(const Expression* other) const override;
    void print(QTextStream& out, PrintStyle style) const override;
};

/// "if condition then ... else ...": a SwitchCase with an empty selector.
COMMONKIT_EXPORT SwitchCase ifThen(ExpressionHandle condition, ExpressionHandle then, ExpressionHandle otherwise);

} // namespace kogen
