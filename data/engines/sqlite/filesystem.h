#pragma once

#include <QString>

/// True when the file lies on a file system that other machines share, where memory cannot be shared between
/// the processes that use the file, as a write-ahead log needs it. False where the system does not tell.
bool liesOnNetwork(const QString &file);
