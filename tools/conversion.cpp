#include "tools/conversion.h"

#include "data/dao/assignment.h"
#include "data/values/numbers.h"
#include "data/values/runtimeerror.h"
#include "tools/oneline.h"
#include "tools/toolerror.h"

namespace {

/// What a refused value is not.
QString kindOf(const ColumnDef &column)
{
    switch (column.type) {
    case ColumnType::Long:
        return "no whole number of 32 bits";
    case ColumnType::Date:
        return "no date";
    case ColumnType::YesNo:
        return "neither True nor False";
    default:
        return "no number";
    }
}

} // namespace

Value takenInto(const ColumnDef &column, const Value &value)
{
    if (value.type() == Value::Type::Text && value.toText().contains(QChar(0)))
        throw ToolError{"a zero character in the text"};
    try {
        // By the program's own conversion, so that a file takes nothing that the program could not have written itself.
        const Value taken = assignedTo(column, value);
        // The program would round.
        if (column.type == ColumnType::Long && !value.isNull() && taken.toDouble() != CDbl(value.toText()))
            throw runtimeError(3421);
        // The file has no place for what is no number at all, and would take it as Null.
        if (column.type == ColumnType::Double && !value.isNull() && !std::isfinite(taken.toDouble()))
            throw runtimeError(3421);
        return taken;
    } catch (const RuntimeError &error) {
        if (error.number() == 3163)
            throw ToolError{QString("longer than %1 characters").arg(column.size)};
        throw ToolError{QString("'%1' is %2").arg(oneLine(value.joined()), kindOf(column))};
    }
}
