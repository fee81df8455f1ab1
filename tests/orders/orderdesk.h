#pragma once

#include "orders/frmorderentry.h"
#include "tests/support/company.h"
#include "toolkit/forms/mainmod.h"

/// The order form as its clerk comes to it.
class OrderDesk : public CompanyTest
{
protected:
    /// A new order with customer and number filled in, and what else is done on it.
    static FormDriver newOrder(const QString &steps = {}, const QString &customer = "Acme Rail")
    {
        return FormDriver("frmOrderEntry", "cmbCustomer: " + customer + "; txtOrderNumber: A-1;" + steps);
    }
    /// An order opened, over what the form shows if it is loaded.
    static FormDriver opened(const QString &id)
    {
        FormDriver form("frmOrderEntry");
        static_cast<frmOrderEntry *>(form.form())->OpenOrder(qint16(id.toInt()));
        return form;
    }
    /// A saved order of 1 and 2 axles at 10.
    static QString twoLines(const char *customer = "Acme Rail")
    {
        return addOrder("A-7", customer, {{"AX-100", 1, 10}, {"AX-100", 2, 10}});
    }
    QStringList savedLines() const { return table("OrderItem", "OrderID, ItemNumber"); }
};
