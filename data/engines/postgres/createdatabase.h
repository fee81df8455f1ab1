#pragma once

#include "data/engine/made.h"
#include <QString>

namespace postgres {

/// Makes a database on a server with all permanent tables, their indexes, and what statements call; whoever may log in
/// may use it. One that is there already is taken if it is empty. Error 3204 where it is not; a failure leaves nothing
/// behind.
engine::Made createDatabase(const QString &uri, const QString &password, const QByteArray &salt);

/// Takes away what createDatabase has made, and nothing else. What fails is left to the administrator: it is called
/// where another error is on its way.
void discardDatabase(const QString &uri, engine::Made made);

} // namespace postgres
