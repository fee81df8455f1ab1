#pragma once

#include "reports/dialogs/daterangedialog.h"

/// Sales by warehouse and part, in the printed or in the spreadsheet layout.
class frmSalesByWhsePart : public DateRangeDialog
{
    Q_OBJECT
public:
    frmSalesByWhsePart();

private:
    void placeControls() override;

    QCheckBox *chkExport;
};

/// Asks for patience besides. Its routine sets the hourglass as well; the second setting and clearing changes nothing.
class frmInventorySalesReport : public DateRangeDialog
{
    Q_OBJECT
public:
    frmInventorySalesReport();

private:
    void placeControls() override;
};
