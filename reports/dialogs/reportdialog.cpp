#include "reports/dialogs/reportdialog.h"
#include "toolkit/forms/formlayout.h"
#include <QVBoxLayout>

ReportDialog::ReportDialog(const QString &name, const QString &caption, const char *startName,
                           const QString &startCaption)
    : Form(name, caption)
{
    // Its few fields gain nothing from a larger window, and a maximised one would be mostly empty.
    setResizable(false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(14);
    m_fields = new FieldLayout;
    layout->addLayout(m_fields);
    layout->addStretch();

    m_start = addButton(startName, startCaption);
    btnCancel = addButton("btnCancel", "Cancel");
    connect(btnCancel, &QPushButton::clicked, this, [this] { unload(); });
    layout->addLayout(buttonRow({m_start, btnCancel}));
}
