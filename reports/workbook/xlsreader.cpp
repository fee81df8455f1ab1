#include "data/values/conversions.h"
#include "reports/workbook/readers.h"
#include <QFile>
#include <freexl.h>

// Files of the older spreadsheet programs.

namespace {

struct CloseHandle
{
    void operator()(const void *handle) const { freexl_close(handle); }
};

/// Dates come as ISO texts, times as "14:05:09".
Value dateValue(const char *text)
{
    const QString iso = QString::fromLatin1(text);
    if (const auto date = Date::fromIso(iso))
        return *date;
    if (const auto time = dateFromText(iso))
        return *time;
    return iso;
}

Value valueOf(const FreeXL_CellValue &cell)
{
    switch (cell.type) {
    case FREEXL_CELL_INT:
        return double(cell.value.int_value);
    case FREEXL_CELL_DOUBLE:
        return cell.value.double_value;
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
        return QString::fromUtf8(cell.value.text_value);
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME:
        return dateValue(cell.value.text_value);
    default:
        return {};
    }
}

Workbook::Sheet readSheet(const void *handle)
{
    Workbook::Sheet sheet;
    unsigned int rows = 0;
    unsigned short columns = 0;
    if (freexl_worksheet_dimensions(handle, &rows, &columns) != FREEXL_OK)
        return sheet;
    for (unsigned int row = 0; row < rows; ++row) {
        for (unsigned short column = 0; column < columns; ++column) {
            FreeXL_CellValue cell;
            if (freexl_get_cell_value(handle, row, column, &cell) != FREEXL_OK)
                continue;
            const Value value = valueOf(cell);
            if (!value.isNull())
                sheet.set(int(row) + 1, column + 1, value);
        }
    }
    return sheet;
}

} // namespace

std::optional<std::vector<Workbook::Sheet>> readXls(const QString &path)
{
    const void *opened = nullptr;
    const int result = freexl_open(QFile::encodeName(path).constData(), &opened);
    const std::unique_ptr<const void, CloseHandle> handle(opened);
    if (result != FREEXL_OK)
        return {};

    unsigned int count = 0;
    if (freexl_get_info(handle.get(), FREEXL_BIFF_SHEET_COUNT, &count) != FREEXL_OK)
        return {};
    std::vector<Workbook::Sheet> sheets;
    for (unsigned short index = 0; index < count; ++index) {
        if (freexl_select_active_worksheet(handle.get(), index) != FREEXL_OK)
            return {};
        sheets.push_back(readSheet(handle.get()));
    }
    return sheets;
}
