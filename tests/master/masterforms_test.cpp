#include "tests/support/company.h"

// The three master forms keep one record each and differ in their fields alone.

namespace {

const char *const CustomerFields =
    "txtAddress1 txtAddress2 txtCity txtState txtZip txtPhone txtFax cmbStatus txtShipTo txtShipToAddress1 "
    "txtShipToAddress2 txtShipToCity txtShipToState txtShipToZip txtShipToPhone txtShipToFax txtTerms txtDays "
    "txtPriceSheet txtTerritory chkStatements";
const char *const PartFields = "cmbCategory cmbVendor txtLeadTime txtSuperceded txtBinLocation txtMinOnHand "
                               "txtReorderQty txtQtyPerPack txtCost txtSalePrice cmbStatus";
const char *const WarehouseFields =
    "txtAddress1 txtAddress2 txtCity txtState txtZip txtPhone txtFax cmbStatus txtContact";

const char *const Acme = "1 Main St||Erie|PA|16501|||InActive|Acme Dock||||||||Net 30|30|Gold|East|True";
const char *const North = "1 Main St|Dock 2|Erie|PA|16501|555-1|555-2|InActive|Ann";
const char *const NewCustomer = "|||||||Active|||||||||||||False";
const char *const NewPart = "||||||||||Active";

class MasterForms : public CompanyTest
{
protected:
    MasterForms()
    {
        for (const char *table : {"Customer", "Part", "Warehouse"})
            database.execute(QStringLiteral("DELETE * FROM ") + table);
        for (const char *row :
             {"Customer (Customer, Address1, City, State, Zip, Status, DateAdded, ShipTo, Terms, Days, PriceSheet, "
              "Territory, PrintStatements) VALUES ('Acme', '1 Main St', 'Erie', 'PA', '16501', 'InActive', #1/2/2001#, "
              "'Acme Dock', 'Net 30', 30, 'Gold', 'East', True)",
              "Customer (Customer, Status, Terms, Days) VALUES ('Ac', 'Active', 'Net', 10)",
              "Part (PartNo, Category, Vendor, LeadTime, Superceded, BinLocation, MinOnHand, ReorderQty, QtyPerPack, "
              "Cost, SalePrice, Status, DateAdded) VALUES ('B-10', 'Bolts', 'Smith', '2 weeks', 'B-11', 'A-1', 5, 50, "
              "10, 1.25, 1234.5, 'InActive', #1/2/2001#)",
              "Part (PartNo, Category, Status) VALUES ('B-1', 'bolts', 'Active')",
              "Warehouse (Warehouse, Address1, Address2, City, State, Zip, Phone, Fax, Status, Contact, DateAdded) "
              "VALUES ('North', '1 Main St', 'Dock 2', 'Erie', 'PA', '16501', '555-1', '555-2', 'InActive', 'Ann', "
              "#1/2/2001#)"})
            database.execute(QStringLiteral("INSERT INTO ") + row);
    }
    QStringList records() const
    {
        return table("Customer", "Customer") + table("Part", "PartNo") + table("Warehouse", "Warehouse");
    }
};

TEST_F(MasterForms, ListWhatThereIsAndTheTwoStatuses)
{
    for (const auto &[part, vendor] : {std::pair{"A-1", "Smith"}, {"A-2", "Jones"}})
        addRow("Part", {{"PartNo", part}, {"Category", "Axles"}, {"Vendor", vendor}});
    for (const auto &[form, list, held] : {std::tuple{"frmCustomerEntry", "cmbCustomer", "Ac|Acme"},
                                           {"frmPartEntry", "cmbPartNo", "A-1|A-2|B-1|B-10"},
                                           {"frmPartEntry", "cmbVendor", "Jones|Smith"},
                                           {"frmWarehouseEntry", "cmbWarehouse", "North"}}) {
        const FormDriver user(form);
        EXPECT_EQ(entries(user, list), held);
        EXPECT_EQ(entries(user, "cmbStatus"), "Active|InActive");
        EXPECT_EQ(user.text("cmbStatus"), "");
    }
    EXPECT_EQ(entries(FormDriver("frmPartEntry"), "cmbCategory").toLower(), "axles|bolts") << "once, whatever its case";
    Forms::unloadAll();
    database.execute("DROP TABLE Part");
    expectErrorUnderHourglass(3078, [] { Load("frmPartEntry"); });
}

TEST_F(MasterForms, ShowOrBlankTheirFieldsAtEveryKeyOfTheName)
{
    const struct
    {
        const char *form, *fields, *key, *typed, *shown;
    } cases[] = {
        {"frmCustomerEntry", CustomerFields, "cmbCustomer", "A", NewCustomer},
        {"frmCustomerEntry", CustomerFields, nullptr, "c", "|||||||Active|||||||||Net|10|||False"}, // a shorter name
        {"frmCustomerEntry", CustomerFields, nullptr, "m", NewCustomer},
        {"frmCustomerEntry", CustomerFields, nullptr, "e", Acme},
        {"frmCustomerEntry", CustomerFields, nullptr, " ", Acme}, // a blank is no difference to the database
        {"frmCustomerEntry", CustomerFields, nullptr, "2", NewCustomer},
        {"frmCustomerEntry", CustomerFields, "cmbCustomer", "acme", Acme},
        {"frmCustomerEntry", CustomerFields, "cmbCustomer", "", Acme}, // no name leaves the form as it is
        {"frmPartEntry", PartFields, "cmbPartNo", "B-", NewPart},
        {"frmPartEntry", PartFields, nullptr, "1", "bolts|||||0|0|0|0|0|Active"}, // an unset number is 0
        {"frmPartEntry", PartFields, nullptr, "0", "Bolts|Smith|2 weeks|B-11|A-1|5|50|10|1.25|1234.5|InActive"},
        {"frmWarehouseEntry", WarehouseFields, "cmbWarehouse", "north", North},
        {"frmWarehouseEntry", WarehouseFields, nullptr, "e", "|||||||Active|"},
    };
    FormDriver("frmCustomerEntry").act("txtTerritory: West; chkStatements"); // lost with the first letter of a name
    for (const auto &row : cases) {
        FormDriver user(row.form);
        row.key ? user.type(row.key, row.typed) : user.keys(row.typed);
        EXPECT_EQ(user.shows(row.fields), row.shown) << row.form << " at " << row.typed;
    }
    EXPECT_EQ(FormDriver("frmPartEntry").control<MaskEdBox>("txtSalePrice")->formattedText(), "$1,234.50");
    FormDriver customer("frmCustomerEntry");
    for (const auto &[form, list, entry, field, shown] :
         {std::tuple{"frmCustomerEntry", "cmbCustomer", "Ac", "txtTerms", "Net"},
          {"frmPartEntry", "cmbPartNo", "B-1", "cmbCategory", "bolts"},
          {"frmWarehouseEntry", "cmbWarehouse", "North", "txtContact", "Ann"}}) {
        FormDriver user(form);
        user.choose(list, entry);
        EXPECT_EQ(user.text(field), shown) << "picked from the list";
    }
    customer.type("cmbCustomer", "O");
    expectRuntimeError(
        3075, [&] { customer.keys("'"); }, "Syntax error in string in query expression 'Customer = 'O'''.");
}

TEST_F(MasterForms, DaysMustBeANumberWhenTheBoxIsLeft)
{
    FormDriver form("frmCustomerEntry");
    for (const char *steps : {"txtDays: abc; <Tab>", "txtDays:; <Tab>", "txtDays: 5%; <Tab>", "btnExit"}) {
        expectBox(form, steps, "Invalid Terms", "You must enter a number in days for this field. Please re-enter.");
        EXPECT_EQ(form.focus(), "txtDays") << steps;
    }
    EXPECT_TRUE(form.isLoaded()) << "a press that led to the box is no click";
    form.act("txtDays: 30; <Tab>");
    EXPECT_EQ(form.focus(), "txtShipTo");
}

TEST_F(MasterForms, RefuseARecordWithoutWhatIsRequiredAndDropItUponExit)
{
    const QStringList before = records();
    const char *const customer = "Customer Name, Status, Terms, and Days are required.";
    const char *const part = "Part Number, Category, and Status are required.";
    const char *const warehouse = "Warehouse Name and Status are required.";
    for (const auto &[form, steps, prompt] :
         {std::tuple{"frmCustomerEntry", "cmbStatus: Active; txtTerms: Net; txtDays: 5", customer},
          {"frmCustomerEntry", "cmbCustomer: New; txtDays: 5", customer},
          {"frmCustomerEntry", "cmbCustomer: New; txtTerms: Net", customer},
          {"frmCustomerEntry", "cmbCustomer: New; txtTerms: Net; txtDays: 5; cmbStatus:", customer},
          {"frmPartEntry", "cmbCategory: Nuts; cmbStatus: Active", part},
          {"frmPartEntry", "cmbPartNo: New", part},
          {"frmPartEntry", "cmbPartNo: New; cmbCategory: Nuts; cmbStatus:", part},
          {"frmWarehouseEntry", "cmbStatus: Active", warehouse},
          {"frmWarehouseEntry", "cmbWarehouse: New; cmbStatus:", warehouse}}) {
        FormDriver user(form, steps);
        expectBox(user, "btnSave", "Required Fields", prompt);
        EXPECT_TRUE(user.isLoaded());
        user.act("btnExit");
        EXPECT_FALSE(user.isLoaded()) << steps;
    }
    EXPECT_EQ(records(), before);
}

TEST_F(MasterForms, SaveTheirRecord)
{
    QString everyField = "cmbCustomer: Zeta Ltd; chkStatements";
    int number = 0;
    for (const QString &field : QString(CustomerFields).remove(" cmbStatus").remove(" chkStatements").split(' '))
        everyField += "; " + field + ": " + QString::number(++number);
    for (const auto &[form, steps, record] : {
             std::tuple{"frmCustomerEntry", everyField,
                        "Zeta Ltd|1|2|3|4|5|6|7|Active|3/30/2011 2:05:09 "
                        "PM|8|9|10|11|12|13|14|15|16|17|18|19|True"},
             // A changed customer takes the new spelling of its name and keeps its date.
             {"frmCustomerEntry", "cmbCustomer: ACME; txtAddress1:; txtFax: 555; chkStatements",
              "ACME|||Erie|PA|16501||555|InActive|1/2/2001|Acme Dock||||||||Net 30|30|Gold|East|False"},
             // Columns that are left blank stay as they are, all but the bin location.
             {"frmPartEntry", "cmbPartNo: C-1; cmbCategory: Nuts; txtSalePrice: $2.50",
              "C-1|Nuts|||||0|0|0|0|2.5|Active|3/30/2011 2:05:09 PM"},
             {"frmPartEntry",
              "cmbPartNo: b-10; cmbVendor:; txtLeadTime:; txtSuperceded:; txtBinLocation:; txtMinOnHand:; "
              "txtReorderQty:; txtQtyPerPack:; txtCost:; txtSalePrice:",
              "B-10|Bolts|Smith|2 weeks|B-11||5|50|10|1.25|1234.5|InActive|1/2/2001"},
             {"frmWarehouseEntry", "cmbWarehouse: South; txtZip: 16501",
              "South|||||16501||||Active|3/30/2011 2:05:09 PM"},
             {"frmWarehouseEntry", "cmbWarehouse: NORTH; txtAddress1:; txtContact: Bob",
              "North||Dock 2|Erie|PA|16501|555-1|555-2|Bob|InActive|1/2/2001"},
         }) {
        const qsizetype count = records().size();
        FormDriver user(form, steps + "; btnSave");
        EXPECT_FALSE(user.isLoaded());
        EXPECT_TRUE(records().contains(record)) << record;
        EXPECT_EQ(records().size(), count + (QString(record).contains("3/30/2011") ? 1 : 0));
    }
}

TEST_F(MasterForms, TextThatItsColumnDoesNotTakeFailsAtTheSave)
{
    const QStringList before = records();
    FormDriver customer("frmCustomerEntry"), part("frmPartEntry");
    customer.act("cmbCustomer: Acme; txtCity: " + QString(51, 'x'));
    expectRuntimeError(3163, [&] { customer.act("btnSave"); });
    part.act("cmbPartNo: B-1; txtMinOnHand: few");
    expectRuntimeError(3421, [&] { part.act("btnSave"); });
    EXPECT_EQ(records(), before);
}

} // namespace
