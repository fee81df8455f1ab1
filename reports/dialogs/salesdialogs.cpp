#include "reports/dialogs/salesdialogs.h"
#include "reports/inventoryregisters.h"
#include "reports/sales.h"

frmSalesByWhsePart::frmSalesByWhsePart()
    : DateRangeDialog("frmSalesByWhsePart", "Sales By Whse/Part Report", "btnOK", Pointer::Owned, {})
{
    chkExport = addCheck("chkExport", "Export Friendly");
    addWide(chkExport);
    setTabOrder({dtStart, dtEnd, chkExport, btnOK, btnCancel});
    m_routine = [this](const QString &BeginDate, const QString &EndDate) {
        if (chkExport->isChecked())
            Reports::ReportSalesByWhsePartExport(BeginDate, EndDate);
        else
            Reports::ReportSalesByWhsePart(BeginDate, EndDate);
    };
}

frmInventorySalesReport::frmInventorySalesReport()
    : DateRangeDialog("frmInventorySalesReport", "Inventory Sales Report", "btnOK", Pointer::Owned,
                      Reports::ReportInventorySales)
{
    QLabel *notice = addLabel("Label3", "Notice: This report will take several minutes to compile all of the "
                                        "necessary data. Please be patient.");
    notice->setWordWrap(true);
    addWide(notice);
}
