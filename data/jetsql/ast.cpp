#include "data/jetsql/ast.h"

#include "data/jetsql/errors.h"

namespace jetsql {

void Expr::visit() const
{
    // What nests TOPs in ORDER BY is written three times a level; the program's own statements come to 20.
    constexpr int maxVisits = 100;
    if (++visits > maxVisits)
        fail(3360);
}

} // namespace jetsql
