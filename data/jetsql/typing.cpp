#include "data/jetsql/typing.h"

#include "data/jetsql/errors.h"
#include "data/jetsql/resolver.h"
#include "data/values/limits.h"

namespace jetsql {
namespace {

ExprType ofType(ColumnType type)
{
    return {false, type, type == ColumnType::Text ? LongestText : 0, false};
}

/// The engine compares texts with texts alone, and everything else by its number.
void requireComparable(const Expr &a, const Expr &b)
{
    if (!a.type.null && !b.type.null && a.type.isText() != b.type.isText())
        fail(3464);
}

void requireCondition(const Expr &expr)
{
    if (expr.type.isText())
        fail(3464);
}

ExprType arithmeticType(Op op, const ExprType &a, const ExprType &b)
{
    // The order of the tests is that of the engine: text first, then what makes a fraction, then dates and money.
    if (a.null && b.null)
        return {true};
    if (op == Op::Add && (a.isText() || a.null) && (b.isText() || b.null))
        return ofType(ColumnType::Text);
    if (op == Op::Divide || op == Op::Power)
        return ofType(ColumnType::Double);
    // Both operands are rounded first.
    if (op == Op::Mod || op == Op::IntDivide)
        return ofType(ColumnType::Long);
    // A day moved by days is a day; a day less a day is a number.
    if ((op == Op::Add || op == Op::Subtract) && a.isDate() != b.isDate() && (a.isDate() || op == Op::Add))
        return ofType(ColumnType::Date);
    const auto either = [&](ColumnType type) { return (!a.null && a.type == type) || (!b.null && b.type == type); };
    if (either(ColumnType::Double) || either(ColumnType::Text) || either(ColumnType::Memo) || either(ColumnType::Date))
        return ofType(ColumnType::Double);
    return ofType(either(ColumnType::Currency) ? ColumnType::Currency : ColumnType::Long);
}

class Typing
{
public:
    void type(Insert &insert)
    {
        if (insert.select)
            type(*insert.select);
        for (ExprPtr &value : insert.values)
            type(*value);
    }

    void type(Update &update)
    {
        for (Update::Assignment &assignment : update.assignments)
            type(*assignment.value);
        typeCondition(update.where);
    }

    void type(Delete &statement) { typeCondition(statement.where); }
    void type(CreateTable &) {}
    void type(DropTable &) {}

    void type(Select &select)
    {
        // From the inside out: the columns of a SELECT in FROM have types once it is typed itself.
        for (auto &source : select.sources) {
            if (source->derived)
                typeDerived(*source);
        }
        for (auto &node : select.from)
            typeJoins(*node);
        for (SelectItem &item : select.items)
            type(*item.expr);
        typeCondition(select.where);
        for (ExprPtr &key : select.groupBy)
            type(*key);
        typeCondition(select.having);
        for (OrderItem &item : select.orderBy) {
            if (item.position < 0)
                type(*item.expr);
        }
        checkAliases(select);
        if (select.grouped())
            checkGrouping(select);
        if (select.distinct)
            checkDistinct(select);
    }

private:
    void typeDerived(Source &source)
    {
        type(*source.derived);
        const auto columns = resultColumns(*source.derived);
        for (size_t i = 0; i < columns.size(); ++i) {
            source.derivedDef.columns[i].type = columns[i].type;
            source.derivedDef.columns[i].size = columns[i].size;
        }
    }

    void typeJoins(FromNode &node)
    {
        if (node.join == FromNode::Join::None)
            return;
        typeJoins(*node.left);
        typeJoins(*node.right);
        typeCondition(node.on);
    }

    void typeCondition(ExprPtr &expr)
    {
        if (!expr)
            return;
        type(*expr);
        requireCondition(*expr);
    }

    void type(Expr &expr)
    {
        expr.visit();
        for (ExprPtr &operand : expr.operands)
            type(*operand);
        if (expr.select)
            type(*expr.select);
        expr.type = typeOf(expr);
    }

    static ExprType typeOf(const Expr &expr)
    {
        return std::visit([&expr](const auto &node) { return typeOf(node, expr); }, expr.node);
    }

