#pragma once

#include <CommonKit/expressions/Expression.h>

#include <QCache>
#include <QRegExp>
#include <QStringList>

namespace kogen {

/// A named function call. The name selects an entry of a process-wide
/// registry holding the evaluation routine, the argument-count range and an
/// optional SQL printer; the library registers a set of SQL-flavoured
/// functions when it loads and applications may add their own.
///
/// Some built-in routines deliberately differ from their SQL namesakes when
/// evaluated in memory: min yields the largest argument and max the smallest,
/// nullif yields the first argument when both are equal (NULL otherwise),
/// group_concat starts its text with a comma, and like turns "%" into a run of
/// literal dots. Printed as SQL the calls go to the database unchanged.
class COMMONKIT_EXPORT FunctionExpression : public Operator
{
public:
    /// An evaluation routine: the call's result from its argument values
    /// (without duplicates for a DISTINCT call).
    using Function = QVariant (*)(const QList<QVariant>& arguments);
    /// An SQL printer: writes the call of name on the arguments in the style,
    /// which has PrintDistinct set for a DISTINCT call.
    using PrintFunction = void (*)(QTextStream& out, Expression::PrintStyle style, const QString& name,
                                   const QList<ExpressionHandle>& arguments);

    /// What the registry holds for a function name.
    struct FunctionEntry
    {
        /// The evaluation routine; a null one makes every call NULL.
        Function function = nullptr;
        /// The fewest arguments FilterParser accepts (calls built in code are
        /// not checked).
        int minArgs = 0;
        /// The most arguments FilterParser accepts.
        int maxArgs = -1; // -1: no limit
        /// The SQL printer; null for a call printed as its current value.
        PrintFunction printFunction = nullptr;
    };

    /// A call of the named function on the list's children. A DISTINCT call
    /// drops repeated argument values (TypeTool::equals()) before evaluating
    /// and prints DISTINCT in SQL. Neither the name nor the argument count is
    /// checked against the registry.
    FunctionExpression(const QString& name, const ExpressionList& arguments, bool distinct = false);
    /// Copies name and flag and shares the arguments.
    FunctionExpression(const FunctionExpression& other);
    /// Copies name and flag and shares the arguments.
    FunctionExpression& operator=(const FunctionExpression& other);
    ~FunctionExpression() override;

    /// The function name.
    const QString& name() const { return m_name; }
    /// Whether the call is DISTINCT.
    bool isDistinct() const { return m_distinct; }

    using Expression::collectPlaceholders;
    using Expression::evaluate;
    /// The routine's result on the argument values. An unregistered name
    /// evaluates to NULL. Constant when every argument is, whatever the
    /// routine (so also for the clock functions and random).
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    /// Equal to a call of the same name and DISTINCT flag on equal arguments.
    bool equals(const Expression* other) const override;
    /// With PrintSql: the entry's SQL printer, or for functions without one
    /// (the clock functions) the current value as a constant. Otherwise, and
    /// for unregistered names, printDefault.
    void print(QTextStream& out, PrintStyle style) const override;
    /// Only the call's own value for functions without SQL printer; the
    /// arguments are not visited, so a placeholder among them prints as "?"
    /// without a collected value. Use inlined constants as arguments when
    /// the SQL is to be bound.
    void collectPlaceholders(QList<QVariant>& out) const override;
    /// True for an empty name.
    bool isEmpty() const override;

    /// Registers a function under the Latin-1 name: its routine, its SQL
    /// printer (null: printed as its current value) and the argument counts
    /// the parser accepts (maxArgs -1: no limit). False (and a log line) if
    /// the name is already registered. The registry is process-wide and not
    /// locked: register before trees are built from other threads.
    static bool registerFunction(const char* name, Function function, PrintFunction printFunction, int minArgs,
                                 int maxArgs);
    /// Replaces the SQL printer of a registered function. False (and a log
    /// line) if the name is not registered.
    static bool registerSqlPrintFunction(const char* name, PrintFunction printFunction);
    /// Whether the name is registered; if so, and entry is not null, copies
    /// its entry to *entry.
    static bool functionEntry(const QString& name, FunctionEntry* entry);
    /// The registered names, in ascending order.
    static QStringList functionNames();

    /// name(DISTINCT a,b)
    static void printDefault(QTextStream& out, Expression::PrintStyle style, const QString& name,
                             const QList<ExpressionHandle>& arguments);
    /// (a NAME b ESCAPE c)
    static void printLike(QTextStream& out, Expression::PrintStyle style, const QString& name,
                          const QList<ExpressionHandle>& arguments);

    // The built-in routines. A missing argument reads as NULL.

