#include "data/values/csvfield.h"

#include <algorithm>

QString csvField(const QString &text, bool quoted)
{
    const auto needsQuotes = [](QChar c) { return c == u'"' || c == u',' || c == u'\n' || c == u'\r'; };
    if (!quoted && std::none_of(text.begin(), text.end(), needsQuotes))
        return text;
    return u'"' + QString(text).replace(u'"', "\"\"") + u'"';
}
