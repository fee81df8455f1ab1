#pragma once

#include "data/jetsql/ast.h"
#include "data/jetsql/lexer.h"
#include <optional>

namespace jetsql {

/// Recursive descent over the tokens of one statement. `sql` must outlive the statement returned.
class Parser
{
public:
    explicit Parser(const QString &sql) : m_sql(sql), m_tokens(tokensOf(sql)) {}

    /// The one statement. Errors 3075, 3129, 3131, 3132, 3134, 3135, 3138, 3141, 3142, 3144, 3145, 3190, 3290, 3295,
    /// 3360.
    ParsedStatement parse();

private:
    /// The clause an expression stands in: where it begins, and what ends it when an error is to quote it.
    enum class Clause { Where, Item, On };
    /// One level of brackets, for as long as it lives; too many of them are error 3360.
    class Nesting
    {
    public:
        explicit Nesting(Parser &parser);
        ~Nesting() { --m_parser.m_depth; }
        Nesting(const Nesting &) = delete;

    private:
        Parser &m_parser;
    };

    // parser.cpp: statements
    std::unique_ptr<Select> select();
    void selectList(Select &select);
    SelectItem selectItem();
    void top(Select &select);
    std::unique_ptr<FromNode> joined(Select &select);
    std::unique_ptr<FromNode> tablePrimary(Select &select);
    std::unique_ptr<FromNode> addSource(Select &select, std::unique_ptr<Source> source);
    void alias(Source &source);
    std::optional<FromNode::Join> joinKind();
    void groupBy(Select &select);
    void orderBy(Select &select);
    ExprPtr whereClause();
    Insert insert();
    Update update();
    Delete deleteFrom();
    CreateTable createTable();
    ColumnDef columnDef();
    DropTable dropTable();
    void end();

    // expressionparser.cpp
    ExprPtr clauseExpression(Clause clause);
    ExprPtr expression();
    ExprPtr chain(Op op, Keyword word, ExprPtr (Parser::*operand)());
    ExprPtr conjunction();
    ExprPtr negation();
    ExprPtr comparison();
    ExprPtr negatable(ExprPtr left);
    ExprPtr inList(ExprPtr left, bool negated);
    ExprPtr isNull(ExprPtr left);
    ExprPtr arithmetic(int level);
    ExprPtr unary();
    ExprPtr power();
    ExprPtr primary();
    ExprPtr bracketed();
    ExprPtr columnOrCall();
    ExprPtr call(const Token &name);
    ExprPtr subselect(Expr::Node node, qsizetype start);
    void closeBracket();
    /// An expression over these operands.
    template <class... Operands> static ExprPtr make(Expr::Node node, Operands... operands)
    {
        auto expr = std::make_unique<Expr>();
        expr->node = std::move(node);
        (expr->operands.push_back(std::move(operands)), ...);
        return expr;
    }
    ExprPtr closed(ExprPtr expr, qsizetype start) const;
    static int heightOf(const Expr &expr);
    QStringView clauseText() const;
    bool endsClause(const Token &token) const;
    [[noreturn]] void failHere();

    const Token &peek(size_t ahead = 0) const { return m_tokens[std::min(m_at + ahead, m_tokens.size() - 1)]; }
    const Token &take() { return m_tokens[m_at + 1 < m_tokens.size() ? m_at++ : m_at]; }
    bool at(Keyword keyword) const { return peek().keyword == keyword; }
    bool at(char16_t symbol) const { return peek().kind == TokenKind::Symbol && peek().symbol == symbol; }
    bool accept(Keyword keyword) { return at(keyword) && (++m_at, true); }
    bool accept(char16_t symbol) { return at(symbol) && (++m_at, true); }
    bool atName() const { return isName(peek()); }
    static bool isName(const Token &token)
    {
        return token.kind == TokenKind::BracketName ||
               (token.kind == TokenKind::Name && token.keyword == Keyword::None);
    }
    /// The name at hand, or the error.
    QString name(int error);

    const QString &m_sql;
    std::vector<Token> m_tokens;
    size_t m_at = 0;
    int m_depth = 0;
    int m_height = 0; ///< of the present SELECT's highest expression or inner SELECT
    Clause m_clause = Clause::Where;
    size_t m_clauseStart = 0; ///< token the present clause's expression begins with
};

} // namespace jetsql
