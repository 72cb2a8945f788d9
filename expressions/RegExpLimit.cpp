#include "expressions/RegExpLimit_p.h"

#include <QVector>

namespace kogen {

namespace {

qint64 saturated(qint64 value) { return qMin(value, kMaxRegExpStates + 1); }

} // namespace

// Every atom counts one, a group the sum of its parts (alternatives
// included), and a quantifier multiplies the atom before it by its largest
// count ("+" by two). Character classes and escapes are one atom each.
qint64 regExpStates(const QString& pattern)
{
    struct Group
    {
        qint64 total = 0; // everything before the last atom
        qint64 last = 0;  // the last atom, which a quantifier may repeat
    };
    QVector<Group> groups(1);
    const auto atom = [&groups](qint64 cost) {
        Group& group = groups.last();
        group.total = saturated(group.total + group.last);
        group.last = saturated(cost);
    };
    const auto repeat = [&groups](qint64 count) {
        Group& group = groups.last();
        group.last = saturated(group.last * qMax<qint64>(count, 1));
    };
    const int size = pattern.size();
    for (int i = 0; i < size; ++i) {
        const QChar ch = pattern.at(i);
        if (ch == QLatin1Char('\\')) {
            ++i;
            atom(1);
        } else if (ch == QLatin1Char('[')) {
            int j = i + 1;
            if (j < size && pattern.at(j) == QLatin1Char('^'))
                ++j;
            if (j < size && pattern.at(j) == QLatin1Char(']'))
                ++j;
            while (j < size && pattern.at(j) != QLatin1Char(']'))
                j += pattern.at(j) == QLatin1Char('\\') ? 2 : 1;
            i = j;
            atom(1);
        } else if (ch == QLatin1Char('(')) {
            groups.append(Group());
        } else if (ch == QLatin1Char(')')) {
            if (groups.size() > 1) {
                const Group inner = groups.takeLast();
                atom(qMax<qint64>(saturated(inner.total + inner.last), 1));
            }
        } else if (ch == QLatin1Char('+')) {
            repeat(2);
        } else if (ch == QLatin1Char('{')) {
            // {m}, {m,}, {,n} or {m,n}; anything else is a literal brace.
            int j = i + 1;
            qint64 largest = 0;
            bool digits = false;
            bool comma = false;
            qint64 number = 0;
            for (; j < size; ++j) {
                const QChar c = pattern.at(j);
                if (c.isDigit()) {
                    number = saturated(number * 10 + c.digitValue());
                    digits = true;
                } else if (c == QLatin1Char(',') && !comma) {
                    largest = qMax(largest, number);
                    number = 0;
                    comma = true;
                } else {
                    break;
                }
            }
            if (digits && j < size && pattern.at(j) == QLatin1Char('}')) {
                repeat(qMax(largest, number));
                i = j;
            } else {
                atom(1);
            }
        } else if (ch != QLatin1Char('*') && ch != QLatin1Char('?') && ch != QLatin1Char('|')) {
            atom(1);
        }
    }
    qint64 states = 0;
    for (const Group& group : groups)
        states = saturated(states + group.total + group.last);
    return states;
}

bool isTractableRegExp(const QString& pattern, QRegExp::PatternSyntax syntax)
{
    // Wildcards and fixed strings have no counted repetitions: one state per
    // character at most. QRegExp reads any other syntax value (also one
    // outside the enum) as a regular expression.
    const bool counted =
        syntax != QRegExp::Wildcard && syntax != QRegExp::WildcardUnix && syntax != QRegExp::FixedString;
    return (counted ? regExpStates(pattern) : pattern.size()) <= kMaxRegExpStates;
}

} // namespace kogen
