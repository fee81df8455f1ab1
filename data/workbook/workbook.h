#pragma once

#include "data/values/value.h"
#include <map>
#include <vector>

/// A spreadsheet file, read whole when it is opened and never written. Knows .xlsx, .ods and .xls by their suffix.
class Workbook
{
public:
    /// Error 432 for an empty path, a missing file, one of another kind, and a damaged one.
    static Workbook open(const QString &path);

    /// What a cell shows as text, counted from 1, without the blanks around it: numbers and dates in the program's own
    /// form, whatever their format in the sheet, formulas by their stored result; nothing outside the used cells.
    /// Error 9 for a missing sheet, 13 for a cell that holds an error such as #N/A.
    QString text(int sheet, int row, int column) const;

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

    /// A sheet's used cells.
    class Sheet
    {
    public:
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

private:
    std::vector<Sheet> m_sheets;
};
