#include "reports/layouts/layouts.h"
#include "reports/layouts/salescomparison.h"

Layout crptSalesByCustomer()
{
    return salesComparison("Sales By Customer", {});
}
