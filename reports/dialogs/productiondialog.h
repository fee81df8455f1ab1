#pragma once

#include "reports/dialogs/reportdialog.h"

/// Asks for the months to average sales over and the requirements figure; both must be numbers.
class ProductionDialog : public ReportDialog
{
    Q_OBJECT
public:
    using Routine = void (*)(qint16 Months, qint16 Req, bool SuppressBlank);

    ProductionDialog(const QString &name, const QString &caption, Routine routine);

private:
    void formLoad() override;
    void btnOK_Click();

    TextBox *txtMonths;
    TextBox *txtReq;
    QCheckBox *chkSupp;
    Routine m_routine;
};
