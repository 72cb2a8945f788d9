#include <CommonKit/logview/ActionLogFilter.h>

#include <CommonKit/logging/LogEntry.h>
#include <CommonKit/logging/LogEntryFactory.h>
#include <CommonKit/logging/LogValue.h>
#include <CommonKit/properties/Properties.h>

#include <memory>

namespace ko {
namespace {

QVariant typedValue(const LogValue& value)
{
    if (const auto* number = dynamic_cast<const TLogValue<int>*>(&value))
        return number->value;
    if (const auto* text = dynamic_cast<const TLogValue<QString>*>(&value))
        return text->value;
    if (const auto* time = dynamic_cast<const TLogValue<QDateTime>*>(&value))
        return time->value;
    return value.toString();
}

const QStringList& fixedFields()
{
    static const QStringList names = {QStringLiteral("time"), QStringLiteral("user"), QStringLiteral("category"),
                                      QStringLiteral("type"), QStringLiteral("title")};
    return names;
}

} // namespace

ActionLogFilter::ActionLogFilter() : m_values(schema()) {}

bool ActionLogFilter::setFilterText(const QString& text, QString* error)
{
    if (text.trimmed().isEmpty()) {
        clear();
        return true;
    }
    // Kinds registered since the filter was made bring their value names.
    m_values = schema();
    QString problem;
    const kogen::ExpressionHandle parsed = kogen::Expression::parse(text, m_values, &problem);
    if (!problem.isEmpty()) {
        if (error)
            *error = problem;
        return false;
    }
    setExpression(parsed);
    return true;
}

void ActionLogFilter::setExpression(const kogen::ExpressionHandle& expression)
{
    m_expression = expression;
    m_empty = expression->isEmpty();
}

void ActionLogFilter::clear()
{
    m_expression = kogen::ExpressionHandle();
    m_empty = true;
}

bool ActionLogFilter::accepts(const LogEntry& entry) const
{
    return m_empty || accepts(fieldsOf(entry));
}

bool ActionLogFilter::accepts(const QVariantMap& fields) const
{
    if (m_empty)
        return true;
    for (auto& property : m_values)
        property->setVariantValue(fields.value(property->propertyName()));
    const QVariant result = m_expression->evaluate(m_values, nullptr);
    return result.isValid() && result.toBool();
}

QVariantMap ActionLogFilter::fieldsOf(const LogEntry& entry)
{
    QVariantMap fields;
    fields.insert(QStringLiteral("time"), entry.time());
    fields.insert(QStringLiteral("user"), entry.user());
    fields.insert(QStringLiteral("category"), FourChars(entry.category().id).toString());
    fields.insert(QStringLiteral("type"), entry.type().toString());
    fields.insert(QStringLiteral("title"), entry.title());
    const QList<LogValue*>& values = entry.values();
    for (int i = 2; i < values.size(); ++i) {
        if (!fixedFields().contains(values.at(i)->name()))
            fields.insert(values.at(i)->name(), values.at(i)->isSet() ? typedValue(*values.at(i)) : QVariant());
    }
    return fields;
}

kogen::PropertySet ActionLogFilter::schema()
{
    QStringList names = fixedFields();
    for (const FourChars& type : logEntryFactory().types()) {
        const std::unique_ptr<LogEntry> sample(logEntryFactory().create(type));
        if (!sample)
            continue;
        for (int i = 2; i < sample->values().size(); ++i)
            names << sample->values().at(i)->name();
    }
    kogen::PropertySet set;
    for (const QString& name : qAsConst(names)) {
        if (!set.contains(name))
            set.add(new kogen::VariantProperty(name));
    }
    return set;
}

} // namespace ko
