#pragma once

#include "data/jetsql/bindparameter.h"
#include "data/schema/tabledef.h"
#include <QByteArray>
#include <QString>
#include <vector>

namespace jetsql {

enum class StatementKind { Select, Insert, Update, Delete, SelectInto, CreateTable, DropTable };

/// One column of a result, in order.
struct ResultColumn
{
    QString name;         ///< "Total", "Orders.ID" where the bare name occurs twice, "Expr1000" without a name
    QString sourceTable;  ///< the table as spelled in the FROM clause, empty for an expression
    QString sourceColumn; ///< the column as stored, empty for an expression
    ColumnType type = ColumnType::Text;
    int size = 0;
    bool autoNumber = false;
};

/// A statement made ready for an engine.
struct Translation
{
    StatementKind kind = StatementKind::Select;
    QByteArray sql; ///< one statement of the engine, UTF-8. For SelectInto the INSERT that fills `newTable`.
    QByteArray sqlWithParameters;          ///< the same with parameters for the constants that `parameters` are for
    std::vector<BindParameter> parameters; ///< in the order of the parameters
    std::vector<ResultColumn> columns;     ///< of a Select
    QStringList tablesRead;                ///< the stored tables that a Select reads, wherever in it
    /// The stored table a single-table Select can Edit and AddNew in; empty when the result is read-only.
    /// Such a Select has the row's number as one extra last column, beyond `columns`.
    QString updatableTable;
    QString targetTable; ///< of an action statement, as stored (or as written, for a table to be made)
    TableDef newTable;   ///< of SelectInto and CreateTable
    bool copies = false; ///< an Insert or SelectInto of the rows that a SELECT gives
};

} // namespace jetsql
