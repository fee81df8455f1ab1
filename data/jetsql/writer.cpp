#include "data/jetsql/writer.h"

#include "data/jetsql/expressionwriter.h"
#include "data/jetsql/resolver.h"
#include "data/jetsql/typing.h"
#include "data/schema/schema.h"

namespace jetsql {
namespace {

QString subselectText(const Select &select, bool asNumber);

const ExpressionWriter &expressions()
{
    static const ExpressionWriter writer(&subselectText);
    return writer;
}

/// A sort key as written, and whether it descends.
struct SortKey
{
    QString text;
    bool descending = false;
};

QString rowidOf(const Source &source)
{
    for (const char *name : {"rowid", "_rowid_", "oid"}) {
        if (source.def->indexOf(QLatin1String(name)) < 0)
            return source.handle + u'.' + QLatin1String(name);
    }
    return {};
}

/// Writes one SELECT, at whatever place.
class SelectWriter
{
public:
    explicit SelectWriter(const Select &select) : m_select(select) {}

    bool withRowid = false;
    bool asNumber = false;          ///< its columns converted to numbers
    bool ordered = true;            ///< false where nobody sees the order
    bool insertionOrder = true;     ///< rows equal in the order asked for come as they were inserted
    QStringList names;              ///< of the columns; empty: unnamed
    std::vector<ColumnDef> targets; ///< the columns the values are converted to; empty: stored form

    QString text() const
    {
        const std::vector<SortKey> keys = ordered || m_select.top >= 0 ? sortKeys() : std::vector<SortKey>();
        if (m_select.top >= 0 && !m_select.orderBy.empty())
            return topWithTies(keys);
        return "SELECT " + (m_select.distinct ? QString("DISTINCT ") : QString()) + items() + tail() +
               orderClause(keys) + limit();
    }

private:
    QString item(size_t index) const
    {
        const Expr &expr = *m_select.items[index].expr;
        if (!targets.empty())
            return expressions().assigned(expr, targets[index]).text;
        if (asNumber)
            return expressions().number(expr).text;
        return m_select.distinct ? expressions().collated(expr) : expressions().plain(expr).text;
    }

    QString items() const
    {
        QStringList parts;
        for (size_t i = 0; i < m_select.items.size(); ++i) {
            parts.append(item(i));
            if (!names.isEmpty())
                parts.last() += " AS " + quotedName(names[int(i)]);
        }
        if (withRowid)
            parts.append(rowidOf(*m_select.sources.front()));
        return parts.join(QLatin1String(", "));
    }

    QString tail() const
    {
        QString result;
        QStringList tables;
        for (const auto &node : m_select.from)
            tables.append(joined(*node));
        if (!tables.isEmpty())
            result += " FROM " + tables.join(QLatin1String(", "));
        if (m_select.where)
            result += " WHERE " + expressions().condition(*m_select.where).text;
        const QStringList keys = groupKeys();
        if (!m_select.groupBy.empty())
            result += " GROUP BY " + (keys.isEmpty() ? QString("NULL") : keys.join(QLatin1String(", ")));
        if (m_select.having)
            result += " HAVING " + expressions().condition(*m_select.having).text;
        return result;
    }

    static QString table(const Source &source)
    {
        if (!source.derived)
            return quotedName(source.def->Name) + " AS " + source.handle;
        SelectWriter writer(*source.derived);
        writer.names = resultNames(*source.derived);
        writer.ordered = false;
        return u'(' + writer.text() + ") AS " + source.handle;
    }

    /// A right join is written as the left join it mirrors.
    static QString joined(const FromNode &node)
    {
        if (node.join == FromNode::Join::None)
            return table(*node.source);
        const bool mirrored = node.join == FromNode::Join::Right;
        const FromNode &left = mirrored ? *node.right : *node.left;
        const FromNode &right = mirrored ? *node.left : *node.right;
        QString inner = joined(right);
        if (right.join != FromNode::Join::None)
            inner = u'(' + inner + u')';
        return joined(left) + (node.join == FromNode::Join::Inner ? " JOIN " : " LEFT JOIN ") + inner + " ON " +
               expressions().condition(*node.on).text;
    }

    const Expr &ordering(const OrderItem &order) const
    {
        return order.position >= 0 ? *m_select.items[order.position].expr : *order.expr;
    }

