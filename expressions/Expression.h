#pragma once

#include <CommonKit/support/core/Export.h>

#include <QFlags>
#include <QList>
#include <QMap>
#include <QSharedData>
#include <QSharedDataPointer>
#include <QString>
#include <QVariant>

class QDataStream;
class QTextStream;

namespace kogen {

class BaseProperty;
class PropertySet;
class ExpressionHandle;

/// One node of an expression tree.
///
/// Nodes are immutable once they are shared: they are built by value, wrapped
/// into ExpressionHandles and then shared by reference count. A node can be
/// evaluated in memory against a PropertySet, printed as SQL or C-like text,
/// asked for the values of its "?" placeholders, and written to and read from
/// a QDataStream.
///
/// Evaluation never throws: an invalid QVariant stands for SQL NULL, for a
/// missing property and for a failed operation.
class COMMONKIT_EXPORT Expression : public QSharedData
{
public:
    /// How print() writes a tree; the flags combine into a PrintStyle.
    enum PrintStyleFlag {
        PrintCode = 1,         ///< C-like text: (type)x casts, && || !, %, switch.
        PrintSql = 2,          ///< SQL: quoted strings, dates as integers, AS aliases, CASE.
        PrintPlaceholders = 4, ///< Placeholder constants print as "?".
        PrintOrder = 8,        ///< Sort-list form: a negation -x prints as "x DESC".
        PrintDistinct = 16,    ///< Set by a function call for its SQL printer: print DISTINCT.
        PrintNested = 0x800    ///< Set by a parent for an operand: n-ary operators parenthesise themselves.
    };
    Q_DECLARE_FLAGS(PrintStyle, PrintStyleFlag)

    /// A node not yet shared by any handle.
    Expression();
    /// The copy starts unshared: the reference count is not copied.
    Expression(const Expression& other);
    /// Leaves the reference count alone; subclasses copy their own fields.
    Expression& operator=(const Expression& other);
    virtual ~Expression();

    /// The node's value against the set. Where isConstant is not null it is
    /// set to whether the value is independent of the set.
    virtual QVariant evaluate(const PropertySet& set, bool* isConstant) const = 0;
    /// A new heap copy of this node (children are shared); the caller owns it.
    virtual Expression* clone() const = 0;
    /// Structural equality: a node of the same class (a subclass passes the
    /// class's dynamic_cast) with equal parameters and equal children in
    /// order. False for a null other.
    virtual bool equals(const Expression* other) const = 0;
    /// Writes the node and its children as text in the given style.
    virtual void print(QTextStream& out, PrintStyle style) const = 0;
    /// Appends the values of the placeholder constants, in print order, to
    /// out. The base appends nothing.
    virtual void collectPlaceholders(QList<QVariant>& out) const;
    /// Whether the node stands for nothing: an invalid constant, a nameless
    /// value or function, an operator without children, a cast of an empty
    /// node. Printers leave out empty optional parts.
    virtual bool isEmpty() const = 0;

    /// Evaluates against an empty set, so every property value is NULL.
    QVariant evaluate() const;
    /// The text that print() writes in that style.
    QString toString(PrintStyle style) const;
    /// The placeholder values as a new list (see collectPlaceholders(QList&)).
    QList<QVariant> collectPlaceholders() const;

    /// True if both are the same node (or both null), false if one is null,
    /// else a->equals(b).
    static bool equals(const Expression* a, const Expression* b);

    /// The stream tag of a node: "class " followed by the qualified class
    /// name, e.g. "class kogen::Comparator".
    static QByteArray classTag(const Expression& node);
    /// Registers a prototype for reading nodes of its class. False for a null
    /// handle, or if the tag is empty or already registered. The registry is
    /// process-wide and not locked: register before streams are read (the
    /// library registers its own classes when it loads).
    static bool registerExpressionClass(ExpressionHandle prototype);
    /// Reads one node (and its children) that writeExpression() wrote. An
    /// unregistered tag gives the empty list and leaves the body unread; so
    /// does a stream that ends within the tag. Nesting deeper than
    /// maxReadDepth() marks the stream as corrupt. Check in.status() after
    /// reading: a node whose body ends early is returned as far as read.
    static ExpressionHandle readExpression(QDataStream& in);
    /// Writes the node's class tag and body, its children nested in it (see
    /// docs/expression-stream.md). expression must not be a null handle.
    static void writeExpression(QDataStream& out, ExpressionHandle expression);
    /// The deepest nesting readExpression() accepts.
    static int maxReadDepth();

