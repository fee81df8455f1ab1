#pragma once

#include "toolkit/forms/form.h"
#include "toolkit/forms/forms.h"
#include <memory>

class CRViewer;
class Report;

/// The preview window of one report run: any number stand side by side, each with its own report until it is closed.
/// Made invisible; `Forms::loadInstance` shows it.
class Viewer : public Form
{
    Q_OBJECT
public:
    Viewer();

    /// Hands the report over; the viewer holds it from then on.
    void setReportSource(std::shared_ptr<Report> report);
    /// Starts the preview.
    void viewReport();

    CRViewer *viewer() const { return m_viewer; }

protected:
    void formResize() override;

private:
    CRViewer *m_viewer;
};
