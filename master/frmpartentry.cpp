#include "master/frmpartentry.h"

#include "toolkit/controls/mousepointer.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/fillcombo.h"
#include "toolkit/forms/formlayout.h"
#include "toolkit/forms/mainmod.h"
#include <QVBoxLayout>

frmPartEntry::frmPartEntry()
    : Form("frmPartEntry", "Part Entry/Edit"), cmbPartNo(addEditable("cmbPartNo")),
      cmbCategory(addEditable("cmbCategory")), cmbVendor(addEditable("cmbVendor")), txtLeadTime(addText("txtLeadTime")),
      txtSuperceded(addText("txtSuperceded")), txtBinLocation(addText("txtBinLocation")),
      txtMinOnHand(addText("txtMinOnHand")), txtReorderQty(addText("txtReorderQty")),
      txtQtyPerPack(addText("txtQtyPerPack")), txtCost(addMoney("txtCost")), txtSalePrice(addMoney("txtSalePrice")),
      cmbStatus(addList("cmbStatus")), btnSave(addButton("btnSave", "Save And Close")),
      btnExit(addButton("btnExit", "Exit")),
      m_record({.box = cmbPartNo, .table = "Part", .column = "PartNo"}, cmbStatus)
{
    using enum MasterRecord::Written;
    m_record.bind({
        {cmbCategory, "Category"},
        // What is written only when filled can be changed and never cleared; a new part takes the column's default.
        {cmbVendor, "Vendor", WhenNotEmpty},
        {txtLeadTime, "LeadTime", WhenNotEmpty},
        {txtSuperceded, "Superceded", WhenNotEmpty},
        {txtBinLocation, "BinLocation"},
        {txtMinOnHand, "MinOnHand", WhenNotEmpty},
        {txtReorderQty, "ReorderQty", WhenNotEmpty},
        {txtQtyPerPack, "QtyPerPack", WhenNotEmpty},
        {txtCost, "Cost", WhenNotEmpty},
        {txtSalePrice, "SalePrice", WhenNotEmpty},
        {cmbStatus, "Status"},
    });
    layOut();
    // No type-ahead here, which would put a part there is in place of the new one being typed.
    connect(cmbPartNo, &ComboBox::change, this, &frmPartEntry::ShowPart);
    connect(cmbPartNo, &ComboBox::click, this, &frmPartEntry::ShowPart);
    connect(btnSave, &QPushButton::clicked, this, &frmPartEntry::btnSave_Click);
    connect(btnExit, &QPushButton::clicked, this, &Form::unload);
}

void frmPartEntry::layOut()
{
    auto *layout = new QVBoxLayout(this);
    auto *fields = new FieldLayout;
    layout->addLayout(fields);
    fields->add("Part No.", cmbPartNo);
    fields->add("Category", cmbCategory);
    fields->add("Vendor", cmbVendor);
    fields->add("Lead Time", txtLeadTime);
    fields->add("Superceded", txtSuperceded);
    fields->add("Bin Location", txtBinLocation);
    fields->add("Min on Hand", txtMinOnHand);
    fields->add("Re-Order Qty", txtReorderQty);
    fields->add("Qty Per Pack", txtQtyPerPack);
    fields->add("Cost", txtCost);
    fields->add("Sale Price", txtSalePrice);
    fields->add("Status", cmbStatus);
    cmbPartNo->setMinimumWidth(260);
    layout->addStretch();
    layout->addLayout(buttonRow({btnSave, btnExit}));
    setTabOrder({cmbPartNo, cmbCategory, cmbVendor, txtLeadTime, txtSuperceded, txtBinLocation, txtMinOnHand,
                 txtReorderQty, txtQtyPerPack, txtCost, txtSalePrice, cmbStatus, btnSave, btnExit});
}

void frmPartEntry::formLoad()
{
    const Hourglass hourglass;
    m_record.fillStatus();
    // There is no table of categories or vendors: one typed for the first time is listed when the form loads again.
    fillCombo(cmbCategory, "SELECT DISTINCT Category FROM Part ORDER BY Category", "Category");
    fillVendors();
    m_record.fillKeys();
}

/// Vendors may be Null, which a list does not take; categories are required and cannot be.
void frmPartEntry::fillVendors()
{
    Recordset rs = gDatabase->OpenRecordset("SELECT DISTINCT Vendor FROM Part Order By Vendor");
    while (!rs.Eof()) {
        if (!rs.Fields("Vendor").isNull())
            cmbVendor->addItem(rs.Fields("Vendor").value());
        rs.MoveNext();
    }
    rs.Close();
}

/// Runs at every key, so a shorter number that exists is shown on the way to the longer one.
void frmPartEntry::ShowPart()
{
    m_record.show();
}

/// Numbers are not looked at: what a column cannot hold fails when it is written.
void frmPartEntry::btnSave_Click()
{
    if (cmbPartNo->text().isEmpty() || cmbStatus->text().isEmpty() || cmbCategory->text().isEmpty()) {
        MsgBox("Part Number, Category, and Status are required.", "Required Fields");
        return;
    }
    m_record.save();
    unload();
}