    static ExprType typeOf(const Constant &constant, const Expr &)
    {
        switch (constant.kind) {
        case Constant::Kind::Null:
            return {true};
        case Constant::Kind::Text:
            // A table made of it has a column as long as the text, and no column of length 0.
            return {false, ColumnType::Text, int(std::max<qsizetype>(1, constant.text.size())), false};
        case Constant::Kind::Number:
            return ofType(constant.whole ? ColumnType::Long : ColumnType::Double);
        case Constant::Kind::Date:
            return ofType(ColumnType::Date);
        case Constant::Kind::Boolean:
            break;
        }
        return ofType(ColumnType::YesNo);
    }

    static ExprType typeOf(const Column &column, const Expr &)
    {
        const ColumnDef &def = column.def();
        return {false, def.type, def.size, def.autoNumber};
    }

    static ExprType typeOf(const Subselect &, const Expr &expr)
    {
        // Picked out of its table, an AutoNumber numbers nothing any more.
        ExprType type = expr.select->items.front().expr->type;
        type.autoNumber = false;
        return type;
    }

    static ExprType typeOf(const InSelect &, const Expr &expr)
    {
        requireComparable(*expr.operands.front(), *expr.select->items.front().expr);
        return ofType(ColumnType::YesNo);
    }

    /// IN and BETWEEN.
    static ExprType comparedWithFirst(const Expr &expr)
    {
        for (size_t i = 1; i < expr.operands.size(); ++i)
            requireComparable(*expr.operands.front(), *expr.operands[i]);
        return ofType(ColumnType::YesNo);
    }
    static ExprType typeOf(const InList &, const Expr &expr) { return comparedWithFirst(expr); }
    static ExprType typeOf(const Between &, const Expr &expr) { return comparedWithFirst(expr); }
    static ExprType typeOf(const Like &, const Expr &) { return ofType(ColumnType::YesNo); }
    static ExprType typeOf(const IsNull &, const Expr &) { return ofType(ColumnType::YesNo); }
    static ExprType typeOf(const Exists &, const Expr &) { return ofType(ColumnType::YesNo); }

    static ExprType typeOf(const AggregateCall &call, const Expr &expr)
    {
        if (call.function == Aggregate::Count)
            return ofType(ColumnType::Long);
        ExprType type = expr.operands.front()->type;
        type.autoNumber = false;
        if (call.function == Aggregate::Min || call.function == Aggregate::Max)
            return type;
        // Texts have a least and a greatest, and no sum.
        if (type.isText())
            fail(3464);
        // The sum of anything but money is a Double, of whole numbers too.
        return ofType(type.type == ColumnType::Currency && !type.null ? ColumnType::Currency : ColumnType::Double);
    }

    static ExprType typeOf(const Operation &operation, const Expr &expr)
    {
        switch (operation.op) {
        case Op::Or:
        case Op::And:
        case Op::Not:
            for (const ExprPtr &operand : expr.operands)
                requireCondition(*operand);
            return ofType(ColumnType::YesNo);
        case Op::Equal:
        case Op::NotEqual:
        case Op::Less:
        case Op::LessEqual:
        case Op::Greater:
        case Op::GreaterEqual:
            requireComparable(*expr.operands[0], *expr.operands[1]);
            return ofType(ColumnType::YesNo);
        case Op::Concat:
            return ofType(ColumnType::Text);
        case Op::Negate: {
            const ExprType &type = expr.operands[0]->type;
            // A minus makes a number of whatever stands behind it.
            return type.isNumber() ? ofType(type.type) : ofType(type.isYesNo() ? ColumnType::Long : ColumnType::Double);
        }
        default:
            return arithmeticType(operation.op, expr.operands[0]->type, expr.operands[1]->type);
        }
    }

    static bool usesUnqualified(const Expr &expr, QStringView name)
    {
        const auto *column = expr.as<Column>();
        if (column && column->qualifier.isEmpty())
            return name.compare(column->name, Qt::CaseInsensitive) == 0;
        return std::any_of(expr.operands.begin(), expr.operands.end(),
                           [name](const ExprPtr &operand) { return usesUnqualified(*operand, name); });
    }

    static void checkAliases(const Select &select)
    {
        for (const SelectItem &item : select.items) {
            // To the engine the bare name would be the AS name itself, and mean itself for ever.
            if (!item.alias.isEmpty() && usesUnqualified(*item.expr, item.alias))
                fail(3103, {item.alias});
        }
    }

