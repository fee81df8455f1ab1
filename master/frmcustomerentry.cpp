#include "master/frmcustomerentry.h"

#include "data/values/numbers.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/formlayout.h"
#include <QVBoxLayout>

frmCustomerEntry::frmCustomerEntry()
    : Form("frmCustomerEntry", "Customer Entry/Edit"), cmbCustomer(addEditable("cmbCustomer")),
      txtAddress1(addText("txtAddress1")), txtAddress2(addText("txtAddress2")), txtCity(addText("txtCity")),
      txtState(addText("txtState")), txtZip(addText("txtZip")), txtPhone(addText("txtPhone")),
      txtFax(addText("txtFax")), cmbStatus(addList("cmbStatus")), txtShipTo(addText("txtShipTo")),
      txtShipToAddress1(addText("txtShipToAddress1")), txtShipToAddress2(addText("txtShipToAddress2")),
      txtShipToCity(addText("txtShipToCity")), txtShipToState(addText("txtShipToState")),
      txtShipToZip(addText("txtShipToZip")), txtShipToPhone(addText("txtShipToPhone")),
      txtShipToFax(addText("txtShipToFax")), txtTerms(addText("txtTerms")), txtDays(addText("txtDays")),
      txtPriceSheet(addText("txtPriceSheet")), txtTerritory(addText("txtTerritory")),
      chkStatements(addCheck("chkStatements", "Print Statements")), btnSave(addButton("btnSave", "Save And Close")),
      btnExit(addButton("btnExit", "Exit")),
      m_record({.box = cmbCustomer, .table = "Customer", .column = "Customer", .writtenOnChange = true}, cmbStatus)
{
    m_record.bind({
        {txtAddress1, "Address1"},
        {txtAddress2, "Address2"},
        {txtCity, "City"},
        {txtState, "State"},
        {txtZip, "Zip"},
        {txtPhone, "Phone"},
        {txtFax, "Fax"},
        {cmbStatus, "Status"},
        {txtShipTo, "ShipTo"},
        {txtShipToAddress1, "ShipToAddress1"},
        {txtShipToAddress2, "ShipToAddress2"},
        {txtShipToCity, "ShipToCity"},
        {txtShipToState, "ShipToState"},
        {txtShipToZip, "ShipToZip"},
        {txtShipToPhone, "ShipToPhone"},
        {txtShipToFax, "ShipToFax"},
        {txtTerms, "Terms"},
        {txtDays, "Days"},
        {txtPriceSheet, "PriceSheet"},
        {txtTerritory, "Territory"},
        {chkStatements, "PrintStatements"},
    });
    layOut();
    // A name is typed or picked from the list, which raises the one event or the other.
    connect(cmbCustomer, &ComboBox::change, this, &frmCustomerEntry::ShowCustomer);
    connect(cmbCustomer, &ComboBox::click, this, &frmCustomerEntry::ShowCustomer);
    connect(txtDays, &TextBox::lostFocus, this, &frmCustomerEntry::txtDays_LostFocus);
    connect(btnSave, &QPushButton::clicked, this, &frmCustomerEntry::btnSave_Click);
    connect(btnExit, &QPushButton::clicked, this, &Form::unload);
}

void frmCustomerEntry::layOut()
{
    auto *layout = new QVBoxLayout(this);
    auto *fields = new FieldLayout;
    layout->addLayout(fields);
    fields->add("Customer", cmbCustomer);
    fields->add("Address 1", txtAddress1);
    fields->add("Address 2", txtAddress2);
    fields->add("City/St/Zip", {txtCity, txtState, txtZip});
    fields->add("Phone", txtPhone);
    fields->add("Fax", txtFax);
    fields->add("Status", cmbStatus);
    fields->add("Price Sheet", txtPriceSheet);
    fields->add("Terms", txtTerms);
    fields->add("Days", txtDays);
    fields->add("Ship To", txtShipTo, 1);
    fields->add("Ship To Address 1", txtShipToAddress1, 1);
    fields->add("Ship To Address 2", txtShipToAddress2, 1);
    fields->add("Ship To City/St/Zip", {txtShipToCity, txtShipToState, txtShipToZip}, 1);
    fields->add("Ship To Phone", txtShipToPhone, 1);
    fields->add("Ship To Fax", txtShipToFax, 1);
    fields->add("Territory", txtTerritory, 1);
    fields->add(chkStatements, 1);
    layout->addStretch();
    layout->addLayout(buttonRow({btnSave, btnExit}));
    for (TextBox *state : {txtState, txtShipToState})
        setFieldWidth(state, 4);
    for (TextBox *zip : {txtZip, txtShipToZip})
        setFieldWidth(zip, 10);
    setFieldWidth(txtDays, 6);
    setTabOrder({cmbCustomer,       txtAddress1,
                 txtAddress2,       txtCity,
                 txtState,          txtZip,
                 txtPhone,          txtFax,
                 cmbStatus,         txtPriceSheet,
                 txtTerms,          txtDays,
                 txtShipTo,         txtShipToAddress1,
                 txtShipToAddress2, txtShipToCity,
                 txtShipToState,    txtShipToZip,
                 txtShipToPhone,    txtShipToFax,
                 txtTerritory,      chkStatements,
                 btnSave,           btnExit});
}

void frmCustomerEntry::formLoad()
{
    m_record.fillStatus();
    m_record.fillKeys();
}

/// Runs at every key typed into the name, so the form is blanked and filled again as each prefix happens to be a
/// customer or not, and an apostrophe fails at the key that types it.
void frmCustomerEntry::ShowCustomer()
{
    m_record.show();
}

/// An empty box is no number either, so it cannot be left empty once it was entered. The title says Terms all the same;
/// staff know the box by it.
void frmCustomerEntry::txtDays_LostFocus()
{
    if (IsNumeric(txtDays->text()))
        return;
    MsgBox("You must enter a number in days for this field. Please re-enter.", "Invalid Terms");
    setFocusTo(txtDays);
}

/// Asks only what is empty. Whether the days are a number was asked when their box was left; of a record saved without
/// entering it they go back as they came.
void frmCustomerEntry::btnSave_Click()
{
    if (cmbCustomer->text().isEmpty() || cmbStatus->text().isEmpty() || txtTerms->text().isEmpty() ||
        txtDays->text().isEmpty()) {
        MsgBox("Customer Name, Status, Terms, and Days are required.", "Required Fields");
        return;
    }
    m_record.save();
    unload();
}
