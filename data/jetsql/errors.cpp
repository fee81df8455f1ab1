#include "data/jetsql/errors.h"

namespace jetsql {
namespace {

/// Wordings of statements that no form or routine of the program builds; an empty text for all other numbers.
QString rareWording(int number)
{
    switch (number) {
    case 3063:
        return "Duplicate output destination '%1'.";
    case 3067:
        return "Query input must contain at least one table or query.";
    case 3085:
        return "Undefined function '%1' in expression.";
    case 3091:
        return "HAVING clause (%1) without grouping or aggregation.";
    case 3093:
        return "ORDER BY clause (%1) conflicts with DISTINCT.";
    case 3095:
        return "Cannot have aggregate function in expression (%1).";
    case 3096:
        return "Cannot have aggregate function in WHERE clause (%1).";
    case 3098:
        return "Cannot have aggregate function in GROUP BY clause (%1).";
    case 3099:
        return "Cannot have aggregate function in JOIN operation (%1).";
    case 3132:
        return "Syntax error in GROUP BY clause.";
    case 3135:
        return "Syntax error in JOIN operation.";
    case 3145:
        return "Syntax error in WHERE clause.";
    case 3190:
        return "Too many fields defined.";
    case 3290:
        return "Syntax error in CREATE TABLE statement.";
    case 3295:
        return "Syntax error in DROP TABLE or DROP INDEX.";
    case 3306:
        return "You have written a subquery that can return more than one field without using the EXISTS reserved "
               "word in the main query's FROM clause. Revise the SELECT statement of the subquery to request only "
               "one field.";
    case 3346:
        return "Number of query values and destination fields are not the same.";
    case 3360:
        return "Query is too complex.";
    default:
        return {};
    }
}

} // namespace

void fail(int number, const QStringList &names)
{
    QString wording = rareWording(number);
    if (wording.isEmpty())
        throw runtimeError(number, names);
    if (!names.isEmpty())
        wording.replace(QLatin1String("%1"), names.first());
    throw RuntimeError(number, wording);
}

// The expression as typed, so that users see their own statement and not ours.
void failExpression(const QString &message, QStringView expression)
{
    throw RuntimeError(3075, message + " in query expression '" + expression.toString() + "'.");
}

} // namespace jetsql
