#include "data/jetsql/translator.h"

#include "data/jetsql/dialect.h"
#include "data/jetsql/errors.h"
#include "data/jetsql/parametermarks.h"
#include "data/jetsql/parser.h"
#include "data/jetsql/plan.h"
#include "data/jetsql/resolver.h"
#include "data/jetsql/typing.h"
#include "data/jetsql/writer.h"

namespace jetsql {
namespace {

/// An AutoNumber copied row by row stays one; anything grouped or computed is a plain number.
TableDef tableMadeBy(const Select &select)
{
    TableDef table;
    table.Name = select.into;
    const auto columns = resultColumns(select);
    const QStringList names = resultNames(select, u'_');
    for (size_t i = 0; i < columns.size(); ++i) {
        const bool autoNumber = columns[i].autoNumber && select.sources.size() == 1 && !select.grouped();
        table.columns.push_back({names[int(i)], columns[i].type, columns[i].size, autoNumber});
    }
    return table;
}

void requireNew(const QString &table, const Catalog &catalog)
{
    if (catalog.find(table))
        fail(3010, {table});
}

/// What the statement is and gives, but for its text.
Translation description(const Select &select, const Catalog &catalog)
{
    Translation result;
    if (!select.into.isEmpty()) {
        requireNew(select.into, catalog);
        result.kind = StatementKind::SelectInto;
        result.copies = true;
        result.newTable = tableMadeBy(select);
        result.targetTable = select.into;
        return result;
    }
    // One table's own rows, each met once: only then does a row of the result stand for one that can be written.
    const bool updatable =
        select.sources.size() == 1 && !select.sources.front()->derived && !select.grouped() && !select.distinct;
    if (updatable)
        result.updatableTable = select.sources.front()->def->Name;
    result.columns = resultColumns(select);
    return result;
}

Translation action(StatementKind kind, const QString &table)
{
    Translation result;
    result.kind = kind;
    result.targetTable = table;
    return result;
}

Translation description(const Insert &insert, const Catalog &)
{
    Translation result = action(StatementKind::Insert, insert.def->Name);
    result.copies = bool(insert.select);
    return result;
}

Translation description(const Update &update, const Catalog &)
{
    return action(StatementKind::Update, update.source->def->Name);
}

Translation description(const Delete &statement, const Catalog &)
{
    return action(StatementKind::Delete, statement.source->def->Name);
}

Translation description(const CreateTable &create, const Catalog &catalog)
{
    requireNew(create.table.Name, catalog);
    Translation result = action(StatementKind::CreateTable, create.table.Name);
    result.newTable = create.table;
    result.newTable.keyed = true;
    return result;
}

Translation description(const DropTable &drop, const Catalog &catalog)
{
    const TableDef *table = catalog.find(drop.table);
    if (!table)
        fail(3376, {drop.table});
    return action(StatementKind::DropTable, table->Name);
}

QString text(const Dialect &dialect, const Select &select, const Translation &description)
{
    if (description.kind == StatementKind::SelectInto)
        return writtenSelectInto(dialect, select, description.newTable);
    return writtenSelect(dialect, select, !description.updatableTable.isEmpty());
}

QString text(const Dialect &, const CreateTable &, const Translation &)
{
    return {};
}

QString text(const Dialect &, const DropTable &, const Translation &description)
{
    return "DROP TABLE " + quotedName(description.targetTable);
}

template <typename Changing> QString text(const Dialect &dialect, const Changing &statement, const Translation &)
{
    return written(dialect, statement);
}

} // namespace

Translation translate(const QString &sql, const Catalog &catalog, const Dialect &dialect, Plan plan)
{
    Parser parser(sql);
    ParsedStatement statement = parser.parse();
    const QStringList tablesRead = resolveNames(statement, catalog);
    typeExpressions(statement);
    Translation result = std::visit([&catalog](const auto &kind) { return description(kind, catalog); }, statement);
    result.tablesRead = tablesRead;
    // Behind the typing, as it looks at types, and before the writing: the rows stay, their way is another.
    if (plan == Plan::Improved)
        improvePlan(statement);
    const auto written = [&] {
        return std::visit([&](const auto &kind) { return text(dialect, kind, result); }, statement);
    };
    result.sql = result.sqlWithParameters = written().toUtf8();
    if (!canHaveParameters(sql))
        return result;
    // Written a second time with marks in the place of constants; where the engine's text holds them in another order,
    // or twice, the marks tell.
    const std::vector<BindParameter> parameters = markParameters(statement);
    if (!parameters.empty())
        setParameters(result, written(), parameters, dialect);
    return result;
}

} // namespace jetsql
