#pragma once

#include "data/workbook/workbook.h"
#include <QDateTime>
#include <QStringList>
#include <vector>
#include <xlsxwriter.h>

/// Writes a workbook: sheets of rows of cells with "|" between them. What looks like a number or a moment
/// ("2003-02-14T00:00:00Z") is one, unless an apostrophe stands before it.
inline void writeXlsx(const QString &path, const std::vector<QStringList> &sheets)
{
    lxw_workbook *book = workbook_new(path.toUtf8().constData());
    lxw_format *date = workbook_add_format(book);
    format_set_num_format(date, "m/d/yy h:mm");
    const auto write = [date](lxw_worksheet *sheet, lxw_row_t row, lxw_col_t column, QString text) {
        bool isNumber = false;
        const double number = text.toDouble(&isNumber);
        const QDateTime moment = QDateTime::fromString(text, Qt::ISODate);
        if (isNumber)
            worksheet_write_number(sheet, row, column, number, nullptr);
        else if (moment.isValid())
            worksheet_write_unixtime(sheet, row, column, moment.toSecsSinceEpoch(), date);
        else if (!text.isEmpty())
            worksheet_write_string(sheet, row, column, text.remove('\'').toUtf8().constData(), nullptr);
    };
    for (const QStringList &rows : sheets) {
        lxw_worksheet *sheet = workbook_add_worksheet(book, nullptr);
        for (int row = 0; row < rows.size(); ++row) {
            const QStringList cells = rows[row].split('|');
            for (int column = 0; column < cells.size(); ++column)
                write(sheet, row, column, cells[column]);
        }
    }
    workbook_close(book);
}

/// The first lines of a workbook's first sheet, cells with "|" between them.
inline QStringList linesOf(const QString &path, int columns, qsizetype count)
{
    const Workbook book = Workbook::open(path);
    QStringList lines;
    for (int row = 1; row <= count; ++row) {
        QStringList cells;
        for (int column = 1; column <= columns; ++column)
            cells += book.text(1, row, column);
        lines += cells.join('|');
    }
    return lines;
}