    /// Reads a filter in the SQL form that toString(PrintSql) writes into a
    /// tree over the properties of the schema (see FilterParser). Returns a
    /// null handle and sets *error on failure; clears *error on success.
    static ExpressionHandle parse(const QString& text, const PropertySet& schema, QString* error = nullptr);

protected:
    friend class Operator;
    friend class CastExpression;
    /// Writes the body that follows the tag: a version number, the node's own
    /// fields, then its children through writeExpression().
    virtual void write(QDataStream& out) const = 0;
    /// Replaces the node's fields and children with a body that write()
    /// wrote. Runs on a detached copy of the registered prototype.
    virtual void read(QDataStream& in) = 0;

    /// The registered prototypes, keyed by class tag.
    static QMap<QString, ExpressionHandle>& expressionClassMap();
};

Q_DECLARE_OPERATORS_FOR_FLAGS(Expression::PrintStyle)

} // namespace kogen

/// Detaching a handle copies the node through its virtual clone().
template<>
inline kogen::Expression* QSharedDataPointer<kogen::Expression>::clone()
{
    return d->clone();
}

namespace kogen {

/// A shared, copy-on-write reference to an expression node. A default handle
/// holds the one shared empty ExpressionList, never null.
class COMMONKIT_EXPORT ExpressionHandle
{
public:
    /// The shared empty list (ExpressionList::empty()).
    ExpressionHandle();
    /// Holds a heap clone() of the node. Implicit, so that a node can be
    /// passed where a handle is expected.
    ExpressionHandle(const Expression& expression); // NOLINT: stores a clone
    /// Takes ownership of a heap node. A null pointer gives a null handle
    /// (constData() == nullptr), through which nothing may be called.
    explicit ExpressionHandle(Expression* node);
    /// Shares other's node.
    ExpressionHandle(const ExpressionHandle& other) = default;
    /// Shares other's node and releases the one held before.
    ExpressionHandle& operator=(const ExpressionHandle& other) = default;
    ~ExpressionHandle();

    /// Same node, or the held nodes are equal (Expression::equals()). A null
    /// handle equals only a null handle.
    bool equals(ExpressionHandle other) const;

    /// The node, for calling its const members.
    const Expression* operator->() const { return m_node.constData(); }
    /// The node; not for a null handle.
    const Expression& operator*() const { return *m_node.constData(); }
    /// The node, nullptr for a null handle.
    const Expression* constData() const { return m_node.constData(); }
    /// Mutable access: clones the node first if it is shared.
    Expression* data() { return m_node.data(); }
    /// Clones the node if it is shared, so that this handle holds it alone.
    void detach() { m_node.detach(); }

private:
    QSharedDataPointer<Expression> m_node;
};

/// A constant. Constants flagged as placeholders print as "?" under
/// PrintPlaceholders and are collected by collectPlaceholders().
class COMMONKIT_EXPORT ConstExpression : public virtual Expression
{
public:
    /// A constant of the value; placeholder says whether it is bound as "?"
    /// rather than inlined.
    ConstExpression(const QVariant& value, bool placeholder);
    /// Copies the value and the placeholder flag.
    ConstExpression(const ConstExpression& other);
    /// Copies the value and the placeholder flag.
    ConstExpression& operator=(const ConstExpression& other);
    ~ConstExpression() override;

    /// An inlined QDate constant (invalid if the date is).
    static ConstExpression date(int year, int month, int day);
    /// An inlined QTime constant (invalid if the time is).
    static ConstExpression time(int hour, int minute, int second, int msec);
    /// An inlined local QDateTime constant (invalid if the date or time is).
    static ConstExpression dateTime(int year, int month, int day, int hour, int minute, int second, int msec);

    using Expression::collectPlaceholders;
    using Expression::evaluate;
    /// The value; always constant.
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    /// Equal to any constant of equal value; the placeholder flag is not
    /// compared.
    bool equals(const Expression* other) const override;
    /// printValue(), with PrintPlaceholders honoured only by a placeholder.
    void print(QTextStream& out, PrintStyle style) const override;
    /// Appends the value if this is a placeholder; a date-like value as its
    /// microseconds since 1970 (TypeTool::dateMicroSeconds()), as printed.
    void collectPlaceholders(QList<QVariant>& out) const override;
    /// True for an invalid value.
    bool isEmpty() const override;

    /// The constant's value.
    const QVariant& value() const { return m_value; }
    /// Whether the constant is bound as a "?" placeholder.
    bool isPlaceholder() const { return m_placeholder; }

