#pragma once

#include "data/values/value.h"
#include <map>

/// A sheet's used cells.
class Sheet
{
public:
    /// What cells hold.
    struct Cell
    {
        Value value;
        bool isError = false;
    };

    /// From the first to the last, both counted from 1.
    struct Range
    {
        int first, last;
    };

    void set(int row, int column, Cell cell) { fill({row, row}, {column, column}, std::move(cell)); }
    /// The same in all cells of a block. A block of several rows must not share rows with another. DamagedFile for
    /// more cells than any workbook of use has.
    void fill(Range rows, Range columns, Cell cell);
    /// Null where the cell is blank; error 13 where it holds an error.
    Value at(int row, int column) const;

private:
    /// Cells side by side that hold the same.
    struct Run
    {
        int last;
        Cell cell;
    };
    /// Rows one below the other that hold the same.
    struct Band
    {
        int last;
        std::map<int, Run> runs; ///< by their first columns
    };

    std::map<int, Band> m_bands; ///< by their first rows
    int m_runs = 0;
};
