#pragma once

#include <QByteArray>

/// The joins that several operations share, each in the order that walks the rows once.
namespace Bare::Joins {
/// Shipped lines with their order lines, from the shipments on.
inline const QByteArray FromShipments =
    " FROM Shipment CROSS JOIN Orders ON Orders.ID = Shipment.OrderID CROSS JOIN ShipmentItems ON "
    "ShipmentItems.ShipmentID = Shipment.ID CROSS JOIN OrderItem ON OrderItem.OrderID = Orders.ID AND "
    "OrderItem.ItemNumber = ShipmentItems.OrderLineItem ";
/// The same from the lines on.
inline const QByteArray FromShippedLines =
    " FROM ShipmentItems CROSS JOIN Shipment ON Shipment.ID = ShipmentItems.ShipmentID CROSS JOIN Orders ON Orders.ID "
    "= Shipment.OrderID CROSS JOIN OrderItem ON OrderItem.OrderID = Orders.ID AND OrderItem.ItemNumber = "
    "ShipmentItems.OrderLineItem ";

/// One half of all transfers: `side` is FromID or ToID.
inline QByteArray fromTransfers(const QByteArray &side)
{
    return " FROM TransferHeader T LEFT JOIN AdjustmentHeader H ON T." + side +
           " = H.ID LEFT JOIN AdjustmentDetail D ON D.AdjustmentID = H.ID ";
}
inline const QByteArray FromAdjustments =
    " FROM AdjustmentHeader H LEFT JOIN AdjustmentDetail D ON D.AdjustmentID = H.ID ";
/// Of adjustments: not those that are halves of transfers.
inline const QByteArray WhereNoTransfer = " WHERE H.ID NOT IN (SELECT FromID FROM TransferHeader) AND H.ID NOT IN "
                                          "(SELECT ToID FROM TransferHeader) ";
} // namespace Bare::Joins
