#pragma once

#include "data/jetsql/lexer.h"
#include "data/schema/tabledef.h"
#include "data/values/value.h"

namespace jetsql {

/// Where a constant of a statement stands in the engine's text such that any other constant of its kind that fits could
/// stand there instead, everything else about the translation being the same.
struct BindParameter
{
    enum class Form {
        Stored,  ///< in stored form, whatever it is
        Fitting, ///< the same for a text of at most `size` characters
        DateText ///< a text as the date that it reads as
    };

    int constant = -1;  ///< which of the statement's constants
    bool minus = false; ///< a number behind a minus sign
    Form form = Form::Stored;
    int size = 0;
    ColumnType type = ColumnType::Text; ///< of what is bound

    bool fits(const Token &constant) const;
    /// What is bound for a constant that fits.
    Value valueOf(const Token &constant) const;
};

} // namespace jetsql
