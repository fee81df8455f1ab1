#include "reports/workbook/orcussheets.h"
#include "reports/workbook/numberformat.h"
#include <orcus/spreadsheet/shared_strings.hpp>
#include <orcus/spreadsheet/styles.hpp>

namespace ss = orcus::spreadsheet;

namespace {

constexpr ss::range_size_t LargestSheet{1048576, 16384};

/// What each cell format makes of a number.
using NumberKinds = std::vector<NumberKind>;

NumberKinds numberKinds(const ss::styles &styles)
{
    QHash<size_t, QString> pictures; // of the formats that the file defines itself, by their numbers
    for (size_t index = 0; index < styles.get_number_format_count(); ++index) {
        const ss::number_format_t &format = *styles.get_number_format(index);
        pictures[format.identifier] =
            QString::fromUtf8(format.format_string.data(), qsizetype(format.format_string.size()));
    }
    NumberKinds kinds;
    for (size_t index = 0; index < styles.get_cell_formats_count(); ++index) {
        const size_t number = styles.get_cell_format(index)->number_format; // the format's number, not its index
        kinds.push_back(kindOfNumberFormat(int(number), pictures.value(number)));
    }
    return kinds;
}

} // namespace

/// The cells of one sheet as they come. Formulas count as their stored results.
class OrcusSheets::Cells : public ss::iface::import_sheet, public ss::iface::import_formula
{
public:
    explicit Cells(std::string_view name) : m_name(name) {}

    const std::string &name() const { return m_name; }
    Workbook::Sheet convert(const ss::document &document, const NumberKinds &kinds) const;

    ss::iface::import_formula *get_formula() override { return this; }
    void set_auto(ss::row_t row, ss::col_t column, std::string_view text) override { put(row, column, text); }
    void set_string(ss::row_t row, ss::col_t column, ss::string_id_t index) override
    {
        m_cells[{row, column}] = SharedString{index};
    }
    void set_value(ss::row_t row, ss::col_t column, double number) override { m_cells[{row, column}] = number; }
    void set_bool(ss::row_t row, ss::col_t column, bool value) override { m_cells[{row, column}] = value; }
    void set_date_time(ss::row_t row, ss::col_t column, int year, int month, int day, int hour, int minute,
                       double second) override;
    void set_format(ss::row_t row, ss::col_t column, size_t format) override { m_formats[{row, column}] = format; }
    void set_format(ss::row_t firstRow, ss::col_t firstColumn, ss::row_t lastRow, ss::col_t lastColumn,
                    size_t format) override
    {
        m_areas.push_back({firstRow, firstColumn, lastRow, lastColumn, format});
    }
    void fill_down_cells(ss::row_t row, ss::col_t column, ss::row_t count) override;
    ss::range_size_t get_sheet_size() const override { return LargestSheet; }

    void set_position(ss::row_t row, ss::col_t column) override { m_formula = {row, column}; }
    void set_formula(ss::formula_grammar_t, std::string_view) override {}
    void set_shared_formula_index(size_t) override {}
    void set_result_string(std::string_view text) override { put(m_formula.first, m_formula.second, text); }
    void set_result_value(double number) override { m_cells[m_formula] = number; }
    void set_result_bool(bool value) override { m_cells[m_formula] = value; }
    void set_result_empty() override {}
    void commit() override {}

private:
    using Position = std::pair<ss::row_t, ss::col_t>;
    struct SharedString
    {
        size_t index;
    };
    struct Area
    {
        ss::row_t firstRow;
        ss::col_t firstColumn;
        ss::row_t lastRow;
        ss::col_t lastColumn;
        size_t format;
    };
    using Content = std::variant<bool, double, Date, QString, SharedString>;

    void put(ss::row_t row, ss::col_t column, std::string_view text)
    {
        m_cells[{row, column}] = QString::fromUtf8(text.data(), qsizetype(text.size()));
    }
    NumberKind kindAt(const Position &position, const NumberKinds &kinds) const;
    std::optional<size_t> formatAt(const Position &position) const;

