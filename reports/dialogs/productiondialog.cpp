#include "reports/dialogs/productiondialog.h"
#include "data/values/numbers.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/formlayout.h"

ProductionDialog::ProductionDialog(const QString &name, const QString &caption, Routine routine)
    : ReportDialog(name, caption, "btnOK", "OK"), m_routine(routine)
{
    txtMonths = addText("txtMonths");
    setFieldWidth(txtMonths, 8);
    m_fields->add("Number of Months to take Average", txtMonths);
    txtReq = addText("txtReq");
    setFieldWidth(txtReq, 8);
    // The months are selected when the box is entered and the requirements are not. Staff are used to it.
    txtReq->setSelectAllOnFocus(false);
    m_fields->add("Requirements", txtReq);
    chkSupp = addCheck("chkSupp", "Suppress Blank Requirements");
    m_fields->add(chkSupp);
    connect(m_start, &QPushButton::clicked, this, &ProductionDialog::btnOK_Click);
    setTabOrder({txtMonths, txtReq, chkSupp, m_start, btnCancel});
}

void ProductionDialog::formLoad()
{
    txtMonths->setText("3");
}

void ProductionDialog::btnOK_Click()
{
    if (!IsNumeric(txtMonths->text()) || !IsNumeric(txtReq->text())) {
        MsgBox("You must enter a number of months and Requirements.", "Invalid Months");
        return;
    }
    const Hourglass hourglass;
    const bool SuppressBlank = chkSupp->isChecked();
    // Beyond 16 bits error 6, under the hourglass.
    const qint16 Months = CInt(Val(txtMonths->text()));
    const qint16 Req = CInt(Val(txtReq->text()));
    m_routine(Months, Req, SuppressBlank);
    unload();
}
