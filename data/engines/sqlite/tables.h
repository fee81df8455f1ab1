#pragma once

#include "data/schema/schema.h"

class Connection;

/// The tables as they stand in the file: their declarations tell every tool the columns' types, and read back
/// they give the catalogue.
namespace Tables {

/// A name between double quotes.
QByteArray quoted(const QString &name);

/// How a table made by CREATE TABLE and one made from a result differ: the numbers copied into the latter may
/// repeat, so that an AutoNumber is no key there.
enum class Key { AutoNumberIsKey, None };

QByteArray createStatement(const TableDef &table, Key key);
QByteArray createStatement(const Schema::Index &index);

/// All tables but the system's own, in the order in which they were made.
Catalog readCatalog(Connection &connection);

/// True for a table that belongs to the system and is shown to nobody.
bool isSystemTable(const QString &name);

} // namespace Tables
