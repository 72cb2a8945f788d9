// commonkit expr: shows an expression stream as SQL or as code text;
// "commonkit expr parse" reads a filter text (ExprParseCommand.cpp).

#include "Command.h"
#include "CommandLine.h"

#include <CommonKit/expressions/Expressions.h>

#include <QDataStream>
#include <QFile>
#include <QTextStream>

namespace cktool {

int runExprParse(const QStringList& arguments);

namespace {

QByteArray readInput(const QString& path)
{
    QFile file;
    if (path == QLatin1String("-")) {
        if (!file.open(stdin, QIODevice::ReadOnly))
            throw CommandError(tr("expr: cannot read standard input"));
    } else {
        file.setFileName(path);
        if (!file.open(QIODevice::ReadOnly))
            throw CommandError(tr("expr: cannot open '%1': %2").arg(path, file.errorString()));
    }
    return file.readAll();
}

int runExpr(const QStringList& arguments)
{
    // A stream file named "parse" is given as ./parse.
    if (arguments.value(1) == QLatin1String("parse"))
        return runExprParse(arguments.mid(1));
    CommandLine commandLine(QStringLiteral("expr"),
                            tr("Reads an expression tree from a data stream file and prints it as SQL. "
                               "\"commonkit expr parse --help\" tells how to read a filter text."));
    commandLine.addPositional(QStringLiteral("file"), tr("The stream file, or - for standard input."));
    const QCommandLineOption code(QStringLiteral("code"), tr("Print C-like code text instead of SQL."));
    const QCommandLineOption bind(QStringLiteral("bind"),
                                  tr("Print \"?\" for bound values and list the values in order."));
    commandLine.addOption(code);
    commandLine.addOption(bind);
    if (!commandLine.parse(arguments, 1, 1))
        return 0;

    const QString path = commandLine.positional().constFirst();
    const QByteArray bytes = readInput(path);
    QDataStream in(bytes);
    const kogen::ExpressionHandle tree = kogen::Expression::readExpression(in);
    if (in.status() != QDataStream::Ok)
        throw CommandError(tr("expr: '%1' is not a complete expression stream").arg(path));
    if (!in.atEnd())
        throw CommandError(tr("expr: '%1' holds a node this library cannot read, or other data after the expression")
                               .arg(path));

    kogen::Expression::PrintStyle style = commandLine.isSet(QStringLiteral("code"))
                                              ? kogen::Expression::PrintStyle(kogen::Expression::PrintCode)
                                              : kogen::Expression::PrintStyle(kogen::Expression::PrintSql);
    const bool withValues = commandLine.isSet(QStringLiteral("bind"));
    if (withValues)
        style |= kogen::Expression::PrintPlaceholders;
    QTextStream out(stdout);
    out << tree->toString(style) << "\n";
    if (withValues) {
        int index = 0;
        for (const QVariant& value : tree->collectPlaceholders())
            out << ++index << ": " << value.toString() << " (" << QLatin1String(value.typeName()) << ")\n";
    }
    return 0;
}

const CommandRegistration registration(
    {"expr", QT_TRANSLATE_NOOP("cktool", "Print an expression stream, or parse a filter text, as SQL or code text"), runExpr});

} // namespace
} // namespace cktool
