#pragma once

#include <QPageLayout>

class QPainter;
struct Layout;

/// The paper a report is laid out for, to be printed on from edge to edge.
QPageLayout ownPaper(const Layout &layout);

/// Where the pages of a report, which bring margins of their own, stand on paper of some size and margins: in the
/// middle, and set smaller where there is less room.
class PaperPlace
{
public:
    PaperPlace(const Layout &layout, const QPageLayout &paper);

    /// Moves the painter, whose unit is a twentieth of a point, from the sheet's corner to the page's.
    void apply(QPainter &painter) const;

private:
    QPointF m_corner;
    double m_scale;
};
