#pragma once

#include "data/dao/recordset.h"
#include <QString>
#include <memory>

class Report;
class Viewer;

/// The way of every report from its statements to the page. Made first thing in a routine; then come the routine's
/// statements, `read` with the final rows, the texts and switches of the layout, and `deliver`. The steps stand in one
/// order for all reports, which staff know from where the hourglass and the window appear.
class HandOver
{
public:
    /// Whether the routine shows the hourglass while it works, or leaves the pointer to its dialog or to nobody.
    enum class Pointer { Owned, NotOwned };
    /// A window of the run's own; the one window that the old reports share; the printer, without a prompt.
    enum class Output { OwnWindow, SharedWindow, Printer };

    explicit HandOver(Pointer pointer, Output output = Output::OwnWindow);
    ~HandOver();

    /// Binds the rows to a new report of that layout and keeps them open. What is set in the report before `readRows`
    /// takes part in the reading.
    Report &bind(const char *designer, Recordset data);
    /// Takes every row into the report, so that the scratch tables may be refilled afterwards.
    void readRows();
    /// Both at once, for the routines that set nothing in between.
    Report &read(const char *designer, Recordset data);

    /// Shows or prints (error 482) the report, closes the rows and puts the pointer back. A window lives on with its
    /// report until the user closes it; its title says which report it is, and of what ("Statements, as of 3/30/2011").
    void deliver(const QString &title);

private:
    void showIn(Viewer &viewer, const QString &title);

    Pointer m_pointer;
    Output m_output;
    std::unique_ptr<Viewer> m_viewer;
    std::shared_ptr<Report> m_report;
    std::unique_ptr<Recordset> m_data;
};
