#include "app/shell/forms.h"

#include "app/shell/about.h"
#include "app/toolkit/form.h"
#include "master/frmcustomerentry.h"
#include "master/frmpartentry.h"
#include "master/frmwarehouseentry.h"
#include "orders/frmorderentry.h"
#include "orders/frmordernavigator.h"

namespace {
template <class FormClass> Form *make()
{
    return new FormClass;
}
} // namespace

// The only place that knows all forms; everyone else loads them by name.
void registerForms()
{
    Forms::add(QStringLiteral("frmAbout"), make<frmAbout>);
    Forms::add(QStringLiteral("frmCustomerEntry"), make<frmCustomerEntry>);
    Forms::add(QStringLiteral("frmPartEntry"), make<frmPartEntry>);
    Forms::add(QStringLiteral("frmWarehouseEntry"), make<frmWarehouseEntry>);
    Forms::add(QStringLiteral("frmOrderEntry"), make<frmOrderEntry>);
    Forms::add(QStringLiteral("frmOrderNavigator"), make<frmOrderNavigator>);
}
