#pragma once

#include <CommonKit/expressions/Expression.h>

namespace kogen {

class TypeTool;

/// A comparison of two operands through TypeTool. Values that TypeTool cannot
/// compare give NULL.
class COMMONKIT_EXPORT Comparator : public Operator
{
public:
    /// The comparison; the values are those of the stream format.
    enum CompOp : qint32 {
        NotEqual = 0,    ///< left != right
        Less = 1,        ///< left < right
        Equal = 2,       ///< left = right (== under PrintCode)
        Greater = 3,     ///< left > right
        LessEqual = 4,   ///< left <= right
        GreaterEqual = 5 ///< left >= right
    };

    /// Compares left with right.
    Comparator(ExpressionHandle left, CompOp op, ExpressionHandle right);
    /// Copies the kind and shares the operands.
    Comparator(const Comparator& other);
    /// Copies the kind and shares the operands.
    Comparator& operator=(const Comparator& other);
    ~Comparator() override;

    /// The kind of comparison.
    CompOp op() const { return m_op; }

    using Expression::evaluate;
    /// A bool from TypeTool::equals() or TypeTool::compare(); NULL when
    /// TypeTool reports a failure or the kind is unknown. Constant when both
    /// operands are.
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    /// Equal to a comparison of the same kind with equal operands.
    bool equals(const Expression* other) const override;
    /// "left op right" with blanks around the operator; a kind outside the
    /// enum prints no operator.
    void print(QTextStream& out, PrintStyle style) const override;

protected:
    /// A comparison without operands, for subclasses.
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
    /// The connective; the values are those of the stream format.
    enum BoolOp : qint32 {
        And = 0, ///< AND (&& under PrintCode)
        Or = 1   ///< OR (|| under PrintCode)
    };

    /// Joins left and right.
    BooleanOperator(ExpressionHandle left, BoolOp op, ExpressionHandle right);
    /// Copies the kind and shares the operands.
    BooleanOperator(const BooleanOperator& other);
    /// Copies the kind and shares the operands.
    BooleanOperator& operator=(const BooleanOperator& other);
    ~BooleanOperator() override;

    /// The connective.
    BoolOp op() const { return m_op; }

    /// The empty list for no element, the element itself for one, else one
    /// node of the kind over all elements.
    static ExpressionHandle join(const ExpressionList& list, BoolOp op);

    /// Chaining: an operand joins this node when the kinds match, otherwise
    /// this node becomes the left operand of a new one (see chain()). The
    /// binary operators return a new node, the assignments change this one.
    BooleanOperator operator&&(ExpressionHandle right) const;
    BooleanOperator operator||(ExpressionHandle right) const;   ///< Chains an OR (see operator&&()).
    BooleanOperator& operator&=(ExpressionHandle right);        ///< Chains an AND into this node.
    BooleanOperator& operator|=(ExpressionHandle right);        ///< Chains an OR into this node.

    using Expression::evaluate;
    /// As described for the class; an AND without operands is true, an OR
    /// without a true operand false. Constant when every operand evaluated
    /// is.
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    /// Equal to a node of the same kind with equal operands in order.
    bool equals(const Expression* other) const override;
    /// The operands joined by " AND " or " OR " (" && ", " || " under
    /// PrintCode), in parentheses when nested and two or more.
    void print(QTextStream& out, PrintStyle style) const override;

protected:
    /// A node without operands, for join() and subclasses.
    explicit BooleanOperator(BoolOp op);
    /// Appends an operand.
    void append(ExpressionHandle child);
    /// Appends right if op is this node's kind; otherwise replaces this node
    /// with "this op right". Returns this node.
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
    /// Negates the operand.
    explicit NotOperator(ExpressionHandle operand);
    /// Shares the operand.
    NotOperator(const NotOperator& other);
    /// Shares other's operand.
    NotOperator& operator=(const NotOperator& other);
    ~NotOperator() override;

    using Expression::evaluate;
    /// Constant when the operand is.
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    /// Equal to a negation of an equal operand.
    bool equals(const Expression* other) const override;
    /// " NOT x" (" ! x" under PrintCode), with the blanks on both sides.
    void print(QTextStream& out, PrintStyle style) const override;
};

/// Arithmetic and bitwise operators, applied left to right over any number of
/// operands.
class COMMONKIT_EXPORT NumericOperator : public Operator
{
public:
    /// The operation, applied through TypeTool; the values are those of the
    /// stream format.
    enum NumOp : qint32 {
        Add = 0,      ///< Addition, "+" (TypeTool::do_add()).
        Subtract = 1, ///< Subtraction, "-" (TypeTool::do_subtract()).
        Multiply = 2, ///< Multiplication, "*" (TypeTool::do_multiply()).
        Divide = 3,   ///< Division, "/" (TypeTool::do_divide()).
        Modulo = 4,   ///< Remainder, "mod" or "%" under PrintCode (TypeTool::do_modulo()).
        BitAnd = 5,   ///< Bitwise and, "&" (TypeTool::do_bitand()).
        BitOr = 6,    ///< Bitwise or, "|" (TypeTool::do_bitor()).
        BitXor = 7    ///< Bitwise exclusive or, "^" (TypeTool::do_bitxor()).
    };

