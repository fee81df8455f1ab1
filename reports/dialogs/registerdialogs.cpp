#include "reports/dialogs/registerdialogs.h"
#include "app/toolkit/mainmod.h"
#include "reports/inventoryregisters.h"

RegisterDialog::RegisterDialog(const QString &name, const QString &caption)
    : DateRangeDialog(name, caption, "btnOk", Pointer::NotOwned, {})
{
    cmbCategory = addList("cmbCategory");
    addRow("Category", cmbCategory, 0);
    chkDetails = addCheck("chkDetails", "Display Details");
    addWide(chkDetails);
    setTabOrder({cmbCategory, dtStart, dtEnd, chkDetails, btnOK, btnCancel});
}

void RegisterDialog::formLoad()
{
    DateRangeDialog::formLoad();
    cmbCategory->addItem("***All Categories***");
    auto categories = gDatabase->OpenRecordset("SELECT DISTINCT Category FROM Part ORDER BY Category");
    while (!categories.Eof()) {
        const Value Category = categories.Fields("Category").value();
        if (!Category.joined().isEmpty())
            cmbCategory->addItem(Category);
        categories.MoveNext();
    }
    categories.Close();
    cmbCategory->setText("***All Categories***");
}

frmAvailableInventory::frmAvailableInventory() : RegisterDialog("frmAvailableInventory", "Available Inventory")
{
    chkExport = addCheck("chkExport", "Export Friendly");
    addWide(chkExport);
    setTabOrder({cmbCategory, dtStart, dtEnd, chkDetails, chkExport, btnOK, btnCancel});
    m_routine = [this](const QString &BeginDate, const QString &EndDate) {
        if (chkExport->isChecked())
            Reports::ReportAvailableInventoryExport(BeginDate, EndDate, false, cmbCategory->text());
        else
            Reports::ReportAvailableInventory(BeginDate, EndDate, chkDetails->isChecked(), cmbCategory->text());
    };
}

frmAvailableInventoryByPart::frmAvailableInventoryByPart()
    : RegisterDialog("frmAvailableInventoryByPart", "Available Inventory by Part")
{
    m_routine = [this](const QString &BeginDate, const QString &EndDate) {
        Reports::ReportAvailableInventoryByPart(BeginDate, EndDate, chkDetails->isChecked(), cmbCategory->text());
    };
}
