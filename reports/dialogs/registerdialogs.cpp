#include "reports/dialogs/registerdialogs.h"
#include "reports/inventoryregisters.h"
#include "toolkit/forms/formlayout.h"
#include "toolkit/forms/mainmod.h"

RegisterDialog::RegisterDialog(const QString &name, const QString &caption)
    : DateRangeDialog(name, caption, "btnOk", Pointer::NotOwned, {})
{
    cmbCategory = addList("cmbCategory");
    chkDetails = addCheck("chkDetails", "Display Details");
}

void RegisterDialog::placeControls()
{
    m_fields->add("Category", cmbCategory);
    DateRangeDialog::placeControls();
    m_fields->add(chkDetails);
    setTabOrder({cmbCategory, dtStart, dtEnd, chkDetails, m_start, btnCancel});
}

void RegisterDialog::formLoad()
{
    DateRangeDialog::formLoad();
    cmbCategory->addItem("***All Categories***");
    auto categories = gDatabase->OpenRecordset("SELECT DISTINCT Category FROM Part ORDER BY Category");
    while (!categories.Eof()) {
        const Value Category = categories.Fields("Category").value();
        // Parts loaded from elsewhere may have no category.
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
    m_routine = [this](const QString &BeginDate, const QString &EndDate) {
        if (chkExport->isChecked())
            // A form for spreadsheets has no details, whatever the other box says.
            Reports::ReportAvailableInventoryExport(BeginDate, EndDate, false, cmbCategory->text());
        else
            Reports::ReportAvailableInventory(BeginDate, EndDate, chkDetails->isChecked(), cmbCategory->text());
    };
}

void frmAvailableInventory::placeControls()
{
    RegisterDialog::placeControls();
    m_fields->add(chkExport);
    setTabOrder({cmbCategory, dtStart, dtEnd, chkDetails, chkExport, m_start, btnCancel});
}

frmAvailableInventoryByPart::frmAvailableInventoryByPart()
    : RegisterDialog("frmAvailableInventoryByPart", "Available Inventory by Part")
{
    m_routine = [this](const QString &BeginDate, const QString &EndDate) {
        Reports::ReportAvailableInventoryByPart(BeginDate, EndDate, chkDetails->isChecked(), cmbCategory->text());
    };
}
