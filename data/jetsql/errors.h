#pragma once

#include "data/values/runtimeerror.h"

namespace jetsql {

/// Raises the engine's error of that number; `names` go into its wording.
[[noreturn]] void fail(int number, const QStringList &names = {});
/// Raises 3075: what is wrong with the expression, and the expression as typed.
[[noreturn]] void failExpression(const QString &message, QStringView expression);

} // namespace jetsql
