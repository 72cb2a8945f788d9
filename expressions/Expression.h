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
    enum PrintStyleFlag {
        PrintCode = 1,         // C-like text: (type)x casts, && || !, %, switch
        PrintSql = 2,          // SQL: quoted strings, integer dates, AS aliases, CASE
        PrintPlaceholders = 4, // placeholder constants print as "?"
        PrintOrder = 8,        // sort-list form: -x prints "x DESC"
        PrintDistinct = 16,    // set by a function call for its SQL printer
        PrintNested = 0x800    // set by a parent for an operand (parenthesise n-ary operators)
    };
    Q_DECLARE_FLAGS(PrintStyle, PrintStyleFlag)

    Expression();
    Expression(const Expression& other);
    Expression& operator=(const Expression& other);
    virtual ~Expression();

    /// The node's value against the set. Where isConstant is not null it is
    /// set to whether the value is independent of the set.
    virtual QVariant evaluate(const PropertySet& set, bool* isConstant) const = 0;
    /// A new heap copy of this node (children are shared).
    virtual Expression* clone() const = 0;
    virtual bool equals(const Expression* other) const = 0;
    virtual void print(QTextStream& out, PrintStyle style) const = 0;
    /// Appends the values of the placeholder constants, in print order.
    virtual void collectPlaceholders(QList<QVariant>& out) const;
    virtual bool isEmpty() const = 0;

    /// Evaluates against an empty set.
    QVariant evaluate() const;
    QString toString(PrintStyle style) const;
    QList<QVariant> collectPlaceholders() const;

    /// True if both are the same node (or both null), false if one is null,
    /// else a->equals(b).
    static bool equals(const Expression* a, const Expression* b);

    /// The stream tag of a node: "class " followed by the qualified class
    /// name, e.g. "class kogen::Comparator".
    static QByteArray classTag(const Expression& node);
    /// Registers a prototype for reading nodes of its class. False if the tag
    /// is empty or already registered.
    static bool registerExpressionClass(ExpressionHandle prototype);
    /// Reads one node (and its children). An unregistered tag gives the empty
    /// list and leaves the body unread. Nesting deeper than
    /// maxReadDepth() marks the stream as corrupt.
    static ExpressionHandle readExpression(QDataStream& in);
    static void writeExpression(QDataStream& out, ExpressionHandle expression);
    static int maxReadDepth();

    /// Reads a filter in the SQL form that toString(PrintSql) writes into a
    /// tree over the properties of the schema (see FilterParser). Returns a
    /// null handle and sets *error on failure; clears *error on success.
    static ExpressionHandle parse(const QString& text, const PropertySet& schema, QString* error = nullptr);

protected:
    friend class Operator;
    friend class CastExpression;
    virtual void write(QDataStream& out) const = 0;
    virtual void read(QDataStream& in) = 0;

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
    ExpressionHandle();
    ExpressionHandle(const Expression& expression); // NOLINT: stores a clone
    /// Takes ownership of a heap node.
    explicit ExpressionHandle(Expression* node);
    ExpressionHandle(const ExpressionHandle& other) = default;
    ExpressionHandle& operator=(const ExpressionHandle& other) = default;
    ~ExpressionHandle();

    /// Same node, or the held nodes are equal.
    bool equals(ExpressionHandle other) const;

    const Expression* operator->() const { return m_node.constData(); }
    const Expression& operator*() const { return *m_node.constData(); }
    const Expression* constData() const { return m_node.constData(); }
    /// Mutable access: clones the node first if it is shared.
    Expression* data() { return m_node.data(); }
    void detach() { m_node.detach(); }

private:
    QSharedDataPointer<Expression> m_node;
};

/// A constant. Constants flagged as placeholders print as "?" under
/// PrintPlaceholders and are collected by collectPlaceholders().
class COMMONKIT_EXPORT ConstExpression : public virtual Expression
{
public:
    ConstExpression(const QVariant& value, bool placeholder);
    ConstExpression(const ConstExpression& other);
    ConstExpression& operator=(const ConstExpression& other);
    ~ConstExpression() override;

    static ConstExpression date(int year, int month, int day);
    static ConstExpression time(int hour, int minute, int second, int msec);
    static ConstExpression dateTime(int year, int month, int day, int hour, int minute, int second, int msec);

    using Expression::collectPlaceholders;
    using Expression::evaluate;
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    bool equals(const Expression* other) const override;
    void print(QTextStream& out, PrintStyle style) const override;
    void collectPlaceholders(QList<QVariant>& out) const override;
    bool isEmpty() const override;

    const QVariant& value() const { return m_value; }
    bool isPlaceholder() const { return m_placeholder; }

    /// Prints a value as a constant in the given style.
    static void printValue(QTextStream& out, const QVariant& value, PrintStyle style);

protected:
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
    ValueExpression(const BaseProperty& property, const QString& alias = QString());
    ValueExpression(const QString& name, const QString& alias = QString());
    ValueExpression(const ValueExpression& other);
    ValueExpression& operator=(const ValueExpression& other);
    ~ValueExpression() override;

    const QString& name() const { return m_name; }
    const QString& alias() const { return m_alias; }