    /// Whether an expression has one value in each group: a key, an aggregate, a constant, a column of the
    /// statement around, or made of such.
    static bool covered(const Expr &expr, const Select &select, bool inside = false)
    {
        if ((expr.as<AggregateCall>() && !inside) || expr.as<Constant>())
            return true;
        for (const ExprPtr &key : select.groupBy) {
            if (sameExpression(*key, expr))
                return true;
        }
        if (const auto *column = expr.as<Column>()) {
            return std::none_of(select.sources.begin(), select.sources.end(),
                                [column](const auto &source) { return source.get() == column->from; });
        }
        return std::all_of(expr.operands.begin(), expr.operands.end(),
                           [&](const ExprPtr &operand) { return covered(*operand, select, inside); }) &&
               (!expr.select || coveredInside(*expr.select, select));
    }

    /// The same for all that stands in a SELECT inside, an aggregate's operand too: that one counts the rows in there.
    static bool coveredInside(const Select &inner, const Select &select)
    {
        const auto sound = [&select](const ExprPtr &expr) { return !expr || covered(*expr, select, true); };
        const auto soundJoins = [&sound](const FromNode &node, const auto &again) -> bool {
            return node.join == FromNode::Join::None ||
                   (sound(node.on) && again(*node.left, again) && again(*node.right, again));
        };
        return std::all_of(inner.items.begin(), inner.items.end(),
                           [&](const SelectItem &item) { return sound(item.expr); }) &&
               std::all_of(inner.from.begin(), inner.from.end(),
                           [&](const auto &node) { return soundJoins(*node, soundJoins); }) &&
               sound(inner.where) && std::all_of(inner.groupBy.begin(), inner.groupBy.end(), sound) &&
               sound(inner.having) && std::all_of(inner.orderBy.begin(), inner.orderBy.end(), [&](const auto &order) {
                   return order.position >= 0 || sound(order.expr);
               });
    }

    static void checkGrouping(const Select &select)
    {
        // A condition on groups where there are none.
        if (select.having && !select.aggregates && select.groupBy.empty())
            fail(3091, {select.having->source.toString()});
        const auto check = [&select](const Expr &expr) {
            if (!covered(expr, select))
                fail(3122, {expr.source.toString()});
        };
        for (const SelectItem &item : select.items)
            check(*item.expr);
        if (select.having)
            check(*select.having);
        for (const OrderItem &item : select.orderBy) {
            if (item.position < 0)
                check(*item.expr);
        }
    }

    static void checkDistinct(const Select &select)
    {
        for (const OrderItem &order : select.orderBy) {
            // Of rows that became one, what is not shown has no one value to sort by.
            const bool shown = order.position >= 0 ||
                               std::any_of(select.items.begin(), select.items.end(), [&order](const SelectItem &item) {
                                   return sameExpression(*item.expr, *order.expr);
                               });
            if (!shown)
                fail(3093, {order.expr->source.toString()});
        }
    }
};

} // namespace

void typeExpressions(ParsedStatement &statement)
{
    std::visit([](auto &kind) { Typing().type(kind); }, statement);
}

std::vector<ResultColumn> resultColumns(const Select &select)
{
    const QStringList names = resultNames(select);
    std::vector<ResultColumn> columns;
    columns.reserve(select.items.size());
    for (size_t i = 0; i < select.items.size(); ++i) {
        const Expr &expr = *select.items[i].expr;
        ResultColumn column;
        column.name = names[int(i)];
        if (const auto *stored = expr.as<Column>()) {
            column.sourceTable = stored->from->shownName();
            column.sourceColumn = stored->def().name;
        }
        // A column of nothing but Nulls is a text.
        column.type = expr.type.null ? ColumnType::Text : expr.type.type;
        column.size = expr.type.null ? LongestText : expr.type.size;
        column.autoNumber = expr.type.autoNumber;
        columns.push_back(std::move(column));
    }
    return columns;
}

bool sameExpression(const Expr &a, const Expr &b)
{
    // Two SELECTs inside are never taken for the same.
    return !a.select && !b.select && a.node == b.node &&
           std::equal(a.operands.begin(), a.operands.end(), b.operands.begin(), b.operands.end(),
                      [](const ExprPtr &left, const ExprPtr &right) { return sameExpression(*left, *right); });
}

} // namespace jetsql
