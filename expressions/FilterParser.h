#pragma once

#include <CommonKit/expressions/Expression.h>
#include <CommonKit/properties/PropertySet.h>

#include <QString>

namespace kogen {

/// Reads a filter written as the SQL text that expression trees print
/// (Expression::toString(PrintSql)) back into a tree over the properties of
/// a schema. The grammar and every choice it makes are described in
/// docs/filter-language.md. In short:
///
///   a > 2 AND (s LIKE 'al%' ESCAPE '\') OR  NOT b IN (1,2,3)
///
/// - names are looked up in the schema (a name printed with "_" for blanks
///   finds the property with the blanks); unknown names are an error;
/// - number and string literals become placeholder constants, so printing
///   the tree with PrintSql | PrintPlaceholders gives SQL ready to bind with
///   collectPlaceholders(). Literals inside function arguments and in the
///   ELSE part of a CASE are inlined, because the tree collects the values
///   of those places out of print order, and so are literals under a CAST,
///   whose bound values the tree converts with Qt's rules;
/// - functions are those of the FunctionExpression registry;
/// - the text the printer writes for a tree reads back into a tree that
///   prints the same text, and print(parse(t)) is stable for every text t
///   that parses.
///
/// Errors name the offending token and its 1-based column, counted in
/// characters (Unicode code points): "unexpected ')' at column 7". Every
/// input ends in a tree or an error in time linear in its length; nesting
/// is limited to maxDepth() levels.
class COMMONKIT_EXPORT FilterParser
{
public:
    /// A parser for filters over the properties of the schema, which it
    /// keeps a copy of (sharing the property objects).
    explicit FilterParser(const PropertySet& schema);
    ~FilterParser();
    /// Copies the schema and the last error.
    FilterParser(const FilterParser& other);
    /// Copies the schema and the last error.
    FilterParser& operator=(const FilterParser& other);

    /// The tree of the text. Empty text (or only blanks) gives the empty
    /// expression (a default ExpressionHandle, which prints nothing). On an
    /// error the result is a null handle (constData() == nullptr) and
    /// errorString() and errorColumn() tell why.
    ExpressionHandle parse(const QString& text);

    /// The message of the last failed parse(), translated in the context
    /// "FilterParser"; empty after a successful one.
    QString errorString() const { return m_error; }
    /// The 1-based column of the last error, 0 after a successful parse().
    int errorColumn() const { return m_errorColumn; }

    /// The schema whose property names the filters may use.
    const PropertySet& schema() const { return m_schema; }

    /// Deepest nesting that parse() accepts: brackets, prefix operators and
    /// operands of binary operators each count a level, and the tree built
    /// may not be deeper.
    static int maxDepth();

private:
    PropertySet m_schema;
    QString m_error;
    int m_errorColumn = 0;
};

} // namespace kogen
