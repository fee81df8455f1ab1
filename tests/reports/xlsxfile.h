#pragma once

#include <QString>
#include <variant>
#include <vector>
#include <xlsxwriter.h>

/// A workbook written for a test: sheets of rows of cells. A cell is blank, a number, a text or a date with time.
struct XlsxFile
{
    using Cell = std::variant<std::monostate, double, const char *, lxw_datetime>;
    using Sheet = std::vector<std::vector<Cell>>;

    static void write(const QString &path, const std::vector<Sheet> &sheets)
    {
        lxw_workbook *book = workbook_new(path.toUtf8().constData());
        lxw_format *date = workbook_add_format(book);
        format_set_num_format(date, "m/d/yy h:mm");
        for (const Sheet &rows : sheets) {
            lxw_worksheet *sheet = workbook_add_worksheet(book, nullptr);
            for (size_t row = 0; row < rows.size(); ++row) {
                for (size_t column = 0; column < rows[row].size(); ++column)
                    writeCell(sheet, lxw_row_t(row), lxw_col_t(column), rows[row][column], date);
            }
        }
        workbook_close(book);
    }

private:
    static void writeCell(lxw_worksheet *sheet, lxw_row_t row, lxw_col_t column, Cell cell, lxw_format *date)
    {
        if (const auto *number = std::get_if<double>(&cell))
            worksheet_write_number(sheet, row, column, *number, nullptr);
        else if (const auto *text = std::get_if<const char *>(&cell))
            worksheet_write_string(sheet, row, column, *text, nullptr);
        else if (auto *moment = std::get_if<lxw_datetime>(&cell))
            worksheet_write_datetime(sheet, row, column, moment, date);
    }
};
