#include "reports/layouts/inventoryregister.h"
#include "reports/layouts/layouts.h"

Layout crptAvailableInventory()
{
    return inventoryRegister("Available Inventory By Whse/Part",
                             {.by = "{Warehouse}",
                              .heading = "\"Warehouse \" & {Warehouse}",
                              .footing = "\"Total warehouse \" & {Warehouse}"},
                             "{PartNo}", "Part No.");
}
