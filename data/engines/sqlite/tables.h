#pragma once

#include "data/engine/connection.h"

class Connection;

/// The tables as they stand in the file: their declarations tell every tool the columns' types, and read back
/// they give the catalogue.
namespace Tables {

/// A name between double quotes.
QByteArray quoted(const QString &name);

QByteArray createStatement(const TableDef &table, engine::Key key);
QByteArray createStatement(const Schema::Index &index);
/// Adds a row, with a parameter for each of the columns.
QByteArray insertStatement(const QString &table, const QStringList &columns);

/// All tables but the system's own, in the order in which they were made.
Catalog readCatalog(Connection &connection);

/// True for a table that belongs to the system and is shown to nobody.
bool isSystemTable(const QString &name);

} // namespace Tables
