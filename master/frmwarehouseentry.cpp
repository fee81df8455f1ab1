#include "master/frmwarehouseentry.h"

#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/formlayout.h"
#include <QVBoxLayout>

frmWarehouseEntry::frmWarehouseEntry()
    : Form("frmWarehouseEntry", "Warehouse Entry/Edit"), cmbWarehouse(addEditable("cmbWarehouse")),
      txtAddress1(addText("txtAddress1")), txtAddress2(addText("txtAddress2")), txtCity(addText("txtCity")),
      txtState(addText("txtState")), txtZip(addText("txtZip")), txtPhone(addText("txtPhone")),
      txtFax(addText("txtFax")), cmbStatus(addList("cmbStatus")), txtContact(addText("txtContact")),
      btnSave(addButton("btnSave", "Save And Close")), btnExit(addButton("btnExit", "Exit")),
      m_record({.box = cmbWarehouse, .table = "Warehouse", .column = "Warehouse"}, cmbStatus)
{
    // The name itself is written once. Typed with other capitals it is found and stays as it was, unlike a customer's.
    m_record.bind({
        {txtAddress1, "Address1"},
        {txtAddress2, "Address2"},
        {txtCity, "City"},
        {txtState, "State"},
        {txtZip, "Zip"},
        {txtPhone, "Phone"},
        {txtFax, "Fax"},
        {cmbStatus, "Status"},
        {txtContact, "Contact"},
    });
    layOut();
    connect(cmbWarehouse, &ComboBox::change, this, &frmWarehouseEntry::ShowWarehouse);
    connect(cmbWarehouse, &ComboBox::click, this, &frmWarehouseEntry::ShowWarehouse);
    connect(btnSave, &QPushButton::clicked, this, &frmWarehouseEntry::btnSave_Click);
    connect(btnExit, &QPushButton::clicked, this, &Form::unload);
}

void frmWarehouseEntry::layOut()
{
    auto *layout = new QVBoxLayout(this);
    auto *fields = new FieldLayout;
    layout->addLayout(fields);
    fields->add("Warehouse", cmbWarehouse);
    fields->add("Address 1", txtAddress1);
    fields->add("Address 2", txtAddress2);
    fields->add("City/St/Zip", {txtCity, txtState, txtZip});
    fields->add("Phone", txtPhone);
    fields->add("Fax", txtFax);
    fields->add("Contact", txtContact);
    fields->add("Status", cmbStatus);
    cmbWarehouse->setMinimumWidth(280);
    layout->addStretch();
    layout->addLayout(buttonRow({btnSave, btnExit}));
    setFieldWidth(txtState, 4);
    setFieldWidth(txtZip, 10);
    setTabOrder({cmbWarehouse, txtAddress1, txtAddress2, txtCity, txtState, txtZip, txtPhone, txtFax, txtContact,
                 cmbStatus, btnSave, btnExit});
}

void frmWarehouseEntry::formLoad()
{
    m_record.fillStatus();
    m_record.fillKeys();
}

void frmWarehouseEntry::ShowWarehouse()
{
    m_record.show();
}

/// Any name typed has filled the status, so only an empty name brings the box up.
void frmWarehouseEntry::btnSave_Click()
{
    if (cmbWarehouse->text().isEmpty() || cmbStatus->text().isEmpty()) {
        MsgBox("Warehouse Name and Status are required.", "Required Fields");
        return;
    }
    m_record.save();
    unload();
}
