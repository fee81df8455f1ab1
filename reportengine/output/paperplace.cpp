#include "reportengine/output/paperplace.h"

#include "reportengine/pages/layout.h"
#include "reportengine/pages/textmetrics.h"
#include <QPainter>

QPageLayout ownPaper(const Layout &layout)
{
    QPageLayout paper(QPageSize(QPageSize::Letter), layout.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                      QMarginsF());
    paper.setMode(QPageLayout::FullPageMode);
    return paper;
}

PaperPlace::PaperPlace(const Layout &layout, const QPageLayout &paper)
{
    const QSizeF page = layout.pageSize();
    const QRectF room = paper.fullRect(QPageLayout::Point).marginsRemoved(paper.margins(QPageLayout::Point));
    // A smaller sheet gets the page shrunk, a larger one gets it in the middle.
    m_scale = std::min({room.width() / page.width(), room.height() / page.height(), 1.0});
    const QSizeF spare = room.size() - page * m_scale;
    m_corner = room.topLeft() + QPointF(spare.width() / 2, spare.height() / 2);
}

void PaperPlace::apply(QPainter &painter) const
{
    painter.translate(m_corner * TextMetrics::UnitsPerPoint);
    painter.scale(m_scale, m_scale);
}
