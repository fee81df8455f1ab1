#include "data/workbook/workbook.h"

#include "data/values/plainfile.h"
#include "data/values/runtimeerror.h"
#include "data/workbook/damagedfile.h"
#include "data/workbook/limits.h"
#include "data/workbook/readers.h"
#include <QFileInfo>

namespace {

using Reader = std::vector<Sheet> (*)(const QByteArray &content);

Reader readerOf(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == "xlsx" ? readXlsx : suffix == "ods" ? readOds : suffix == "xls" ? readXls : nullptr;
}

} // namespace

Workbook Workbook::open(const QString &path)
{
    const Reader read = readerOf(path);
    // Read whole and let go of: others may have the workbook open, and go on writing to it.
    const auto content = read ? plainFileContents(path, WorkbookLimits::FileBytes) : std::nullopt;
    if (!content)
        throw runtimeError(432, {}, path);
    try {
        Workbook workbook;
        workbook.m_sheets = read(*content);
        return workbook;
    } catch (const DamagedFile &) {
        throw runtimeError(432, {}, path);
    }
}

QString Workbook::text(int sheet, int row, int column) const
{
    // A sheet that is missing is found out at its first cell, not at the opening.
    if (sheet < 1 || sheet > int(m_sheets.size()))
        throw runtimeError(9);
    const QString text = m_sheets[size_t(sheet - 1)].at(row, column).joined();
    qsizetype begin = 0, end = text.size();
    // Blanks alone: tabs and line ends belong to the text.
    while (begin < end && text[begin] == ' ')
        ++begin;
    while (end > begin && text[end - 1] == ' ')
        --end;
    return text.mid(begin, end - begin);
}
