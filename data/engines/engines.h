#pragma once

#include "data/engine/bulkrows.h"
#include "data/engine/connection.h"
#include "data/engine/made.h"

/// Finds the engine that a database's name belongs to: a URI to a server's, everything else to files.
namespace engines {

/// Whether a session has scratch tables of its own there.
bool hasPrivateTables(const QString &name);
/// True for the name of a file.
bool isFile(const QString &name);
/// The name of the database that a URI leads to; empty where the URI is none.
QString databaseName(const QString &uri);
/// Takes away what was just made for a database that is not wanted.
void discard(const QString &name, engine::Made made);

std::unique_ptr<engine::Connection> open(const engine::Options &options);
std::unique_ptr<engine::BulkRows> bulkRows(const QString &name, const QString &password, engine::BulkRows::State state);
engine::Made create(const QString &name, const QString &password, const QByteArray &salt);
void copy(const QString &from, const QString &to, const QString &password);
void requireSound(const QString &file, const QString &password);

} // namespace engines
