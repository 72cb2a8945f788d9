// commonkit expr parse: reads a filter written as SQL text, shows the tree
// it gives as SQL (plain and with bound values) and as code text, and writes
// its stream form.

#include "Command.h"
#include "CommandLine.h"

#include <CommonKit/expressions/Expressions.h>
#include <CommonKit/properties/Properties.h>

#include <QDataStream>
#include <QFile>
#include <QRegExp>
#include <QSaveFile>
#include <QTextStream>

namespace cktool {

int runExprParse(const QStringList& arguments);

namespace {

// The property classes a schema entry may name.
kogen::BaseProperty* newProperty(const QString& name, const QString& type)
{
    using namespace kogen;
    const QString t = type.toLower();
    if (t.isEmpty() || t == QLatin1String("string"))
        return new StringProperty(name);
    if (t == QLatin1String("bool"))
        return new BoolProperty(name);
    if (t == QLatin1String("int"))
        return new IntProperty(name);
    if (t == QLatin1String("uint"))
        return new UIntProperty(name);
    if (t == QLatin1String("u64"))
        return new U64Property(name);
    if (t == QLatin1String("float"))
        return new FloatProperty(name);
    if (t == QLatin1String("double"))
        return new DoubleProperty(name);
    if (t == QLatin1String("stringlist"))
        return new StringListProperty(name);
    if (t == QLatin1String("bytearray"))
        return new ByteArrayProperty(name);
    if (t == QLatin1String("date"))
        return new DateProperty(name);
    if (t == QLatin1String("time"))
        return new TimeProperty(name);
    if (t == QLatin1String("datetime"))
        return new DateTimeProperty(name);
    if (t == QLatin1String("variant"))
        return new VariantProperty(name);
    return nullptr;
}

// Adds "name", "name=type" or "name:type" to the schema.
void declare(kogen::PropertySet& schema, const QString& entry)
{
    const int split = entry.indexOf(QRegExp(QStringLiteral("[=:]")));
    const QString name = (split < 0 ? entry : entry.left(split)).trimmed();
    const QString type = split < 0 ? QString() : entry.mid(split + 1).trimmed();
    kogen::BaseProperty* property = name.isEmpty() ? nullptr : newProperty(name, type);
    if (!property)
        throw CommandError(tr("expr parse: cannot declare '%1' (types: bool, int, uint, u64, float, double, "
                              "string, stringlist, bytearray, date, time, datetime, variant)")
                               .arg(entry),
                           2);
    schema.add(property);
}

bool holdsSwitch(const kogen::ExpressionHandle& tree)
{
    if (dynamic_cast<const kogen::SwitchCase*>(tree.constData()))
        return true;
    if (const auto* node = dynamic_cast<const kogen::Operator*>(tree.constData())) {
        for (const kogen::ExpressionHandle& child : node->children()) {
            if (holdsSwitch(child))
                return true;
        }
    }
    if (const auto* cast = dynamic_cast<const kogen::CastExpression*>(tree.constData()))
        return holdsSwitch(cast->operand());
    return false;
}

QString readFilter(const QString& argument)
{
    if (argument != QLatin1String("-"))
        return argument;
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        throw CommandError(tr("expr: cannot read standard input"));
    return QString::fromUtf8(input.readAll());
}

} // namespace

int runExprParse(const QStringList& arguments)
{
    CommandLine commandLine(QStringLiteral("expr parse"),
                            tr("Reads a filter written as SQL text and prints the tree as SQL, with its bound "
                               "values, and as code text."));
    commandLine.addPositional(QStringLiteral("filter"), tr("The filter text, or - for standard input. Put -- before a filter that "
                                                           "starts with a minus sign and a blank."));
    const QCommandLineOption property(QStringLiteral("property"),
                                      tr("Declares a property the filter may name; the type is one of bool, "
                                         "int, uint, u64, float, double, string (the default), stringlist, "
                                         "bytearray, date, time, datetime, variant. Repeatable."),
                                      QStringLiteral("name[=type]"));
    const QCommandLineOption schemaOption(QStringLiteral("schema"),
                                          tr("Declares several properties at once, separated by commas."),
                                          QStringLiteral("name[:type],..."));
    const QCommandLineOption out(QStringLiteral("out"), tr("Writes the tree as an expression stream to the file."),
                                 QStringLiteral("file"));
    commandLine.addOption(property);
    commandLine.addOption(schemaOption);
    commandLine.addOption(out);
    if (!commandLine.parse(arguments, 1, 1))
        return 0;

    kogen::PropertySet schema;
    for (const QString& list : commandLine.parser().values(schemaOption)) {
        for (const QString& entry : list.split(QLatin1Char(','), Qt::SkipEmptyParts))
            declare(schema, entry);
    }
    for (const QString& entry : commandLine.parser().values(property))
        declare(schema, entry);

    const QString text = readFilter(commandLine.positional().constFirst());
    kogen::FilterParser parser(schema);
    const kogen::ExpressionHandle tree = parser.parse(text);
    if (!tree.constData()) {
        const QString message = tr("expr parse: %1").arg(parser.errorString());
        if (text.contains(QLatin1Char('\n')))
            throw CommandError(message);
        // A one-line filter is shown with a mark under the column.
        const QVector<uint> before = text.toUcs4().mid(0, parser.errorColumn() - 1);
        QTextStream(stderr) << "commonkit: " << message << "\n  " << text << "\n  "
                            << QString(before.size(), QLatin1Char(' ')) << "^\n";
        return 1;
    }

    QTextStream output(stdout);
    output << tr("SQL: %1").arg(tree->toString(kogen::Expression::PrintSql)) << "\n";
    output << tr("Bound: %1").arg(tree->toString(kogen::Expression::PrintSql | kogen::Expression::PrintPlaceholders))
           << "\n";
    int index = 0;
    for (const QVariant& value : tree->collectPlaceholders())
        output << "  " << ++index << ": " << value.toString() << " (" << QLatin1String(value.typeName()) << ")\n";
    output << tr("Code: %1").arg(tree->toString(kogen::Expression::PrintCode)) << "\n";

    if (commandLine.isSet(QStringLiteral("out"))) {
        const QString path = commandLine.value(QStringLiteral("out"));
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            throw CommandError(tr("expr parse: cannot write '%1': %2").arg(path, file.errorString()));
        QDataStream stream(&file);
        stream << tree;
        if (!file.commit())
            throw CommandError(tr("expr parse: cannot write '%1': %2").arg(path, file.errorString()));
        output << tr("Stream written to %1").arg(path) << "\n";
        if (holdsSwitch(tree))
            QTextStream(stderr) << tr("expr parse: note: the stream holds a CASE, which stream readers cannot "
                                      "read back")
                                << "\n";
    }
    return 0;
}

} // namespace cktool
