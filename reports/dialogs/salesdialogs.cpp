#include "reports/dialogs/salesdialogs.h"
#include "reports/inventoryregisters.h"
#include "reports/sales.h"
#include "toolkit/forms/formlayout.h"

frmSalesByWhsePart::frmSalesByWhsePart()
    : DateRangeDialog("frmSalesByWhsePart", "Sales By Whse/Part Report", "btnOK", Pointer::Owned, {})
{
    chkExport = addCheck("chkExport", "Export Friendly");
    m_routine = [this](const QString &BeginDate, const QString &EndDate) {
        if (chkExport->isChecked())
            Reports::ReportSalesByWhsePartExport(BeginDate, EndDate);
        else
            Reports::ReportSalesByWhsePart(BeginDate, EndDate);
    };
}

void frmSalesByWhsePart::placeControls()
{
    DateRangeDialog::placeControls();
    m_fields->add(chkExport);
    setTabOrder({dtStart, dtEnd, chkExport, m_start, btnCancel});
}

frmInventorySalesReport::frmInventorySalesReport()
    : DateRangeDialog("frmInventorySalesReport", "Inventory Sales Report", "btnOK", Pointer::Owned,
                      Reports::ReportInventorySales)
{
}

void frmInventorySalesReport::placeControls()
{
    DateRangeDialog::placeControls();
    QLabel *notice = addLabel("Label3", "Notice: This report will take several minutes to compile all of the "
                                        "necessary data. Please be patient.");
    notice->setWordWrap(true);
    // Below everything, over the whole width.
    m_fields->addWidget(notice, m_fields->rowCount(), 0, 1, -1);
}
