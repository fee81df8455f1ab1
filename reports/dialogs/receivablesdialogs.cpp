#include "reports/dialogs/receivablesdialogs.h"
#include "data/values/numbers.h"
#include "reports/receivables.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/fillcombo.h"
#include "toolkit/forms/formlayout.h"
#include <QHBoxLayout>

AsOfDialog::AsOfDialog(const QString &name, const QString &caption, const QString &label, Routine routine)
    : ReportDialog(name, caption, "btnOk", "OK"), m_routine(std::move(routine))
{
    dtDate = addDate("dtDate");
    m_fields->add(label, dtDate);
    connect(m_start, &QPushButton::clicked, this, &AsOfDialog::btnOk_Click);
    setTabOrder({dtDate, m_start, btnCancel});
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

frmOpenInvoicesReport::frmOpenInvoicesReport()
    : ReportDialog("frmOpenInvoicesReport", "Open Invoices Report", "btnOk", "OK")
{
    dtDate = addDate("dtDate");
    m_fields->add("As Of", dtDate);
    chkOver = addCheck("chkOver", "Only Over");
    txtDays = addText("txtDays");
    // The days filter by what is typed. The check box before them only asks for a number.
    txtDays->setSelectAllOnFocus(false);
    setFieldWidth(txtDays, 5);
    auto *over = new QWidget(this);
    auto *overRow = new QHBoxLayout(over);
    overRow->setContentsMargins(0, 0, 0, 0);
    overRow->addWidget(chkOver);
    overRow->addWidget(txtDays);
    overRow->addWidget(addLabel("Label2", "days"));
    overRow->addStretch();
    m_fields->add(over);
    chkSummary = addCheck("chkSummary", "Summary Only");
    m_fields->add(chkSummary);
    connect(m_start, &QPushButton::clicked, this, &frmOpenInvoicesReport::btnOk_Click);
    setTabOrder({dtDate, chkOver, txtDays, chkSummary, m_start, btnCancel});
}

void frmOpenInvoicesReport::formLoad()
{
    dtDate->setValue(Date::today());
}

void frmOpenInvoicesReport::btnOk_Click()
{
    const Hourglass hourglass;
    // With the box clear text that is no number passes, and counts by its leading number.
    if (chkOver->isChecked() && !IsNumeric(txtDays->text())) {
        MsgBox("You must enter a number of days to be aging.", "Enter Days to Age");
    } else {
        Reports::ShowOpenInvoicesReport(dtDate->value().toText(), chkSummary->isChecked(), txtDays->text());
        unload();
    }
}

frmCustomerRegister::frmCustomerRegister()
    : ReportDialog("frmCustomerRegister", "Customer Register", "btnPrint", "Print")
{
    cmbCustomer = addList("cmbCustomer");
    setTypeAhead(cmbCustomer);
    cmbCustomer->setMinimumWidth(240);
    m_fields->add("Customer:", cmbCustomer);
    dtBeginDate = addDate("dtBeginDate");
    m_fields->add("Begin Date:", dtBeginDate);
    dtEndDate = addDate("dtEndDate");
    m_fields->add("End Date:", dtEndDate);
    connect(m_start, &QPushButton::clicked, this, &frmCustomerRegister::btnPrint_Click);
    setTabOrder({cmbCustomer, dtBeginDate, dtEndDate, m_start, btnCancel});
}

void frmCustomerRegister::formLoad()
{
    fillCombo(cmbCustomer, "SELECT Customer FROM Customer ORDER BY Customer", "Customer");
    dtBeginDate->setValue(Date::today());
    dtEndDate->setValue(Date::today());
}

/// An empty customer is handed on like any other and gives an empty register.
void frmCustomerRegister::btnPrint_Click()
{
    Reports::ShowCustomerRegister(cmbCustomer->text(), dtBeginDate->value().toText(), dtEndDate->value().toText());
    unload();
}
