#include "data/workbook/workbook.h"
#include "data/values/runtimeerror.h"
#include "data/workbook/readers.h"
#include <QFileInfo>

Workbook Workbook::open(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    std::optional<std::vector<Sheet>> sheets;
    if (suffix == "xlsx")
        sheets = readXlsx(path);
    else if (suffix == "ods")
        sheets = readOds(path);
    else if (suffix == "xls")
        sheets = readXls(path);
    if (!sheets)
        throw runtimeError(432, {}, path);
    Workbook workbook;
    workbook.m_sheets = std::move(*sheets);
    return workbook;
}

Value Workbook::Sheet::at(int row, int column) const
{
    const Cell cell = m_cells.value(key(row, column));
    if (cell.isError)
        throw runtimeError(13);
    return cell.value;
}

QString Workbook::text(int sheet, int row, int column) const
{
    if (sheet < 1 || sheet > int(m_sheets.size()))
        throw runtimeError(9);
    const QString text = m_sheets[size_t(sheet - 1)].at(row, column).joined();
    qsizetype begin = 0, end = text.size();
    while (begin < end && text[begin] == ' ')
        ++begin;
    while (end > begin && text[end - 1] == ' ')
        --end;
    return text.mid(begin, end - begin);
}
