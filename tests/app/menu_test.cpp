#include "app/menu.h"
#include "tests/support/desk.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QWindow>

namespace {
class MenuTest : public DeskTest
{
protected:
    static QStringList tree(const QList<QAction *> &actions, const QString &indent = {})
    {
        QStringList lines;
        for (const QAction *action : actions) {
            lines += indent + action->objectName() + " \"" + action->text() + '"';
            if (action->menu())
                lines += tree(action->menu()->actions(), indent + "  ");
        }
        return lines;
    }
    QAction *action(const char *name) const { return mdi->findChild<QAction *>(name); }
};

TEST_F(MenuTest, TheWholeMenuStandsInItsOrderUnderItsNames)
{
    const QStringList expected{
        R"(File "File")",
        R"(  Exit "Exit")",
        R"(Orders "Orders")",
        R"(  OrdNav "Order Navigator")",
        R"(  OrderEntry "Order Entry")",
        R"(Shipping "Shipping")",
        R"(  ShipmentNav "Shipment Navigator")",
        R"(  ShipmentEntry "Shipment Entry")",
        R"(AR "AR")",
        R"(  CreateInvoices "Create Invoices")",
        R"(  ReceivePayment "Receive Payments")",
        R"(Inventory "Inventory")",
        R"(  Adjust "Adjust Inventory")",
        R"(  Transfer "Transfer Inventory")",
        R"(  RebuildInv "Rebuild Inventory Values")",
        R"(Administrative "Administrative")",
        R"(  CustomerEntry "Customer Entry")",
        R"(  PartEntry "Part Entry")",
        R"(  LocationEntry "Warehouse Entry")",
        R"(Reports "Reports")",
        R"(  OrderReports "Orders")",
        R"(    OpenOrders "Open Orders")",
        R"(    PickTicket "Pick Ticket")",
        R"(  ShippingReports "Shipping")",
        R"(    PackingSlip "Packing Slip")",
        R"(    InvoiceReport "Invoice")",
        R"(    SalesByCustomer "Sales By Customer")",
        R"(    SalesByCategory "Sales By Category")",
        R"(    SalesByTerritory "Sales By Territory")",
        R"(    SalesByPart "Sales By Part")",
        R"(    SalesByWhsePart "Sales By Whse/Part")",
        R"(    InventorySalesReport "Inventory Sales Report")",
        R"(  ARReports "Accounts Receivable")",
        R"(    OpenInvoice "Accounts Receivable Listing")",
        R"(    StatementsReport "Statements")",
        R"(    ARTran "Invoice Register")",
        R"(    CashReceipts "Cash Receipts Register")",
        R"(    CustomerRegister "Customer Register")",
        R"(  InventoryReport "Inventory")",
        R"(    AvailInventory "Available Inventory By Whse/Part")",
        R"(    AvailableInventoryByPart "Available Inventory By Part/Whse")",
        R"(    NewAvailInvWhse "Quick Available Inv")",
        R"(    ProdByWhsePart "Production By Whse/Part")",
        R"(    ProdByPartWhse "Production By Part/Whse")",
        R"(    AdjustmentControlReport "Adjustment Control Report")",
        R"(    TransferControlReport "Transfer Control Report")",
        R"(  AdminReports "Administrative")",
        R"(    PartListingReport "Part Listing")",
        R"(    CustomerListingReport "Customer Listing")",
        R"(    WarehouseListingReport "Warehouse Listing")",
        R"(  ARReportsOld "Accounts Receivable Old")",
        R"(    Statements "Statements Old")",
        R"(  AvailInv "Available Inventory by Part")",
        R"(  AvailInv2 "Available Inventory by Warehouse")",
        R"(Help "Help")",
        R"(  About "About")",
    };
    EXPECT_EQ(tree(mdi->menuBar()->actions()), expected);
}

TEST_F(MenuTest, AnEntryIsEnabledWhenItsFormOrRoutineIsThereAndTwoNever)
{
    for (const MenuEntry &entry : menuEntries()) {
        const bool there = entry.kind == MenuEntry::Kind::Group || (entry.form && Forms::knows(entry.form)) ||
                           (entry.kind == MenuEntry::Kind::Routine && entry.routine);
        EXPECT_EQ(action(entry.name)->isEnabled(), there) << entry.name;
    }
    EXPECT_FALSE(action("AvailInv")->isEnabled());
    EXPECT_FALSE(action("AvailInv2")->isEnabled());
}

TEST_F(MenuTest, EveryEnabledFormEntryOpensItsWindowAndOpensItOnce)
{
    for (const MenuEntry &entry : menuEntries()) {
        if (!entry.form || !Forms::knows(entry.form))
            continue;
        SCOPED_TRACE(entry.name);
        action(entry.name)->trigger();
        Form *form = Forms::loaded(entry.form);
        ASSERT_TRUE(form);
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(form->objectName(), entry.form);
        action(entry.name)->trigger();
        EXPECT_EQ(Forms::loaded(entry.form), form);
        form->unload();
        settle();
    }
}

TEST_F(MenuTest, TheMouseOpensAFormThroughTheMenuBar)
{
    QMenuBar *bar = mdi->menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(action("Help")).center());
    QMenu *help = action("Help")->menu();
    ASSERT_TRUE(help->isVisible());
    QTest::mouseClick(help, Qt::LeftButton, {}, help->actionGeometry(action("About")).center());
    EXPECT_TRUE(Forms::loaded("frmAbout"));
}
/// The way to an entry by its caption's first letters, as a user goes it with keys alone.
class MenuByKeys : public MenuTest
{
protected:
    static QWidget *current(QMenuBar *bar)
    {
        QWidget *popup = QApplication::activePopupWidget();
        return popup ? popup : bar;
    }
    static QAction *activeIn(QWidget *menu)
    {
        auto *list = qobject_cast<QMenu *>(menu);
        return list ? list->activeAction() : static_cast<QMenuBar *>(menu)->activeAction();
    }
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(mdi->windowHandle(), Qt::Key(key), modifiers);
        settle();
    }
    void letter(QChar letter)
    {
        QTest::keyClick(mdi->windowHandle(), letter.toLower().toLatin1());
        settle();
    }
    void choose(const char *name)
    {
        QWidget *menu = current(mdi->menuBar());
        const QAction *wanted = action(name);
        const QChar first = wanted->text()[0];
        int alike = 0;
        for (const QAction *entry : menu->actions())
            alike += entry->isEnabled() && entry->text()[0] == first;
        letter(first);
        for (int i = 1; i < alike && activeIn(menu) != wanted; ++i)
            letter(first);
        if (alike > 1) {
            EXPECT_EQ(activeIn(menu), wanted) << name;
            press(Qt::Key_Return);
        }
    }
};