    /// Applies op to left and right.
    NumericOperator(ExpressionHandle left, NumOp op, ExpressionHandle right);
    /// Copies the kind and shares the operands.
    NumericOperator(const NumericOperator& other);
    /// Copies the kind and shares the operands.
    NumericOperator& operator=(const NumericOperator& other);
    ~NumericOperator() override;

    /// The operation.
    NumOp op() const { return m_op; }

    /// The empty list for no element, the element itself for one, else one
    /// node of the kind over all elements.
    static ExpressionHandle join(const ExpressionList& list, NumOp op);

    /// Chaining as in BooleanOperator: an operand joins this node when the
    /// kinds match, otherwise this node becomes the left operand of a new
    /// one. The binary operators return a new node, the assignments change
    /// this one.
    NumericOperator operator+(ExpressionHandle right) const;
    NumericOperator operator-(ExpressionHandle right) const;   ///< Chains a Subtract.
    NumericOperator operator*(ExpressionHandle right) const;   ///< Chains a Multiply.
    NumericOperator operator/(ExpressionHandle right) const;   ///< Chains a Divide.
    NumericOperator operator%(ExpressionHandle right) const;   ///< Chains a Modulo.
    NumericOperator operator&(ExpressionHandle right) const;   ///< Chains a BitAnd.
    NumericOperator operator|(ExpressionHandle right) const;   ///< Chains a BitOr.
    NumericOperator operator^(ExpressionHandle right) const;   ///< Chains a BitXor.
    NumericOperator& operator+=(ExpressionHandle right);       ///< Chains an Add into this node.
    NumericOperator& operator-=(ExpressionHandle right);       ///< Chains a Subtract into this node.
    NumericOperator& operator*=(ExpressionHandle right);       ///< Chains a Multiply into this node.
    NumericOperator& operator/=(ExpressionHandle right);       ///< Chains a Divide into this node.
    NumericOperator& operator%=(ExpressionHandle right);       ///< Chains a Modulo into this node.
    NumericOperator& operator&=(ExpressionHandle right);       ///< Chains a BitAnd into this node.
    NumericOperator& operator|=(ExpressionHandle right);       ///< Chains a BitOr into this node.
    NumericOperator& operator^=(ExpressionHandle right);       ///< Chains a BitXor into this node.

    using Expression::evaluate;
    /// The operation applied left to right; NULL when a step fails or there
    /// is no operand, the operand's value when there is one. Constant when
    /// every operand evaluated is.
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    /// Equal to a node of the same kind with equal operands in order.
    bool equals(const Expression* other) const override;
    /// The operands joined by the operator without blanks (" mod " for
    /// Modulo except under PrintCode), in parentheses when nested and two or
    /// more. An operand after "-" whose text starts with "-" is set apart by
    /// a blank, as SQL reads "--" as a comment.
    void print(QTextStream& out, PrintStyle style) const override;

protected:
    /// A node without operands, for join() and subclasses.
    explicit NumericOperator(NumOp op);
    /// Appends an operand.
    void append(ExpressionHandle child);
    /// Appends right if op is this node's kind; otherwise replaces this node
    /// with "this op right". Returns this node.
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
    /// The operation; the values are those of the stream format.
    enum UnaryOp : qint32 {
        Negate = 0, ///< Negation, "-x".
        BitNot = 1  ///< Bitwise not, "~x".
    };

    /// Applies op to the operand.
    UnaryOperator(UnaryOp op, ExpressionHandle operand);
    /// Copies the kind and shares the operand.
    UnaryOperator(const UnaryOperator& other);
    /// Copies the kind and shares the operand.
    UnaryOperator& operator=(const UnaryOperator& other);
    ~UnaryOperator() override;

    /// The operation.
    UnaryOp op() const { return m_op; }

    using Expression::evaluate;
    /// Negate: 0 - x for a number, the 1970 epoch - x for a date-like value,
    /// the TypeTool::invertString() key for anything that converts to text.
    /// BitNot: a number itself. NULL for any other operand. A number or date
    /// result is constant when the operand is; the text key and NULL always
    /// count as constant.
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    /// Equal to a node of the same kind with an equal operand.
    bool equals(const Expression* other) const override;
    /// "-x" or "~x"; under PrintOrder the operand alone, followed by " DESC"
    /// for Negate.
    void print(QTextStream& out, PrintStyle style) const override;

protected:
    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    UnaryOp m_op;
};

/// Builders. A property becomes its ValueExpression, a QVariant a placeholder
/// constant.
///@{
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
/// Unary plus: the operand itself.
COMMONKIT_EXPORT ExpressionHandle operator+(ExpressionHandle operand);
/// Unary plus: the property's ValueExpression.
COMMONKIT_EXPORT ValueExpression operator+(const BaseProperty& operand);
///@}

} // namespace kogen
