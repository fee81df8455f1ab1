#pragma once

#include "app/toolkit/form.h"

class QFormLayout;
class QHBoxLayout;

/// What the report dialogs look like: labels beside their fields, and a row of buttons below. `btnCancel` of every one
/// unloads it and does nothing else.
class ReportDialog : public Form
{
    Q_OBJECT
protected:
    ReportDialog(const QString &name, const QString &caption);

    /// A labelled field as the last row, or as the given one.
    void addRow(const QString &label, QWidget *field, int row = -1);
    /// A control across the whole width as the last row.
    void addWide(QWidget *control);
    /// The button that starts the report, and `btnCancel` beside it.
    QPushButton *addButtons(const char *name, const QString &caption);

    QPushButton *btnCancel = nullptr;

private:
    QFormLayout *m_rows;
    QHBoxLayout *m_buttons;
    int m_labels = 0;
};
