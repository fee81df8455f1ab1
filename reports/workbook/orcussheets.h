#pragma once

#include "reports/workbook/workbook.h"
#include <orcus/spreadsheet/document.hpp>
#include <orcus/spreadsheet/factory.hpp>
#include <orcus/spreadsheet/import_interface.hpp>

/// What the parsing library fills for a workbook: it keeps strings and formats in the library's own document and
/// collects the cells, to make them values when all of the file is known.
class OrcusSheets : public orcus::spreadsheet::iface::import_factory
{
public:
    /// Whether a number's format tells that it is a date or money; else the file tells dates itself.
    enum class Formats { Matter, DontMatter };

    explicit OrcusSheets(Formats formats);
    ~OrcusSheets() override;

    /// The sheets in the order of their tabs.
    std::vector<Workbook::Sheet> take() const;

    orcus::spreadsheet::iface::import_global_settings *get_global_settings() override;
    orcus::spreadsheet::iface::import_shared_strings *get_shared_strings() override;
    orcus::spreadsheet::iface::import_styles *get_styles() override;
    orcus::spreadsheet::iface::import_reference_resolver *
    get_reference_resolver(orcus::spreadsheet::formula_ref_context_t context) override;
    orcus::spreadsheet::iface::import_sheet *append_sheet(orcus::spreadsheet::sheet_t index,
                                                          std::string_view name) override;
    orcus::spreadsheet::iface::import_sheet *get_sheet(std::string_view name) override;
    orcus::spreadsheet::iface::import_sheet *get_sheet(orcus::spreadsheet::sheet_t index) override;
    void finalize() override {}

private:
    class Cells;

    Formats m_formats;
    orcus::spreadsheet::document m_document;
    orcus::spreadsheet::import_factory m_factory;
    std::vector<std::unique_ptr<Cells>> m_sheets;
};
