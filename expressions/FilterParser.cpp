#include <CommonKit/expressions/FilterParser.h>

#include <CommonKit/expressions/FunctionExpression.h>
#include <CommonKit/expressions/Membership.h>
#include <CommonKit/expressions/Operators.h>

#include <QCoreApplication>
#include <QHash>
#include <QVector>

#include <cmath>

namespace kogen {

namespace {

constexpr int kMaxDepth = 256;
// Longer tokens are shortened in messages.
constexpr int kShownTokenLength = 40;


// --- tokens -------------------------------------------------------------------------

enum class TokenKind { End, Word, Number, String, Symbol, Error };

struct Token
{
    TokenKind kind = TokenKind::End;
    int pos = 0;    // index of the first character in the text
    int length = 0; // characters of the source text
    QString text;   // words, numbers, symbols: as written; strings: the value
    // Only for "(": a LIKE-style operator stands inside it at its own level.
    bool holdsLike = false;
    // Only for Error: the message (with %1 for the column).
    const char* message = nullptr;
};

bool isWordStart(QChar c) { return c.isLetter() || c == QLatin1Char('_'); }
bool isWordPart(QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('_'); }
bool isDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

const char* const kKeywords[] = {"AND", "OR", "NOT", "IN", "CASE", "WHEN", "THEN", "ELSE",
                                 "END", "CAST", "AS", "ESCAPE", "DISTINCT", "MOD"};

bool isKeyword(const QString& word)
{
    for (const char* keyword : kKeywords) {
        if (word.compare(QLatin1String(keyword), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

bool isWord(const Token& token, const char* keyword)
{
    return token.kind == TokenKind::Word && token.text.compare(QLatin1String(keyword), Qt::CaseInsensitive) == 0;
}

bool isSymbol(const Token& token, const char* symbol)
{
    return token.kind == TokenKind::Symbol && token.text == QLatin1String(symbol);
}

// Splits the text into tokens, ending with an End or an Error token.
// likeNames maps the upper-case names of the functions printed as
// "(a NAME b)" to their registered names; a "(" learns whether such a word
// stands at its own level, so that the literals before it can be inlined.
QVector<Token> tokenize(const QString& text, const QHash<QString, QString>& likeNames)
{
    QVector<Token> tokens;
    QVector<int> open; // indexes of the "(" tokens not yet closed
    const int size = text.size();
    int i = 0;
    auto error = [&](int pos, int length, const char* message) {
        Token token;
        token.kind = TokenKind::Error;
        token.pos = pos;
        token.length = length;
        token.text = text.mid(pos, length);
        token.message = message;
        tokens.append(token);
    };
    while (true) {
        while (i < size && text.at(i).isSpace())
            ++i;
        Token token;
        token.pos = i;
        if (i >= size) {
            tokens.append(token);
            return tokens;
        }
        const QChar c = text.at(i);
        if (isWordStart(c)) {
            int end = i + 1;
            while (end < size && isWordPart(text.at(end)))
                ++end;
            token.kind = TokenKind::Word;
            token.text = text.mid(i, end - i);
            if (!open.isEmpty() && !isKeyword(token.text) && likeNames.contains(token.text.toUpper()))
                tokens[open.last()].holdsLike = true;
        } else if (isDigit(c)) {
            int end = i;
            while (end < size && isDigit(text.at(end)))
                ++end;
            if (end + 1 < size && text.at(end) == QLatin1Char('.') && isDigit(text.at(end + 1))) {
                end += 1;
                while (end < size && isDigit(text.at(end)))
                    ++end;
            }
            if (end < size && (text.at(end) == QLatin1Char('e') || text.at(end) == QLatin1Char('E'))) {
                int exponent = end + 1;
                if (exponent < size && (text.at(exponent) == QLatin1Char('+') || text.at(exponent) == QLatin1Char('-')))
                    ++exponent;
                if (exponent < size && isDigit(text.at(exponent))) {
                    end = exponent;
                    while (end < size && isDigit(text.at(end)))
                        ++end;
                }
            }
            token.kind = TokenKind::Number;
            token.text = text.mid(i, end - i);
        } else if (c == QLatin1Char('\'')) {
            QString value;
            int end = i + 1;
            bool closed = false;
            while (end < size) {
                const int quote = text.indexOf(QLatin1Char('\''), end);
                if (quote < 0)
                    break;
                value += text.midRef(end, quote - end);
                if (quote + 1 < size && text.at(quote + 1) == QLatin1Char('\'')) {
                    value += QLatin1Char('\'');
                    end = quote + 2;
                } else {
                    end = quote + 1;
                    closed = true;
                    break;
                }
            }
            if (!closed) {
                error(i, 1, QT_TRANSLATE_NOOP("FilterParser", "unterminated string at column %1"));
                return tokens;
            }
            token.kind = TokenKind::String;
            token.text = value;
            token.length = end - i;
            tokens.append(token);
            i = end;
            continue;
        } else {
            static const char* const kSymbols[] = {"==", "!=", "<>", "<=", ">=", "(", ")", ",", "+", "-", "*",
                                                   "/",  "%",  "&",  "|",  "^",  "~", "=", "<", ">", "?"};
            if (c == QLatin1Char('-') && i + 1 < size && text.at(i + 1) == QLatin1Char('-')) {
                error(i, 2, QT_TRANSLATE_NOOP("FilterParser", "'--' at column %1 starts a comment in SQL; write '- -'"));
                return tokens;
            }
            for (const char* symbol : kSymbols) {
                if (text.midRef(i).startsWith(QLatin1String(symbol))) {
                    token.kind = TokenKind::Symbol;
                    token.text = QLatin1String(symbol);
                    break;
                }
            }
            if (token.kind != TokenKind::Symbol) {
                // Show a whole character, also one outside the BMP.
                const int length = (c.isHighSurrogate() && i + 1 < size && text.at(i + 1).isLowSurrogate()) ? 2 : 1;
                token.kind = TokenKind::Error;
                token.text = text.mid(i, length);
                token.length = length;
                tokens.append(token); // reported as unexpected
                return tokens;
            }
            if (token.text == QLatin1String("("))
                open.append(tokens.size());
            else if (token.text == QLatin1String(")") && !open.isEmpty())
                open.removeLast();
        }
        token.length = token.text.size();
        tokens.append(token);
        i += token.length;
    }
}

// --- the parser ---------------------------------------------------------------------

// How an operand prints when its parent prints it as an operand, from the
// loosest to the tightest binding. An AND/OR or arithmetic node of two or
// more operands wraps itself in parentheses then, so it counts as Primary;
// comparisons, IN and NOT print bare, which limits where a parenthesised
// one may stand (see require()).
enum Level {
    LevelOr = 1,
    LevelAnd,
    LevelNot,
    LevelEquality,   // = == != <> IN
    LevelRelational, // < <= > >=
    LevelBitwise,    // & | ^
    LevelAdditive,   // + -
    LevelMultiplicative, // * / % MOD
    LevelUnary,      // - ~ +
    LevelPrimary
};

struct Operand
{
    ExpressionHandle expression;
    int level = LevelPrimary;
    int height = 1;
    int groupPos = -1; // position of the "(" when the operand was parenthesised
};

// A message of the context "FilterParser" whose %1 is the column, and its
// further arguments.
struct ParseError
{
    const char* message;
    int pos;
    QStringList arguments;
};

class Parser
{
public:
    Parser(const QString& text, const PropertySet& schema, const QHash<QString, QString>& names,
           const QHash<QString, QString>& likeNames)
        : m_text(text), m_schema(schema), m_names(names), m_likeNames(likeNames),
          m_tokens(tokenize(text, likeNames))
    {
    }

    ExpressionHandle parse()
    {
        if (peek().kind == TokenKind::End)
            return ExpressionHandle();
        const Operand result = parseExpression();
        if (peek().kind != TokenKind::End)
            unexpected(peek());
        return result.expression;
    }

private:
    // --- token access

    const Token& peek(int ahead = 0) const
    {
        const int index = qMin(m_index + ahead, m_tokens.size() - 1);
        return m_tokens.at(index);
    }

    const Token& take()
    {
        const Token& token = peek();
        if (token.kind == TokenKind::Error)
            unexpected(token);
        if (m_index < m_tokens.size() - 1)
            ++m_index;
        return token;
    }

    void expectSymbol(const char* symbol)
    {
        if (!isSymbol(peek(), symbol))
            unexpected(peek());
        take();
    }

    void expectWord(const char* keyword)
    {
        if (!isWord(peek(), keyword))
            unexpected(peek());
        take();
    }

    // --- errors

    [[noreturn]] void fail(const char* message, int pos, const QStringList& arguments = QStringList()) const
    {
        throw ParseError{message, pos, arguments};
    }

    QString shown(const Token& token) const
    {
        QString source = m_text.mid(token.pos, token.length);
        if (source.size() > kShownTokenLength) {
            int keep = kShownTokenLength - 3;
            if (source.at(keep - 1).isHighSurrogate())
                --keep; // never half a character
            source = source.left(keep) + QLatin1String("...");
        }
        return source;
    }

    [[noreturn]] void unexpected(const Token& token) const
    {
        if (token.kind == TokenKind::End)
            fail(QT_TRANSLATE_NOOP("FilterParser", "unexpected end of text at column %1"), token.pos);
        if (token.kind == TokenKind::Error && token.message)
            fail(token.message, token.pos);
        fail(QT_TRANSLATE_NOOP("FilterParser", "unexpected '%2' at column %1"), token.pos, {shown(token)});
    }

    // An operand printed bare must be read back the same way: a comparison,
    // IN or NOT in parentheses cannot stand where the printed text, which
    // has no parentheses around it, would bind differently.
    void require(const Operand& operand, int level, const Token& op) const
    {
        if (operand.level >= level)
            return;
        if (operand.groupPos < 0)
            unexpected(op);
        fail(QT_TRANSLATE_NOOP("FilterParser", "the comparison in parentheses at column %1 cannot be an operand of '%2'"),
             operand.groupPos, {shown(op)});
    }

    // --- nesting

    struct DepthGuard
    {
        DepthGuard(Parser* parser, const Token& at) : m_parser(parser)
        {
            if (++m_parser->m_depth > kMaxDepth)
                m_parser->tooDeep(at);
        }
        ~DepthGuard() { --m_parser->m_depth; }
        DepthGuard(const DepthGuard&) = delete;
        DepthGuard& operator=(const DepthGuard&) = delete;
        Parser* m_parser;
    };

    Operand node(const ExpressionHandle& expression, int level, int childHeight, const Token& at) const
    {
        Operand result;
        result.expression = expression;
        result.level = level;
        result.height = childHeight + 1;
        if (result.height > kMaxDepth)
            tooDeep(at);
        return result;
    }

    [[noreturn]] void tooDeep(const Token& at) const
    {
        fail(QT_TRANSLATE_NOOP("FilterParser", "nesting deeper than %2 levels at column %1"), at.pos,
             {QString::number(kMaxDepth)});
    }

    Operand leaf(const ExpressionHandle& expression) const
    {
        Operand result;
        result.expression = expression;
        return result;
    }

    // --- grammar

    // A binary operator (or IN) and its level; Chain operators gather a run
    // of the same operator into one node.
    enum class Family { Chain, Compare, In, NotIn };
    struct BinaryOp
    {
        int level = 0;
        int kind = -1;
        Family family = Family::Chain;
    };

    BinaryOp binaryOperator() const
    {
        const Token& token = peek();
        if (token.kind == TokenKind::Word) {
            if (isWord(token, "OR"))
                return {LevelOr, BooleanOperator::Or, Family::Chain};
            if (isWord(token, "AND"))
                return {LevelAnd, BooleanOperator::And, Family::Chain};
            if (isWord(token, "IN"))
                return {LevelEquality, -1, Family::In};
            if (isWord(token, "NOT") && isWord(peek(1), "IN"))
                return {LevelEquality, -1, Family::NotIn};
            if (isWord(token, "MOD"))
                return {LevelMultiplicative, NumericOperator::Modulo, Family::Chain};
            return {};
        }
        if (token.kind != TokenKind::Symbol)
            return {};
        struct Entry { const char* symbol; int level; int kind; Family family; };
        static const Entry kOperators[] = {
            {"=", LevelEquality, Comparator::Equal, Family::Compare},
            {"==", LevelEquality, Comparator::Equal, Family::Compare},
            {"!=", LevelEquality, Comparator::NotEqual, Family::Compare},
            {"<>", LevelEquality, Comparator::NotEqual, Family::Compare},
            {"<", LevelRelational, Comparator::Less, Family::Compare},
            {"<=", LevelRelational, Comparator::LessEqual, Family::Compare},
            {">", LevelRelational, Comparator::Greater, Family::Compare},
            {">=", LevelRelational, Comparator::GreaterEqual, Family::Compare},
            {"&", LevelBitwise, NumericOperator::BitAnd, Family::Chain},
            {"|", LevelBitwise, NumericOperator::BitOr, Family::Chain},
            {"^", LevelBitwise, NumericOperator::BitXor, Family::Chain},
            {"+", LevelAdditive, NumericOperator::Add, Family::Chain},
            {"-", LevelAdditive, NumericOperator::Subtract, Family::Chain},
            {"*", LevelMultiplicative, NumericOperator::Multiply, Family::Chain},
            {"/", LevelMultiplicative, NumericOperator::Divide, Family::Chain},
            {"%", LevelMultiplicative, NumericOperator::Modulo, Family::Chain},
        };
        for (const Entry& entry : kOperators) {
            if (token.text == QLatin1String(entry.symbol))
                return {entry.level, entry.kind, entry.family};
        }
        return {};
    }

    Operand parseExpression() { return parseBinary(LevelOr); }

    // Precedence climbing: an operand, then the operators of at least
    // minLevel, each taking right operands of the levels above its own, so
    // that operators group from the left. The recursion grows with the
    // nesting of brackets and levels, not with the length of a chain.
    Operand parseBinary(int minLevel)
    {
        DepthGuard guard(this, peek());
        Operand left = parsePrefix(minLevel);
        while (true) {
            const BinaryOp op = binaryOperator();
            if (op.kind < 0 && op.family != Family::In && op.family != Family::NotIn)
                return left;
            if (op.level < minLevel)
                return left;
            const Token& token = take();
            switch (op.family) {
            case Family::Chain:
                left = parseRun(left, op, token);
                break;
            case Family::Compare: {
                require(left, op.level, token);
                const Operand right = parseBinary(op.level + 1);
                require(right, op.level + 1, token);
                left = node(Comparator(left.expression, static_cast<Comparator::CompOp>(op.kind), right.expression),
                            op.level, qMax(left.height, right.height), token);
                break;
            }
            case Family::In:
                require(left, LevelEquality, token);
                left = parseMembers(left, token);
                break;
            case Family::NotIn: {
                // "x NOT IN (...)" is NOT (x IN (...)), which prints as
                // " NOT x IN (...)": no comparison may follow it.
                take();
                require(left, LevelEquality, token);
                const Operand membership = parseMembers(left, token);
                left = node(NotOperator(membership.expression), LevelNot, membership.height, token);
                break;
            }
            }
        }
    }

    // The rest of a run of chain operators of one level after its first
    // operator: "a+b+c" is one node, "a+b-c" is (a+b)-c.
    Operand parseRun(const Operand& first, const BinaryOp& op, const Token& firstToken)
    {
        // Operands of AND and OR may be anything; arithmetic needs operands
        // that print bare as they are read.
        const int operandLevel = op.level <= LevelAnd ? 0 : LevelUnary;
        require(first, operandLevel, firstToken);
        QList<Operand> items;
        items.append(first);
        int kind = op.kind;
        const Token* token = &firstToken;
        while (true) {
            const Operand operand = parseBinary(op.level + 1);
            require(operand, operandLevel, *token);
            items.append(operand);
            const BinaryOp next = binaryOperator();
            if (next.family != Family::Chain || next.level != op.level)
                break;
            token = &take();
            if (next.kind != kind) {
                const Operand chain = makeChain(op.level, kind, items, *token);
                items.clear();
                items.append(chain);
                kind = next.kind;
            }
        }
        return makeChain(op.level, kind, items, *token);
    }

    Operand makeChain(int level, int kind, const QList<Operand>& items, const Token& at) const
    {
        ExpressionList list;
        int height = 0;
        for (const Operand& item : items) {
            list.append(item.expression);
            height = qMax(height, item.height);
        }
        const ExpressionHandle joined =
            level <= LevelAnd ? BooleanOperator::join(list, static_cast<BooleanOperator::BoolOp>(kind))
                              : NumericOperator::join(list, static_cast<NumericOperator::NumOp>(kind));
        return node(joined, LevelPrimary, height, at);
    }

    // NOT where the level allows it, else a unary operand.
    Operand parsePrefix(int minLevel)
    {
        if (minLevel > LevelNot || !isWord(peek(), "NOT"))
            return parseUnary();
        const Token& token = take();
        const Operand operand = parseBinary(LevelNot);
        return node(NotOperator(operand.expression), LevelNot, operand.height, token);
    }

    Q_NEVER_INLINE Operand parseMembers(const Operand& value, const Token& at)
    {
        expectSymbol("(");
        Bracket bracket(this, false);
        ElementOf membership(value.expression);
        int height = value.height;
        if (!isSymbol(peek(), ")")) {
            while (true) {
                const Operand member = parseExpression();
                membership.append(member.expression);
                height = qMax(height, member.height);
                if (!isSymbol(peek(), ","))
                    break;
                take();
            }
        }
        expectSymbol(")");
        return node(membership, LevelEquality, height, at);
    }

    Operand parseUnary()
    {
        const Token& next = peek();
        if (isSymbol(next, "-") && peek(1).kind == TokenKind::Number && peek(1).pos == next.pos + 1)
            return parseNegativeNumber();
        const bool negate = isSymbol(next, "-");
        const bool bitNot = isSymbol(next, "~");
        if (!negate && !bitNot && !isSymbol(next, "+"))
            return parsePrimary();
        const Token& token = take();
        DepthGuard guard(this, token);
        const Operand operand = parseUnary();
        require(operand, LevelUnary, token);
        if (!negate && !bitNot)
            return operand; // unary plus: the operand itself
        return node(UnaryOperator(negate ? UnaryOperator::Negate : UnaryOperator::BitNot, operand.expression),
                    LevelUnary, operand.height, token);
    }

    // "-5" is a negative literal, as constants print. Where the negative
    // value would not print as "-" and the number ("-0", or
    // -13049021121120120960, which fits no signed type and would print as a
    // double), the text stays a negation of the number.
    Q_NEVER_INLINE Operand parseNegativeNumber()
    {
        const Token& minus = take();
        const Token& number = take();
        const QVariant magnitude = numberValue(number.text, number);
        const QVariant value = numberValue(QLatin1Char('-') + number.text, minus);
        if (value.toString() == QLatin1Char('-') + magnitude.toString()) {
            Operand literal = leaf(ConstExpression(value, m_inline == 0));
            literal.level = LevelUnary;
            return literal;
        }
        const ExpressionHandle operand = ConstExpression(magnitude, m_inline == 0);
        return node(UnaryOperator(UnaryOperator::Negate, operand), LevelUnary, 1, minus);
    }

    Q_NEVER_INLINE QVariant numberValue(const QString& text, const Token& at) const
    {
        bool ok = false;
        if (!text.contains(QLatin1Char('.')) && !text.contains(QLatin1Char('e')) && !text.contains(QLatin1Char('E'))) {
            const int i = text.toInt(&ok);
            if (ok)
                return i;
            const qlonglong ll = text.toLongLong(&ok);
            if (ok)
                return ll;
            const qulonglong ull = text.toULongLong(&ok);
            if (ok)
                return ull;
        }
        const double d = text.toDouble(&ok);
        if (!ok || !std::isfinite(d))
            fail(QT_TRANSLATE_NOOP("FilterParser", "number out of range '%2' at column %1"), at.pos, {text});
        return d;
    }

    Operand parsePrimary()
    {
        const Token& next = peek();
        switch (next.kind) {
        case TokenKind::Number:
        case TokenKind::String:
            return parseLiteral();
        case TokenKind::Word:
            return parseWord();
        default:
            break;
        }
        if (isSymbol(next, "("))
            return parseGroup();
        unexpected(next);
    }

    Q_NEVER_INLINE Operand parseLiteral()
    {
        const Token& token = take();
        const QVariant value = token.kind == TokenKind::Number ? numberValue(token.text, token) : QVariant(token.text);
        return leaf(ConstExpression(value, m_inline == 0));
    }

    // "( expression )", or "( a LIKE b [ESCAPE c] )" for the functions
    // printed that way.
    Operand parseGroup()
    {
        const Token& open = take();
        Bracket bracket(this, false);
        // The arguments of a LIKE are function arguments: their literals are
        // inlined.
        if (open.holdsLike)
            ++m_inline;
        Operand inner = parseExpression();
        const Token& next = peek();
        if (next.kind == TokenKind::Word && !isKeyword(next.text) && m_likeNames.contains(next.text.toUpper()))
            inner = parseLike(inner);
        else
            inner.groupPos = open.pos;
        expectSymbol(")");
        if (open.holdsLike)
            --m_inline;
        return inner;
    }

    // The rest of "(value NAME pattern [ESCAPE escape])" after the value.
    Q_NEVER_INLINE Operand parseLike(const Operand& value)
    {
        const Token& op = take();
        ExpressionList arguments(value.expression);
        int height = value.height;
        const Operand pattern = parseExpression();
        arguments.append(pattern.expression);
        height = qMax(height, pattern.height);
        if (isWord(peek(), "ESCAPE")) {
            take();
            const Operand escape = parseExpression();
            arguments.append(escape.expression);
            height = qMax(height, escape.height);
        }
        const QString name = m_likeNames.value(op.text.toUpper());
        checkArguments(name, arguments.size(), op);
        return node(FunctionExpression(name, arguments, false), LevelPrimary, height, op);
    }

    void checkArguments(const QString& name, int count, const Token& at) const
    {
        FunctionExpression::FunctionEntry entry;
        FunctionExpression::functionEntry(name, &entry);
        if (count < entry.minArgs)
            fail(QT_TRANSLATE_NOOP("FilterParser", "too few arguments for '%2' at column %1 (at least %3)"), at.pos,
                 {name, QString::number(entry.minArgs)});
        if (entry.maxArgs >= 0 && count > entry.maxArgs)
            fail(QT_TRANSLATE_NOOP("FilterParser", "too many arguments for '%2' at column %1 (at most %3)"), at.pos,
                 {name, QString::number(entry.maxArgs)});
    }

    Q_NEVER_INLINE Operand parseWord()
    {
        const Token& next = peek();
        if (isWord(next, "CASE"))
            return parseCase();
        if (isWord(next, "CAST") && isSymbol(peek(1), "("))
            return parseCast();
        if (isKeyword(next.text))
            unexpected(next);
        if (isSymbol(peek(1), "("))
            return parseCall();

        const Token token = take();
        QString name = token.text;
        if (!m_schema.contains(name)) {
            name = m_names.value(token.text);
            if (name.isNull())
                fail(QT_TRANSLATE_NOOP("FilterParser", "unknown property '%2' at column %1"), token.pos, {token.text});
        }
        // "name AS alias", except for the "AS type)" that ends a CAST.
        QString alias;
        if (isWord(peek(), "AS") && peek(1).kind == TokenKind::Word && !isKeyword(peek(1).text) &&
            !(!m_brackets.isEmpty() && m_brackets.last() && isSymbol(peek(2), ")"))) {
            take();
            alias = take().text;
        }
        return leaf(ValueExpression(name, alias));
    }

    Q_NEVER_INLINE Operand parseCall()
    {
        const Token name = take();
        FunctionExpression::FunctionEntry entry;
        if (!FunctionExpression::functionEntry(name.text, &entry))
            fail(QT_TRANSLATE_NOOP("FilterParser", "unknown function '%2' at column %1"), name.pos, {name.text});
        // A function without SQL printer prints as its value and binds it:
        // inside a call or an ELSE part it would be bound out of order, and
        // under a CAST converted by Qt's rules.
        if (!entry.printFunction && m_inline > 0)
            fail(QT_TRANSLATE_NOOP("FilterParser", "'%2' at column %1 cannot stand inside a function call, a CAST or an ELSE part"),
                 name.pos, {name.text});
        take(); // "("
        Bracket bracket(this, false);
        bool distinct = false;
        if (isWord(peek(), "DISTINCT")) {
            take();
            distinct = true;
        }
        ExpressionList arguments;
        int height = 0;
        ++m_inline;
        if (!isSymbol(peek(), ")")) {
            while (true) {
                const Operand argument = parseExpression();
                arguments.append(argument.expression);
                height = qMax(height, argument.height);
                if (!isSymbol(peek(), ","))
                    break;
                take();
            }
        }
        --m_inline;
        expectSymbol(")");
        checkArguments(name.text, arguments.size(), name);
        return node(FunctionExpression(name.text, arguments, distinct), LevelPrimary, height, name);
    }

    Q_NEVER_INLINE Operand parseCast()
    {
        const Token cast = take();
        take(); // "("
        Operand operand;
        {
            // The tree converts bound values under a cast with Qt's rules
            // (rounding a double to an int), the database casts with its
            // own (truncating): literals under a cast are inlined so that
            // the bound SQL means what the text says.
            Bracket bracket(this, true);
            ++m_inline;
            operand = parseExpression();
            --m_inline;
            expectWord("AS");
        }
        const Token type = peek();
        if (type.kind != TokenKind::Word)
            unexpected(type);
        take();
        const QByteArray typeName = type.text.toLatin1();
        const int id = QVariant::nameToType(typeName.constData());
        if (id == int(QVariant::Invalid) || id >= int(QVariant::UserType) || !QVariant::typeToName(id) ||
            QString::fromLatin1(typeName) != type.text)
            fail(QT_TRANSLATE_NOOP("FilterParser", "unknown type '%2' at column %1"), type.pos, {type.text});
        expectSymbol(")");
        return node(CastExpression(static_cast<QVariant::Type>(id), operand.expression), LevelPrimary, operand.height,
                    cast);
    }

    // CASE [selector] {WHEN value THEN result} [ELSE default] END
    Q_NEVER_INLINE Operand parseCase()
    {
        const Token token = take();
        Bracket bracket(this, false);
        int height = 0;
        ExpressionHandle selector;
        if (!isWord(peek(), "WHEN") && !isWord(peek(), "ELSE") && !isWord(peek(), "END")) {
            const Operand operand = parseExpression();
            selector = operand.expression;
            height = operand.height;
        }
        SwitchCase switchCase(selector);
        while (isWord(peek(), "WHEN")) {
            take();
            const Operand value = parseExpression();
            expectWord("THEN");
            const Operand result = parseExpression();
            switchCase.switchCase(value.expression, result.expression);
            height = qMax(height, qMax(value.height, result.height));
        }
        if (isWord(peek(), "ELSE")) {
            take();
            // The default is collected before the pairs but printed after
            // them: its literals are inlined so that the bound values keep
            // print order.
            ++m_inline;
            const Operand otherwise = parseExpression();
            --m_inline;
            switchCase.defaultCase(otherwise.expression);
            height = qMax(height, otherwise.height);
        }
        expectWord("END");
        return node(switchCase, LevelPrimary, height, token);
    }

    // Tracks whether the innermost open bracket is a CAST, whose "AS type"
    // must not be read as an alias.
    struct Bracket
    {
        Bracket(Parser* parser, bool cast) : m_parser(parser) { m_parser->m_brackets.append(cast); }
        ~Bracket() { m_parser->m_brackets.removeLast(); }
        Bracket(const Bracket&) = delete;
        Bracket& operator=(const Bracket&) = delete;
        Parser* m_parser;
    };

    const QString& m_text;
    const PropertySet& m_schema;
    const QHash<QString, QString>& m_names;
    const QHash<QString, QString>& m_likeNames;
    QVector<Token> m_tokens;
    int m_index = 0;
    int m_depth = 0;
    int m_inline = 0; // > 0 inside function arguments, CASTs and ELSE parts
    QVector<bool> m_brackets; // the open brackets, true for a CAST
};

int columnOf(const QString& text, int pos)
{
    int column = 1;
    for (int i = 0; i < pos && i < text.size(); ++i) {
        if (!(text.at(i).isLowSurrogate() && i > 0 && text.at(i - 1).isHighSurrogate()))
            ++column;
    }
    return column;
}

} // namespace

FilterParser::FilterParser(const PropertySet& schema) : m_schema(schema) {}
FilterParser::~FilterParser() = default;
FilterParser::FilterParser(const FilterParser& other) = default;
FilterParser& FilterParser::operator=(const FilterParser& other) = default;

int FilterParser::maxDepth() { return kMaxDepth; }

ExpressionHandle FilterParser::parse(const QString& text)
{
    // Names print with "_" for blanks: the printed form finds the property.
    QHash<QString, QString> names;
    for (const QString& name : m_schema.allPropertyNames()) {
        QString printed = name;
        printed.replace(QLatin1Char(' '), QLatin1Char('_'));
        if (!names.contains(printed))
            names.insert(printed, name);
    }
    QHash<QString, QString> likeNames;
    for (const QString& name : FunctionExpression::functionNames()) {
        FunctionExpression::FunctionEntry entry;
        if (FunctionExpression::functionEntry(name, &entry) && entry.printFunction == &FunctionExpression::printLike &&
            (!likeNames.contains(name.toUpper()) || name == name.toUpper()))
            likeNames.insert(name.toUpper(), name);
    }

    m_error.clear();
    m_errorColumn = 0;
    try {
        Parser parser(text, m_schema, names, likeNames);
        return parser.parse();
    } catch (const ParseError& error) {
        m_errorColumn = columnOf(text, error.pos);
        // One arg() call fills all markers at once, so a "%1" inside a
        // quoted token stays as it is.
        const QString message = QCoreApplication::translate("FilterParser", error.message);
        const QStringList& a = error.arguments;
        const QString column = QString::number(m_errorColumn);
        switch (a.size()) {
        case 0: m_error = message.arg(column); break;
        case 1: m_error = message.arg(column, a.at(0)); break;
        default: m_error = message.arg(column, a.at(0), a.at(1)); break;
        }
        return ExpressionHandle(static_cast<Expression*>(nullptr));
    }
}

ExpressionHandle Expression::parse(const QString& text, const PropertySet& schema, QString* error)
{
    FilterParser parser(schema);
    const ExpressionHandle result = parser.parse(text);
    if (error)
        *error = parser.errorString();
    return result;
}

} // namespace kogen
