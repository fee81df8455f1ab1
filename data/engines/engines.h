#pragma once

#include "data/engine/bulkrows.h"
#include "data/engine/connection.h"

/// Finds the engine that a database's name belongs to: a URI to a server's, everything else to files.
namespace engines {

/// Whether a session has scratch tables of its own there.
bool hasPrivateTables(const QString &name);
/// True for the name of a file.
bool isFile(const QString &name);
/// Takes away a database that was just made and is not wanted.
void discard(const QString &name);

std::unique_ptr<engine::Connection> open(const engine::Options &options);
std::unique_ptr<engine::BulkRows> bulkRows(const QString &name, const QString &password, engine::BulkRows::State state);
void create(const QString &name, const QString &password, const QByteArray &salt);
void copy(const QString &from, const QString &to, const QString &password);

} // namespace engines
