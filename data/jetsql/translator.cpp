#include "data/jetsql/translator.h"

#include "data/jetsql/errors.h"
#include "data/jetsql/parser.h"
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

Translation translation(const Select &select, const Catalog &catalog)
{
    Translation result;
    if (!select.into.isEmpty()) {
        requireNew(select.into, catalog);
        result.kind = StatementKind::SelectInto;
        result.newTable = tableMadeBy(select);
        result.targetTable = select.into;
        result.sql = writtenSelectInto(select, result.newTable).toUtf8();
        return result;
    }
    const bool updatable =
        select.sources.size() == 1 && !select.sources.front()->derived && !select.grouped() && !select.distinct;
    if (updatable)
        result.updatableTable = select.sources.front()->def->Name;
    result.columns = resultColumns(select);
    result.sql = writtenSelect(select, updatable).toUtf8();
    return result;
}

Translation translation(const Insert &insert, const Catalog &)
{
    return {StatementKind::Insert, written(insert).toUtf8(), {}, {}, insert.def->Name, {}};
}

Translation translation(const Update &update, const Catalog &)
{
    return {StatementKind::Update, written(update).toUtf8(), {}, {}, update.source->def->Name, {}};
}

Translation translation(const Delete &statement, const Catalog &)
{
    return {StatementKind::Delete, written(statement).toUtf8(), {}, {}, statement.source->def->Name, {}};
}

Translation translation(const CreateTable &create, const Catalog &catalog)
{
    requireNew(create.table.Name, catalog);
    return {StatementKind::CreateTable, {}, {}, {}, create.table.Name, create.table};
}

Translation translation(const DropTable &drop, const Catalog &catalog)
{
    const TableDef *table = catalog.find(drop.table);
    if (!table)
        fail(3376, {drop.table});
    const QString quoted = QString(table->Name).replace(u'"', QLatin1String("\"\""));
    return {StatementKind::DropTable, QString("DROP TABLE \"" + quoted + u'"').toUtf8(), {}, {}, table->Name, {}};
}

} // namespace

Translation translate(const QString &sql, const Catalog &catalog)
{
    Parser parser(sql);
    Statement statement = parser.parse();
    resolveNames(statement, catalog);
    typeExpressions(statement);
    return std::visit([&catalog](const auto &kind) { return translation(kind, catalog); }, statement);
}

} // namespace jetsql
