#include "data/jetsql/plan.h"

#include "data/schema/schema.h"
#include <algorithm>

namespace jetsql {
namespace {

using Sources = std::vector<const Source *>;

bool contains(const Sources &sources, const Source *source)
{
    return std::find(sources.begin(), sources.end(), source) != sources.end();
}

Sources united(Sources a, const Sources &b)
{
    for (const Source *source : b) {
        if (!contains(a, source))
            a.push_back(source);
    }
    return a;
}

/// The tables whose columns make an expression Null by being Null.
Sources nullWith(const Expr &expr)
{
    expr.visit();
    if (const auto *column = expr.as<Column>())
        return {column->from};
    if (expr.as<InList>() || expr.as<Between>() || expr.is(Op::Not) || expr.is(Op::Negate))
        return nullWith(*expr.operands[0]);
    // These give something though one side is Null.
    const bool hidesNull = expr.is(Op::And) || expr.is(Op::Or) || expr.is(Op::Concat);
    if (expr.as<Like>() || (expr.as<Operation>() && !hidesNull))
        return united(nullWith(*expr.operands[0]), nullWith(*expr.operands[1]));
    return {};
}

/// The tables whose unmatched rows a condition never lets through.
Sources rejectedBy(const Expr &condition)
{
    condition.visit();
    if (condition.is(Op::And)) {
        Sources all;
        for (const ExprPtr &operand : condition.operands)
            all = united(std::move(all), rejectedBy(*operand));
        return all;
    }
    if (condition.is(Op::Or)) {
        Sources common = rejectedBy(*condition.operands.front());
        for (size_t i = 1; i < condition.operands.size(); ++i) {
            const Sources other = rejectedBy(*condition.operands[i]);
            std::erase_if(common, [&other](const Source *source) { return !contains(other, source); });
        }
        return common;
    }
    // IS NULL is what asks for the unmatched rows.
    if (const auto *test = condition.as<IsNull>())
        return test->negated ? nullWith(*condition.operands[0]) : Sources();
    // Nothing is in a list only where the list has rows; anything is outside an empty one.
    if (const auto *in = condition.as<InSelect>())
        return in->negated ? Sources() : nullWith(*condition.operands[0]);
    return nullWith(condition);
}

bool holdsAny(const FromNode &node, const Sources &sources)
{
    if (node.join == FromNode::Join::None)
        return contains(sources, node.source);
    return holdsAny(*node.left, sources) || holdsAny(*node.right, sources);
}

/// `rejected`: the tables whose rows of Nulls are dropped from what the node gives.
void strengthen(FromNode &node, const Sources &rejected)
{
    if (node.join == FromNode::Join::None)
        return;
    const bool left = node.join == FromNode::Join::Left;
    // A join whose unmatched rows are dropped anyway is made an inner one, which the engine may walk in any order.
    if (node.join != FromNode::Join::Inner && holdsAny(left ? *node.right : *node.left, rejected))
        node.join = FromNode::Join::Inner;
    // The condition of a join drops rows of Nulls too, but not of the side whose rows all survive it.
    const Sources inside = united(rejected, rejectedBy(*node.on));
    const bool inner = node.join == FromNode::Join::Inner;
    strengthen(*node.left, inner || !left ? inside : rejected);
    strengthen(*node.right, inner || left ? inside : rejected);
}

std::vector<ExprPtr *> conjuncts(ExprPtr &condition)
{
    std::vector<ExprPtr *> parts;
    if (condition && condition->is(Op::And)) {
        for (ExprPtr &operand : condition->operands)
            parts.push_back(&operand);
    } else if (condition) {
        parts.push_back(&condition);
    }
    return parts;
}

/// Whether an expression takes its columns from one table alone.
bool readsOnly(const Expr &expr, const Source *source)
{
    const auto *column = expr.as<Column>();
    if (expr.select || (column && column->from != source))
        return false;
    return std::all_of(expr.operands.begin(), expr.operands.end(),
                       [source](const ExprPtr &operand) { return readsOnly(*operand, source); });
}

bool isIndexed(const Column &column)
{
    const TableDef &table = *column.from->def;
    const auto &indexes = Schema::indexes();
    return column.def().autoNumber || std::any_of(indexes.begin(), indexes.end(), [&](const Schema::Index &index) {
               return index.table.compare(table.Name, Qt::CaseInsensitive) == 0 && index.where.isEmpty() &&
                      index.columns.first().compare(column.def().name, Qt::CaseInsensitive) == 0;
           });
}

ExprPtr columnOf(const Source &source, int column, const ExprType &type)
{
    auto expr = std::make_unique<Expr>();
    expr->node = Column{{}, {}, &source, column};
    expr->type = type;
    return expr;
}

/// A sub-select such as (SELECT SUM(Qty) FROM Register WHERE PartNo = Part.PartNo), one aggregate over one table tied
/// to a table of the statement around by one equality.
class CorrelatedSum
{
public:
    CorrelatedSum(Select &inner, const Select &outer) : m_inner(inner)
    {
        const bool plain = inner.sources.size() == 1 && !inner.sources.front()->derived && inner.groupBy.empty() &&
                           !inner.having && inner.top < 0 && inner.items.size() == 1;
        if (!plain)
            return;
        const Source *table = inner.sources.front().get();
        const Expr &sum = *inner.items.front().expr;
        // COUNT is 0, not Null, where there is no row.
        const auto *call = sum.as<AggregateCall>();
        if (!call || call->function == Aggregate::Count || !readsOnly(sum, table))
            return;
        for (ExprPtr *part : conjuncts(inner.where)) {
            if (readsOnly(**part, table))
                continue;
            // Two ties, or a condition on the outer table alone: then it stays a look-up for each row.
            if (m_tie || !isTie(**part, table, outer))
                return;
            m_tie = part;
        }
        // Where an index serves the look-up it is quicker than grouping the whole table.
        m_fits = m_tie && !isIndexed(*key().as<Column>());
    }

