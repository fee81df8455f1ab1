#pragma once

#include "data/engines/postgres/session.h"

/// The tables as they stand on the server: their declarations give the catalogue back.
namespace postgres::Tables {

/// The column that the engine adds where no AutoNumber numbers the rows.
inline constexpr QLatin1String RowColumn("_row");
/// The channel on which sessions tell each other that a shared table was made or dropped.
inline constexpr char Channel[] = "tamrick_tables";

/// Scratch tables are a session's own, so that two workstations running a report never meet in one.
bool isPrivate(const QString &table);

/// What hands out the numbers of an AutoNumber column.
QString sequenceOf(const QString &table, const QString &column);
/// The statements that make a table, in order.
QByteArrayList createStatements(const TableDef &table, engine::Key key);
QByteArray createStatement(const Schema::Index &index, const TableDef &table);
/// The columns' names as a statement lists them, and the statement that adds a row of them.
QByteArray listOf(const QStringList &columns);
QByteArray insertStatement(const QString &table, const QStringList &columns);
/// What the planner has to know about texts that have no index: how many different ones there are.
QByteArrayList statisticsFor(const TableDef &table);

/// How all tables that the session sees but the system's own are declared, a row for each column.
Result readDeclarations(PGconn *connection, const Uri &uri);
bool areSame(const PGresult *some, const PGresult *others);
/// The tables, in the order in which they were made.
Catalog catalogFrom(const PGresult *declarations);

} // namespace postgres::Tables
