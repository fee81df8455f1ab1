#pragma once

#include <QString>

/// The cost of the goods on a list of shipments ("3, 5, 8"), at today's part costs; 0 when they hold no line.
double GetShipmentCost(const QString &ShipmentIDs);
