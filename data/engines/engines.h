#pragma once

#include "data/engine/bulkrows.h"
#include "data/engine/connection.h"

/// Finds the engine that a database's name belongs to.
namespace engines {

std::unique_ptr<engine::Connection> open(const engine::Options &options);
std::unique_ptr<engine::BulkRows> bulkRows(const QString &name, const QString &password, engine::BulkRows::State state);
void create(const QString &name, const QString &password, const QByteArray &salt);
void copy(const QString &from, const QString &to, const QString &password);

} // namespace engines
