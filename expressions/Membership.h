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
    /// Tests the property's value (its ValueExpression); no members yet.
    explicit ElementOf(const BaseProperty& property);
    /// Tests the expression's value; no members yet.
    explicit ElementOf(ExpressionHandle value);
    /// Shares the tested value and the members.
    ElementOf(const ElementOf& other);
    /// Shares other's tested value and members.
    ElementOf& operator=(const ElementOf& other);
    ~ElementOf() override;

    /// Appends a member: a placeholder constant of the value.
    ElementOf& append(const QVariant& value);
    /// Appends the expression as a member.
    ElementOf& append(ExpressionHandle member);
    /// Appends every child of the list as a member.
    ElementOf& append(const ExpressionList& members);

    ElementOf& operator<<(const QVariant& value) { return append(value); }            ///< append(value)
    ElementOf& operator<<(ExpressionHandle member) { return append(member); }         ///< append(member)
    ElementOf& operator<<(const ExpressionList& members) { return append(members); }  ///< append(members)
    /// Appends a placeholder constant for each value.
    ElementOf& operator<<(const QList<QVariant>& values);
    /// Appends a placeholder constant for each text.
    ElementOf& operator<<(const QStringList& values);

    using Expression::evaluate;
    /// True when TypeTool::equals() finds the tested value equal to a
    /// member's; the members after the first match are not evaluated.
    /// Constant when every operand evaluated is.
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    /// Equal to a test with an equal tested value and equal members in order.
    bool equals(const Expression* other) const override;
    /// "x IN (a,b,c)".
    void print(QTextStream& out, PrintStyle style) const override;

protected:
    /// No tested value and no members, for subclasses.
    ElementOf();
};

/// A value switch: "CASE x WHEN v THEN r ... ELSE d END". With an empty
/// selector the case values are conditions (an if/else chain).
///
/// Children: [0] the selector, [1] the default result (the empty list for
/// none), then pairs of case value and result in insertion order.
///
/// Nodes of this class can be written to a stream but not read back.
///
/// collectPlaceholders() follows the children's order, so a placeholder in
/// the default result is collected before those of the cases, although it is
/// printed after them; inline the default (a constant that is no
/// placeholder) when the SQL is to be bound.
class COMMONKIT_EXPORT SwitchCase : public Operator
{
public:
    /// A switch on the selector's value, without cases or default. A default
    /// ExpressionHandle (the empty list) as selector makes the case values
    /// conditions.
    explicit SwitchCase(ExpressionHandle selector);
    /// A switch on the property's value (its ValueExpression).
    explicit SwitchCase(const BaseProperty& property);
    /// Shares the children.
    SwitchCase(const SwitchCase& other);
    /// Shares other's children.
    SwitchCase& operator=(const SwitchCase& other);
    ~SwitchCase() override;

    /// Appends a case: result is chosen when the selector equals value.
    /// Returns this switch.
    SwitchCase& switchCase(ExpressionHandle value, ExpressionHandle result);
    /// Sets the result for no matching case, replacing an earlier one.
    /// Returns this switch.
    SwitchCase& defaultCase(ExpressionHandle result);

    using Expression::evaluate;
    /// The result of the first case whose value TypeTool finds equal to the
    /// selector's, else the default's value (an empty QVariantList without
    /// default). With an empty selector the conditions are compared with the
    /// selector's value, an empty list, which a true or false condition never
    /// equals: in memory such a switch gives its default. Always counts as
    /// constant.
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    /// Equal to a switch with equal children in order.
    bool equals(const Expression* other) const override;
    /// Under PrintSql "CASE x WHEN v THEN r ... ELSE d END" (no x for an
    /// empty selector, no ELSE without default); otherwise a C-like switch
    /// statement, or an if/else chain for an empty selector.
    void print(QTextStream& out, PrintStyle style) const override;
};

/// "if condition then ... else ...": a SwitchCase with an empty selector,
/// one case and a default. Prints as intended; see SwitchCase::evaluate()
/// for its value in memory.
COMMONKIT_EXPORT SwitchCase ifThen(ExpressionHandle condition, ExpressionHandle then, ExpressionHandle otherwise);

} // namespace kogen