    /// Whether rows equal in `key` are equal in `expr` too: the same, or a column of the row that `key` numbers.
    static bool determines(const Expr &key, const Expr &expr)
    {
        if (sameExpression(key, expr))
            return true;
        return key.kind == Expr::Kind::Column && expr.kind == Expr::Kind::Column && key.from == expr.from &&
               isRowNumber(key);
    }

    /// The AutoNumber of a table that the program keeps is its primary key; in a copy it need not be.
    static bool isRowNumber(const Expr &column)
    {
        if (!column.type.autoNumber)
            return false;
        const auto &tables = Schema::permanentTables();
        return std::any_of(tables.begin(), tables.end(), [&column](const TableDef &table) {
            return table.Name.compare(column.from->def->Name, Qt::CaseInsensitive) == 0;
        });
    }

    /// The keys in the order of ORDER BY first, so that one sort serves both; the groups are the same in any order.
    std::vector<const Expr *> groupExpressions() const
    {
        std::vector<const Expr *> keys;
        const auto add = [&keys](const Expr &expr) {
            const bool known =
                std::any_of(keys.begin(), keys.end(), [&expr](const Expr *key) { return determines(*key, expr); });
            if (!known && !expr.isConstant())
                keys.push_back(&expr);
        };
        for (const OrderItem &order : m_select.orderBy) {
            for (const ExprPtr &key : m_select.groupBy) {
                if (sameExpression(*key, ordering(order)))
                    add(*key);
            }
        }
        for (const ExprPtr &key : m_select.groupBy)
            add(*key);
        return keys;
    }

    /// Every row of each table with every row of the others.
    bool isProduct() const { return !m_select.where && m_select.from.size() == m_select.sources.size(); }

    /// A key of GROUP BY or ORDER BY. Over a join the sign keeps SQLite from walking an index for the order's sake,
    /// whatever that costs in the other tables.
    QString sortText(const Expr &expr) const
    {
        const bool joined = m_select.sources.size() > 1 && !isProduct();
        return (joined && expr.kind == Expr::Kind::Column ? "+" : "") + expressions().collated(expr);
    }

    QStringList groupKeys() const
    {
        QStringList keys;
        for (const Expr *key : groupExpressions())
            keys.append(sortText(*key));
        return keys;
    }

    /// SQLite does not know the rowids of tables joined inside brackets.
    static void addRowids(const FromNode &node, std::vector<SortKey> &keys)
    {
        if (node.join == FromNode::Join::None) {
            if (!node.source->derived)
                keys.push_back({rowidOf(*node.source)});
            return;
        }
        const bool mirrored = node.join == FromNode::Join::Right;
        addRowids(mirrored ? *node.right : *node.left, keys);
        const FromNode &right = mirrored ? *node.left : *node.right;
        if (right.join == FromNode::Join::None)
            addRowids(right, keys);
    }

    std::vector<SortKey> sortKeys() const
    {
        std::vector<SortKey> keys;
        const auto add = [&keys](const QString &text, bool descending) {
            const bool known =
                std::any_of(keys.begin(), keys.end(), [&text](const SortKey &key) { return key.text == text; });
            if (!known && !text.isEmpty())
                keys.push_back({text, descending});
        };
        bool unique = false;
        for (const OrderItem &order : m_select.orderBy) {
            const Expr &expr = ordering(order);
            // SQLite would take a constant for the position of a column.
            if (!expr.isConstant())
                add(m_select.distinct ? expressions().collated(expr) : sortText(expr), order.descending);
            unique = unique || expr.type.autoNumber;
        }
        if (m_select.grouped()) {
            for (const QString &key : groupKeys())
                add(key, false);
        } else if (m_select.distinct) {
            for (size_t i = 0; i < m_select.items.size(); ++i) {
                if (!m_select.items[i].expr->isConstant())
                    add(item(i), false);
            }
        } else if (insertionOrder && (!unique || m_select.sources.size() > 1)) {
            for (const auto &node : m_select.from)
                addRowids(*node, keys);
        }
        return keys;
    }

    static QString orderClause(const std::vector<SortKey> &keys)
    {
        QStringList parts;
        for (const SortKey &key : keys)
            parts.append(key.text + (key.descending ? " DESC" : ""));
        return parts.isEmpty() ? QString() : " ORDER BY " + parts.join(QLatin1String(", "));
    }

