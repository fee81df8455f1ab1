#include "reports/layouts/layouts.h"
#include "reports/layouts/salescomparison.h"

Layout crptSalesByTerritoryCustomer()
{
    return salesComparison("Sales By Territory", {{.by = "{Territory}", .none = "No territory"}});
}