    using Expression::collectPlaceholders;
    using Expression::evaluate;
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    bool equals(const Expression* other) const override;
    void print(QTextStream& out, PrintStyle style) const override;
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
    CastExpression(QVariant::Type type, ExpressionHandle operand);
    CastExpression(const CastExpression& other);
    CastExpression& operator=(const CastExpression& other);
    ~CastExpression() override;

    QVariant::Type type() const { return m_type; }
    const ExpressionHandle& operand() const { return m_operand; }

    using Expression::collectPlaceholders;
    using Expression::evaluate;
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    bool equals(const Expression* other) const override;
    void print(QTextStream& out, PrintStyle style) const override;
    void collectPlaceholders(QList<QVariant>& out) const override;
    bool isEmpty() const override;

protected:
    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    QVariant::Type m_type;
    ExpressionHandle m_operand;
};

COMMONKIT_EXPORT CastExpression toBool(ExpressionHandle operand);
COMMONKIT_EXPORT CastExpression toInt(ExpressionHandle operand);
COMMONKIT_EXPORT CastExpression toUInt(ExpressionHandle operand);
COMMONKIT_EXPORT CastExpression toLongLong(ExpressionHandle operand);
COMMONKIT_EXPORT CastExpression toULongLong(ExpressionHandle operand);
COMMONKIT_EXPORT CastExpression toDouble(ExpressionHandle operand);
COMMONKIT_EXPORT CastExpression toString(ExpressionHandle operand);
COMMONKIT_EXPORT CastExpression toDate(ExpressionHandle operand);
COMMONKIT_EXPORT CastExpression toTime(ExpressionHandle operand);
COMMONKIT_EXPORT CastExpression toDateTime(ExpressionHandle operand);

/// The common base of nodes with an ordered list of children.
class COMMONKIT_EXPORT Operator : public Expression
{
public:
    Operator(const Operator& other);
    Operator& operator=(const Operator& other);
    ~Operator() override;

    const QList<ExpressionHandle>& children() const { return m_children; }

    using Expression::collectPlaceholders;
    using Expression::equals;
    bool equals(const Expression* other) const override;
    void collectPlaceholders(QList<QVariant>& out) const override;
    bool isEmpty() const override;

protected:
    Operator();
    explicit Operator(ExpressionHandle child);
    Operator(ExpressionHandle first, ExpressionHandle second);

    void append(ExpressionHandle child);
    QList<ExpressionHandle>& mutableChildren() { return m_children; }
    /// The child at index, or the empty ExpressionList when there is none
    /// (what children().value(index) holds, without copying a handle).
    const Expression& child(int index) const;

    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    QList<ExpressionHandle> m_children;
};

/// A comma-separated list of expressions; evaluates to a QVariantList.
class COMMONKIT_EXPORT ExpressionList : public Operator
{
public:
    ExpressionList();
    explicit ExpressionList(ExpressionHandle first);
    ExpressionList(ExpressionHandle first, ExpressionHandle second);
    explicit ExpressionList(const QList<QVariant>& values);
    ExpressionList(const ExpressionList& other);
    ExpressionList& operator=(const ExpressionList& other);
    ~ExpressionList() override;

    ExpressionList& append(ExpressionHandle child);
    ExpressionList& append(const BaseProperty& property);
    /// A placeholder constant, bound rather than inlined.
    ExpressionList& append(const QVariant& value);
    /// Every child of the list, one by one.
    ExpressionList& append(const ExpressionList& list);

    ExpressionList& operator<<(ExpressionHandle child) { return append(child); }
    ExpressionList& operator<<(const BaseProperty& property) { return append(property); }
    ExpressionList& operator<<(const QVariant& value) { return append(value); }
    ExpressionList& operator<<(const ExpressionList& list) { return append(list); }
    ExpressionList& operator+=(ExpressionHandle child) { return append(child); }
    ExpressionList& operator+=(const BaseProperty& property) { return append(property); }
    ExpressionList& operator+=(const QVariant& value) { return append(value); }
    ExpressionList& operator+=(const ExpressionList& list) { return append(list); }

    ExpressionHandle operator[](int index) const;
    int size() const;

    /// The one shared empty list held by default handles.
    static ExpressionHandle empty();

    using Expression::evaluate;
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    void print(QTextStream& out, PrintStyle style) const override;
};

COMMONKIT_EXPORT ExpressionList operator<<(const BaseProperty& first, const BaseProperty& second);
COMMONKIT_EXPORT ExpressionList operator<<(const BaseProperty& first, ExpressionHandle second);
COMMONKIT_EXPORT ExpressionList operator<<(ExpressionHandle first, const BaseProperty& second);
COMMONKIT_EXPORT ExpressionList operator<<(ExpressionHandle first, ExpressionHandle second);

/// Writes the tree (Expression::writeExpression).
COMMONKIT_EXPORT QDataStream& operator<<(QDataStream& out, ExpressionHandle expression);
/// Prints the tree with PrintSql.
COMMONKIT_EXPORT QTextStream& operator<<(QTextStream& out, ExpressionHandle expression);

} // namespace kogen
