#include "bench/bare/engine.h"
#include "bench/bare/operations.h"

void Bare::orderNavigator(BareEngine &engine)
{
    engine.run("SELECT * FROM Orders ORDER BY Customer,OrderNumber");
}

void Bare::shipmentNavigator(BareEngine &engine)
{
    engine.run("SELECT S.ID,S.Date,O.ID,O.Customer,O.OrderNumber,O.ShipTo,O.ShipToAddress1,O.ShipToAddress2,"
               "O.ShipToCity,O.ShipToState,O.ShipToZip,S.Invoiced FROM Shipment S LEFT JOIN Orders O ON S.OrderID = "
               "O.ID ORDER BY O.Customer,O.OrderNumber");
}
