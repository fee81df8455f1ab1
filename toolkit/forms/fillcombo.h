#pragma once

#include <QString>

class ComboBox;

/// Appends one column of every row of a statement to a combo box, in the statement's order. A Null in it is
/// error 94.
void fillCombo(ComboBox *combo, const QString &sql, const char *column);
