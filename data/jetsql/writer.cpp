#include "data/jetsql/writer.h"

#include "data/jetsql/expressionwriter.h"
#include "data/jetsql/resolver.h"
#include "data/jetsql/typing.h"
#include "data/schema/schema.h"

namespace jetsql {
namespace {

QString subselectText(const Dialect &dialect, const Select &select, Inner use);

/// A sort key as written, and whether it descends.
struct SortKey
{
    QString text;
    bool descending = false;
};

/// Writes one SELECT, at whatever place.
class SelectWriter
{
public:
    SelectWriter(const Dialect &dialect, const Select &select)
        : m_dialect(dialect), m_select(select), m_rows(dialect, &subselectText), m_result(dialect, &subselectText)
    {
        if (select.grouped() && dialect.comparesByKeys())
            m_result.showGroupsOf(select.groupBy);
    }

    bool withRow = false;
    bool asNumber = false;          ///< its columns converted to numbers
    bool asKey = false;             ///< its texts in the form in which they are compared
    bool firstRow = false;          ///< of its rows only the first
    bool ordered = true;            ///< false where nobody sees the order
    bool insertionOrder = true;     ///< rows equal in the order asked for come as they were inserted
    QStringList names;              ///< of the columns; empty: unnamed
    std::vector<ColumnDef> targets; ///< the columns the values are converted to; empty: stored form

    QString text() const
    {
        const std::vector<SortKey> keys = ordered || m_select.top >= 0 ? sortKeys() : std::vector<SortKey>();
        if (m_select.top >= 0 && !m_select.orderBy.empty())
            return topWithTies(keys);
        return "SELECT " + distinct() + items() + tail() + orderClause(keys) + limit();
    }

private:
    /// Rows are distinct by the keys of their texts; where those are not the texts themselves, the first row of each
    /// shows its own.
    QString distinct() const
    {
        if (!m_select.distinct && !isSetOfTexts())
            return {};
        if (!m_dialect.comparesByKeys())
            return "DISTINCT ";
        return "DISTINCT ON (" + distinctKeys().join(", ") + ") ";
    }

    /// SQLite, up to 3.40 at least, calls its file damaged where the set of an IN is given equal texts of different
    /// lengths. It is not where they come to it distinct already.
    bool isSetOfTexts() const
    {
        return asKey && !m_dialect.comparesByKeys() && m_select.top < 0 && m_select.items.front().expr->type.isText();
    }

    QStringList distinctKeys() const
    {
        QStringList keys;
        for (size_t i = 0; i < m_select.items.size(); ++i) {
            const Expr &expr = *m_select.items[i].expr;
            if (!expr.as<Constant>())
                keys.append(m_dialect.comparesByKeys() ? m_result.collated(expr) : item(i));
        }
        if (keys.isEmpty() && m_dialect.comparesByKeys()) // constants alone are one row
            keys.append(m_dialect.noGroupKey());
        return keys;
    }

    QString item(size_t index) const
    {
        // SQLite takes a HAVING without GROUP BY only where the list itself has an aggregate.
        const bool needsAggregate = index == 0 && m_select.having && m_select.groupBy.empty();
        return needsAggregate ? "CASE WHEN count(*) >= 0 THEN " + value(index) + " END" : value(index);
    }

    QString value(size_t index) const
    {
        const Expr &expr = *m_select.items[index].expr;
        if (!targets.empty())
            return m_result.assigned(expr, targets[index]).text;
        if (asNumber)
            return m_result.number(expr).text;
        const bool compared = m_dialect.comparesByKeys() ? asKey : m_select.distinct || isSetOfTexts();
        return compared ? m_result.collated(expr) : m_result.plain(expr).text;
    }

    QString items() const
    {
        QStringList parts;
        for (size_t i = 0; i < m_select.items.size(); ++i) {
            parts.append(item(i));
            if (!names.isEmpty())
                parts.last() += " AS " + quotedName(names[int(i)]);
        }
        if (withRow)
            parts.append(m_dialect.row(*m_select.sources.front()));
        return parts.join(", ");
    }