TEST_F(MenuByKeys, EveryFormOpensByF10AndLetters)
{
    std::vector<const char *> path;
    for (const MenuEntry &entry : menuEntries()) {
        path.resize(entry.level);
        path.push_back(entry.name);
        if (!entry.form)
            continue;
        SCOPED_TRACE(entry.name);
        press(Qt::Key_F10);
        for (const char *step : path)
            choose(step);
        Form *form = Forms::loaded(entry.form);
        ASSERT_TRUE(form);
        form->unload();
        settle();
    }
}

TEST_F(MenuByKeys, AltReachesTheMenuFromAFieldWhichTakesNoLetter)
{
    FormDriver customer("frmCustomerEntry");
    ASSERT_EQ(customer.focus(), "cmbCustomer");
    press(Qt::Key_O, Qt::AltModifier);
    EXPECT_EQ(QApplication::activePopupWidget(), action("Orders")->menu());
    EXPECT_EQ(action("Orders")->menu()->activeAction(), action("OrdNav"));
    press(Qt::Key_Escape);
    press(Qt::Key_Escape);
    EXPECT_EQ(customer.text("cmbCustomer"), "");
    EXPECT_EQ(customer.focus(), "cmbCustomer");

    QTest::keyClick(mdi->windowHandle(), Qt::Key_Alt);
    EXPECT_EQ(mdi->menuBar()->activeAction(), action("File"));
    const QPoint corner = mdi->menuBar()->actionGeometry(action("File")).topLeft() + QPoint(2, 2);
    EXPECT_EQ(mdi->menuBar()->grab().toImage().pixelColor(corner), mdi->palette().color(QPalette::Highlight));
    QTest::keyClick(mdi->windowHandle(), Qt::Key_Alt);
    EXPECT_FALSE(mdi->menuBar()->activeAction());
    EXPECT_EQ(customer.focus(), "cmbCustomer");
}
} // namespace
