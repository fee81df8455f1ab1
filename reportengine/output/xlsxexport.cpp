#include "reportengine/output/exports.h"

#include "reportengine/output/newfile.h"
#include "reportengine/output/sheetcolumns.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/pages/valuetext.h"
#include "reportengine/report.h"
#include "reportengine/rows/rowstore.h"
#include <xlsxwriter.h>

namespace {

constexpr double PointsPerCharacter = 5.3; ///< of a spreadsheet's standard font
constexpr int MostCharacters = 32767;      ///< of a cell
constexpr int LongReport = 50000;          ///< rows

/// Decimals only where there are any: a format with optional ones alone would end a whole number in a bare point.
const char *quantityFormat(double number)
{
    const double printed = std::round(number * 10000) / 10000;
    return printed == std::floor(printed) ? "#,##0;(#,##0)" : "#,##0.####;(#,##0.####)";
}

/// As on paper, in the words of spreadsheets, which turn a ratio into percents by themselves.
const char *numberFormat(double number, Picture picture)
{
    switch (picture) {
    case Picture::Whole:
        return "#,##0;(#,##0)";
    case Picture::Quantity:
        return quantityFormat(number);
    case Picture::Money:
        return "#,##0.00;(#,##0.00)";
    case Picture::Price:
        return "#,##0.00##;(#,##0.00##)";
    case Picture::Dollars:
        return "$#,##0.00;($#,##0.00)";
    case Picture::Percent:
        return "0.0%;(0.0%)";
    default:
        return "General";
    }
}

/// A time of day is shown wherever there is one; on paper it may have had no room.
const char *dateFormat(const Date &date, Picture picture)
{
    const bool hasTime = date.time() != QTime(0, 0);
    return hasTime || picture == Picture::DateTime ? "m/d/yyyy h:mm AM/PM" : "m/d/yyyy";
}

/// One spreadsheet file being written, row by row. A long one goes straight to disk, with its texts in the cells
/// themselves instead of a common table.
class Sheet
{
public:
    Sheet(const QString &path, const Layout &layout, bool isLong) : m_layout(layout), m_columns(layout)
    {
        lxw_workbook_options options{};
        options.constant_memory = isLong;
        m_book = workbook_new_opt(path.toUtf8().constData(), &options);
        if (m_book)
            addSheet();
    }
    ~Sheet()
    {
        if (m_book)
            // Given up: the user stopped, and the library writes no file before it closes.
            lxw_workbook_free(m_book);
    }
    Sheet(const Sheet &) = delete;
    Sheet &operator=(const Sheet &) = delete;

    /// Writes the file to its end.
    Outcome close()
    {
        if (!m_book)
            return Outcome::failed("The spreadsheet could not be begun.");
        errno = 0;
        const lxw_error error = workbook_close(std::exchange(m_book, nullptr));
        if (error == LXW_NO_ERROR)
            return {};
        // The library's own words only tell which of its steps failed.
        return Outcome::failed(errno ? qt_error_string(errno) : QString::fromUtf8(lxw_strerror(error)));
    }

    /// A printed section: its lines become rows.
    void add(const CompiledSection &section, const Page &page)
    {
        if (!m_book || page.items.empty())
            return;
        // A flat report is for reckoning with: one heading row and the records, no titles, no totals.
        if (m_layout.exportAsTable && !isOfTable(*section.section))
            return;
        for (const std::vector<const PageItem *> &line : lines(page))
            writeLine(line);
        if (section.section->columnHeads && !m_headsStand) {
            // The first column heads stay in sight while the rows below are scrolled.
            worksheet_freeze_panes(m_sheet, m_row, 0);
            m_headsStand = true;
        }
    }

private:
    /// A flat layout's records are its details, or totals that take their place.
    static bool isOfTable(const Section &section)
    {
        return section.columnHeads || section.kind == Section::Kind::Detail ||
               section.kind == Section::Kind::GroupFooter;
    }

    void addSheet()
    {
        m_sheet = workbook_add_worksheet(m_book, nullptr);
        m_row = 0;
        for (int i = 0; i < m_columns.count(); ++i)
            worksheet_set_column(m_sheet, lxw_col_t(i), lxw_col_t(i), m_columns.width(i) / PointsPerCharacter + 2,
                                 nullptr);
    }