    QString tail() const
    {
        QString result;
        QStringList tables;
        for (const auto &node : m_select.from)
            tables.append(joined(*node));
        if (!tables.isEmpty())
            result += " FROM " + tables.join(", ");
        if (m_select.where)
            result += " WHERE " + m_rows.condition(*m_select.where).text;
        const QStringList keys = groupKeys();
        if (!m_select.groupBy.empty())
            result += " GROUP BY " + (keys.isEmpty() ? m_dialect.noGroupKey() : keys.join(", "));
        if (m_select.having)
            result += " HAVING " + m_result.condition(*m_select.having).text;
        return result;
    }

    QString table(const Source &source) const
    {
        if (!source.derived)
            return quotedName(source.def->Name) + " AS " + source.handle;
        SelectWriter writer(m_dialect, *source.derived);
        writer.names = resultNames(*source.derived);
        // A table has no order; whoever reads it asks for one.
        writer.ordered = false;
        return u'(' + writer.text() + ") AS " + source.handle;
    }

    /// A right join is written as the left join it mirrors.
    QString joined(const FromNode &node) const
    {
        if (node.join == FromNode::Join::None)
            return table(*node.source);
        const bool mirrored = node.join == FromNode::Join::Right;
        const FromNode &left = mirrored ? *node.right : *node.left;
        const FromNode &right = mirrored ? *node.left : *node.right;
        QString inner = joined(right);
        // Without brackets engines would join from left to right.
        if (right.join != FromNode::Join::None)
            inner = u'(' + inner + u')';
        return joined(left) + (node.join == FromNode::Join::Inner ? " JOIN " : " LEFT JOIN ") + inner + " ON " +
               m_rows.condition(*node.on).text;
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
        const auto *number = key.as<Column>();
        const auto *column = expr.as<Column>();
        return number && column && number->from == column->from && isRowNumber(*number);
    }

    /// The AutoNumber of a table that the program keeps is its primary key; in a copy it need not be.
    static bool isRowNumber(const Column &column)
    {
        return column.def().autoNumber && Schema::permanentTable(column.from->def->Name);
    }

