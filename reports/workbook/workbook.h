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
    /// form, whatever their format in the sheet; nothing outside the used cells. Error 9 for a missing sheet. Known
    /// weakness: the reading libraries pass over a cell that holds an error such as "#N/A", so it reads as blank.
    QString text(int sheet, int row, int column) const;

    /// A sheet's used cells.
    class Sheet
    {
    public:
        void set(int row, int column, const Value &value) { m_cells.insert(key(row, column), value); }
        /// Null where the cell is blank.
        Value at(int row, int column) const { return m_cells.value(key(row, column)); }

    private:
        static quint64 key(int row, int column) { return quint64(quint32(row)) << 32 | quint32(column); }

        QHash<quint64, Value> m_cells;
    };

private:
    std::vector<Sheet> m_sheets;
};
