#pragma once

#include <vector>

class QWidget;
class Recordset;

/// The table of a master form: which control shows and writes which column. The key is not part of it, as each form
/// treats its key in its own way.
class BoundColumns
{
public:
    enum class Written { Always, WhenNotEmpty };

    struct Bound
    {
        QWidget *control; ///< a TextBox, MaskEdBox or ComboBox
        const char *column;
        Written written = Written::Always;
    };

    BoundColumns() = default;
    /// In the order in which a save writes them.
    BoundColumns(std::vector<Bound> columns) : m_columns(std::move(columns)) {}

    /// Shows the current row; a Null or empty column blanks its control.
    void show(const Recordset &rs) const;
    void blank() const;
    /// Writes the controls' texts into the pending row.
    void write(Recordset &rs) const;

private:
    std::vector<Bound> m_columns;
};