    /// The keys in the order of ORDER BY first, so that one sort serves both; the groups are the same in any order.
    std::vector<const Expr *> groupExpressions() const
    {
        std::vector<const Expr *> keys;
        const auto add = [&keys](const Expr &expr) {
            const bool known =
                std::any_of(keys.begin(), keys.end(), [&expr](const Expr *key) { return determines(*key, expr); });
            if (!known && !expr.as<Constant>())
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

    /// A key of GROUP BY, or of ORDER BY where it is one of these too or there are none.
    QString sortText(const Expr &expr) const
    {
        const bool joined = m_select.sources.size() > 1 && !isProduct();
        const QString key = m_rows.collated(expr);
        return joined && expr.as<Column>() ? m_dialect.unindexed(key) : key;
    }

    QString orderText(const Expr &expr) const
    {
        const auto same = [&expr](const ExprPtr &key) { return sameExpression(*key, expr); };
        const bool shown = m_select.distinct || (m_dialect.comparesByKeys() && m_select.grouped() &&
                                                 std::none_of(m_select.groupBy.begin(), m_select.groupBy.end(), same));
        return shown ? m_result.collated(expr) : sortText(expr);
    }

    QStringList groupKeys() const
    {
        QStringList keys;
        for (const Expr *key : groupExpressions())
            keys.append(sortText(*key));
        return keys;
    }

    void addRows(const FromNode &node, std::vector<SortKey> &keys) const
    {
        if (node.join == FromNode::Join::None) {
            if (!node.source->derived)
                keys.push_back({m_dialect.row(*node.source)});
            return;
        }
        const bool mirrored = node.join == FromNode::Join::Right;
        addRows(mirrored ? *node.right : *node.left, keys);
        const FromNode &right = mirrored ? *node.left : *node.right;
        if (right.join == FromNode::Join::None || m_dialect.numbersJoinedRows())
            addRows(right, keys);
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
        // Rows equal in all that is asked for keep the order in which they were put in.
        bool unique = false;
        for (const OrderItem &order : m_select.orderBy) {
            const Expr &expr = ordering(order);
            // Engines take a constant for the position of a column.
            if (!expr.as<Constant>())
                add(orderText(expr), order.descending);
            unique = unique || expr.type.autoNumber;
        }
        // The platform sorts to group and to find equal rows, so these come out in the order of their keys though
        // nobody asked.
        if (m_select.grouped()) {
            for (const QString &key : groupKeys())
                add(key, false);
        } else if (m_select.distinct) {
            for (const QString &key : distinctKeys())
                add(key, false);
            if (m_dialect.comparesByKeys())
                addAllRows(keys);
        } else if (insertionOrder && (!unique || m_select.sources.size() > 1)) {
            addAllRows(keys);
        }
        return keys;
    }

    void addAllRows(std::vector<SortKey> &keys) const
    {
        for (const auto &node : m_select.from)
            addRows(*node, keys);
    }

    QString orderClause(const std::vector<SortKey> &keys) const
    {
        QStringList parts;
        for (const SortKey &key : keys)
            parts.append(m_dialect.ordered(key.text, key.descending));
        return parts.isEmpty() ? QString() : " ORDER BY " + parts.join(", ");
    }

    QString limit() const
    {
        if (m_select.top < 0)
            return firstRow ? " LIMIT 1" : QString();
        if (!m_select.topPercent)
            return " LIMIT " + QString::number(m_select.top);
        const QString rows = m_select.distinct ? distinct() + items() : QString(u'1');
        // A part of a row counts as a whole one.
        return " LIMIT (SELECT (count(*) * " + QString::number(m_select.top) + " + 99) / 100 FROM (SELECT " + rows +
               tail() + ") AS counted)";
    }

    /// Rows equal to the last one in the order asked for are returned too.
    QString topWithTies(const std::vector<SortKey> &keys) const
    {
        std::vector<SortKey> asked;
        for (const OrderItem &order : m_select.orderBy) {
            if (!ordering(order).as<Constant>())
                asked.push_back({m_result.collated(ordering(order)), order.descending});
        }
        const size_t columns = m_select.items.size() + (withRow ? 1 : 0);
        QStringList outer;
        for (size_t i = 0; i < columns; ++i) {
            outer.append(u'c' + QString::number(i));
            if (!names.isEmpty() && i < m_select.items.size())
                outer.last() += " AS " + quotedName(names[int(i)]);
        }
        // What stands behind " LIMIT ".
        const QString count = m_select.topPercent ? limit().mid(7) : QString::number(m_select.top);
        return "SELECT " + outer.join(", ") + " FROM (SELECT " +
               (m_select.distinct ? placedDistinct() : numberedItems() + placed(asked, keys) + tail()) +
               ") AS ranked WHERE place <= " + count + " ORDER BY line";
    }

    /// The items by names that the SELECT around knows them by.
    QString numberedItems() const
    {
        QStringList parts;
        for (size_t i = 0; i < m_select.items.size(); ++i)
            parts.append(item(i) + " AS c" + QString::number(i));
        if (withRow)
            parts.append(m_dialect.row(*m_select.sources.front()) + " AS c" + QString::number(m_select.items.size()));
        return parts.join(", ");
    }

    QString placed(const std::vector<SortKey> &asked, const std::vector<SortKey> &keys) const
    {
        return ", rank() OVER (" + orderClause(asked).mid(1) + ") AS place, row_number() OVER (" +
               orderClause(keys).mid(1) + ") AS line";
    }

    /// Rows are numbered once they are distinct; a number among their columns would make every row another.
    QString placedDistinct() const
    {
        std::vector<SortKey> keys;
        const auto add = [&](size_t item, bool descending) {
            const QString name = u'c' + QString::number(item);
            const bool isText = m_select.items[item].expr->type.isText();
            keys.push_back({isText ? m_dialect.key(name, false) : name, descending});
        };
        for (const OrderItem &order : m_select.orderBy) {
            if (!ordering(order).as<Constant>())
                add(shownPosition(order), order.descending);
        }
        const std::vector<SortKey> asked = keys;
        for (size_t i = 0; i < m_select.items.size(); ++i)
            add(i, false);
        // Where rows are distinct by keys, the first of each shows its own texts.
        const QString order = m_dialect.comparesByKeys() ? orderClause(sortKeys()) : QString();
        return u'*' + placed(asked, keys) + " FROM (SELECT " + distinct() + numberedItems() + tail() + order +
               ") AS made";
    }

    /// Of the result column that an ORDER BY beside DISTINCT names; typing has seen to it that one is.
    size_t shownPosition(const OrderItem &order) const
    {
        if (order.position >= 0)
            return size_t(order.position);
        const auto shown = std::find_if(m_select.items.begin(), m_select.items.end(), [&order](const SelectItem &item) {
            return sameExpression(*item.expr, *order.expr);
        });
        return size_t(shown - m_select.items.begin());
    }

    const Dialect &m_dialect;
    const Select &m_select;
    ExpressionWriter m_rows;   ///< of what holds for the rows that the SELECT reads
    ExpressionWriter m_result; ///< of what holds for those that it gives
};

QString subselectText(const Dialect &dialect, const Select &select, Inner use)
{
    const bool oneRow = use == Inner::Value || use == Inner::Number;
    const bool several = !select.aggregates || !select.groupBy.empty();
    SelectWriter writer(dialect, select);
    writer.asNumber = use == Inner::Number || use == Inner::Numbers;
    writer.asKey = use == Inner::List;
    writer.firstRow = oneRow && several && !dialect.takesFirstRow();
    writer.ordered = writer.firstRow;
    return writer.text();
}

QString insertHead(const TableDef &table, const std::vector<int> &targets)
{
    QStringList names;
    for (const int target : targets)
        names.append(quotedName(table.columns[target].name));
    return "INSERT INTO " + quotedName(table.Name) + " (" + names.join(", ") + ") ";
}

QString whereClause(const ExpressionWriter &expressions, const ExprPtr &where)
{
    return where ? " WHERE " + expressions.condition(*where).text : QString();
}

} // namespace

QString writtenSelect(const Dialect &dialect, const Select &select, bool withRow)
{
    SelectWriter writer(dialect, select);
    writer.withRow = withRow;
    return writer.text();
}

QString writtenSelectInto(const Dialect &dialect, const Select &select, const TableDef &newTable)
{
    std::vector<int> all;
    for (int i = 0; i < int(newTable.columns.size()); ++i)
        all.push_back(i);
    SelectWriter writer(dialect, select);
    writer.insertionOrder = select.sources.size() == 1 || dialect.numbersJoinedRows();
    return insertHead(newTable, all) + writer.text();
}

QString written(const Dialect &dialect, const Insert &insert)
{
    const QString head = insertHead(*insert.def, insert.targets);
    if (insert.select) {
        SelectWriter writer(dialect, *insert.select);
        writer.insertionOrder = insert.select->sources.size() == 1 || dialect.numbersJoinedRows();
        for (const int target : insert.targets)
            writer.targets.push_back(insert.def->columns[target]);
        return head + writer.text();
    }
    const ExpressionWriter expressions(dialect, &subselectText);
    QStringList values;
    for (size_t i = 0; i < insert.values.size(); ++i)
        values.append(expressions.assigned(*insert.values[i], insert.def->columns[insert.targets[i]]).text);
    return head + "VALUES (" + values.join(", ") + u')';
}

QString written(const Dialect &dialect, const Update &update)
{
    const ExpressionWriter expressions(dialect, &subselectText);
    QStringList assignments;
    for (const Update::Assignment &assignment : update.assignments) {
        const ColumnDef &column = update.source->def->columns[assignment.target];
        assignments.append(quotedName(column.name) + " = " + expressions.assigned(*assignment.value, column).text);
    }
    return "UPDATE " + quotedName(update.source->def->Name) + " AS " + update.source->handle + " SET " +
           assignments.join(", ") + whereClause(expressions, update.where);
}

QString written(const Dialect &dialect, const Delete &statement)
{
    if (!statement.where)
        // No condition, and no name for one to speak of: SQLite empties the table in one go.
        return "DELETE FROM " + quotedName(statement.source->def->Name);
    return "DELETE FROM " + quotedName(statement.source->def->Name) + " AS " + statement.source->handle +
           whereClause(ExpressionWriter(dialect, &subselectText), statement.where);
}

} // namespace jetsql