    QString limit() const
    {
        if (m_select.top < 0)
            return {};
        if (!m_select.topPercent)
            return " LIMIT " + QString::number(m_select.top);
        return " LIMIT (SELECT (count(*) * " + QString::number(m_select.top) + " + 99) / 100 FROM (SELECT 1" + tail() +
               "))";
    }

    /// Rows equal to the last one in the order asked for are returned too.
    QString topWithTies(const std::vector<SortKey> &keys) const
    {
        std::vector<SortKey> asked;
        for (const OrderItem &order : m_select.orderBy) {
            if (!ordering(order).isConstant())
                asked.push_back({expressions().collated(ordering(order)), order.descending});
        }
        const size_t columns = m_select.items.size() + (withRowid ? 1 : 0);
        QStringList outer;
        for (size_t i = 0; i < columns; ++i) {
            outer.append(u'c' + QString::number(i));
            if (!names.isEmpty() && i < m_select.items.size())
                outer.last() += " AS " + quotedName(names[int(i)]);
        }
        QStringList inner;
        for (size_t i = 0; i < m_select.items.size(); ++i)
            inner.append(item(i) + " AS c" + QString::number(i));
        if (withRowid)
            inner.append(rowidOf(*m_select.sources.front()) + " AS c" + QString::number(columns - 1));
        const QString rank = "rank() OVER (" + orderClause(asked).mid(1) + ") AS place";
        const QString row = "row_number() OVER (" + orderClause(keys).mid(1) + ") AS line";
        const QString count = m_select.topPercent ? limit().mid(7) : QString::number(m_select.top);
        return "SELECT " + outer.join(QLatin1String(", ")) + " FROM (SELECT " +
               (m_select.distinct ? QString("DISTINCT ") : QString()) + inner.join(QLatin1String(", ")) + ", " + rank +
               ", " + row + tail() + ") WHERE place <= " + count + " ORDER BY line";
    }

    const Select &m_select;
};

QString subselectText(const Select &select, bool asNumber)
{
    SelectWriter writer(select);
    writer.asNumber = asNumber;
    writer.ordered = false;
    return writer.text();
}

QString insertHead(const TableDef &table, const std::vector<int> &targets)
{
    QStringList names;
    for (const int target : targets)
        names.append(quotedName(table.columns[target].name));
    return "INSERT INTO " + quotedName(table.Name) + " (" + names.join(QLatin1String(", ")) + ") ";
}

QString whereClause(const ExprPtr &where)
{
    return where ? " WHERE " + expressions().condition(*where).text : QString();
}

} // namespace

QString writtenSelect(const Select &select, bool withRowid)
{
    SelectWriter writer(select);
    writer.withRowid = withRowid;
    return writer.text();
}

QString writtenSelectInto(const Select &select, const TableDef &newTable)
{
    std::vector<int> all;
    for (int i = 0; i < int(newTable.columns.size()); ++i)
        all.push_back(i);
    SelectWriter writer(select);
    writer.insertionOrder = select.sources.size() == 1;
    return insertHead(newTable, all) + writer.text();
}

QString written(const Insert &insert)
{
    const QString head = insertHead(*insert.def, insert.targets);
    if (insert.select) {
        SelectWriter writer(*insert.select);
        writer.insertionOrder = insert.select->sources.size() == 1;
        for (const int target : insert.targets)
            writer.targets.push_back(insert.def->columns[target]);
        return head + writer.text();
    }
    QStringList values;
    for (size_t i = 0; i < insert.values.size(); ++i)
        values.append(expressions().assigned(*insert.values[i], insert.def->columns[insert.targets[i]]).text);
    return head + "VALUES (" + values.join(QLatin1String(", ")) + u')';
}

QString written(const Update &update)
{
    QStringList assignments;
    for (const Update::Assignment &assignment : update.assignments) {
        const ColumnDef &column = update.source->def->columns[assignment.target];
        assignments.append(quotedName(column.name) + " = " + expressions().assigned(*assignment.value, column).text);
    }
    return "UPDATE " + quotedName(update.source->def->Name) + " AS " + update.source->handle + " SET " +
           assignments.join(QLatin1String(", ")) + whereClause(update.where);
}

QString written(const Delete &statement)
{
    if (!statement.where)
        return "DELETE FROM " + quotedName(statement.source->def->Name);
    return "DELETE FROM " + quotedName(statement.source->def->Name) + " AS " + statement.source->handle +
           whereClause(statement.where);
}

} // namespace jetsql
