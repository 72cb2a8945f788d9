#pragma once

#include <CommonKit/expressions/Expression.h>
#include <CommonKit/properties/PropertySet.h>
#include <CommonKit/support/core/Export.h>

#include <QString>
#include <QVariantMap>

namespace ko {

class LogEntry;

/// A filter over action log entries: an expression over the entry's fields,
/// evaluated in memory. The fields are
///  - `time`: the entry's date-time;
///  - `user`: the user text;
///  - `category`: the category's four-letter code, e.g. "Expt";
///  - `type`: the kind's four-letter code, e.g. "ExpD";
///  - `title`: the kind's translated title;
///
/// and every value of the entry by its name ("text", "format", "oldFile", ...).
/// A field the entry does not have is NULL, so a comparison with it is not
/// true. An empty filter accepts every entry.
///
///     ko::ActionLogFilter filter;
///     QString error;
///     if (!filter.setFilterText("type = 'ExpD' AND user LIKE 'ann%'", &error)) ...
///     filter.accepts(entry);
///
/// accepts() writes the fields into a property set kept by the filter, which
/// copies of the filter share: a filter and its copies must not evaluate on
/// several threads at once.
class COMMONKIT_EXPORT ActionLogFilter
{
public:
    /// An empty filter, which accepts every entry.
    ActionLogFilter();

    /// Parses a filter in the filter language (docs/filter-language.md) over
    /// schema(). On error returns false, leaves the filter as it was and
    /// describes the problem in *error.
    /// A text of blanks only clears the filter. The schema is taken anew, so
    /// kinds registered since bring their value names. error may be null.
    bool setFilterText(const QString& text, QString* error);
    /// Uses an expression built elsewhere; its properties are looked up by
    /// name among the fields. An empty expression makes the filter empty.
    void setExpression(const kogen::ExpressionHandle& expression);
    /// Empties the filter: it accepts every entry again.
    void clear();
    /// Whether the filter accepts every entry.
    bool isEmpty() const { return m_empty; }
    /// The parsed expression; an empty one for an empty filter.
    kogen::ExpressionHandle expression() const { return m_expression; }

    /// Whether the expression evaluated over the entry's fields is true; an
    /// evaluation error or a NULL result rejects the entry.
    bool accepts(const LogEntry& entry) const;
    /// The same for fields as fieldsOf() returns them.
    bool accepts(const QVariantMap& fields) const;

    /// The fields of an entry by name (see above).
    static QVariantMap fieldsOf(const LogEntry& entry);
    /// A set with one property per field name that any registered kind has.
    static kogen::PropertySet schema();

private:
    kogen::ExpressionHandle m_expression;
    bool m_empty = true;
    /// Reused for every evaluation; its properties are set from the fields.
    mutable kogen::PropertySet m_values;
};

} // namespace ko