    /// Prints a value as a constant in the given style: "?" under
    /// PrintPlaceholders; a number as its text; a date-like value under
    /// PrintSql as microseconds since 1970, else as its text; anything else
    /// in quotes, under PrintSql as '...' with inner quotes doubled, else as
    /// "..." without escaping.
    static void printValue(QTextStream& out, const QVariant& value, PrintStyle style);

protected:
    /// The value as text; a QRegExp gives its pattern.
    static QString stringValue(const QVariant& value);
    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    QVariant m_value;
    bool m_placeholder;
};

/// A named value, looked up in the property set (under the alias first).
class COMMONKIT_EXPORT ValueExpression : public virtual Expression
{
public:
    /// The value of the property's name; only the name is kept. A non-empty
    /// alias is printed in SQL as "name AS alias".
    ValueExpression(const BaseProperty& property, const QString& alias = QString());
    /// The value of the property of that name.
    ValueExpression(const QString& name, const QString& alias = QString());
    /// Copies name and alias.
    ValueExpression(const ValueExpression& other);
    /// Copies name and alias.
    ValueExpression& operator=(const ValueExpression& other);
    ~ValueExpression() override;

    /// The property name.
    const QString& name() const { return m_name; }
    /// The column alias; empty for none.
    const QString& alias() const { return m_alias; }

    using Expression::collectPlaceholders;
    using Expression::evaluate;
    /// The value of the set's property under the alias, else under the name,
    /// else NULL. Never constant.
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    /// Equal to a value of the same name and alias.
    bool equals(const Expression* other) const override;
    /// The name with each blank written as "_"; under PrintSql followed by
    /// " AS alias" when there is an alias.
    void print(QTextStream& out, PrintStyle style) const override;
    /// True for an empty name.
    bool isEmpty() const override;

protected:
    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    QString m_name;
    QString m_alias;
};

/// A conversion of its operand to a QVariant type.
class COMMONKIT_EXPORT CastExpression : public Expression
{
public:
    /// Converts the operand's value to type.
    CastExpression(QVariant::Type type, ExpressionHandle operand);
    /// Copies the type and shares the operand.
    CastExpression(const CastExpression& other);
    /// Copies the type and shares the operand.
    CastExpression& operator=(const CastExpression& other);
    ~CastExpression() override;

    /// The target type.
    QVariant::Type type() const { return m_type; }
    /// The converted expression.
    const ExpressionHandle& operand() const { return m_operand; }

    using Expression::collectPlaceholders;
    using Expression::evaluate;
    /// The operand's value through QVariant::convert() where QVariant can
    /// convert it (a failed conversion leaves a null value of the type),
    /// otherwise through TypeTool::castDate() (dates and numbers; invalid
    /// for anything else). Constant when the operand is.
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    /// Equal to a cast to the same type of an equal operand.
    bool equals(const Expression* other) const override;
    /// "(type)x" under PrintCode, else "CAST(x AS type)", with Qt's name of
    /// the type.
    void print(QTextStream& out, PrintStyle style) const override;
    /// The operand's placeholder values, each converted to the target type.
    void collectPlaceholders(QList<QVariant>& out) const override;
    /// True if the operand is empty.
    bool isEmpty() const override;

protected:
    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    QVariant::Type m_type;
    ExpressionHandle m_operand;
};

COMMONKIT_EXPORT CastExpression toBool(ExpressionHandle operand);       ///< A cast to QVariant::Bool.
COMMONKIT_EXPORT CastExpression toInt(ExpressionHandle operand);        ///< A cast to QVariant::Int.
COMMONKIT_EXPORT CastExpression toUInt(ExpressionHandle operand);       ///< A cast to QVariant::UInt.
COMMONKIT_EXPORT CastExpression toLongLong(ExpressionHandle operand);   ///< A cast to QVariant::LongLong.
COMMONKIT_EXPORT CastExpression toULongLong(ExpressionHandle operand);  ///< A cast to QVariant::ULongLong.
COMMONKIT_EXPORT CastExpression toDouble(ExpressionHandle operand);     ///< A cast to QVariant::Double.
COMMONKIT_EXPORT CastExpression toString(ExpressionHandle operand);     ///< A cast to QVariant::String.
COMMONKIT_EXPORT CastExpression toDate(ExpressionHandle operand);       ///< A cast to QVariant::Date.
COMMONKIT_EXPORT CastExpression toTime(ExpressionHandle operand);       ///< A cast to QVariant::Time.
COMMONKIT_EXPORT CastExpression toDateTime(ExpressionHandle operand);   ///< A cast to QVariant::DateTime.

/// The common base of nodes with an ordered list of children.
class COMMONKIT_EXPORT Operator : public Expression
{
public:
    /// Shares the children.
    Operator(const Operator& other);
    /// Shares other's children in place of its own.
    Operator& operator=(const Operator& other);
    ~Operator() override;

