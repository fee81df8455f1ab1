#include "data/engines/postgres/functions.h"

#include "postgres_functions_sql.h"
#include <QChar>

namespace {

/// All characters that are marks upon letters, as a regular expression's list; the same as the order of texts outside
/// of the server leaves out.
QByteArray marks()
{
    const auto written = [](char32_t c) { return "\\U" + QByteArray::number(c, 16).rightJustified(8, '0'); };
    QByteArray ranges;
    for (char32_t first = 0x80; first <= QChar::LastValidCodePoint; ++first) {
        if (!QChar::isMark(first))
            continue;
        char32_t last = first;
        while (last < QChar::LastValidCodePoint && QChar::isMark(last + 1))
            ++last;
        ranges += written(first) + '-' + written(last);
        first = last;
    }
    return ranges;
}

} // namespace

QByteArray postgres::functions()
{
    return QByteArray(FunctionsSql).replace("@MARKS@", marks());
}
