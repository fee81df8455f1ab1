#pragma once

#include "data/workbook/sheet.h"
#include <QString>
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

private:
    std::vector<Sheet> m_sheets;
};