    /// The operands, in order.
    const QList<ExpressionHandle>& children() const { return m_children; }

    using Expression::collectPlaceholders;
    using Expression::equals;
    /// Any Operator with equal children in the same order; subclasses also
    /// compare their class and kind. ExpressionList adds no check of its own,
    /// so a list equals, say, an ElementOf of the same children, though not
    /// the other way round.
    bool equals(const Expression* other) const override;
    /// The children's placeholder values, child by child.
    void collectPlaceholders(QList<QVariant>& out) const override;
    /// True without children.
    bool isEmpty() const override;

protected:
    /// No children.
    Operator();
    /// One child.
    explicit Operator(ExpressionHandle child);
    /// Two children, in this order.
    Operator(ExpressionHandle first, ExpressionHandle second);

    /// Appends a child.
    void append(ExpressionHandle child);
    /// The children, for subclasses that replace some of them.
    QList<ExpressionHandle>& mutableChildren() { return m_children; }
    /// The child at index, or the empty ExpressionList when there is none
    /// (what children().value(index) holds, without copying a handle).
    const Expression& child(int index) const
    {
        return index >= 0 && index < m_children.size() ? *m_children.at(index) : emptyChild();
    }

    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    // The empty ExpressionList that child() returns for a missing index.
    static const Expression& emptyChild();

    QList<ExpressionHandle> m_children;
};

/// A comma-separated list of expressions; evaluates to a QVariantList.
class COMMONKIT_EXPORT ExpressionList : public Operator
{
public:
    /// An empty list.
    ExpressionList();
    /// A list of one expression.
    explicit ExpressionList(ExpressionHandle first);
    /// A list of two expressions.
    ExpressionList(ExpressionHandle first, ExpressionHandle second);
    /// One placeholder constant per value, in order.
    explicit ExpressionList(const QList<QVariant>& values);
    /// Shares the children.
    ExpressionList(const ExpressionList& other);
    /// Shares other's children in place of its own.
    ExpressionList& operator=(const ExpressionList& other);
    ~ExpressionList() override;

    /// Appends the expression as one child.
    ExpressionList& append(ExpressionHandle child);
    /// Appends the property's ValueExpression.
    ExpressionList& append(const BaseProperty& property);
    /// A placeholder constant, bound rather than inlined.
    ExpressionList& append(const QVariant& value);
    /// Every child of the list, one by one.
    ExpressionList& append(const ExpressionList& list);

    ExpressionList& operator<<(ExpressionHandle child) { return append(child); }          ///< append(child)
    ExpressionList& operator<<(const BaseProperty& property) { return append(property); } ///< append(property)
    ExpressionList& operator<<(const QVariant& value) { return append(value); }           ///< append(value)
    ExpressionList& operator<<(const ExpressionList& list) { return append(list); }       ///< append(list)
    ExpressionList& operator+=(ExpressionHandle child) { return append(child); }          ///< append(child)
    ExpressionList& operator+=(const BaseProperty& property) { return append(property); } ///< append(property)
    ExpressionList& operator+=(const QVariant& value) { return append(value); }           ///< append(value)
    ExpressionList& operator+=(const ExpressionList& list) { return append(list); }       ///< append(list)

    /// The child at index, which must be in the range 0 to size() - 1.
    ExpressionHandle operator[](int index) const;
    /// The number of children.
    int size() const;

    /// The one shared empty list held by default handles.
    static ExpressionHandle empty();

    using Expression::evaluate;
    /// A QVariantList of the children's values; constant when every child is.
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    /// The children separated by "," without blanks.
    void print(QTextStream& out, PrintStyle style) const override;
};

/// Lists of two built from properties (as their ValueExpressions) and
/// expressions, for chaining further operator<<() calls.
///@{
COMMONKIT_EXPORT ExpressionList operator<<(const BaseProperty& first, const BaseProperty& second);
COMMONKIT_EXPORT ExpressionList operator<<(const BaseProperty& first, ExpressionHandle second);
COMMONKIT_EXPORT ExpressionList operator<<(ExpressionHandle first, const BaseProperty& second);
COMMONKIT_EXPORT ExpressionList operator<<(ExpressionHandle first, ExpressionHandle second);
///@}

/// Writes the tree (Expression::writeExpression).
COMMONKIT_EXPORT QDataStream& operator<<(QDataStream& out, ExpressionHandle expression);
/// Prints the tree with PrintSql.
COMMONKIT_EXPORT QTextStream& operator<<(QTextStream& out, ExpressionHandle expression);

} // namespace kogen