    /// The first argument, negated (0 - x) if TypeTool finds it below 0.
    static QVariant abs(const QList<QVariant>& arguments);
    /// The first argument that is not null, else NULL.
    static QVariant coalesce(const QList<QVariant>& arguments);
    /// The number of arguments, as an int.
    static QVariant count(const QList<QVariant>& arguments);
    /// Today's local date; the arguments are ignored.
    static QVariant currentDate(const QList<QVariant>& arguments);
    /// The current local date and time; the arguments are ignored.
    static QVariant currentDateTime(const QList<QVariant>& arguments);
    /// The current local time; the arguments are ignored.
    static QVariant currentTime(const QList<QVariant>& arguments);
    /// The arguments' texts, each after a "," unless the text so far already
    /// ends with one: "a", "b" give ",a,b".
    static QVariant group_concat(const QList<QVariant>& arguments);
    /// The first argument's toULongLong() in lower-case hexadecimal digits.
    static QVariant hex(const QList<QVariant>& arguments);
    /// The same as coalesce().
    static QVariant ifnull(const QList<QVariant>& arguments);
    /// The length of the first argument's text in UTF-16 code units.
    static QVariant length(const QList<QVariant>& arguments);
    /// Whether the first argument's whole text matches the pattern (second)
    /// with the escape (third, optional) as rewritten by likePattern().
    /// NULL, and a log line, for a pattern too complex to compile within
    /// bounds. Compiled patterns are cached; safe to call from any thread.
    static QVariant like(const QList<QVariant>& arguments);
    /// The first argument's text in lower case.
    static QVariant lower(const QList<QVariant>& arguments);
    /// The smallest argument by TypeTool::compare() (inverted on purpose).
    static QVariant max(const QList<QVariant>& arguments);
    /// The largest argument by TypeTool::compare() (inverted on purpose).
    static QVariant min(const QList<QVariant>& arguments);
    /// The first argument if TypeTool finds it equal to the second, else
    /// NULL (inverted on purpose).
    static QVariant nullif(const QList<QVariant>& arguments);
    /// The first argument's text, unchanged.
    static QVariant quote(const QList<QVariant>& arguments);
    /// std::rand() as an int; the library does not seed it.
    static QVariant random(const QList<QVariant>& arguments);
    /// Whether the first argument's whole text matches the second: a QRegExp
    /// as it is, anything else as the text of a case-sensitive QRegExp. NULL,
    /// and a log line, for a text too complex to compile within bounds.
    static QVariant regexp(const QList<QVariant>& arguments);
    /// floor(x + 0.5) as a double, x the first argument's toDouble().
    static QVariant round(const QList<QVariant>& arguments);
    /// The first argument's text without white space at either end.
    static QVariant trim(const QList<QVariant>& arguments);
    /// The first argument's text in upper case.
    static QVariant upper(const QList<QVariant>& arguments);

    /// The QRegExp pattern like() matches with. With an escape, each
    /// backslash is doubled and the escape becomes a backslash; then "." is
    /// escaped, "_" becomes "." and "%" becomes an escaped dot and a star, a
    /// run of literal dots. Everything else, regular-expression syntax
    /// included, is left as it is.
    static QString likePattern(const QString& pattern, const QString& escape);

protected:
    /// A call without name or arguments, for subclasses.
    FunctionExpression();
    /// The registry, keyed by name.
    static QMap<QString, FunctionEntry>& functionMap();
    /// Compiled like() patterns, keyed by pattern + "/" + escape.
    static QCache<QString, QRegExp> gLikeCache;

    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    QString m_name;
    bool m_distinct;
};

/// Calls of the built-in functions on their arguments.
///@{
COMMONKIT_EXPORT FunctionExpression abs(ExpressionHandle value);
COMMONKIT_EXPORT FunctionExpression coalesce(const ExpressionList& values);
COMMONKIT_EXPORT FunctionExpression count(const ValueExpression& value, bool distinct = false);
COMMONKIT_EXPORT FunctionExpression group_concat(const ValueExpression& value, bool distinct = false);
COMMONKIT_EXPORT FunctionExpression max(const ValueExpression& value);
COMMONKIT_EXPORT FunctionExpression min(const ValueExpression& value);
COMMONKIT_EXPORT FunctionExpression currentDate();
COMMONKIT_EXPORT FunctionExpression currentTime();
COMMONKIT_EXPORT FunctionExpression currentDateTime();
COMMONKIT_EXPORT FunctionExpression random();
COMMONKIT_EXPORT FunctionExpression hex(ExpressionHandle value);
COMMONKIT_EXPORT FunctionExpression length(ExpressionHandle value);
COMMONKIT_EXPORT FunctionExpression lower(ExpressionHandle value);
COMMONKIT_EXPORT FunctionExpression upper(ExpressionHandle value);
COMMONKIT_EXPORT FunctionExpression quote(ExpressionHandle value);
COMMONKIT_EXPORT FunctionExpression round(ExpressionHandle value);
COMMONKIT_EXPORT FunctionExpression trim(ExpressionHandle value);
COMMONKIT_EXPORT FunctionExpression ifnull(ExpressionHandle value, ExpressionHandle otherwise);
COMMONKIT_EXPORT FunctionExpression nullif(ExpressionHandle value, ExpressionHandle other);
///@}
/// Always three arguments: the value, the pattern and the escape (both as
/// inlined string constants).
COMMONKIT_EXPORT FunctionExpression like(ExpressionHandle value, const QString& pattern,
                                         const QString& escape = QString());
/// A regexp call on the value with the pattern inlined as a constant.
///@{
COMMONKIT_EXPORT FunctionExpression regexp(ExpressionHandle value, const QString& pattern);
COMMONKIT_EXPORT FunctionExpression regexp(ExpressionHandle value, const QRegExp& pattern);
///@}

} // namespace kogen
