#include "data/jetsql/errors.h"
#include "data/jetsql/limits.h"
#include "data/jetsql/parser.h"

namespace jetsql {
namespace {

constexpr std::pair<QStringView, Aggregate> aggregates[] = {{u"SUM", Aggregate::Sum},
                                                            {u"COUNT", Aggregate::Count},
                                                            {u"MIN", Aggregate::Min},
                                                            {u"MAX", Aggregate::Max},
                                                            {u"AVG", Aggregate::Avg}};

struct SymbolOp
{
    char16_t symbol;
    Op op;
};

constexpr SymbolOp comparisons[] = {{u'=', Op::Equal},     {u'≠', Op::NotEqual}, {u'<', Op::Less},
                                    {u'≤', Op::LessEqual}, {u'>', Op::Greater},  {u'≥', Op::GreaterEqual}};

/// The levels of arithmetic, loosest first. MOD is a word and stands between + and \.
constexpr int loosest = 0, modLevel = 2, tightest = 4;
struct LevelOp
{
    int level;
    char16_t symbol;
    Op op;
};
constexpr LevelOp arithmeticOps[] = {{0, u'&', Op::Concat},     {1, u'+', Op::Add},      {1, u'-', Op::Subtract},
                                     {3, u'\\', Op::IntDivide}, {4, u'*', Op::Multiply}, {4, u'/', Op::Divide}};

} // namespace

Parser::Nesting::Nesting(Parser &parser) : m_parser(parser)
{
    if (parser.m_depth >= Limits::Depth)
        fail(3360);
    ++parser.m_depth;
}

ExprPtr Parser::clauseExpression(Clause clause)
{
    // A sub-select inside has clauses of its own, and an error is worded with the expression of the innermost one.
    const Clause outerClause = std::exchange(m_clause, clause);
    const size_t outerStart = std::exchange(m_clauseStart, m_at);
    ExprPtr result = expression();
    if (!endsClause(peek()))
        failHere();
    // The SELECT around counts the highest of its expressions.
    m_height = std::max(m_height, result->height);
    m_clause = outerClause;
    m_clauseStart = outerStart;
    return result;
}

/// Whether a token outside any brackets closes an expression of the present clause.
bool Parser::endsClause(const Token &token) const
{
    if (token.kind == TokenKind::End)
        return true;
    if (token.kind == TokenKind::Symbol)
        return token.symbol == u';' || (token.symbol == u',' && m_clause != Clause::Where) ||
               (token.symbol == u')' && m_depth > 0);
    switch (token.keyword) {
    case Keyword::Where:
    case Keyword::Group:
    case Keyword::Having:
    case Keyword::Order:
        return true;
    case Keyword::From:
    case Keyword::Into:
    case Keyword::As:
    case Keyword::Asc:
    case Keyword::Desc:
        return m_clause == Clause::Item;
    default:
        return false;
    }
}

/// The present clause's expression as typed, to what ends it or the end of the statement.
QStringView Parser::clauseText() const
{
    const qsizetype start = m_tokens[m_clauseStart].start;
    qsizetype end = start;
    // As the engine words it: up to where the clause would end, not up to the mistake.
    int brackets = 0;
    for (size_t i = m_clauseStart; i < m_tokens.size(); ++i) {
        const Token &token = m_tokens[i];
        if (token.kind == TokenKind::End || (brackets <= 0 && endsClause(token)))
            break;
        if (token.kind == TokenKind::Symbol)
            brackets += token.symbol == u'(' ? 1 : token.symbol == u')' ? -1 : 0;
        end = token.end;
    }
    return QStringView(m_sql).sliced(start, end - start);
}

/// Blames the token at hand for not being an operator, an operand or the end.
void Parser::failHere()
{
    const Token &token = peek();
    // The wording follows the token that was met, since the grammar alone cannot tell what was meant.
    QString message = "Syntax error (missing operator)";
    if (token.kind == TokenKind::BadText)
        message = "Syntax error in string";
    else if (token.kind == TokenKind::BadDate)
        message = "Syntax error in date";
    else if (token.kind == TokenKind::BadNumber)
        message = "Syntax error in number";
    else if (token.kind == TokenKind::BadSymbol)
        message = "Syntax error";
    else if (token.kind == TokenKind::Symbol && token.symbol == u',')
        message = "Syntax error (comma)";
    else if (token.kind == TokenKind::Symbol && token.symbol == u')' && m_depth == 0)
        message = "Extra )";
    failExpression(message, clauseText());
}

/// Notes what was typed for an expression that ends before the token at hand.
ExprPtr Parser::closed(ExprPtr expr, qsizetype start) const
{
    expr->source = QStringView(m_sql).sliced(start, m_tokens[m_at - 1].end - start);
    expr->height = heightOf(*expr);
    if (expr->height > Limits::Height)
        fail(3360);
    return expr;
}

/// A chain of conditions is one expression here and a link a level in SQLite.
int Parser::heightOf(const Expr &expr)
{
    int tallest = expr.select ? expr.select->height : 0;
    for (const ExprPtr &operand : expr.operands)
        tallest = std::max(tallest, operand->height);
    const bool chain = expr.is(Op::And) || expr.is(Op::Or);
    return tallest + (chain ? int(expr.operands.size()) - 1 : 1);
}

ExprPtr Parser::expression()
{
    return chain(Op::Or, Keyword::Or, &Parser::conjunction);
}

ExprPtr Parser::conjunction()
{
    return chain(Op::And, Keyword::And, &Parser::negation);
}

ExprPtr Parser::chain(Op op, Keyword word, ExprPtr (Parser::*operand)())
{
    const qsizetype start = peek().start;
    ExprPtr first = (this->*operand)();
    if (!at(word))
        return first;
    // A chain is one expression over all its operands, however long, so that no pass descends once a link.
    ExprPtr result = make(Operation{op}, std::move(first));
    while (accept(word)) {
        result->operands.push_back((this->*operand)());
        if (result->operands.size() > Limits::Chain)
            fail(3360);
    }
    return closed(std::move(result), start);
}

ExprPtr Parser::negation()
{
    if (!at(Keyword::Not))
        return comparison();
    const Nesting nesting(*this);
    const qsizetype start = take().start;
    return closed(make(Operation{Op::Not}, negation()), start);
}

ExprPtr Parser::comparison()
{
    const qsizetype start = peek().start;
    ExprPtr left = arithmetic(loosest);
    for (size_t links = 0;; ++links) {
        if (links > Limits::Chain)
            fail(3360);
        const auto *symbol = std::find_if(std::begin(comparisons), std::end(comparisons),
                                          [this](const SymbolOp &known) { return at(known.symbol); });
        if (symbol != std::end(comparisons)) {
            take();
            // Comparisons go on from left to right: a = b = c compares the outcome of the first with c.
            left = make(Operation{symbol->op}, std::move(left), arithmetic(loosest));
        } else if (at(Keyword::Is)) {
            left = isNull(std::move(left));
        } else if (at(Keyword::Not) || at(Keyword::Like) || at(Keyword::In) || at(Keyword::Between)) {
            left = negatable(std::move(left));
        } else {
            return left;
        }
        left = closed(std::move(left), start);
    }
}

ExprPtr Parser::isNull(ExprPtr left)
{
    take(); // IS
    const bool negated = accept(Keyword::Not);
    if (!accept(Keyword::Null))
        failHere();
    return make(IsNull{.negated = negated}, std::move(left));
}

/// LIKE, IN and BETWEEN, each perhaps behind a NOT.
ExprPtr Parser::negatable(ExprPtr left)
{
    const bool negated = accept(Keyword::Not);
    if (accept(Keyword::Like))
        return make(Like{negated}, std::move(left), arithmetic(loosest));
    if (accept(Keyword::In))
        return inList(std::move(left), negated);
    if (!accept(Keyword::Between))
        failHere();
    ExprPtr least = arithmetic(loosest);
    if (!accept(Keyword::And))
        failHere();
    return make(Between{negated}, std::move(left), std::move(least), arithmetic(loosest));
}

ExprPtr Parser::inList(ExprPtr left, bool negated)
{
    if (!at(u'('))
        failHere();
    const Nesting nesting(*this);
    take();
    ExprPtr result;
    if (at(Keyword::Select)) {
        result = make(InSelect{negated}, std::move(left));
        result->select = select();
    } else {
        result = make(InList{negated}, std::move(left));
        // Meant to fail, and not to find nothing: a routine that glues a list together is stopped by an empty one.
        if (at(u')'))
            failExpression("Syntax error", clauseText());
        do
            result->operands.push_back(expression());
        while (accept(u','));
    }
    closeBracket();
    return result;
}

ExprPtr Parser::arithmetic(int level)
{
    if (level > tightest)
        return unary();
    const qsizetype start = peek().start;
    ExprPtr left = arithmetic(level + 1);
    for (size_t links = 0;; ++links) {
        if (links > Limits::Chain)
            fail(3360);
        const auto *symbol =
            std::find_if(std::begin(arithmeticOps), std::end(arithmeticOps),
                         [this, level](const LevelOp &known) { return known.level == level && at(known.symbol); });
        const bool mod = level == modLevel && at(Keyword::Mod);
        if (symbol == std::end(arithmeticOps) && !mod)
            return left;
        take();
        left = closed(make(Operation{mod ? Op::Mod : symbol->op}, std::move(left), arithmetic(level + 1)), start);
    }
}

ExprPtr Parser::unary()
{
    if (!at(u'-') && !at(u'+'))
        return power();
    const Nesting nesting(*this);
    const qsizetype start = peek().start;
    const bool negate = take().symbol == u'-';
    ExprPtr operand = unary();
    // A plus sign means nothing and is dropped.
    if (!negate)
        return operand;
    // A sign in front of a number belongs to the number: the two stay one constant, which can be a parameter.
    if (auto *constant = operand->as<Constant>(); constant && constant->kind == Constant::Kind::Number) {
        constant->number = -constant->number;
        constant->minus = !constant->minus;
        return closed(std::move(operand), start);
    }
    return closed(make(Operation{Op::Negate}, std::move(operand)), start);
}

ExprPtr Parser::power()
{
    const qsizetype start = peek().start;
    ExprPtr base = primary();
    if (!accept(u'^'))
        return base;
    const Nesting nesting(*this);
    // The exponent may have a sign of its own; one before the base stands outside: -2^2 is -4.
    return closed(make(Operation{Op::Power}, std::move(base), unary()), start);
}

ExprPtr Parser::primary()
{
    const Token &token = peek();
    using Kind = Constant::Kind;
    Kind kind = Kind::Null;
    switch (token.kind) {
    case TokenKind::Text:
        kind = Kind::Text;
        break;
    case TokenKind::Number:
        kind = Kind::Number;
        break;
    case TokenKind::Date:
        kind = Kind::Date;
        break;
    case TokenKind::BracketName:
        return columnOrCall();
    case TokenKind::Name:
        if (token.keyword == Keyword::None)
            return columnOrCall();
        if (token.keyword == Keyword::True || token.keyword == Keyword::False)
            kind = Kind::Boolean;
        else if (token.keyword == Keyword::Exists && peek(1).symbol == u'(' && peek(2).keyword == Keyword::Select)
            return take(), subselect(Exists{}, token.start);
        else if (token.keyword != Keyword::Null)
            failHere();
        break;
    case TokenKind::Symbol:
        if (token.symbol == u'(')
            return bracketed();
        [[fallthrough]];
    default:
        failHere();
    }
    const bool yes = token.keyword == Keyword::True;
    Constant constant{.kind = kind,
                      .text = kind == Kind::Text ? token.text : QString(),
                      .number = kind == Kind::Boolean ? double(yes) : token.number,
                      .whole = token.whole,
                      .place = token.constant};
    take();
    return closed(make(std::move(constant)), token.start);
}

ExprPtr Parser::bracketed()
{
    if (peek(1).keyword == Keyword::Select)
        return subselect(Subselect{}, peek().start);
    const Nesting nesting(*this);
    const qsizetype start = take().start;
    ExprPtr inside = expression();
    closeBracket();
    return closed(std::move(inside), start);
}

void Parser::closeBracket()
{
    if (accept(u')'))
        return;
    const Token &token = peek();
    // The engine words it in two ways: the bracket is never closed, or something stands where it should be.
    if (token.kind == TokenKind::End || (token.kind == TokenKind::Name && endsClause(token)))
        failExpression("Missing ), ], or Item", clauseText());
    failHere();
}

ExprPtr Parser::subselect(Expr::Node node, qsizetype start)
{
    const Nesting nesting(*this);
    take(); // the bracket
    ExprPtr result = make(std::move(node));
    result->select = select();
    closeBracket();
    return closed(std::move(result), start);
}

ExprPtr Parser::columnOrCall()
{
    const Token &first = take();
    if (first.kind == TokenKind::Name && at(u'('))
        return call(first);
    Column column{.name = first.text};
    if (accept(u'.') || accept(u'!')) {
        if (!atName())
            failHere();
        column = {.qualifier = first.text, .name = take().text};
    }
    return closed(make(std::move(column)), first.start);
}

/// The aggregates and ISNULL; the program's statements call nothing else.
ExprPtr Parser::call(const Token &name)
{
    const Nesting nesting(*this);
    take(); // the bracket
    const QString word = name.text.toUpper();
    const auto *aggregate = std::find_if(std::begin(aggregates), std::end(aggregates),
                                         [&word](const auto &known) { return known.first == word; });
    const bool isAggregate = aggregate != std::end(aggregates);
    if (!isAggregate && word != QLatin1String("ISNULL"))
        fail(3085, {name.text});
    ExprPtr result = isAggregate ? make(AggregateCall{aggregate->second}) : make(IsNull{.called = true});
    if (!(isAggregate && aggregate->second == Aggregate::Count && accept(u'*')))
        result->operands.push_back(expression());
    closeBracket();
    return closed(std::move(result), name.start);
}

} // namespace jetsql
