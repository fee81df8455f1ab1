#pragma once

#include "orders/frmorderentry.h"
#include "tests/support/desk.h"
#include "tests/support/rows.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/forms/mainmod.h"

/// The program over a company of its own few masters, to take orders in.
class OrderDesk : public DeskTest
{
protected:
    OrderDesk()
    {
        gDefaultWarehouse = "North";
        for (const char *table : {"Customer", "Warehouse", "Part", "PriceSheet"})
            database.execute(QStringLiteral("DELETE * FROM ") + table);
        for (const char *warehouse : {"North", "South"})
            addRow("Warehouse", {{"Warehouse", warehouse}, {"Status", "Active"}});
        addRow("Warehouse", {{"Warehouse", "Closed Hall"}, {"Status", "InActive"}});
        addRow("Customer", {{"Customer", "Acme"},
                            {"Status", "Active"},
                            {"PriceSheet", "Gold"},
                            {"ShipTo", "Acme Dock"},
                            {"ShipToAddress1", "1 Quay"},
                            {"ShipToAddress2", "Gate 3"},
                            {"ShipToCity", "Erie"},
                            {"ShipToState", "PA"},
                            {"ShipToZip", "16501"},
                            {"ShipToPhone", "555-1"},
                            {"ShipToFax", "555-2"}});
        addRow("Customer", {{"Customer", "Bolt Bros"}, {"Status", "Active"}});
        addRow("Customer", {{"Customer", "Old Co"}, {"Status", "InActive"}});
        part("P2", "Nuts", 2.5);
        part("P1", "Bolts", 10);
        part("P3", "Nuts", 0.1);
        part("Gone", "Nuts", 1, "InActive");
        addRow("PriceSheet", {{"PriceSheet", "Gold"}, {"Part", "P1"}, {"Price", 8.75}});
        addRow("PriceSheet", {{"PriceSheet", "Gold"}, {"Part", "P3"}, {"Price", 0.0}});
    }

    static void part(const char *number, const char *category, double price, const char *status = "Active")
    {
        addRow("Part", {{"PartNo", number}, {"Category", category}, {"SalePrice", price}, {"Status", status}});
    }
    /// A saved order of `lines` lines of one P1 each.
    static QString order(const char *number, int lines = 1, const char *customer = "Acme",
                         const char *warehouse = "North", const char *status = "Open", Date date = Date(2011, 3, 1))
    {
        const QString id = addRow("Orders", {{"OrderNumber", number},
                                             {"Customer", customer},
                                             {"Warehouse", warehouse},
                                             {"Status", status},
                                             {"OrderDate", date},
                                             {"DueDate", date.addDays(8)},
                                             {"ShipTo", "Dock"},
                                             {"Total", lines * 10.0},
                                             {"DateAdded", date}});
        for (int line = 1; line <= lines; ++line)
            addRow("OrderItem", {{"OrderID", id},
                                 {"ItemNumber", line},
                                 {"Qty", double(line)},
                                 {"PartNo", "P1"},
                                 {"Category", "Bolts"},
                                 {"PriceEach", 10.0},
                                 {"PriceExt", 99.0},
                                 {"CustomerNumber", "C" + QString::number(line)}});
        return id;
    }
    /// A new order form with customer and number filled in.
    static FormDriver newOrder(const char *customer = "Acme", const char *number = "A-1")
    {
        FormDriver form("frmOrderEntry");
        form.choose("cmbCustomer", customer);
        form.type("txtOrderNumber", number);
        return form;
    }
    /// Presses a button that closes the form, and comes back to the main window, which a list that dropped down leaves
    /// inactive on the offscreen platform.
    void leave(FormDriver &form, const char *button) const
    {
        form.click(button);
        settle();
        QApplication::setActiveWindow(mdi.get());
    }
    static FormDriver opened(const QString &id)
    {
        FormDriver form("frmOrderEntry");
        static_cast<frmOrderEntry *>(form.form())->OpenOrder(qint16(id.toInt()));
        return form;
    }
    /// Fills the fields of a line and leaves the last of them; without a price the one stays that the form found.
    static void enterLine(FormDriver &form, const char *part, const char *qty, const char *price = "")
    {
        form.choose("cmbPart", part);
        form.type("txtQty", qty);
        if (*price)
            form.type("txtPriceEach", price);
        form.key(Qt::Key_Tab);
    }
    static void addLine(FormDriver &form, const char *part, const char *qty, const char *price = "")
    {
        enterLine(form, part, qty, price);
        form.click("btnSaveItem");
    }
    static QString texts(const FormDriver &form, const QList<const char *> &names)
    {
        QStringList texts;
        for (const char *name : names)
            texts += form.text(name);
        return texts.join(',');
    }
    QString header(const QString &id) const { return database.rows("SELECT * FROM Orders WHERE ID = " + id).join(';'); }
    QStringList lines(const QString &id) const
    {
        return database.rows("SELECT * FROM OrderItem WHERE OrderID = " + id + " ORDER BY ItemNumber");
    }

    TestClock m_clock{"2011-03-30 14:05:09"};
};
