#include "reports/layouts/inventoryregister.h"
#include "reports/layouts/layouts.h"

Layout crptAvailableInventoryByPart()
{
    return inventoryRegister(
        "Available Inventory By Part/Whse",
        {.by = "{PartNo}", .heading = "\"Part \" & {PartNo}", .footing = "\"Total part \" & {PartNo}"}, "{Warehouse}",
        "Warehouse");
}
