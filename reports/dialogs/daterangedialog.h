#pragma once

#include "reports/dialogs/reportdialog.h"

/// Asks for the period of a report; both dates are today's when it opens, and are never compared with one another.
class DateRangeDialog : public ReportDialog
{
    Q_OBJECT
public:
    /// Whether the dialog shows the hourglass around its report, or leaves that to the routine.
    enum class Pointer { Owned, NotOwned };
    using Routine = std::function<void(const QString &BeginDate, const QString &EndDate)>;

    /// `okName` is the name of the button, which has been spelled in two ways.
    DateRangeDialog(const QString &name, const QString &caption, const char *okName, Pointer pointer, Routine routine);

protected:
    void formLoad() override;
    /// Places the controls from top to bottom, when the dialog is loaded.
    virtual void placeControls();

    DTPicker *dtStart;
    DTPicker *dtEnd;
    /// What the button calls; a dialog with more controls sets one that reads them.
    Routine m_routine;

private:
    void btnOK_Click();

    Pointer m_pointer;
};
