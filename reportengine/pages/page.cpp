#include "reportengine/pages/page.h"

#include "reportengine/pages/textmetrics.h"
#include "reportengine/pages/valuetext.h"

QStringList Page::texts() const
{
    QStringList result;
    for (const PageItem &item : items) {
        if (item.kind == PageItem::Kind::Text)
            result.append(item.text);
    }
    return result;
}

double textLeft(const PageItem &item)
{
    if (item.align == Align::Left)
        return item.rect.left();
    const double spare = item.rect.width() - TextMetrics::width(item.text, item.style);
    if (item.align == Align::Center)
        return item.rect.left() + spare / 2;
    const bool isNegative = isFigure(item.value) && item.text.endsWith(')');
    return item.rect.left() + spare + (isNegative ? TextMetrics::width(")", item.style) : 0);
}
