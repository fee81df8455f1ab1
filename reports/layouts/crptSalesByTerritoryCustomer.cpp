#include "reports/layouts/layouts.h"
#include "reports/layouts/salescomparison.h"

Layout crptSalesByTerritoryCustomer()
{
    return salesComparison(
        "Sales By Territory",
        {{.by = "{Territory}",
          .heading = "if IsNull({Territory}) then \"No territory\" else {Territory}",
          .footing = "\"Total \" & (if IsNull({Territory}) then \"no territory\" else {Territory})"}});
}
