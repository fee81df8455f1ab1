#include "reports/dialogs/productiondialog.h"
#include "app/toolkit/mousepointer.h"
#include "app/toolkit/msgbox.h"
#include "data/values/conversions.h"

ProductionDialog::ProductionDialog(const QString &name, const QString &caption, Routine routine)
    : ReportDialog(name, caption), m_routine(routine)
{
    txtMonths = addText("txtMonths");
    addRow("Number of Months to take Average", txtMonths);
    txtReq = addText("txtReq");
    txtReq->setSelectAllOnFocus(false);
    addRow("Requirements", txtReq);
    chkSupp = addCheck("chkSupp", "Suppress Blank Requirements");
    addWide(chkSupp);
    QPushButton *btnOK = addButtons("btnOK", "OK");
    connect(btnOK, &QPushButton::clicked, this, &ProductionDialog::btnOK_Click);
    setTabOrder({txtMonths, txtReq, chkSupp, btnOK, btnCancel});
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
    setHourglass();
    const bool SuppressBlank = chkSupp->isChecked();
    const qint16 Months = CInt(Val(txtMonths->text()));
    const qint16 Req = CInt(Val(txtReq->text()));
    m_routine(Months, Req, SuppressBlank);
    unload();
    setDefaultPointer();
}
