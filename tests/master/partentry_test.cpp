#include "tests/support/desk.h"
#include "tests/support/rows.h"

namespace {

const QList<const char *> fields = {"cmbCategory",    "cmbVendor",    "txtLeadTime",   "txtSuperceded",
                                    "txtBinLocation", "txtMinOnHand", "txtReorderQty", "txtQtyPerPack",
                                    "txtCost",        "txtSalePrice", "cmbStatus"};

class PartEntry : public DeskTest
{
protected:
    PartEntry()
    {
        addRow("Part", {{"PartNo", "B-10"},
                        {"Category", "Bolts"},
                        {"Vendor", "Smith"},
                        {"LeadTime", "2 weeks"},
                        {"Superceded", "B-11"},
                        {"BinLocation", "A-1"},
                        {"MinOnHand", 5.0},
                        {"ReorderQty", 50.0},
                        {"QtyPerPack", 10.0},
                        {"Cost", 1.25},
                        {"SalePrice", 1234.5},
                        {"Status", "InActive"},
                        {"DateAdded", Date(2001, 1, 2)}});
        addRow("Part", {{"PartNo", "B-1"}, {"Category", "bolts"}, {"Status", "Active"}});
    }
    /// What the form shows beside the key.
    static QString shown(const FormDriver &form)
    {
        QStringList texts;
        for (const char *field : fields)
            texts += form.text(field);
        return texts.join(',');
    }
    QStringList part(const QString &number) const
    {
        return database.rows("SELECT * FROM Part WHERE PartNo = '" + number + "'");
    }

    TestClock m_clock{"2011-03-30 14:05:09"};
};

TEST_F(PartEntry, ListsTheCategoriesAndVendorsInUseWithoutNullVendors)
{
    FormDriver form("frmPartEntry");
    EXPECT_EQ(form.control<ComboBox>("cmbPartNo")->listCount(), 6);
    EXPECT_EQ(form.control<ComboBox>("cmbCategory")->listCount(), 3) << "Bolts once, whatever its case";
    EXPECT_EQ(form.control<ComboBox>("cmbVendor")->listCount(), 1);
    EXPECT_EQ(form.control<ComboBox>("cmbVendor")->list(0), "Smith");
    EXPECT_FALSE(QGuiApplication::overrideCursor());
}

TEST_F(PartEntry, ShowsTheShorterPartWhileALongerOneIsTyped)
{
    FormDriver form("frmPartEntry");
    form.type("cmbPartNo", "B-");
    EXPECT_EQ(shown(form), QString(10, ',') + "Active");
    form.keys("1");
    EXPECT_EQ(shown(form), "bolts,,,,,0,0,0,0,0,Active") << "an unset number is 0, an unset text blank";
    form.keys("0");
    EXPECT_EQ(shown(form), "Bolts,Smith,2 weeks,B-11,A-1,5,50,10,1.25,1234.5,InActive");
    EXPECT_EQ(form.control<MaskEdBox>("txtSalePrice")->formattedText(), "$1,234.50");
}

TEST_F(PartEntry, SaveRequiresNumberCategoryAndStatus)
{
    FormDriver form("frmPartEntry");
    form.type("cmbPartNo", "New");
    boxes.expect("Required Fields", "Part Number, Category, and Status are required.");
    form.click("btnSave");
    EXPECT_TRUE(form.isLoaded());
}

TEST_F(PartEntry, SavesANewPartWithoutTheColumnsLeftBlank)
{
    FormDriver form("frmPartEntry");
    form.type("cmbPartNo", "C-1");
    form.type("cmbCategory", "Nuts");
    form.type("txtSalePrice", "$2.50");
    form.click("btnSave");
    EXPECT_EQ(part("C-1"), QStringList{"C-1|Nuts|||||0|0|0|0|2.5|Active|3/30/2011 2:05:09 PM"});
}

TEST_F(PartEntry, BlankedFieldsKeepTheirValuesButTheBinLocation)
{
    FormDriver form("frmPartEntry");
    form.type("cmbPartNo", "b-10");
    for (const char *field : fields) {
        if (!QByteArray(field).startsWith("cmbStatus") && qstrcmp(field, "cmbCategory") != 0)
            form.type(field, "");
    }
    form.click("btnSave");
    EXPECT_EQ(part("B-10"), QStringList{"B-10|Bolts|Smith|2 weeks|B-11||5|50|10|1.25|1234.5|InActive|1/2/2001"});
}

TEST_F(PartEntry, TextThatIsNoNumberFailsAtTheSave)
{
    FormDriver form("frmPartEntry");
    form.type("cmbPartNo", "B-1");
    form.type("txtMinOnHand", "few");
    expectRuntimeError(3421, [&] { form.click("btnSave"); });
    EXPECT_EQ(part("B-1"), QStringList{"B-1|bolts|||||0|0|0|0|0|Active|"});
}

} // namespace
