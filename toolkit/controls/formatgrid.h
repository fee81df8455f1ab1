#pragma once

#include <initializer_list>

class FlexGrid;

/// What every form does to a grid it has just filled: all columns and headers centred, the named columns shown as
/// money, columns as wide as their content.
void formatGrid(FlexGrid *grid, std::initializer_list<int> moneyColumns);
