#pragma once

#include <QString>
#include <vector>

class ComboBox;
class QWidget;
class Recordset;

/// What the three master forms have in common: a record found by the key typed into an editable combo box, and a table
/// of which control shows and writes which column.
class MasterRecord
{
public:
    enum class Written { Always, WhenNotEmpty };

    struct Key
    {
        ComboBox *box;
        const char *table, *column;
        bool writtenOnChange = false; ///< a key typed with other capitals changes the stored one
    };
    struct Bound
    {
        QWidget *control; ///< a TextBox, MaskEdBox, ComboBox or QCheckBox
        const char *column;
        Written written = Written::Always;
    };

    MasterRecord(const Key &key, ComboBox *status) : m_key(key), m_status(status) {}

    /// The columns but the key's, in the order in which a save writes them; the status is one of them.
    void bind(std::vector<Bound> columns) { m_columns = std::move(columns); }

    void fillStatus() const;
    /// All keys there are, of inactive records too.
    void fillKeys() const;

    /// Shows the record of the key, a Null or empty column as a blank; of an unknown key a blank record that is
    /// "Active". Without a key the controls stay as they are. Runs at every key typed, so an apostrophe fails at that
    /// key.
    void show() const;
    /// Changes the record of the key, or adds it; nothing is asked either way.
    void save() const;

private:
    Recordset find() const;

    Key m_key;
    ComboBox *m_status;
    std::vector<Bound> m_columns;
};
