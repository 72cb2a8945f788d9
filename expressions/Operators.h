#pragma once

#include <CommonKit/expressions/Expression.h>

namespace kogen {

class TypeTool;

/// A comparison of two operands through TypeTool. Values that TypeTool cannot
/// compare give NULL.
class COMMONKIT_EXPORT Comparator : public Operator
{
public:
    enum CompOp : qint32 { NotEqual = 0, Less = 1, Equal = 2, Greater = 3, LessEqual = 4, GreaterEqual = 5 };

    Comparator(ExpressionHandle left, CompOp op, ExpressionHandle right);
    Comparator(const Comparator& other);
    Comparator& operator=(const Comparator& other);
    ~Comparator() override;

    CompOp op() const { return m_op; }

    using Expression::evaluate;
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    bool equals(const Expression* other) const override;
    void print(QTextStream& out, PrintStyle style) const override;

protected:
    explicit Comparator(CompOp op);
    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    CompOp m_op;
};

/// AND / OR over any number of operands. AND ends with NULL at the first
/// operand that is not a boolean; OR skips such operands.
class COMMONKIT_EXPORT BooleanOperator : public Operator
{
public:
    enum BoolOp : qint32 { And = 0, Or = 1 };

    BooleanOperator(ExpressionHandle left, BoolOp op, ExpressionHandle right);
    BooleanOperator(const BooleanOperator& other);
    BooleanOperator& operator=(const BooleanOperator& other);
    ~BooleanOperator() override;

    BoolOp op() const { return m_op; }

    /// The empty list for no element, the element itself for one, else one
    /// node of the kind over all elements.
    static ExpressionHandle join(const ExpressionList& list, BoolOp op);

    /// Chaining: an operand joins this node when the kinds match.
    BooleanOperator operator&&(ExpressionHandle right) const;
    BooleanOperator operator||(ExpressionHandle right) const;
    BooleanOperator& operator&=(ExpressionHandle right);
    BooleanOperator& operator|=(ExpressionHandle right);

    using Expression::evaluate;
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    bool equals(const Expression* other) const override;
    void print(QTextStream& out, PrintStyle style) const override;

protected:
    explicit BooleanOperator(BoolOp op);
    void append(ExpressionHandle child);
    BooleanOperator& chain(BoolOp op, ExpressionHandle right);
    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    BoolOp m_op;
};

/// Logical negation; NULL for an operand that is not a boolean.
class COMMONKIT_EXPORT NotOperator : public Operator
{
public:
    explicit NotOperator(ExpressionHandle operand);
    NotOperator(const NotOperator& other);
    NotOperator& operator=(const NotOperator& other);
    ~NotOperator() override;

    using Expression::evaluate;
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    bool equals(const Expression* other) const override;
    void print(QTextStream& out, PrintStyle style) const override;
};

/// Arithmetic and bitwise operators, applied left to right over any number of
/// operands.
class COMMONKIT_EXPORT NumericOperator : public Operator
{
public:
    enum NumOp : qint32 {
        Add = 0, Subtract = 1, Multiply = 2, Divide = 3, Modulo = 4, BitAnd = 5, BitOr = 6, BitXor = 7
    };

    NumericOperator(ExpressionHandle left, NumOp op, ExpressionHandle right);
    NumericOperator(const NumericOperator& other);
    NumericOperator& operator=(const NumericOperator& other);
    ~NumericOperator() override;

    NumOp op() const { return m_op; }

    static ExpressionHandle join(const ExpressionList& list, NumOp op);

    NumericOperator operator+(ExpressionHandle right) const;
    NumericOperator operator-(ExpressionHandle right) const;
    NumericOperator operator*(ExpressionHandle right) const;
    NumericOperator operator/(ExpressionHandle right) const;
    NumericOperator operator%(ExpressionHandle right) const;
    NumericOperator operator&(ExpressionHandle right) const;
    NumericOperator operator|(ExpressionHandle right) const;
    NumericOperator operator^(ExpressionHandle right) const;
    NumericOperator& operator+=(ExpressionHandle right);
    NumericOperator& operator-=(ExpressionHandle right);
    NumericOperator& operator*=(ExpressionHandle right);
    NumericOperator& operator/=(ExpressionHandle right);
    NumericOperator& operator%=(ExpressionHandle right);
    NumericOperator& operator&=(ExpressionHandle right);
    NumericOperator& operator|=(ExpressionHandle right);
    NumericOperator& operator^=(ExpressionHandle right);

