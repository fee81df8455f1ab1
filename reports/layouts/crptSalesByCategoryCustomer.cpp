#include "reports/layouts/layouts.h"
#include "reports/layouts/salescomparison.h"

Layout crptSalesByCategoryCustomer()
{
    return salesComparison("Sales By Category", {{.by = "{Category}", .none = "No category"}});
}
