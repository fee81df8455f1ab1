#include "reportengine/viewer/viewer.h"

#include "reportengine/viewer/crviewer.h"

Viewer::Viewer() : Form("Viewer", CRViewer::Caption), m_viewer(add<CRViewer>("CRViewer"))
{
    setFocusProxy(m_viewer);
    resize(860, 640);
}

void Viewer::setReportSource(std::shared_ptr<Report> report)
{
    m_viewer->setReportSource(std::move(report));
}

void Viewer::viewReport()
{
    m_viewer->viewReport();
}

void Viewer::formResize()
{
    // One property after the other, in the order in which the window has always set them.
    m_viewer->move(m_viewer->x(), 0);
    m_viewer->move(0, m_viewer->y());
    m_viewer->resize(m_viewer->width(), height());
    m_viewer->resize(width(), m_viewer->height());
}
