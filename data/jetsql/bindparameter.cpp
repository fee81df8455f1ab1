#include "data/jetsql/bindparameter.h"

#include "data/values/datetext.h"

namespace jetsql {

bool BindParameter::fits(const Token &constant) const
{
    switch (form) {
    case Form::Fitting:
        return constant.text.size() <= size;
    case Form::DateText:
        return dateFromText(constant.text).has_value();
    case Form::Stored:
        break;
    }
    return true;
}

Value BindParameter::valueOf(const Token &constant) const
{
    if (form == Form::DateText)
        return *dateFromText(constant.text);
    if (constant.kind == TokenKind::Text)
        return constant.text;
    if (constant.kind == TokenKind::Date)
        return Date(constant.number);
    const double number = minus ? -constant.number : constant.number;
    return constant.whole ? Value(int(number)) : Value(number);
}

} // namespace jetsql
