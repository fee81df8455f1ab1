#pragma once

#include <QString>

/// Marks a database as one that several machines use, so that every program keeps it with the rollback journal from
/// now on. Nobody may have it open as a log. Errors as at opening a database, or a ToolError.
void shareDatabase(const QString &path);
