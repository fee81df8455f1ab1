#include "tests/support/company.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QWindow>

namespace {
const char *const Off = "nothing, greyed";

/// One entry of the menu and what it opens: a form or a preview, told by the title of its window. Of a form also the
/// controls in their tab order, with a plus where one types ahead, and, of a dialog, its labels.
struct Entry
{
    int level;
    const char *name, *caption, *opens = nullptr, *title = nullptr, *controls = nullptr, *labels = nullptr;
};

const char *const Selection = "cmbReport+ btnPrint btnCancel";
const char *const Period = "dtStart dtEnd btnOK btnCancel";
const char *const PeriodLabels = "Begin Date|End Date";
const char *const Production = "txtMonths txtReq chkSupp btnOK btnCancel";
const char *const ProductionLabels = "Number of Months to take Average|Requirements";

const Entry entries[] = {
    {0, "File", "File"},
    {1, "Exit", "Exit"},
    {0, "Orders", "Orders"},
    {1, "OrdNav", "Order Navigator", "frmOrderNavigator", "Order Navigator",
     "cmbWarehouse+ cmbCustomer+ cmbStatus txtOrderNumber chkOrderDate dtStartDate dtEndDate btnFind btnClear "
     "btnAddNew btnExit vsfgOrders vsfgItems"},
    {1, "OrderEntry", "Order Entry", "frmOrderEntry", "Order Entry",
     "cmbCustomer+ txtOrderNumber dtOrderDate dtDueDate cmbWarehouse+ txtShipTo txtAddress1 txtAddress2 txtCity "
     "txtState txtZip txtPhone txtFax chkDropShip txtFreight cmbPart+ txtQty txtPriceEach txtCustomerNumber "
     "btnSaveItem btnDeleteItem vsfgItems btnClose btnOpenOrder btnVoidOrder btnSave btnExit"},
    {0, "Shipping", "Shipping"},
    {1, "ShipmentNav", "Shipment Navigator", "frmShipmentNavigator", "Shipment Navigator",
     "cmbCustomer+ txtOrderNumber chkShipDate dtStartDate dtEndDate btnFind btnClear btnExit vsfgShipments vsfgItems"},
    {1, "ShipmentEntry", "Shipment Entry", "frmShipmentEntry", "Shipment Entry",
     "cmbCustomer+ cmbOrder+ txtID dtDate txtShipVia txtFreight txtAdjustment txtShipTo txtAddress1 txtAddress2 "
     "txtCity txtState txtZip vsfgItems btnShipAll btnSave btnExit"},
    {0, "AR", "AR"},
    {1, "CreateInvoices", "Create Invoices", "frmCreateInvoices", "Create Invoices",
     "cmbCustomer+ dtCutoff dtDate btnPrint btnCancel"},
    {1, "ReceivePayment", "Receive Payments", "frmReceivePayment", "Receive Payments",
     "txtInvoice dtDate txtAmount txtBalance txtPayment txtAdjustment btnSave btnExit"},
    {0, "Inventory", "Inventory"},
    {1, "Adjust", "Adjust Inventory", "frmInventoryAdjust", "Inventory Adjustment",
     "txtID dtDate cmbWarehouse+ cmbPart+ txtAdjustment btnUpdate btnDelete vsfgAdjustment btnSave btnExit"},
    {1, "Transfer", "Transfer Inventory", "frmTransfer", "Transfer Inventory",
     "txtID dtDate cmbFrom+ cmbTo+ cmbPart+ txtAdjustment btnUpdate btnDelete vsfgAdjustment btnSave btnExit"},
    {1, "RebuildInv", "Rebuild Inventory Values"},
    {0, "Administrative", "Administrative"},
    {1, "CustomerEntry", "Customer Entry", "frmCustomerEntry", "Customer Entry/Edit",
     "cmbCustomer txtAddress1 txtAddress2 txtCity txtState txtZip txtPhone txtFax cmbStatus txtPriceSheet txtTerms "
     "txtDays txtShipTo txtShipToAddress1 txtShipToAddress2 txtShipToCity txtShipToState txtShipToZip txtShipToPhone "
     "txtShipToFax txtTerritory chkStatements btnSave btnExit"},
    {1, "PartEntry", "Part Entry", "frmPartEntry", "Part Entry/Edit",
     "cmbPartNo cmbCategory cmbVendor txtLeadTime txtSuperceded txtBinLocation txtMinOnHand txtReorderQty "
     "txtQtyPerPack txtCost txtSalePrice cmbStatus btnSave btnExit"},
    {1, "LocationEntry", "Warehouse Entry", "frmWarehouseEntry", "Warehouse Entry/Edit",
     "cmbWarehouse txtAddress1 txtAddress2 txtCity txtState txtZip txtPhone txtFax txtContact cmbStatus btnSave "
     "btnExit"},
    {0, "Reports", "Reports"},
    {1, "OrderReports", "Orders"},
    {2, "OpenOrders", "Open Orders", "Viewer", "Open Orders"},
    {2, "PickTicket", "Pick Ticket", "frmPickTicket", "Report Selection", Selection, "Pick Ticket"},
    {1, "ShippingReports", "Shipping"},
    {2, "PackingSlip", "Packing Slip", "frmPackingSlip", "Report Selection", Selection, "Shipment ID:"},
    {2, "InvoiceReport", "Invoice", "frmInvoiceReport", "Report Selection", Selection, "Invoice "},
    {2, "SalesByCustomer", "Sales By Customer", "frmSalesByCustomer", "Sales By Customer Report", Period, PeriodLabels},
    {2, "SalesByCategory", "Sales By Category", "frmSalesByCategoryCustomer", "Sales By Category Report", Period,
     PeriodLabels},
    {2, "SalesByTerritory", "Sales By Territory", "frmSalesByTerritoryCustomer", "Sales By Territory Report", Period,
     PeriodLabels},
    {2, "SalesByPart", "Sales By Part", "frmSalesByPart", "Sales By Part Report", Period, PeriodLabels},
    {2, "SalesByWhsePart", "Sales By Whse/Part", "frmSalesByWhsePart", "Sales By Whse/Part Report",
     "dtStart dtEnd chkExport btnOK btnCancel", PeriodLabels},
    {2, "InventorySalesReport", "Inventory Sales Report", "frmInventorySalesReport", "Inventory Sales Report", Period,
     "Begin Date|End Date|Notice: This report will take several minutes to compile all of the necessary data. Please "
     "be patient."},
    {1, "ARReports", "Accounts Receivable"},
    {2, "OpenInvoice", "Accounts Receivable Listing", "frmOpenInvoicesReport", "Open Invoices Report",
     "dtDate chkOver txtDays chkSummary btnOk btnCancel", "As Of|days"},
    {2, "StatementsReport", "Statements", "frmStatementReport", "Customer Statements", "dtDate btnOk btnCancel",
     "As Of"},
    {2, "ARTran", "Invoice Register", "frmARTranReport", "Invoice Register Report", Period, PeriodLabels},
    {2, "CashReceipts", "Cash Receipts Register", "frmCashReceiptsReport", "Cash Receipts Register Report", Period,
     PeriodLabels},
    {2, "CustomerRegister", "Customer Register", "frmCustomerRegister", "Customer Register",
     "cmbCustomer+ dtBeginDate dtEndDate btnPrint btnCancel", "Customer:|Begin Date:|End Date:"},
    {1, "InventoryReport", "Inventory"},
    {2, "AvailInventory", "Available Inventory By Whse/Part", "frmAvailableInventory", "Available Inventory",
     "cmbCategory dtStart dtEnd chkDetails chkExport btnOk btnCancel", "Category|Begin Date|End Date"},
    {2, "AvailableInventoryByPart", "Available Inventory By Part/Whse", "frmAvailableInventoryByPart",
     "Available Inventory by Part", "cmbCategory dtStart dtEnd chkDetails btnOk btnCancel",
     "Category|Begin Date|End Date"},
    {2, "NewAvailInvWhse", "Quick Available Inv", "frmAvailInvReport", "Report Selection", Selection, "Warehouse"},
    {2, "ProdByWhsePart", "Production By Whse/Part", "frmProductionByWhsePartReport", "Production By Whse/Part Rpt",
     Production, ProductionLabels},
    {2, "ProdByPartWhse", "Production By Part/Whse", "frmProductionByPartWhseReport", "Production By Part/Whse Rpt",
     Production, ProductionLabels},
    {2, "AdjustmentControlReport", "Adjustment Control Report", "frmAdjustmentControlReport", "Report Selection",
     Selection, "Control Report"},
    {2, "TransferControlReport", "Transfer Control Report", "frmTransferControlReport", "Report Selection", Selection,
     "Control Report"},
    {1, "AdminReports", "Administrative"},
    {2, "PartListingReport", "Part Listing", "Viewer", "Part Listing"},
    {2, "CustomerListingReport", "Customer Listing", "Viewer", "Customer Listing"},
    {2, "WarehouseListingReport", "Warehouse Listing", "Viewer", "Warehouse Listing"},
    {1, "ARReportsOld", "Accounts Receivable Old"},
    {2, "Statements", "Statements Old", "frmCustomerStatements", "Customer Statements", "dtDate btnOk btnCancel",
     "Statement Date"},
    {1, "AvailInv", "Available Inventory by Part", Off},
    {1, "AvailInv2", "Available Inventory by Warehouse", Off},
    {0, "Help", "Help"},
    {1, "About", "About", "frmAbout", "About Screen", "cmdOK cmdSysInfo"},
};

bool opensForm(const Entry &entry)
{
    return entry.opens && QByteArray(entry.opens).startsWith("frm");
}

class MenuTest : public CompanyTest
{
protected:
    static QStringList tree(const QList<QAction *> &actions, int level = 0)
    {
        QStringList lines;
        for (const QAction *action : actions) {
            lines += QString::number(level) + ' ' + action->objectName() + ' ' + action->text();
            if (action->menu())
                lines += tree(action->menu()->actions(), level + 1);
        }
        return lines;
    }
    QAction *action(const char *name) const { return mdi->findChild<QAction *>(name); }
    /// Whether it is a list that is searched by more than one letter.
    static bool typesAhead(QWidget *control)
    {
        auto *box = qobject_cast<ComboBox *>(control);
        if (!box)
            return false;
        box->addItem("Zed");
        box->isEditable() ? box->setText({}) : box->setListIndex(-1);
        QTest::keyClick(box, Qt::Key_Backspace); // in the way of such a search
        QTest::keyClick(box, 'z');
        return box->text().isEmpty();
    }
    static void expectControls(const Form *form, const Entry &entry)
    {
        EXPECT_EQ(form->objectName(), entry.opens);
        EXPECT_EQ(form->windowTitle(), entry.title);
        EXPECT_TRUE(form->isVisible());
        for (QGroupBox *frame : form->findChildren<QGroupBox *>())
            frame->setEnabled(true);
        QStringList controls, labels;
        for (QWidget *control : form->tabOrder())
            controls += control->objectName() + (typesAhead(control) ? "+" : "");
        EXPECT_EQ(controls.join(' '), entry.controls);
        for (const QLabel *label : form->findChildren<QLabel *>(QRegularExpression("^Label\\d+$")))
            labels += label->text();
        for (const DTPicker *picker : form->findChildren<DTPicker *>())
            EXPECT_EQ(picker->value().toText(), "3/30/2011") << "today";
        EXPECT_TRUE(!entry.labels || labels.join('|') == entry.labels) << labels.join('|').toStdString();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        hand.key(key, modifiers);
        settle();
    }
    /// Presses the first letter of the entry's caption, as often as it takes among those that begin alike.
    void choose(const char *name)
    {
        const auto *list = qobject_cast<const QMenu *>(QApplication::activePopupWidget());
        const QAction *wanted = action(name);
        const auto reached = [&] { return (list ? list->activeAction() : mdi->menuBar()->activeAction()) == wanted; };
        const QChar first = wanted->text()[0];
        int alike = 0;
        for (const QAction *entry : list ? list->actions() : mdi->menuBar()->actions())
            alike += entry->isEnabled() && entry->text()[0] == first;
        for (int i = 0; i == 0 || (i < alike && !reached()); ++i)
            press(Qt::Key(first.toUpper().unicode()));
        if (alike > 1) {
            EXPECT_TRUE(reached()) << name;
            press(Qt::Key_Return);
        }
    }
};

TEST_F(MenuTest, StandsInItsOrderUnderItsNamesAndOpensWhatItSaysByKeysAndOnce)
{
    QStringList expected;
    std::vector<const char *> path;
    for (const Entry &entry : entries) {
        SCOPED_TRACE(entry.name);
        expected += QString("%1 %2 %3").arg(entry.level).arg(entry.name, entry.caption);
        path.resize(entry.level);
        path.push_back(entry.name);
        ASSERT_TRUE(action(entry.name));
        EXPECT_EQ(action(entry.name)->isEnabled(), entry.opens != Off);
        if (opensForm(entry)) {
            press(Qt::Key_F10);
            for (const char *step : path)
                choose(step);
            Form *form = Forms::loaded(entry.opens);
            ASSERT_TRUE(form);
            expectControls(form, entry);
            menu(entry.name);
            EXPECT_EQ(Forms::loaded(entry.opens), form) << "once";
            if (form->findChild<QPushButton *>("btnCancel"))
                FormDriver(entry.opens).act("btnCancel");
            else
                form->unload();
            settle();
            EXPECT_FALSE(Forms::loaded(entry.opens));
        } else if (entry.title) {
            menu(entry.name);
            EXPECT_EQ(mdi->findChildren<QWidget *>(entry.opens).constLast()->windowTitle(), entry.title);
        }
    }
    EXPECT_EQ(tree(mdi->menuBar()->actions()), expected);
    boxes.expect("Rebuild Confirmation", "Are you sure you want to rebuild the Available Inventory Report?", "No");
    menu("RebuildInv");
}

TEST_F(MenuTest, AltReachesTheMenuFromAFieldWhichTakesNoLetter)
{
    FormDriver customer("frmCustomerEntry");
    ASSERT_EQ(customer.focus(), "cmbCustomer");
    press(Qt::Key_O, Qt::AltModifier);
    EXPECT_EQ(QApplication::activePopupWidget(), action("Orders")->menu());
    EXPECT_EQ(action("Orders")->menu()->activeAction(), action("OrdNav"));
    press(Qt::Key_Escape);
    press(Qt::Key_Escape);
    press(Qt::Key_R, Qt::AltModifier);
    for (int i = 0; i < 4; ++i)
        press(Qt::Key_A);
    EXPECT_EQ(action("Reports")->menu()->activeAction(), action("ARReports")) << "round, past the greyed entries";
    press(Qt::Key_Escape);
    press(Qt::Key_Escape);
    EXPECT_EQ(customer.text("cmbCustomer"), "");
    EXPECT_EQ(customer.focus(), "cmbCustomer");

    hand.key(Qt::Key_Alt);
    EXPECT_EQ(mdi->menuBar()->activeAction(), action("File"));
    const QPoint corner = mdi->menuBar()->actionGeometry(action("File")).topLeft() + QPoint(2, 2);
    EXPECT_EQ(mdi->menuBar()->grab().toImage().pixelColor(corner), mdi->palette().color(QPalette::Highlight));
    hand.key(Qt::Key_Alt);
    EXPECT_FALSE(mdi->menuBar()->activeAction());
    EXPECT_EQ(customer.focus(), "cmbCustomer");
}
} // namespace