    /// The section's texts by the lines they stand on, top to bottom.
    std::vector<std::vector<const PageItem *>> lines(const Page &page) const
    {
        std::vector<const PageItem *> items;
        const LayoutObject *last = nullptr;
        for (const PageItem &item : page.items) {
            // What the paper broke into lines is one cell, which its first line stands for.
            const bool isContinued = isOneCell(item) && item.object == last;
            if (item.kind == PageItem::Kind::Text && !isContinued)
                items.push_back(&item);
            last = item.object;
        }
        std::stable_sort(items.begin(), items.end(),
                         [](const PageItem *a, const PageItem *b) { return a->rect.bottom() < b->rect.bottom(); });
        std::vector<std::vector<const PageItem *>> result;
        for (const PageItem *item : items) {
            if (result.empty() || item->rect.bottom() - result.back().front()->rect.bottom() > 4)
                result.emplace_back();
            result.back().push_back(item);
        }
        return result;
    }

    /// Lines that a text has of its own, such as those of an address, stay rows, but in a table.
    bool isOneCell(const PageItem &item) const
    {
        return m_layout.exportAsTable || !item.value.joined().contains(u'\n');
    }

    void writeLine(std::vector<const PageItem *> line)
    {
        // A sheet takes no more. The report goes on on another one.
        if (m_row == LXW_ROW_MAX)
            addSheet();
        std::stable_sort(line.begin(), line.end(),
                         [](const PageItem *a, const PageItem *b) { return a->rect.left() < b->rect.left(); });
        // Cells of a row must be written left to right, each once: two items of one column stand side by side.
        int next = 0;
        for (const PageItem *item : line) {
            const int column = m_columns.columnAt(item->rect.left(), item->rect.right(), item->align);
            next = std::max(next, column);
            write(next++, *item);
        }
        ++m_row;
    }

    void write(int column, const PageItem &item)
    {
        const auto col = lxw_col_t(column);
        if (isFigure(item.value)) {
            const bool isDate = item.value.type() == Value::Type::Date;
            const double number = isDate ? item.value.toDate().serial() : item.value.toDouble();
            const char *shown =
                isDate ? dateFormat(item.value.toDate(), item.picture) : numberFormat(number, item.picture);
            worksheet_write_number(m_sheet, m_row, col, number, format(shown, item));
            return;
        }
        // The whole of a text that the paper broke or cut; of one with lines of its own just the line.
        const QString text = isOneCell(item) && !item.value.isNull() ? item.value.toText() : item.text;
        // More than that no cell takes, and the library would leave it empty.
        worksheet_write_string(m_sheet, m_row, col, text.left(MostCharacters).toUtf8().constData(),
                               format("General", item));
    }

    lxw_format *format(const char *number, const PageItem &item)
    {
        // One for all cells that look alike, since the file lists every one that was made.
        lxw_format *&format = m_formats[{number, item.align, item.style.bold}];
        if (!format) {
            format = workbook_add_format(m_book);
            format_set_num_format(format, number);
            if (item.style.bold)
                format_set_bold(format);
            if (item.align != Align::Left)
                format_set_align(format, item.align == Align::Right ? LXW_ALIGN_RIGHT : LXW_ALIGN_CENTER);
        }
        return format;
    }

    const Layout &m_layout;
    SheetColumns m_columns;
    lxw_workbook *m_book = nullptr;
    lxw_worksheet *m_sheet = nullptr;
    std::map<std::tuple<std::string_view, Align, bool>, lxw_format *> m_formats;
    lxw_row_t m_row = 0;
    bool m_headsStand = false;
};

} // namespace

Outcome writeXlsx(Report &report, const QString &path, const Progress &progress)
{
    NewFile file(path);
    if (!file.open())
        return file.failure();
    // The library writes by name. Opening has shown that the folder takes a file.
    file.device()->close();
    const int rows = report.rows().rowCount();
    Sheet sheet(file.temporaryPath(), report.layout(), rows > LongReport);
    const bool isWhole = report.pages().forEachSection([&](const CompiledSection &section, const Page &items, int row) {
        sheet.add(section, items);
        return !progress || row % 500 != 0 || progress(row, rows);
    });
    if (!isWhole)
        return Outcome::cancelled();
    const Outcome written = sheet.close();
    return written ? file.commit() : written;
}
