#include "tests/support/desk.h"
#include "tests/support/rows.h"

namespace {

const QList<const char *> fields = {"txtAddress1", "txtAddress2", "txtCity",   "txtState",  "txtZip",
                                    "txtPhone",    "txtFax",      "cmbStatus", "txtContact"};

class WarehouseEntry : public DeskTest
{
protected:
    WarehouseEntry()
    {
        addRow("Warehouse", {{"Warehouse", "North"},
                             {"Address1", "1 Main St"},
                             {"City", "Erie"},
                             {"Status", "InActive"},
                             {"Contact", "Ann"},
                             {"DateAdded", Date(2001, 1, 2)}});
    }
    /// What the form shows beside the key.
    static QString shown(const FormDriver &form)
    {
        QStringList texts;
        for (const char *field : fields)
            texts += form.text(field);
        return texts.join(',');
    }

    TestClock m_clock{"2011-03-30 14:05:09"};
};

TEST_F(WarehouseEntry, ShowsAKnownNameAndBlanksForAnyOther)
{
    FormDriver form("frmWarehouseEntry");
    form.type("cmbWarehouse", "north");
    EXPECT_EQ(shown(form), "1 Main St,,Erie,,,,,InActive,Ann");
    form.keys("e");
    EXPECT_EQ(shown(form), ",,,,,,,Active,");
}

TEST_F(WarehouseEntry, SaveRequiresANameAndAStatus)
{
    FormDriver form("frmWarehouseEntry");
    boxes.expect("Required Fields", "Warehouse Name and Status are required.");
    form.click("btnSave");
    boxes.expect("Required Fields", "Warehouse Name and Status are required.");
    form.type("cmbWarehouse", "South");
    form.control<ComboBox>("cmbStatus")->setListIndex(-1);
    form.click("btnSave");
    EXPECT_TRUE(form.isLoaded());
}

TEST_F(WarehouseEntry, ANewNameMakesARowAnOldOneKeepsItsSpellingAndDate)
{
    FormDriver form("frmWarehouseEntry");
    form.type("cmbWarehouse", "South");
    form.type("txtZip", "16501");
    form.click("btnSave");
    form = FormDriver("frmWarehouseEntry");
    form.type("cmbWarehouse", "NORTH");
    form.type("txtAddress1", "");
    form.type("txtContact", "Bob");
    form.click("btnSave");
    EXPECT_EQ(
        database.rows("SELECT * FROM Warehouse WHERE Contact = 'Bob' OR Zip = '16501' ORDER BY Warehouse"),
        (QStringList{"North|||Erie|||||Bob|InActive|1/2/2001", "South|||||16501||||Active|3/30/2011 2:05:09 PM"}));
}

} // namespace
