#include "tests/support/desk.h"
#include "tests/support/rows.h"

namespace {

const QList<const char *> fields = {
    "txtAddress1",       "txtAddress2",   "txtCity",        "txtState",      "txtZip",
    "txtPhone",          "txtFax",        "cmbStatus",      "txtShipTo",     "txtShipToAddress1",
    "txtShipToAddress2", "txtShipToCity", "txtShipToState", "txtShipToZip",  "txtShipToPhone",
    "txtShipToFax",      "txtTerms",      "txtDays",        "txtPriceSheet", "txtTerritory"};

class CustomerEntry : public DeskTest
{
protected:
    CustomerEntry()
    {
        addRow("Customer", {{"Customer", "Acme"},
                            {"Address1", "1 Main St"},
                            {"City", "Erie"},
                            {"State", "PA"},
                            {"Zip", "16501"},
                            {"Status", "InActive"},
                            {"DateAdded", Date(2001, 1, 2)},
                            {"ShipTo", "Acme Dock"},
                            {"Terms", "Net 30"},
                            {"Days", 30},
                            {"PriceSheet", "Gold"},
                            {"Territory", "East"},
                            {"PrintStatements", true}});
        addRow("Customer", {{"Customer", "Ac"}, {"Status", "Active"}, {"Terms", "Net"}, {"Days", 10}});
    }
    QStringList customers() const { return database.rows("SELECT * FROM Customer ORDER BY Customer"); }
    static QString blank(const char *status) { return QString(7, ',') + status + QString(12, ','); }
    /// What the form shows beside the key.
    static QString shown(const FormDriver &form)
    {
        QStringList texts;
        for (const char *field : fields)
            texts += form.text(field);
        return texts.join(',');
    }

