#include <CommonKit/expressions/FunctionExpression.h>

#include "expressions/RegExpLimit_p.h"

#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/properties/TypeTool.h>
#include <CommonKit/support/core/Log.h>

#include <QDataStream>
#include <QDateTime>
#include <QMutex>
#include <QMutexLocker>
#include <QTextStream>

#include <cmath>
#include <cstdlib>

namespace kogen {

namespace {

QMutex gLikeCacheMutex;

// Whether QRegExp can compile the pattern within bounds; logs the refusal.
bool isTractable(const QString& pattern, QRegExp::PatternSyntax syntax, const char* tag)
{
    if (isTractableRegExp(pattern, syntax))
        return true;
    if (ko::Log::instance().isEnabled(ko::Log::Warning))
        ko::LogLine(ko::Log::Warning, tag) << QStringLiteral("Pattern too complex: %1").arg(pattern);
    return false;
}

} // namespace

QCache<QString, QRegExp> FunctionExpression::gLikeCache;

FunctionExpression::FunctionExpression() : m_distinct(false) {}

FunctionExpression::FunctionExpression(const QString& name, const ExpressionList& arguments, bool distinct)
    : m_name(name), m_distinct(distinct)
{
    for (const ExpressionHandle& argument : arguments.children())
        append(argument);
}

FunctionExpression::FunctionExpression(const FunctionExpression& other) = default;
FunctionExpression& FunctionExpression::operator=(const FunctionExpression& other) = default;
FunctionExpression::~FunctionExpression() = default;

QMap<QString, FunctionExpression::FunctionEntry>& FunctionExpression::functionMap()
{
    static QMap<QString, FunctionEntry> map;
    return map;
}

bool FunctionExpression::functionEntry(const QString& name, FunctionEntry* entry)
{
    const auto found = functionMap().constFind(name);
    if (found == functionMap().constEnd())
        return false;
    if (entry)
        *entry = found.value();
    return true;
}

QStringList FunctionExpression::functionNames() { return functionMap().keys(); }

bool FunctionExpression::registerFunction(const char* name, Function function, PrintFunction printFunction,
                                          int minArgs, int maxArgs)
{
    const QString key = QString::fromLatin1(name);
    if (functionMap().contains(key)) {
        if (ko::Log::instance().isEnabled(ko::Log::Warning))
            ko::LogLine(ko::Log::Warning, "kogen::FunctionExpression::registerFunction")
                << QStringLiteral("Function %1 already declared.").arg(key);
        return false;
    }
    FunctionEntry entry;
    entry.function = function;
    entry.minArgs = minArgs;
    entry.maxArgs = maxArgs;
    entry.printFunction = printFunction;
    functionMap().insert(key, entry);
    return true;
}

bool FunctionExpression::registerSqlPrintFunction(const char* name, PrintFunction printFunction)
{
    const QString key = QString::fromLatin1(name);
    const auto found = functionMap().find(key);
    if (found == functionMap().end()) {
        if (ko::Log::instance().isEnabled(ko::Log::Warning))
            ko::LogLine(ko::Log::Warning, "kogen::FunctionExpression::registerSqlPrintFunction")
                << QStringLiteral("Function %1 not declared.").arg(key);
        return false;
    }
    found.value().printFunction = printFunction;
    return true;
}

QVariant FunctionExpression::evaluate(const PropertySet& set, bool* isConstant) const
{
    bool constant = true;
    QList<QVariant> values;
    TypeTool tool(false, false);
    for (const ExpressionHandle& argument : children()) {
        bool argumentConstant = true;
        const QVariant value = argument->evaluate(set, isConstant ? &argumentConstant : nullptr);
        constant = constant && argumentConstant;
        if (m_distinct && tool.contains(values, value))
            continue;
        values.append(value);
    }
    if (isConstant)
        *isConstant = constant;
    FunctionEntry entry;
    if (!functionEntry(m_name, &entry) || !entry.function)
        return QVariant();
    return entry.function(values);
}

Expression* FunctionExpression::clone() const { return new FunctionExpression(*this); }

bool FunctionExpression::equals(const Expression* other) const
{
    const auto* that = dynamic_cast<const FunctionExpression*>(other);
    return that && that->m_name == m_name && that->m_distinct == m_distinct && Operator::equals(other);
}

void FunctionExpression::print(QTextStream& out, PrintStyle style) const
{
    FunctionEntry entry;
    const bool known = functionEntry(m_name, &entry);
    if (!(style & PrintSql) || !known) {
        printDefault(out, style & ~PrintStyle(PrintDistinct), m_name, children());
    } else if (entry.printFunction) {
        PrintStyle callStyle = style;
        if (m_distinct)
            callStyle |= PrintDistinct;
        entry.printFunction(out, callStyle, m_name, children());
    } else {
        // Clock functions: the database gets the value of the moment of printing.
        ConstExpression::printValue(out, evaluate(), style);
    }
}

void FunctionExpression::collectPlaceholders(QList<QVariant>& out) const
{
    FunctionEntry entry;
    if (functionEntry(m_name, &entry) && !entry.printFunction)
        out.append(evaluate());
}

bool FunctionExpression::isEmpty() const { return m_name.isEmpty(); }

void FunctionExpression::write(QDataStream& out) const
{
    out << qint32(2) << m_name << m_distinct;
    Operator::write(out);
}

void FunctionExpression::read(QDataStream& in)
{
    qint32 version = 0;
    in >> version >> m_name >> m_distinct;
    Operator::read(in);
}

// --- SQL printers -----------------------------------------------------------------

void FunctionExpression::printDefault(QTextStream& out, Expression::PrintStyle style, const QString& name,
                                      const QList<ExpressionHandle>& arguments)
{
    out << name << "(";
    if (style & PrintDistinct)
        out << "DISTINCT ";
    const PrintStyle argumentStyle = style & ~PrintStyle(PrintDistinct);
    bool first = true;
    for (const ExpressionHandle& argument : arguments) {
        if (!first)
            out << ",";
        first = false;
        argument->print(out, argumentStyle);
    }
    out << ")";
}

void FunctionExpression::printLike(QTextStream& out, Expression::PrintStyle style, const QString& name,
                                   const QList<ExpressionHandle>& arguments)
{
    const PrintStyle argumentStyle = style & ~PrintStyle(PrintDistinct);
    out << "(";
    arguments.value(0)->print(out, argumentStyle);
    out << " " << name.toUpper() << " ";
    arguments.value(1)->print(out, argumentStyle);
    if (arguments.size() > 2) {
        out << " ESCAPE ";
        arguments.at(2)->print(out, argumentStyle);
    }
    out << ")";
}

// --- built-in routines --------------------------------------------------------------

QVariant FunctionExpression::currentDate(const QList<QVariant>&) { return QDateTime::currentDateTime().date(); }
QVariant FunctionExpression::currentTime(const QList<QVariant>&) { return QDateTime::currentDateTime().time(); }
QVariant FunctionExpression::currentDateTime(const QList<QVariant>&) { return QDateTime::currentDateTime(); }

QVariant FunctionExpression::abs(const QList<QVariant>& arguments)
{
    const QVariant value = arguments.value(0);
    TypeTool tool(false, true);
    if (tool.compare(value, QVariant(0)) < 0)
        return TypeTool(true, false).do_subtract(QVariant(0), value);
    return value;
}

QVariant FunctionExpression::min(const QList<QVariant>& arguments)
{
    // Keeps the largest value: the in-memory min is inverted on purpose.
    QVariant current = arguments.value(0);
    TypeTool tool(false, false);
    for (int i = 1; i < arguments.size(); ++i) {
        if (tool.compare(current, arguments.at(i)) < 0)
            current = arguments.at(i);
    }
    return current;
}

QVariant FunctionExpression::max(const QList<QVariant>& arguments)
{
    // Keeps the smallest value: the in-memory max is inverted on purpose.
    QVariant current = arguments.value(0);
    TypeTool tool(false, false);
    for (int i = 1; i < arguments.size(); ++i) {
        if (tool.compare(current, arguments.at(i)) > 0)
            current = arguments.at(i);
    }
    return current;
}

QVariant FunctionExpression::count(const QList<QVariant>& arguments) { return int(arguments.size()); }

QVariant FunctionExpression::group_concat(const QList<QVariant>& arguments)
{
    QString text;
    for (const QVariant& argument : arguments) {
        if (!text.endsWith(QLatin1Char(',')))
            text += QLatin1Char(',');
        text += argument.toString();
    }
    return text;
}

QVariant FunctionExpression::coalesce(const QList<QVariant>& arguments)
{
    for (const QVariant& argument : arguments) {
        if (!argument.isNull())
            return argument;
    }
    return QVariant();
}

QVariant FunctionExpression::ifnull(const QList<QVariant>& arguments) { return coalesce(arguments); }

QVariant FunctionExpression::nullif(const QList<QVariant>& arguments)
{
    // The first value when both are equal: inverted on purpose.
    const QVariant first = arguments.value(0);
    if (TypeTool(false, false).equals(first, arguments.value(1)))
        return first;
    return QVariant();
}

QVariant FunctionExpression::hex(const QList<QVariant>& arguments)
{
    QString text;
    text.setNum(arguments.value(0).toULongLong(), 16);
    return text;
}

QVariant FunctionExpression::round(const QList<QVariant>& arguments)
{
    return std::floor(arguments.value(0).toDouble() + 0.5);
}

QVariant FunctionExpression::random(const QList<QVariant>&) { return int(std::rand()); }

QVariant FunctionExpression::length(const QList<QVariant>& arguments)
{
    return int(arguments.value(0).toString().length());
}

QVariant FunctionExpression::lower(const QList<QVariant>& arguments) { return arguments.value(0).toString().toLower(); }
QVariant FunctionExpression::upper(const QList<QVariant>& arguments) { return arguments.value(0).toString().toUpper(); }
QVariant FunctionExpression::trim(const QList<QVariant>& arguments) { return arguments.value(0).toString().trimmed(); }

QVariant FunctionExpression::quote(const QList<QVariant>& arguments)
{
    return QStringLiteral("%1").arg(arguments.value(0).toString(), 0, QLatin1Char(' '));
}

QString FunctionExpression::likePattern(const QString& pattern, const QString& escape)
{
    QString rewritten = pattern;
    if (!escape.isEmpty()) {
        rewritten.replace(QLatin1String("\\"), QLatin1String("\\\\"));
        rewritten.replace(escape, QLatin1String("\\"));
    }
    rewritten.replace(QLatin1String("."), QLatin1String("\\."));
    // Escaping "%" before turning it into ".*" leaves an escaped dot and a
    // star: in memory "%" matches a run of dots. This is the defined
    // behaviour; the database applies its own LIKE to the printed SQL.
    rewritten.replace(QLatin1String("%"), QLatin1String("\\%"));
    rewritten.replace(QLatin1String("_"), QLatin1String("."));
    rewritten.replace(QLatin1String("%"), QLatin1String(".*"));
    return rewritten;
}

QVariant FunctionExpression::like(const QList<QVariant>& arguments)
{
    const QString value = arguments.value(0).toString();
    const QString pattern = arguments.value(1).toString();
    const QString escape = arguments.size() > 2 ? arguments.at(2).toString() : QString();
    const QString key = pattern + QLatin1Char('/') + escape;

    // The key joins pattern and escape with "/", so two calls can share a key
    // ("x/" without escape, "x" with escape "/"). The rewrite is cheap next to
    // compiling: an entry is used only when it was built from the same text.
    const QString rewritten = likePattern(pattern, escape);
    QRegExp expression;
    {
        QMutexLocker lock(&gLikeCacheMutex);
        QRegExp* cached = gLikeCache.object(key);
        if (!cached || cached->pattern() != rewritten) {
            // The rewrite leaves braces and groups alone, so a pattern can
            // nest counted repetitions that QRegExp cannot compile within
            // bounds; such a pattern gives NULL and is not cached.
            if (!isTractable(rewritten, QRegExp::RegExp, "kogen::FunctionExpression::like"))
                return QVariant();
            cached = new QRegExp(rewritten, Qt::CaseSensitive, QRegExp::RegExp);
            gLikeCache.insert(key, cached, 1);
        }
        expression = *cached;
    }
    return expression.exactMatch(value);
}

QVariant FunctionExpression::regexp(const QList<QVariant>& arguments)
{
    const QVariant pattern = arguments.value(1);
    if (pattern.type() == QVariant::RegExp)
        return pattern.toRegExp().exactMatch(arguments.value(0).toString());
    // QRegExp compiles as it is built: check the text first.
    const QString text = pattern.toString();
    if (!isTractable(text, QRegExp::RegExp, "kogen::FunctionExpression::regexp"))
        return QVariant();
    return QRegExp(text).exactMatch(arguments.value(0).toString());
}

// --- builders ---------------------------------------------------------------------

namespace {

FunctionExpression call(const char* name, const ExpressionList& arguments = ExpressionList(), bool distinct = false)
{
    return FunctionExpression(QString::fromLatin1(name), arguments, distinct);
}

ExpressionList one(ExpressionHandle value)
{
    ExpressionList list;
    list.append(value);
    return list;
}

ExpressionHandle inlined(const QVariant& value) { return ConstExpression(value, false); }

} // namespace

FunctionExpression abs(ExpressionHandle value) { return call("abs", one(value)); }
FunctionExpression coalesce(const ExpressionList& values) { return call("coalesce", values); }
FunctionExpression count(const ValueExpression& value, bool distinct) { return call("count", one(value), distinct); }
FunctionExpression group_concat(const ValueExpression& value, bool distinct)
{
    return call("group_concat", one(value), distinct);
}
FunctionExpression max(const ValueExpression& value) { return call("max", one(value)); }
FunctionExpression min(const ValueExpression& value) { return call("min", one(value)); }
FunctionExpression currentDate() { return call("currentDate"); }
FunctionExpression currentTime() { return call("currentTime"); }
FunctionExpression currentDateTime() { return call("currentDateTime"); }
FunctionExpression random() { return call("random"); }
FunctionExpression hex(ExpressionHandle value) { return call("hex", one(value)); }
FunctionExpression length(ExpressionHandle value) { return call("length", one(value)); }
FunctionExpression lower(ExpressionHandle value) { return call("lower", one(value)); }
FunctionExpression upper(ExpressionHandle value) { return call("upper", one(value)); }
FunctionExpression quote(ExpressionHandle value) { return call("quote", one(value)); }
FunctionExpression round(ExpressionHandle value) { return call("round", one(value)); }
FunctionExpression trim(ExpressionHandle value) { return call("trim", one(value)); }
FunctionExpression ifnull(ExpressionHandle value, ExpressionHandle otherwise)
{
    return call("ifnull", ExpressionList(value, otherwise));
}
FunctionExpression nullif(ExpressionHandle value, ExpressionHandle other)
{
    return call("nullif", ExpressionList(value, other));
}

FunctionExpression like(ExpressionHandle value, const QString& pattern, const QString& escape)
{
    ExpressionList arguments(value, inlined(pattern));
    arguments.append(inlined(escape));
    return call("like", arguments);
}

FunctionExpression regexp(ExpressionHandle value, const QString& pattern)
{
    return call("regexp", ExpressionList(value, inlined(pattern)));
}

FunctionExpression regexp(ExpressionHandle value, const QRegExp& pattern)
{
    return call("regexp", ExpressionList(value, inlined(pattern)));
}

} // namespace kogen
