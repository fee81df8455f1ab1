#pragma once

#include "data/values/value.h"
#include <QHash>
#include <memory>
#include <vector>

/// A spreadsheet file, read whole when it is opened and never written. Knows .xlsx, .ods and .xls by their suffix.
class Workbook
{
public:
    /// Error 432 for an empty path, a missing file, and one of another kind.
    static Workbook open(const QString &path);

    /// What a cell shows as text, counted from 1, without the blanks around it: numbers and dates in the program's own
    /// form, whatever their format in the sheet, formulas by their stored result; nothing outside the used cells.
    /// Error 9 for a missing sheet, 13 for a cell that holds an error such as #N/A.
    QString text(int sheet, int row, int column) const;

    /// A sheet's used cells.
    class Sheet
    {
    public:
        void set(int row, int column, const Value &value) { m_cells.insert(key(row, column), {value, false}); }
        void setError(int row, int column) { m_cells.insert(key(row, column), {{}, true}); }
        /// Null where the cell is blank; error 13 where it holds an error.
        Value at(int row, int column) const;

    private:
        struct Cell
        {
            Value value;
            bool isError = false;
        };

        static quint64 key(int row, int column) { return quint64(quint32(row)) << 32 | quint32(column); }

        QHash<quint64, Cell> m_cells;
    };

private:
    std::vector<Sheet> m_sheets;
};