    using Expression::evaluate;
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    bool equals(const Expression* other) const override;
    void print(QTextStream& out, PrintStyle style) const override;

protected:
    explicit NumericOperator(NumOp op);
    void append(ExpressionHandle child);
    NumericOperator& chain(NumOp op, ExpressionHandle right);
    /// Applies one step to the accumulator; false when TypeTool reports a
    /// failure or the kind is unknown.
    static bool apply(QVariant& accumulator, bool& accumulatorIsConstant, qint32 op, const QVariant& value,
                      bool valueIsConstant);
    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    NumOp m_op;
};

/// Negation and the bitwise-not operator. On a number, BitNot yields the
/// operand itself (an exclusive or with 0). In a sort list (PrintOrder) a
/// negated operand prints as "x DESC"; negating a string gives a key that
/// sorts in reverse order.
class COMMONKIT_EXPORT UnaryOperator : public Operator
{
public:
    enum UnaryOp : qint32 { Negate = 0, BitNot = 1 };

    UnaryOperator(UnaryOp op, ExpressionHandle operand);
    UnaryOperator(const UnaryOperator& other);
    UnaryOperator& operator=(const UnaryOperator& other);
    ~UnaryOperator() override;

    UnaryOp op() const { return m_op; }

    using Expression::evaluate;
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    bool equals(const Expression* other) const override;
    void print(QTextStream& out, PrintStyle style) const override;

protected:
    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    UnaryOp m_op;
};

/// Builders. A property becomes its ValueExpression, a QVariant a placeholder
/// constant.
COMMONKIT_EXPORT Comparator operator==(const BaseProperty& left, const BaseProperty& right);
COMMONKIT_EXPORT Comparator operator==(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT Comparator operator==(const BaseProperty& left, ExpressionHandle right);
COMMONKIT_EXPORT Comparator operator==(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT Comparator operator!=(const BaseProperty& left, const BaseProperty& right);
COMMONKIT_EXPORT Comparator operator!=(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT Comparator operator!=(const BaseProperty& left, ExpressionHandle right);
COMMONKIT_EXPORT Comparator operator!=(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT Comparator operator<(const BaseProperty& left, const BaseProperty& right);
COMMONKIT_EXPORT Comparator operator<(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT Comparator operator<(const BaseProperty& left, ExpressionHandle right);
COMMONKIT_EXPORT Comparator operator<(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT Comparator operator<=(const BaseProperty& left, const BaseProperty& right);
COMMONKIT_EXPORT Comparator operator<=(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT Comparator operator<=(const BaseProperty& left, ExpressionHandle right);
COMMONKIT_EXPORT Comparator operator<=(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT Comparator operator>(const BaseProperty& left, const BaseProperty& right);
COMMONKIT_EXPORT Comparator operator>(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT Comparator operator>(const BaseProperty& left, ExpressionHandle right);
COMMONKIT_EXPORT Comparator operator>(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT Comparator operator>=(const BaseProperty& left, const BaseProperty& right);
COMMONKIT_EXPORT Comparator operator>=(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT Comparator operator>=(const BaseProperty& left, ExpressionHandle right);
COMMONKIT_EXPORT Comparator operator>=(ExpressionHandle left, ExpressionHandle right);

COMMONKIT_EXPORT BooleanOperator operator&&(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT BooleanOperator operator||(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT NotOperator operator!(ExpressionHandle operand);

COMMONKIT_EXPORT NumericOperator operator+(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT NumericOperator operator+(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT NumericOperator operator-(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT NumericOperator operator-(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT NumericOperator operator*(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT NumericOperator operator*(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT NumericOperator operator/(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT NumericOperator operator/(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT NumericOperator operator%(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT NumericOperator operator%(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT NumericOperator operator&(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT NumericOperator operator&(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT NumericOperator operator|(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT NumericOperator operator|(ExpressionHandle left, ExpressionHandle right);
COMMONKIT_EXPORT NumericOperator operator^(const BaseProperty& left, const QVariant& right);
COMMONKIT_EXPORT NumericOperator operator^(ExpressionHandle left, ExpressionHandle right);

COMMONKIT_EXPORT UnaryOperator operator-(const BaseProperty& operand);
COMMONKIT_EXPORT UnaryOperator operator-(ExpressionHandle operand);
COMMONKIT_EXPORT UnaryOperator operator~(ExpressionHandle operand);
COMMONKIT_EXPORT ExpressionHandle operator+(ExpressionHandle operand);
COMMONKIT_EXPORT ValueExpression operator+(const BaseProperty& operand);

} // namespace kogen