    bool fits() const { return m_fits; }

    /// Turns the sub-select into a grouped table of two columns, the key and the sum, and gives the condition that
    /// joins `source` to the tables around.
    ExprPtr groupInto(Source &source)
    {
        ExprPtr condition = std::move(*m_tie);
        dropTie();
        const bool keyFirst = isInner(*condition->operands[0]);
        const Expr &tied = *condition->operands[keyFirst ? 0 : 1];
        const Column key = *tied.as<Column>();
        const ExprType type = tied.type;
        m_inner.groupBy.push_back(columnOf(*key.from, key.index, type));
        SelectItem item;
        item.expr = columnOf(*key.from, key.index, type);
        item.alias = "k";
        m_inner.items.insert(m_inner.items.begin(), std::move(item));
        m_inner.items.back().alias = "v";
        source.derivedDef.columns = {{"k", type.type, type.size}, {"v"}};
        condition->operands[keyFirst ? 0 : 1] = columnOf(source, 0, type);
        return condition;
    }

private:
    static bool isTie(const Expr &expr, const Source *table, const Select &outer)
    {
        if (!expr.is(Op::Equal) || expr.operands[0]->type.type != expr.operands[1]->type.type)
            return false;
        const auto *a = expr.operands[0]->as<Column>();
        const auto *b = expr.operands[1]->as<Column>();
        if (!a || !b)
            return false;
        // A table further out would not be in reach of the join.
        const Source *other = a->from == table ? b->from : a->from;
        return (a->from == table || b->from == table) &&
               std::any_of(outer.sources.begin(), outer.sources.end(),
                           [other](const auto &source) { return source.get() == other; });
    }

    bool isInner(const Expr &column) const { return column.as<Column>()->from == m_inner.sources.front().get(); }

    const Expr &key() const
    {
        const auto &sides = (*m_tie)->operands;
        return isInner(*sides[0]) ? *sides[0] : *sides[1];
    }

    void dropTie()
    {
        if (m_tie == &m_inner.where)
            return m_inner.where.reset();
        auto &operands = m_inner.where->operands;
        std::erase_if(operands, [](const ExprPtr &operand) { return !operand; });
        if (operands.size() == 1) {
            ExprPtr rest = std::move(operands.front());
            m_inner.where = std::move(rest);
        }
    }

    Select &m_inner;
    ExprPtr *m_tie = nullptr;
    bool m_fits = false;
};

void joinCorrelatedSums(Select &select)
{
    // Beside groups the sums would have to be grouped by as well.
    if (select.grouped() || select.from.empty())
        return;
    int count = 0;
    for (SelectItem &item : select.items) {
        if (!item.expr->as<Subselect>())
            continue;
        CorrelatedSum sum(*item.expr->select, select);
        if (!sum.fits())
            continue;
        auto source = std::make_unique<Source>();
        source->handle = 'd' + QString::number(++count);
        source->def = &source->derivedDef;
        auto join = std::make_unique<FromNode>();
        join->join = FromNode::Join::Left;
        join->left = std::move(select.from.back());
        join->right = std::make_unique<FromNode>();
        join->right->source = source.get();
        join->on = sum.groupInto(*source);
        select.from.back() = std::move(join);
        source->derived = std::move(item.expr->select);
        item.expr = columnOf(*source, 1, item.expr->type);
        select.sources.push_back(std::move(source));
    }
}

void improve(Select &select)
{
    const Sources rejected = select.where ? rejectedBy(*select.where) : Sources();
    for (auto &node : select.from)
        strengthen(*node, rejected);
    joinCorrelatedSums(select);
}

} // namespace

void improvePlan(ParsedStatement &statement)
{
    if (auto *select = std::get_if<Select>(&statement))
        improve(*select);
    else if (auto *insert = std::get_if<Insert>(&statement); insert && insert->select)
        improve(*insert->select);
}

} // namespace jetsql
