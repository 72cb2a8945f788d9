#pragma once

#include <QRegExp>
#include <QString>

namespace kogen {

// QRegExp compiles its pattern when it is constructed, into an automaton in
// which every count of a quantifier copies the atom before it: nested counts
// multiply, and "(((a{100}){100}){100}){100}" asks for 10^8 states and
// gigabytes of memory. Patterns from data (function arguments, stream
// contents) are checked against this bound before QRegExp sees them;
// everyday patterns stay far below it.
constexpr qint64 kMaxRegExpStates = 100000;
// No pattern longer than this (in bytes of its stream form) stays within
// the bound and is worth reading.
constexpr quint32 kLongestRegExpPattern = 4u * 1024u * 1024u;

// An upper bound of the number of states QRegExp builds for a pattern in
// its RegExp syntax, saturated at kMaxRegExpStates + 1.
qint64 regExpStates(const QString& pattern);

// Whether QRegExp can compile the pattern in the syntax within the bound.
// Wildcards and fixed strings have no counted repetitions and count one
// state per character; every other syntax is a regular expression.
bool isTractableRegExp(const QString& pattern, QRegExp::PatternSyntax syntax);

} // namespace kogen
