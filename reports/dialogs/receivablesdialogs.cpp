#include "reports/dialogs/receivablesdialogs.h"
#include "app/toolkit/fillcombo.h"
#include "app/toolkit/mousepointer.h"
#include "app/toolkit/msgbox.h"
#include "data/values/conversions.h"
#include "reports/receivables.h"
#include <QHBoxLayout>

AsOfDialog::AsOfDialog(const QString &name, const QString &caption, const QString &label, Routine routine)
    : ReportDialog(name, caption), m_routine(std::move(routine))
{
    dtDate = addDate("dtDate");
    addRow(label, dtDate);
    QPushButton *btnOk = addButtons("btnOk", "OK");
    connect(btnOk, &QPushButton::clicked, this, &AsOfDialog::btnOk_Click);
    setTabOrder({dtDate, btnOk, btnCancel});
}

void AsOfDialog::formLoad()
{
    dtDate->setValue(Date::today());
}

void AsOfDialog::btnOk_Click()
{
    m_routine(dtDate->value().toText());
    unload();
}

frmOpenInvoicesReport::frmOpenInvoicesReport() : ReportDialog("frmOpenInvoicesReport", "Open Invoices Report")
{
    dtDate = addDate("dtDate");
    addRow("As Of", dtDate);
    chkOver = addCheck("chkOver", "Only Over");
    txtDays = addText("txtDays");
    txtDays->setSelectAllOnFocus(false);
    txtDays->setMaximumWidth(60);
    auto *over = new QWidget(this);
    auto *overRow = new QHBoxLayout(over);
    overRow->setContentsMargins(0, 0, 0, 0);
    overRow->addWidget(chkOver);
    overRow->addWidget(txtDays);
    overRow->addWidget(addLabel("Label2", "days"));
    overRow->addStretch();
    addWide(over);
    chkSummary = addCheck("chkSummary", "Summary Only");
    addWide(chkSummary);
    QPushButton *btnOk = addButtons("btnOk", "OK");
    connect(btnOk, &QPushButton::clicked, this, &frmOpenInvoicesReport::btnOk_Click);
    setTabOrder({dtDate, chkOver, txtDays, chkSummary, btnOk, btnCancel});
}

void frmOpenInvoicesReport::formLoad()
{
    dtDate->setValue(Date::today());
}

void frmOpenInvoicesReport::btnOk_Click()
{
    setHourglass();
    if (chkOver->isChecked() && !IsNumeric(txtDays->text())) {
        MsgBox("You must enter a number of days to be aging.", "Enter Days to Age");
    } else {
        Reports::ShowOpenInvoicesReport(dtDate->value().toText(), chkSummary->isChecked(), txtDays->text());
        unload();
    }
    setDefaultPointer();
}

frmCustomerRegister::frmCustomerRegister() : ReportDialog("frmCustomerRegister", "Customer Register")
{
    cmbCustomer = addList("cmbCustomer");
    cmbCustomer->setTypeAhead();
    cmbCustomer->setMinimumWidth(220);
    addRow("Customer:", cmbCustomer);
    dtBeginDate = addDate("dtBeginDate");
    addRow("Begin Date:", dtBeginDate);
    dtEndDate = addDate("dtEndDate");
    addRow("End Date:", dtEndDate);
    QPushButton *btnPrint = addButtons("btnPrint", "Print");
    connect(btnPrint, &QPushButton::clicked, this, &frmCustomerRegister::btnPrint_Click);
    setTabOrder({cmbCustomer, dtBeginDate, dtEndDate, btnPrint, btnCancel});
}

void frmCustomerRegister::formLoad()
{
    fillCombo(cmbCustomer, "SELECT Customer FROM Customer ORDER BY Customer", "Customer");
    dtBeginDate->setValue(Date::today());
    dtEndDate->setValue(Date::today());
}

void frmCustomerRegister::btnPrint_Click()
{
    Reports::ShowCustomerRegister(cmbCustomer->text(), dtBeginDate->value().toText(), dtEndDate->value().toText());
    unload();
}
