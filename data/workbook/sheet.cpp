#include "data/workbook/sheet.h"

#include "data/values/runtimeerror.h"
#include "data/workbook/damagedfile.h"
#include "data/workbook/limits.h"

namespace {

/// The last entry of a map that begins at a key or before it.
template <class Map> auto entryAt(Map &map, int key)
{
    auto entry = map.upper_bound(key);
    return entry == map.begin() ? map.end() : --entry;
}

} // namespace

void Sheet::fill(Range rows, Range columns, Cell cell)
{
    if (++m_runs > WorkbookLimits::Runs)
        throw DamagedFile();
    // Readers come by rows and columns in order; a place that comes again takes the later value.
    Band &band = m_bands.try_emplace(m_bands.end(), rows.first)->second;
    band.last = rows.last;
    band.runs.insert_or_assign(band.runs.end(), columns.first, Run{columns.last, std::move(cell)});
}

Value Sheet::at(int row, int column) const
{
    const auto band = entryAt(m_bands, row);
    if (band == m_bands.end() || band->second.last < row)
        return {};
    const auto run = entryAt(band->second.runs, column);
    if (run == band->second.runs.end() || run->second.last < column)
        return {};
    // An error value in a cell has no text: the routine that reads it stops with a type mismatch.
    if (run->second.cell.isError)
        throw runtimeError(13);
    return run->second.cell.value;
}
