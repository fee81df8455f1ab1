#include "app/toolkit/formatgrid.h"

#include "app/toolkit/flexgrid.h"
#include "data/values/conversions.h"

void formatGrid(FlexGrid *grid, std::initializer_list<int> moneyColumns)
{
    grid->setColAlignmentCentered();
    for (const int column : moneyColumns)
        grid->setColFormat(column, MoneyGridFormat.toString());
    grid->autoSize();
}
