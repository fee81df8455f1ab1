#include "data/jetsql/ast.h"

#include "data/jetsql/errors.h"
#include "data/jetsql/limits.h"

namespace jetsql {

void Expr::visit() const
{
    if (++visits > Limits::Visits)
        fail(3360);
}

} // namespace jetsql
