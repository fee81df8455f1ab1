#include "toolkit/controls/formatgrid.h"

#include "data/values/format.h"
#include "toolkit/controls/flexgrid.h"

void formatGrid(FlexGrid *grid, std::initializer_list<int> moneyColumns)
{
    // Cells and headers alike, in every grid.
    grid->setColAlignmentCentered();
    for (const int column : moneyColumns)
        grid->setColFormat(column, MoneyGridFormat.toString());
    grid->autoSize();
}
