#pragma once

#include "data/engine/made.h"
#include <QString>

/// Makes a database with all permanent tables, the scratch tables that reports only empty, and their indexes, all
/// of them without rows. Error 3204 when the file exists, 3044 for a folder that does not; a failure leaves no
/// file behind. In a folder whose files belong to its group, the group may write to it. A `salt` for the password makes
/// the file the same each time; without one it is drawn at random.
///
/// The path may be the URI of a database on a server, with the same errors and promises; see docs/server.md. There an
/// empty database is taken as well; the result tells whether it was.
engine::Made createDatabase(const QString &path, const QString &password, const QByteArray &salt = {});
/// Takes away what was just made and is not wanted after all.
void discardDatabase(const QString &path, engine::Made made);
