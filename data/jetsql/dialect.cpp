#include "data/jetsql/dialect.h"

QString jetsql::quotedName(QStringView name)
{
    QString text = name.toString();
    text.replace(u'"', QLatin1String("\"\""));
    return u'"' + text + u'"';
}

QString jetsql::quotedText(QStringView text)
{
    QString doubled = text.toString();
    doubled.replace(u'\'', QLatin1String("''"));
    return u'\'' + doubled + u'\'';
}
