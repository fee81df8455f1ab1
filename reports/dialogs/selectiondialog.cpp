#include "reports/dialogs/selectiondialog.h"

SelectionDialog::SelectionDialog(const QString &name, const QString &label) : ReportDialog(name, "Report Selection")
{
    cmbReport = addList("cmbReport");
    cmbReport->setTypeAhead();
    cmbReport->setMinimumWidth(220);
    addRow(label, cmbReport);
    QPushButton *btnPrint = addButtons("btnPrint", "Print");
    connect(btnPrint, &QPushButton::clicked, this, [this] { btnPrint_Click(); });
    setTabOrder({cmbReport, btnPrint, btnCancel});
}

KeyedSelectionDialog::KeyedSelectionDialog(const QString &name, const QString &label) : SelectionDialog(name, label)
{
    cmbID = addHiddenList("cmbID");
}

void KeyedSelectionDialog::fill(const QStringList &entries, const QStringList &ids)
{
    cmbReport->addItems(entries);
    cmbID->addItems(ids);
}

QString KeyedSelectionDialog::selectedID() const
{
    return cmbID->list(cmbReport->listIndex());
}
