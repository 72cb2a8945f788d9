// Feeds arbitrary text to the filter parser. Besides crashes, hangs and
// unbounded memory the target fails when
// - an error has no message or its column lies outside the text;
// - the printed SQL of a parsed tree does not parse, or prints differently
//   the second time (print(parse(t)) must be stable);
// - the SQL printed with placeholders holds another number of "?" marks
//   (outside string literals) than the tree collects values for.

#include <CommonKit/expressions/Expressions.h>
#include <CommonKit/properties/Properties.h>

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using kogen::Expression;

const kogen::PropertySet& schema()
{
    static const kogen::PropertySet set = [] {
        kogen::PropertySet s;
        s.add(new kogen::IntProperty(QStringLiteral("a")));
        s.add(new kogen::IntProperty(QStringLiteral("b")));
        s.add(new kogen::StringProperty(QStringLiteral("s")));
        s.add(new kogen::DoubleProperty(QStringLiteral("d")));
        s.add(new kogen::StringProperty(QStringLiteral("my field")));
        return s;
    }();
    return set;
}

[[noreturn]] void failure(const char* what, const QString& first, const QString& second = QString())
{
    std::fprintf(stderr, "%s\n  %s\n  %s\n", what, first.toUtf8().constData(), second.toUtf8().constData());
    std::abort();
}

// "?" marks outside '...' literals ('' inside a literal is a quote).
int marks(const QString& text)
{
    int count = 0;
    bool quoted = false;
    for (const QChar c : text) {
        if (c == QLatin1Char('\''))
            quoted = !quoted;
        else if (!quoted && c == QLatin1Char('?'))
            ++count;
    }
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size > (1u << 16))
        return 0;
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    kogen::FilterParser parser(schema());
    const kogen::ExpressionHandle tree = parser.parse(text);
    if (!tree.constData()) {
        const int length = text.toUcs4().size();
        if (parser.errorString().isEmpty() || parser.errorColumn() < 1 || parser.errorColumn() > length + 1)
            failure("error without message or with a column outside the text", text, parser.errorString());
        return 0;
    }

    const QString printed = tree->toString(Expression::PrintSql);
    const kogen::ExpressionHandle again = parser.parse(printed);
    if (!again.constData())
        failure("printed text does not parse", printed, parser.errorString());
    const QString printedAgain = again->toString(Expression::PrintSql);
    if (printedAgain != printed)
        failure("print(parse(t)) is not stable", printed, printedAgain);

    const QString bound = tree->toString(Expression::PrintSql | Expression::PrintPlaceholders);
    if (marks(bound) != tree->collectPlaceholders().size())
        failure("placeholders do not match the bound values", bound);

    tree->toString(Expression::PrintCode);
    // Matching user patterns is the regular expression engine's business,
    // not the parser's: evaluate only trees without them.
    if (!printed.contains(QLatin1String(" LIKE ")) && !printed.contains(QLatin1String(" REGEXP ")))
        tree->evaluate(schema(), nullptr);
    return 0;
}