    std::string m_name;
    std::map<Position, Content> m_cells;
    std::map<Position, size_t> m_formats;
    std::vector<Area> m_areas;
    Position m_formula;
};

void OrcusSheets::Cells::set_date_time(ss::row_t row, ss::col_t column, int year, int month, int day, int hour,
                                       int minute, double second)
{
    const QDateTime moment(QDate(year, month, day), QTime(hour, minute, int(second)), Qt::UTC);
    m_cells[{row, column}] = Date(moment);
}

void OrcusSheets::Cells::fill_down_cells(ss::row_t row, ss::col_t column, ss::row_t count)
{
    const auto source = m_cells.find({row, column});
    if (source == m_cells.end())
        return;
    const Content content = source->second;
    for (ss::row_t below = 1; below <= count; ++below)
        m_cells[{row + below, column}] = content;
}

std::optional<size_t> OrcusSheets::Cells::formatAt(const Position &position) const
{
    if (const auto own = m_formats.find(position); own != m_formats.end())
        return own->second;
    for (auto area = m_areas.rbegin(); area != m_areas.rend(); ++area) {
        if (position.first >= area->firstRow && position.first <= area->lastRow &&
            position.second >= area->firstColumn && position.second <= area->lastColumn)
            return area->format;
    }
    return {};
}

NumberKind OrcusSheets::Cells::kindAt(const Position &position, const NumberKinds &kinds) const
{
    const auto format = formatAt(position);
    return format && *format < kinds.size() ? kinds[*format] : NumberKind::Plain;
}

Workbook::Sheet OrcusSheets::Cells::convert(const ss::document &document, const NumberKinds &kinds) const
{
    const auto origin = document.get_origin_date();
    const double firstDay = Date(origin.year, origin.month, origin.day).serial();
    Workbook::Sheet sheet;
    for (const auto &[position, content] : m_cells) {
        Value value;
        if (const auto *number = std::get_if<double>(&content))
            value = numberValue(*number, kindAt(position, kinds), firstDay);
        else if (const auto *shared = std::get_if<SharedString>(&content))
            value = QString::fromStdString(*document.get_shared_strings()->get_string(shared->index));
        else if (const auto *text = std::get_if<QString>(&content))
            value = *text;
        else if (const auto *date = std::get_if<Date>(&content))
            value = *date;
        else
            value = std::get<bool>(content);
        sheet.set(position.first + 1, position.second + 1, value);
    }
    return sheet;
}

OrcusSheets::OrcusSheets(Formats formats) : m_formats(formats), m_document(LargestSheet), m_factory(m_document) {}

OrcusSheets::~OrcusSheets() = default;

std::vector<Workbook::Sheet> OrcusSheets::take() const
{
    NumberKinds kinds;
    if (m_formats == Formats::Matter)
        kinds = numberKinds(m_document.get_styles());
    std::vector<Workbook::Sheet> sheets;
    for (const auto &cells : m_sheets)
        sheets.push_back(cells->convert(m_document, kinds));
    return sheets;
}

ss::iface::import_global_settings *OrcusSheets::get_global_settings()
{
    return m_factory.get_global_settings();
}

ss::iface::import_shared_strings *OrcusSheets::get_shared_strings()
{
    return m_factory.get_shared_strings();
}

ss::iface::import_styles *OrcusSheets::get_styles()
{
    return m_factory.get_styles();
}

ss::iface::import_reference_resolver *OrcusSheets::get_reference_resolver(ss::formula_ref_context_t context)
{
    return m_factory.get_reference_resolver(context);
}

ss::iface::import_sheet *OrcusSheets::append_sheet(ss::sheet_t, std::string_view name)
{
    return m_sheets.emplace_back(std::make_unique<Cells>(name)).get();
}

ss::iface::import_sheet *OrcusSheets::get_sheet(std::string_view name)
{
    for (const auto &sheet : m_sheets) {
        if (sheet->name() == name)
            return sheet.get();
    }
    return nullptr;
}

ss::iface::import_sheet *OrcusSheets::get_sheet(ss::sheet_t index)
{
    return index >= 0 && size_t(index) < m_sheets.size() ? m_sheets[size_t(index)].get() : nullptr;
}
