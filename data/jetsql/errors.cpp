#include "data/jetsql/errors.h"

#include "data/values/runtimeerror.h"

namespace jetsql {

void fail(int number, const QStringList &names)
{
    throw runtimeError(number, names);
}

/// The expression as typed, so that users see their own statement and not ours.
void failExpression(const QString &message, QStringView expression)
{
    throw runtimeError(3075, {message, expression.toString()});
}

} // namespace jetsql
