#pragma once

#include "reports/dialogs/reportdialog.h"

/// Asks for one document or warehouse out of a list; none is selected when it opens, and nothing guards against
/// printing so.
class SelectionDialog : public ReportDialog
{
    Q_OBJECT
protected:
    SelectionDialog(const QString &name, const QString &label);

    virtual void btnPrint_Click() = 0;

    ComboBox *cmbReport;
};

/// One whose list shows a composed text, with the document's ID in a hidden list beside it.
class KeyedSelectionDialog : public SelectionDialog
{
    Q_OBJECT
protected:
    KeyedSelectionDialog(const QString &name, const QString &label);

    /// Lists the rows of a statement as "first - second" by two of their columns, and the keys beside them row for row.
    void fill(const QString &sql, const char *first, const char *second, const char *key);
    /// The ID of the selected entry; empty without one.
    QString selectedID() const;

    ComboBox *cmbID;
};
