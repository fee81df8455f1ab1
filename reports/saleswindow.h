#pragma once

#include <QString>

/// The full months over which sales are averaged, as date texts ("2/1/2010" to "4/30/2010").
struct SalesWindow
{
    QString StartDate, EndDate;
};

/// `Months` full months ending with the one before today's; none at all for 0. A February ends on the 28th in every
/// year, so that sales of a 29 February never count in a window that ends with it.
SalesWindow salesWindow(int Months);
