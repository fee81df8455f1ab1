#include "reports/handover.h"

#include "reportengine/output/printing.h"
#include "reportengine/viewer/viewer.h"
#include "reports/layouts/catalogue.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/forms/forms.h"

/// The window is made before any data work, and shown when the report stands: a run that fails leaves none behind.
HandOver::HandOver(Pointer pointer, Output output) : m_pointer(pointer), m_output(output)
{
    if (m_output == Output::OwnWindow)
        m_viewer = std::make_unique<Viewer>();
    if (m_pointer == Pointer::Owned)
        setHourglass();
}

HandOver::~HandOver() = default;

Report &HandOver::bind(const char *designer, Recordset data)
{
    m_data = std::make_unique<Recordset>(std::move(data));
    m_report = std::shared_ptr<Report>(new Report(newReport(QString::fromLatin1(designer))));
    m_report->SetDataSource(*m_data);
    return *m_report;
}

void HandOver::readRows()
{
    // All rows are taken now, so that the recordset can be closed and its scratch tables filled again by the next run
    // while this window goes on showing its own.
    m_report->DiscardSavedData();
    m_report->ReadRecords();
}

Report &HandOver::read(const char *designer, Recordset data)
{
    bind(designer, std::move(data));
    readRows();
    return *m_report;
}

void HandOver::deliver(const QString &title)
{
    switch (m_output) {
    case Output::OwnWindow: {
        Viewer *viewer = m_viewer.release(); // the main window owns it from here
        Forms::loadInstance(viewer);
        showIn(*viewer, title);
        break;
    }
    // A second run shows its report in the window of the first.
    case Output::SharedWindow:
        showIn(*static_cast<Viewer *>(Load("Viewer")), title);
        break;
    case Output::Printer:
        PrintOut(*m_report);
        break;
    }
    // Behind the window, where the rows have always been closed.
    m_data->Close();
    // Not done when a step failed: the error box ends the program under the hourglass.
    if (m_pointer == Pointer::Owned)
        setDefaultPointer();
}

void HandOver::showIn(Viewer &viewer, const QString &title)
{
    // The title first: the viewer takes the name of what it exports from it.
    viewer.setWindowTitle(title);
    viewer.setReportSource(m_report);
    viewer.viewReport();
}
