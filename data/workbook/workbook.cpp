#include "data/workbook/workbook.h"

#include "data/values/plainfile.h"
#include "data/values/runtimeerror.h"
#include "data/workbook/damagedfile.h"
#include "data/workbook/readers.h"
#include <QFileInfo>

namespace {

constexpr qint64 LargestFile = 256 << 20;
constexpr int MostRuns = 5'000'000;

using Reader = std::vector<Workbook::Sheet> (*)(const QByteArray &content);

Reader readerOf(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == "xlsx" ? readXlsx : suffix == "ods" ? readOds : suffix == "xls" ? readXls : nullptr;
}

/// The last entry of a map that begins at a key or before it.
template <class Map> auto entryAt(Map &map, int key)
{
    auto entry = map.upper_bound(key);
    return entry == map.begin() ? map.end() : --entry;
}

} // namespace

Workbook Workbook::open(const QString &path)
{
    const Reader read = readerOf(path);
    const auto content = read ? plainFileContents(path, LargestFile) : std::nullopt;
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

void Workbook::Sheet::fill(Range rows, Range columns, Cell cell)
{
    if (++m_runs > MostRuns)
        throw DamagedFile();
    Band &band = m_bands.try_emplace(m_bands.end(), rows.first)->second;
    band.last = rows.last;
    band.runs.insert_or_assign(band.runs.end(), columns.first, Run{columns.last, std::move(cell)});
}

Value Workbook::Sheet::at(int row, int column) const
{
    const auto band = entryAt(m_bands, row);
    if (band == m_bands.end() || band->second.last < row)
        return {};
    const auto run = entryAt(band->second.runs, column);
    if (run == band->second.runs.end() || run->second.last < column)
        return {};
    if (run->second.cell.isError)
        throw runtimeError(13);
    return run->second.cell.value;
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
