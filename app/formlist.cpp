#include "app/formlist.h"

#include "app/about.h"
#include "billing/frmcreateinvoices.h"
#include "billing/frmreceivepayment.h"
#include "inventory/frminventoryadjust.h"
#include "inventory/frmtransfer.h"
#include "master/frmcustomerentry.h"
#include "master/frmpartentry.h"
#include "master/frmwarehouseentry.h"
#include "orders/frmorderentry.h"
#include "orders/frmordernavigator.h"
#include "reports/dialogs/reportforms.h"
#include "shipping/frmshipmententry.h"
#include "shipping/frmshipmentnavigator.h"
#include "toolkit/forms/form.h"
#include "toolkit/forms/forms.h"

namespace {
template <class FormClass> Form *make()
{
    return new FormClass;
}
} // namespace

/// The only place that knows all forms; everyone else loads them by name.
void registerForms()
{
    Forms::add("frmAbout", make<frmAbout>);
    Forms::add("frmCustomerEntry", make<frmCustomerEntry>);
    Forms::add("frmPartEntry", make<frmPartEntry>);
    Forms::add("frmWarehouseEntry", make<frmWarehouseEntry>);
    Forms::add("frmInventoryAdjust", make<frmInventoryAdjust>);
    Forms::add("frmTransfer", make<frmTransfer>);
    Forms::add("frmOrderEntry", make<frmOrderEntry>);
    Forms::add("frmOrderNavigator", make<frmOrderNavigator>);
    Forms::add("frmShipmentEntry", make<frmShipmentEntry>);
    Forms::add("frmShipmentNavigator", make<frmShipmentNavigator>);
    Forms::add("frmCreateInvoices", make<frmCreateInvoices>);
    Forms::add("frmReceivePayment", make<frmReceivePayment>);
    for (const auto &[name, factory] : reportForms())
        Forms::add(name, factory);
}
