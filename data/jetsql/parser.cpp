#include "data/jetsql/parser.h"

#include "data/jetsql/errors.h"
#include "data/jetsql/limits.h"
#include "data/values/limits.h"

namespace jetsql {
namespace {

void requireKeys(size_t count)
{
    if (count > Limits::Keys)
        fail(3360);
}

} // namespace

ParsedStatement Parser::parse()
{
    ParsedStatement statement = [this]() -> ParsedStatement {
        switch (peek().keyword) {
        case Keyword::Select:
            return std::move(*select());
        case Keyword::Insert:
            return insert();
        case Keyword::Update:
            return update();
        case Keyword::Delete:
            return deleteFrom();
        case Keyword::Create:
            return createTable();
        case Keyword::Drop:
            return dropTable();
        default:
            fail(3129);
        }
    }();
    end();
    return statement;
}

/// One semicolon may close the statement; nothing may stand behind it.
void Parser::end()
{
    accept(u';');
    if (peek().kind != TokenKind::End)
        fail(3142);
}

QString Parser::name(int error)
{
    if (!atName())
        fail(error);
    return take().text;
}

std::unique_ptr<Select> Parser::select()
{
    auto select = std::make_unique<Select>();
    const int outerHeight = std::exchange(m_height, 0);
    take(); // SELECT
    // DISTINCTROW, which no statement of the program says, is taken for DISTINCT.
    if (accept(Keyword::Distinct) || accept(Keyword::DistinctRow))
        select->distinct = true;
    else
        accept(Keyword::All);
    if (accept(Keyword::Top))
        top(*select);
    selectList(*select);
    if (accept(Keyword::Into))
        select->into = name(3141);
    if (accept(Keyword::From)) {
        do
            select->from.push_back(joined(*select));
        while (accept(u','));
    }
    if (accept(Keyword::Where))
        select->where = whereClause();
    if (accept(Keyword::Group))
        groupBy(*select);
    if (accept(Keyword::Having))
        select->having = whereClause();
    if (accept(Keyword::Order))
        orderBy(*select);
    // What cannot follow is blamed on the clause before it.
    if (peek().kind != TokenKind::End && !at(u';') && !(at(u')') && m_depth > 0))
        fail(!select->orderBy.empty() ? 3138 : select->from.empty() ? 3141 : select->groupBy.empty() ? 3131 : 3132);
    select->height = m_height + 1;
    m_height = std::max(outerHeight, select->height);
    return select;
}

void Parser::top(Select &select)
{
    if (peek().kind != TokenKind::Number || !peek().whole)
        fail(3141);
    select.top = int(take().number);
    // No keyword, so that a column may have the name: in "TOP 5 Percent, ID" it is one.
    if (peek().text.compare(u"PERCENT", Qt::CaseInsensitive) == 0 && !at(u',')) {
        take();
        select.topPercent = true;
    }
}

void Parser::selectList(Select &select)
{
    do {
        const bool empty = peek().kind == TokenKind::End || at(Keyword::From) || at(u',') || at(Keyword::Into);
        if (empty)
            fail(3141);
        select.items.push_back(selectItem());
    } while (accept(u','));
    const Token &token = peek();
    const bool clause = at(Keyword::From) || at(Keyword::Into) || at(Keyword::Where) || at(Keyword::Group) ||
                        at(Keyword::Having) || at(Keyword::Order) || at(u';') || at(u')') ||
                        token.kind == TokenKind::End;
    if (!clause)
        fail(3141);
}

SelectItem Parser::selectItem()
{
    SelectItem item;
    if (accept(u'*')) {
        item.star = true;
        return item;
    }
    // "Table.*" is told by looking ahead, since "Table.Column" begins alike.
    const bool dot = peek(1).kind == TokenKind::Symbol && peek(1).symbol == u'.';
    if (atName() && dot && peek(2).kind == TokenKind::Symbol && peek(2).symbol == u'*') {
        item.star = true;
        item.starTable = take().text;
        take();
        take();
        return item;
    }
    item.expr = clauseExpression(Clause::Item);
    if (accept(Keyword::As))
        item.alias = name(3141);
    return item;
}

std::unique_ptr<FromNode> Parser::joined(Select &select)
{
    auto node = tablePrimary(select);
    // One join; a further one must stand outside brackets around the first.
    const auto kind = joinKind();
    if (!kind)
        return node;
    auto join = std::make_unique<FromNode>();
    join->join = *kind;
    join->left = std::move(node);
    join->right = tablePrimary(select);
    if (!accept(Keyword::On))
        fail(3135);
    join->on = clauseExpression(Clause::On);
    return join;
}

std::optional<FromNode::Join> Parser::joinKind()
{
    std::optional<FromNode::Join> kind;
    if (accept(Keyword::Left))
        kind = FromNode::Join::Left;
    else if (accept(Keyword::Right))
        kind = FromNode::Join::Right;
    if (kind)
        accept(Keyword::Outer);
    else if (accept(Keyword::Inner))
        kind = FromNode::Join::Inner;
    else
        return {};
    if (!accept(Keyword::Join))
        fail(3131);
    return kind;
}

std::unique_ptr<FromNode> Parser::tablePrimary(Select &select)
{
    if (!at(u'(')) {
        auto source = std::make_unique<Source>();
        source->table = name(3131);
        return addSource(select, std::move(source));
    }
    const Nesting nesting(*this);
    take();
    if (at(Keyword::Select)) {
        auto source = std::make_unique<Source>();
        source->derived = this->select();
        if (!accept(u')'))
            fail(3131);
        return addSource(select, std::move(source));
    }
    auto node = joined(select);
    if (!accept(u')'))
        fail(3131);
    return node;
}

std::unique_ptr<FromNode> Parser::addSource(Select &select, std::unique_ptr<Source> source)
{
    alias(*source);
    auto node = std::make_unique<FromNode>();
    node->source = source.get();
    select.sources.push_back(std::move(source));
    // Sub-selects have FROM clauses of their own and count by themselves.
    if (select.sources.size() > Limits::Tables)
        fail(3360);
    return node;
}

void Parser::alias(Source &source)
{
    if (accept(Keyword::As))
        source.alias = name(3131);
    else if (atName())
        source.alias = take().text;
}

void Parser::groupBy(Select &select)
{
    if (!accept(Keyword::By))
        fail(3132);
    do
        select.groupBy.push_back(clauseExpression(Clause::Item));
    while (accept(u','));
    requireKeys(select.groupBy.size());
}

void Parser::orderBy(Select &select)
{
    if (!accept(Keyword::By) || peek().kind == TokenKind::End || at(u',') || at(u';'))
        fail(3138);
    do {
        OrderItem item;
        item.expr = clauseExpression(Clause::Item);
        item.descending = accept(Keyword::Desc);
        if (!item.descending)
            accept(Keyword::Asc);
        select.orderBy.push_back(std::move(item));
    } while (accept(u','));
    requireKeys(select.orderBy.size());
}

ExprPtr Parser::whereClause()
{
    if (peek().kind == TokenKind::End || at(u';') || at(Keyword::Order) || at(Keyword::Group))
        fail(3145);
    return clauseExpression(Clause::Where);
}

Insert Parser::insert()
{
    Insert insert;
    take(); // INSERT
    if (!accept(Keyword::Into))
        fail(3134);
    insert.table = name(3134);
    if (accept(u'(')) {
        do
            insert.columns.append(name(3134));
        while (accept(u','));
        if (!accept(u')'))
            fail(3134);
    }
    if (at(Keyword::Select)) {
        insert.select = select();
        // The rows have a table to go to already.
        if (!insert.select->into.isEmpty())
            fail(3134);
        return insert;
    }
    if (!accept(Keyword::Values) || !accept(u'('))
        fail(3134);
    const Nesting nesting(*this);
    do
        insert.values.push_back(clauseExpression(Clause::Item));
    while (accept(u','));
    if (!accept(u')'))
        fail(3134);
    return insert;
}

Update Parser::update()
{
    Update update;
    take(); // UPDATE
    update.source = std::make_unique<Source>();
    update.source->table = name(3144);
    alias(*update.source);
    if (!accept(Keyword::Set))
        fail(3144);
    do {
        Update::Assignment assignment;
        assignment.column = name(3144);
        if (accept(u'.') || accept(u'!')) {
            assignment.qualifier = assignment.column;
            assignment.column = name(3144);
        }
        if (!accept(u'='))
            fail(3144);
        assignment.value = clauseExpression(Clause::Item);
        update.assignments.push_back(std::move(assignment));
    } while (accept(u','));
    if (accept(Keyword::Where))
        update.where = whereClause();
    else if (peek().kind != TokenKind::End && !at(u';'))
        fail(3144);
    return update;
}

/// DELETE FROM t, DELETE * FROM t and DELETE t.* FROM t are the same.
Delete Parser::deleteFrom()
{
    Delete result;
    take(); // DELETE
    if (!accept(u'*') && atName()) {
        take();
        if (!accept(u'.') || !accept(u'*'))
            fail(3131);
    }
    if (!accept(Keyword::From))
        fail(3131);
    result.source = std::make_unique<Source>();
    result.source->table = name(3131);
    alias(*result.source);
    if (accept(Keyword::Where))
        result.where = whereClause();
    else if (peek().kind != TokenKind::End && !at(u';'))
        fail(3131);
    return result;
}

CreateTable Parser::createTable()
{
    CreateTable create;
    take(); // CREATE
    if (!accept(Keyword::Table))
        fail(3290);
    create.table.Name = name(3290);
    if (!accept(u'('))
        fail(3290);
    do {
        ColumnDef column = columnDef();
        if (create.table.indexOf(column.name) >= 0)
            fail(3290);
        create.table.columns.push_back(std::move(column));
        if (create.table.columns.size() > MostColumns)
            fail(3190);
    } while (accept(u','));
    if (!accept(u')'))
        fail(3290);
    return create;
}

ColumnDef Parser::columnDef()
{
    struct TypeWord
    {
        QStringView word;
        ColumnType type;
    };
    static constexpr TypeWord types[] = {
        {u"DATETIME", ColumnType::Date},  {u"DATE", ColumnType::Date},         {u"TIME", ColumnType::Date},
        {u"TEXT", ColumnType::Text},      {u"CHAR", ColumnType::Text},         {u"VARCHAR", ColumnType::Text},
        {u"MONEY", ColumnType::Currency}, {u"CURRENCY", ColumnType::Currency}, {u"LONG", ColumnType::Long},
        {u"INTEGER", ColumnType::Long},   {u"INT", ColumnType::Long},          {u"DOUBLE", ColumnType::Double},
        {u"FLOAT", ColumnType::Double},   {u"NUMBER", ColumnType::Double},     {u"YESNO", ColumnType::YesNo},
        {u"BIT", ColumnType::YesNo},      {u"LOGICAL", ColumnType::YesNo},     {u"MEMO", ColumnType::Memo},
        {u"LONGTEXT", ColumnType::Memo},  {u"COUNTER", ColumnType::Long},      {u"AUTOINCREMENT", ColumnType::Long},
    };
    ColumnDef column;
    column.name = name(3290);
    const QString word = name(3290);
    const auto type = std::find_if(std::begin(types), std::end(types), [&word](const TypeWord &known) {
        return known.word.compare(word, Qt::CaseInsensitive) == 0;
    });
    if (type == std::end(types))
        fail(3290);
    column.type = type->type;
    column.autoNumber = type->word == u"COUNTER" || type->word == u"AUTOINCREMENT";
    if (column.type == ColumnType::Text)
        column.size = LongestText;
    if (accept(u'(')) {
        const Token &size = take();
        if (size.kind != TokenKind::Number || !size.whole || size.number < 1 || size.number > LongestText ||
            !accept(u')'))
            fail(3290);
        if (column.type == ColumnType::Text)
            column.size = int(size.number);
    }
    return column;
}

DropTable Parser::dropTable()
{
    take(); // DROP
    if (!accept(Keyword::Table))
        fail(3295);
    return {name(3295)};
}

} // namespace jetsql
