#pragma once

#include "reports/dialogs/reportdialog.h"

/// Asks for one date, today's when it opens.
class AsOfDialog : public ReportDialog
{
    Q_OBJECT
public:
    using Routine = std::function<void(const QString &AsOfDate)>;

    AsOfDialog(const QString &name, const QString &caption, const QString &label, Routine routine);

private:
    void formLoad() override;
    void btnOk_Click();

    DTPicker *dtDate;
    Routine m_routine;
};

/// The accounts receivable listing. `chkOver` only switches the check of the days on; the report goes by their text.
class frmOpenInvoicesReport : public ReportDialog
{
    Q_OBJECT
public:
    frmOpenInvoicesReport();

private:
    void formLoad() override;
    void btnOk_Click();

    DTPicker *dtDate;
    QCheckBox *chkOver;
    TextBox *txtDays;
    QCheckBox *chkSummary;
};

/// The register of one customer; a customer need not be picked.
class frmCustomerRegister : public ReportDialog
{
    Q_OBJECT
public:
    frmCustomerRegister();

private:
    void formLoad() override;
    void btnPrint_Click();

    ComboBox *cmbCustomer;
    DTPicker *dtBeginDate;
    DTPicker *dtEndDate;
};
