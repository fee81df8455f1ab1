#include "data/jetsql/resolver.h"

#include "data/jetsql/errors.h"
#include "data/values/limits.h"
#include <QSet>

namespace jetsql {
namespace {

bool same(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

void requireFields(size_t count)
{
    if (count > MostColumns)
        fail(3190);
}

/// The tables a name is looked up in, and those of the statement around.
struct Scope
{
    std::vector<const Source *> sources;
    const Scope *outer = nullptr;
};

class Resolver
{
public:
    explicit Resolver(const Catalog &catalog) : m_catalog(catalog) {}

    QStringList run(ParsedStatement &statement)
    {
        std::visit([this](auto &kind) { resolve(kind); }, statement);
        // Names nobody knows are parameters, which the program never gives; the error counts the different ones.
        if (!m_unknown.isEmpty())
            fail(3061, {QString::number(m_unknown.size())});
        return m_tables;
    }

private:
    void resolve(Select &select) { resolve(select, nullptr); }
    void resolve(CreateTable &) {}
    void resolve(DropTable &) {}

    void resolve(Insert &insert)
    {
        insert.def = m_catalog.find(insert.table);
        if (!insert.def)
            fail(3078, {insert.table});
        for (const QString &column : insert.columns) {
            const int target = insert.def->indexOf(column);
            if (target < 0)
                fail(3127, {column});
            if (std::find(insert.targets.begin(), insert.targets.end(), target) != insert.targets.end())
                fail(3063, {column});
            insert.targets.push_back(target);
        }
        for (int i = 0; insert.columns.isEmpty() && i < int(insert.def->columns.size()); ++i)
            insert.targets.push_back(i);
        if (insert.select)
            resolve(*insert.select, nullptr);
        const Scope none;
        for (ExprPtr &value : insert.values)
            resolve(*value, none, 3095);
        // Matched by position; the names that the SELECT gives its columns mean nothing.
        if (insert.targets.size() != (insert.select ? insert.select->items.size() : insert.values.size()))
            fail(3346);
    }

    void resolve(Update &update)
    {
        bind(*update.source);
        const Scope scope{{update.source.get()}, nullptr};
        for (Update::Assignment &assignment : update.assignments) {
            const bool foreign =
                !assignment.qualifier.isEmpty() && !same(assignment.qualifier, update.source->shownName());
            assignment.target = foreign ? -1 : update.source->def->indexOf(assignment.column);
            if (assignment.target < 0)
                m_unknown.insert((assignment.qualifier + u'.' + assignment.column).toLower());
            resolve(*assignment.value, scope, 3095);
        }
        if (update.where)
            resolve(*update.where, scope, 3096);
    }

    void resolve(Delete &statement)
    {
        bind(*statement.source);
        if (statement.where)
            resolve(*statement.where, Scope{{statement.source.get()}, nullptr}, 3096);
    }

    void resolve(Select &select, const Scope *outer)
    {
        for (auto &source : select.sources)
            bind(*source);
        for (auto &node : select.from)
            resolveJoins(*node, outer);
        Scope scope{{}, outer};
        for (auto &source : select.sources)
            scope.sources.push_back(source.get());
        // Once the tables are known, and before the list is looked at: a star is nothing but its columns.
        expandStars(select);
        m_select = &select;
        for (SelectItem &item : select.items)
            inSelect(select, *item.expr, scope, 0);
        if (select.where)
            inSelect(select, *select.where, scope, 3096);
        for (ExprPtr &key : select.groupBy)
            inSelect(select, *key, scope, 3098);
        if (select.having)
            inSelect(select, *select.having, scope, 0);
        for (OrderItem &item : select.orderBy)
            resolveOrder(select, item, scope);
    }

    void inSelect(Select &select, Expr &expr, const Scope &scope, int aggregateError)
    {
        m_select = &select;
        resolve(expr, scope, aggregateError);
    }

    void bind(Source &source)
    {
        // Tables get names of ours in the engine's statement: the program's own may be reserved words there, or stand
        // twice.
        source.handle = u't' + QString::number(++m_handles);
        if (!source.derived) {
            source.def = m_catalog.find(source.table);
            if (!source.def)
                fail(3078, {source.table});
            if (!m_tables.contains(source.def->Name))
                m_tables.append(source.def->Name);
            return;
        }
        resolve(*source.derived, nullptr);
        for (const QString &name : resultNames(*source.derived))
            source.derivedDef.columns.push_back({name});
        source.def = &source.derivedDef;
    }

    /// A join's condition sees the tables joined so far, not the rest of the FROM clause.
    Scope resolveJoins(FromNode &node, const Scope *outer)
    {
        if (node.join == FromNode::Join::None)
            return {{node.source}, outer};
        Scope scope = resolveJoins(*node.left, outer);
        const Scope right = resolveJoins(*node.right, outer);
        scope.sources.insert(scope.sources.end(), right.sources.begin(), right.sources.end());
        resolve(*node.on, scope, 3099);
        return scope;
    }

    void expandStars(Select &select)
    {
        std::vector<SelectItem> items;
        for (SelectItem &item : select.items) {
            if (!item.star) {
                items.push_back(std::move(item));
                continue;
            }
            if (select.sources.empty())
                fail(3067);
            bool found = false;
            for (const auto &source : select.sources) {
                if (!item.starTable.isEmpty() && !same(item.starTable, source->shownName()))
                    continue;
                found = true;
                for (int i = 0; i < int(source->def->columns.size()); ++i)
                    items.push_back({false, {}, column(*source, i), {}});
            }
            if (!found)
                fail(3078, {item.starTable});
            requireFields(items.size());
        }
        requireFields(items.size());
        select.items = std::move(items);
    }

    static ExprPtr column(const Source &source, int index)
    {
        const QString &name = source.def->columns[index].name;
        auto expr = std::make_unique<Expr>();
        expr->node = Column{source.shownName(), name, &source, index};
        expr->source = name;
        return expr;
    }

    /// ORDER BY may also name a result column by its position or by its AS name, where no table has that name.
    void resolveOrder(Select &select, OrderItem &item, const Scope &scope)
    {
        const auto *number = item.expr->as<Constant>();
        if (number && number->whole && number->number >= 1 && number->number <= select.items.size()) {
            item.position = int(number->number) - 1;
            return;
        }
        const auto *named = item.expr->as<Column>();
        if (named && named->qualifier.isEmpty() && owners(named->name, scope).size() != 1) {
            for (size_t i = 0; i < select.items.size() && item.position < 0; ++i) {
                const SelectItem &shown = select.items[i];
                const auto *selected = shown.alias.isEmpty() ? shown.expr->as<Column>() : nullptr;
                if (same(selected ? selected->name : shown.alias, named->name))
                    item.position = int(i);
            }
            if (item.position >= 0)
                return;
        }
        inSelect(select, *item.expr, scope, 0);
    }

    /// `aggregateError`: the error of an aggregate at this place, 0 where one may stand.
    void resolve(Expr &expr, const Scope &scope, int aggregateError)
    {
        if (expr.as<Column>())
            return resolveColumn(expr, scope);
        if (auto *call = expr.as<AggregateCall>()) {
            if (aggregateError)
                fail(aggregateError, {expr.source.toString()});
            m_select->aggregates = true;
            return resolveAggregate(*call, expr, scope);
        }
        for (ExprPtr &operand : expr.operands)
            resolve(*operand, scope, aggregateError);
        if (expr.select) {
            Select *around = m_select;
            resolve(*expr.select, &scope);
            m_select = around;
            if (!expr.as<Exists>() && expr.select->items.size() != 1)
                fail(3306);
        }
    }

    /// An aggregate counts the rows of the SELECT it stands in, whichever tables it reads.
    void resolveAggregate(AggregateCall &call, Expr &expr, const Scope &scope)
    {
        const std::vector<const Source *> around = std::exchange(m_met, {});
        for (ExprPtr &operand : expr.operands)
            resolve(*operand, scope, 3095);
        const auto isOwn = [&scope](const Source *source) {
            return std::find(scope.sources.begin(), scope.sources.end(), source) != scope.sources.end();
        };
        if (!m_met.empty() && !scope.sources.empty() && std::none_of(m_met.begin(), m_met.end(), isOwn))
            call.own = scope.sources.front();
        m_met.insert(m_met.end(), around.begin(), around.end());
    }

    std::vector<const Source *> owners(QStringView name, const Scope &scope)
    {
        std::vector<const Source *> found;
        for (const Source *source : scope.sources) {
            if (source->def->indexOf(name) >= 0)
                found.push_back(source);
        }
        return found;
    }

    /// The innermost FROM clause that has the column, or the table it is qualified with, decides.
    void resolveColumn(Expr &expr, const Scope &scope)
    {
        auto &column = *expr.as<Column>();
        for (const Scope *level = &scope; level; level = level->outer) {
            const Source *owner = nullptr;
            if (column.qualifier.isEmpty()) {
                const auto found = owners(column.name, *level);
                if (found.size() > 1)
                    fail(3079, {column.name});
                owner = found.empty() ? nullptr : found.front();
            } else {
                for (const Source *source : level->sources) {
                    if (!owner && same(source->shownName(), column.qualifier))
                        owner = source;
                }
                // A table of that name ends the search, also without the column: one of the same name further out is
                // hidden by it.
                if (owner && owner->def->indexOf(column.name) < 0)
                    break;
            }
            if (owner) {
                column.from = owner;
                column.index = owner->def->indexOf(column.name);
                m_met.push_back(owner);
                return;
            }
        }
        // Yes and No are words only where no table has a column of that name.
        const bool yes = same(column.name, u"Yes");
        if (column.qualifier.isEmpty() && (yes || same(column.name, u"No"))) {
            expr.node = Constant{.kind = Constant::Kind::Boolean, .number = double(yes)};
            return;
        }
        m_unknown.insert((column.qualifier + u'.' + column.name).toLower());
    }

    const Catalog &m_catalog;
    QSet<QString> m_unknown;
    QStringList m_tables;              ///< met as sources
    std::vector<const Source *> m_met; ///< those whose columns were met, in the aggregate being resolved
    Select *m_select = nullptr;        ///< the one whose expressions are being resolved
    int m_handles = 0;
};

} // namespace

QStringList resolveNames(ParsedStatement &statement, const Catalog &catalog)
{
    return Resolver(catalog).run(statement);
}

QStringList resultNames(const Select &select, QChar joiner)
{
    const auto bare = [](const SelectItem &item) {
        const auto *column = item.expr->as<Column>();
        return item.alias.isEmpty() && column && column->from;
    };
    const auto stored = [](const SelectItem &item) { return item.expr->as<Column>()->def().name; };
    QHash<QString, int> uses;
    for (const SelectItem &item : select.items) {
        if (bare(item))
            ++uses[stored(item).toLower()];
    }
    QStringList names;
    // The engine numbers nameless columns from there.
    int expressions = 1000;
    for (const SelectItem &item : select.items) {
        if (!item.alias.isEmpty())
            names.append(item.alias);
        else if (!bare(item))
            names.append("Expr" + QString::number(expressions++));
        // Columns of one name from several tables are told apart by the tables, as the FROM clause spells them.
        else if (uses.value(stored(item).toLower()) > 1)
            names.append(item.expr->as<Column>()->from->shownName() + joiner + stored(item));
        else
            names.append(stored(item));
    }
    return names;
}

} // namespace jetsql
