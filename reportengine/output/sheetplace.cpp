#include "reportengine/output/sheetplace.h"

#include "reportengine/pages/layout.h"
#include "reportengine/pages/textmetrics.h"
#include <QPainter>

QPageLayout ownPaper(const Layout &layout)
{
    return {QPageSize(QPageSize::Letter), layout.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
            QMarginsF()};
}

SheetPlace::SheetPlace(const Layout &layout, const QPageLayout &paper)
{
    const QSizeF page = layout.pageSize();
    const QSizeF sheet = paper.fullRect(QPageLayout::Point).size();
    m_scale = std::min({sheet.width() / page.width(), sheet.height() / page.height(), 1.0});
    const QSizeF spare = sheet - page * m_scale;
    m_corner = {spare.width() / 2, spare.height() / 2};
}

void SheetPlace::apply(QPainter &painter) const
{
    painter.translate(m_corner * TextMetrics::UnitsPerPoint);
    painter.scale(m_scale, m_scale);
}