    const QString m_acme = "1 Main St,,Erie,PA,16501,,,InActive,Acme Dock,,,,,,,,Net 30,30,Gold,East";
    TestClock m_clock{"2011-03-30 14:05:09"};
};

TEST_F(CustomerEntry, ListsAllCustomersInOrderAndBothStatuses)
{
    FormDriver form("frmCustomerEntry");
    const auto *customer = form.control<ComboBox>("cmbCustomer");
    QStringList names;
    for (int i = 0; i < customer->listCount(); ++i)
        names += customer->list(i);
    EXPECT_EQ(names.join(','), "Ac,Acme,Acme Supply,Baker Tools,Bolt & Sons,Closed Works");
    const auto *status = form.control<ComboBox>("cmbStatus");
    EXPECT_EQ(status->list(0) + "," + status->list(1) + "," + status->list(2), "Active,InActive,");
    EXPECT_EQ(shown(form), QString(19, ','));
}

TEST_F(CustomerEntry, ShowsOrBlanksTheFormAtEveryKeyOfTheName)
{
    FormDriver form("frmCustomerEntry");
    form.type("txtTerritory", "West");
    form.type("cmbCustomer", "A");
    EXPECT_EQ(shown(form), blank("Active")) << "what was typed before the name is lost";
    form.keys("c");
    EXPECT_EQ(shown(form), ",,,,,,,Active,,,,,,,,,Net,10,,") << "a prefix that is a customer";
    form.keys("m");
    EXPECT_EQ(shown(form), blank("Active"));
    form.keys("e");
    EXPECT_EQ(shown(form), m_acme);
    EXPECT_EQ(form.text("chkStatements"), "True");
    form.keys(" ");
    EXPECT_EQ(shown(form), m_acme) << "a blank behind the name is no difference to the database";
    form.keys("2");
    EXPECT_EQ(shown(form), blank("Active"));
    EXPECT_EQ(form.text("chkStatements"), "False");
}

TEST_F(CustomerEntry, AnEmptyNameLeavesTheFormAsItIs)
{
    FormDriver form("frmCustomerEntry");
    form.type("cmbCustomer", "Acme");
    form.type("cmbCustomer", "");
    EXPECT_EQ(form.text("cmbCustomer"), "");
    EXPECT_EQ(shown(form), m_acme);
}

TEST_F(CustomerEntry, PickingFromTheListShowsTheCustomer)
{
    FormDriver form("frmCustomerEntry");
    form.choose("cmbCustomer", "Acme");
    EXPECT_EQ(shown(form), m_acme);
}

TEST_F(CustomerEntry, AnApostropheInTheNameFailsAtItsKey)
{
    FormDriver form("frmCustomerEntry");
    form.type("cmbCustomer", "O");
    expectRuntimeError(
        3075, [&] { form.keys("'"); }, "Syntax error in string in query expression 'Customer = 'O'''.");
}

TEST_F(CustomerEntry, DaysMustBeANumberWhenTheBoxIsLeft)
{
    FormDriver form("frmCustomerEntry");
    for (const char *text : {"abc", "", "5%"}) {
        boxes.expect("Invalid Terms", "You must enter a number in days for this field. Please re-enter.");
        form.type("txtDays", text);
        form.key(Qt::Key_Tab);
        boxes.verify();
        EXPECT_EQ(form.focus(), "txtDays") << text;
    }
    boxes.expect("Invalid Terms", "You must enter a number in days for this field. Please re-enter.");
    form.click("btnExit");
    EXPECT_TRUE(form.isLoaded()) << "a press that led to the box is no click";
    form.type("txtDays", "30");
    form.key(Qt::Key_Tab);
    EXPECT_EQ(form.focus(), "txtShipTo");
}

TEST_F(CustomerEntry, SaveRequiresNameStatusTermsAndDays)
{
    FormDriver form("frmCustomerEntry");
    const QStringList before = customers();
    struct Missing
    {
        const char *name, *terms, *days;
    };
    for (const Missing &row : {Missing{"", "Net", "5"}, Missing{"New", "", "5"}, Missing{"New", "Net", ""}}) {
        form.type("cmbCustomer", row.name);
        form.type("txtTerms", row.terms);
        form.control<TextBox>("txtDays")->setText(row.days);
        boxes.expect("Required Fields", "Customer Name, Status, Terms, and Days are required.");
        form.click("btnSave");
        boxes.verify();
    }
    EXPECT_TRUE(form.isLoaded());
    EXPECT_EQ(customers(), before);
}

TEST_F(CustomerEntry, SavesANewCustomerWithEveryColumn)
{
    FormDriver form("frmCustomerEntry");
    form.type("cmbCustomer", "Zeta Ltd");
    int number = 0;
    for (const char *field : fields) {
        if (qstrcmp(field, "cmbStatus") != 0)
            form.type(field, QString::number(++number));
    }
    form.click("chkStatements");
    form.click("btnSave");
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(database.rows("SELECT * FROM Customer WHERE Customer = 'Zeta Ltd'"),
              QStringList{"Zeta Ltd|1|2|3|4|5|6|7|Active|3/30/2011 2:05:09 PM|8|9|10|11|12|13|14|15|16|17|18|19|True"});
}

TEST_F(CustomerEntry, SavesAChangeKeepsTheDateAndStoresTheNameAsTyped)
{
    FormDriver form("frmCustomerEntry");
    form.type("cmbCustomer", "ACME");
    form.type("txtAddress1", "");
    form.type("txtFax", "555");
    form.click("chkStatements");
    form.click("btnSave");
    EXPECT_EQ(database.rows("SELECT * FROM Customer WHERE Customer = 'Acme'"),
              QStringList{"ACME|||Erie|PA|16501||555|InActive|1/2/2001|Acme Dock||||||||Net 30|30|Gold|East|False"});
}

TEST_F(CustomerEntry, ATextLongerThanItsColumnFailsAtTheSave)
{
    FormDriver form("frmCustomerEntry");
    form.type("cmbCustomer", "Acme");
    form.type("txtCity", QString(51, 'x'));
    expectRuntimeError(3163, [&] { form.click("btnSave"); });
}

TEST_F(CustomerEntry, ExitDropsEverythingWithoutAsking)
{
    FormDriver form("frmCustomerEntry");
    const QStringList before = customers();
    form.type("cmbCustomer", "New");
    form.click("btnExit");
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(customers(), before);
}

} // namespace
