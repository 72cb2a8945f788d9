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
    using Function = QVariant (*)(const QList<QVariant>& arguments);
    using PrintFunction = void (*)(QTextStream& out, Expression::PrintStyle style, const QString& name,
                                   const QList<ExpressionHandle>& arguments);

    struct FunctionEntry
    {
        Function function = nullptr;
        int minArgs = 0;
        int maxArgs = -1; // -1: no limit
        PrintFunction printFunction = nullptr;
    };

    FunctionExpression(const QString& name, const ExpressionList& arguments, bool distinct = false);
    FunctionExpression(const FunctionExpression& other);
    FunctionExpression& operator=(const FunctionExpression& other);
    ~FunctionExpression() override;

    const QString& name() const { return m_name; }
    bool isDistinct() const { return m_distinct; }

    using Expression::collectPlaceholders;
    using Expression::evaluate;
    /// An unregistered name evaluates to NULL.
    QVariant evaluate(const PropertySet& set, bool* isConstant) const override;
    Expression* clone() const override;
    using Operator::equals;
    bool equals(const Expression* other) const override;
    /// With PrintSql: the entry's SQL printer, or for functions without one
    /// (the clock functions) the current value as a constant. Otherwise, and
    /// for unregistered names, printDefault.
    void print(QTextStream& out, PrintStyle style) const override;
    /// Only the call's own value for functions without SQL printer; the
    /// arguments are not visited.
    void collectPlaceholders(QList<QVariant>& out) const override;
    bool isEmpty() const override;

    /// False (and a log line) if the name is already registered.
    static bool registerFunction(const char* name, Function function, PrintFunction printFunction, int minArgs,
                                 int maxArgs);
    /// False (and a log line) if the name is not registered.
    static bool registerSqlPrintFunction(const char* name, PrintFunction printFunction);
    /// The entry of a name, if registered.
    static bool functionEntry(const QString& name, FunctionEntry* entry);
    /// The registered names, in ascending order.
    static QStringList functionNames();

    /// name(DISTINCT a,b)
    static void printDefault(QTextStream& out, Expression::PrintStyle style, const QString& name,
                             const QList<ExpressionHandle>& arguments);
    /// (a NAME b ESCAPE c)
    static void printLike(QTextStream& out, Expression::PrintStyle style, const QString& name,
                          const QList<ExpressionHandle>& arguments);

    static QVariant abs(const QList<QVariant>& arguments);
    static QVariant coalesce(const QList<QVariant>& arguments);
    static QVariant count(const QList<QVariant>& arguments);
    static QVariant currentDate(const QList<QVariant>& arguments);
    static QVariant currentDateTime(const QList<QVariant>& arguments);
    static QVariant currentTime(const QList<QVariant>& arguments);
    static QVariant group_concat(const QList<QVariant>& arguments);
    static QVariant hex(const QList<QVariant>& arguments);
    static QVariant ifnull(const QList<QVariant>& arguments);
    static QVariant length(const QList<QVariant>& arguments);
    static QVariant like(const QList<QVariant>& arguments);
    static QVariant lower(const QList<QVariant>& arguments);
    static QVariant max(const QList<QVariant>& arguments);
    static QVariant min(const QList<QVariant>& arguments);
    static QVariant nullif(const QList<QVariant>& arguments);
    static QVariant quote(const QList<QVariant>& arguments);
    static QVariant random(const QList<QVariant>& arguments);
    static QVariant regexp(const QList<QVariant>& arguments);
    static QVariant round(const QList<QVariant>& arguments);
    static QVariant trim(const QList<QVariant>& arguments);
    static QVariant upper(const QList<QVariant>& arguments);

    /// The regular expression that like() uses for a pattern and escape.
    static QString likePattern(const QString& pattern, const QString& escape);

protected:
    FunctionExpression();
    static QMap<QString, FunctionEntry>& functionMap();
    /// Compiled like() patterns, keyed by pattern + "/" + escape.
    static QCache<QString, QRegExp> gLikeCache;

    void write(QDataStream& out) const override;
    void read(QDataStream& in) override;

private:
    QString m_name;
    bool m_distinct;
};

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
/// Always three arguments: the value, the pattern and the escape (both as
/// inlined string constants).
COMMONKIT_EXPORT FunctionExpression like(ExpressionHandle value, const QString& pattern,
                                         const QString& escape = QString());
COMMONKIT_EXPORT FunctionExpression regexp(ExpressionHandle value, const QString& pattern);
COMMONKIT_EXPORT FunctionExpression regexp(ExpressionHandle value, const QRegExp& pattern);

} // namespace kogen
