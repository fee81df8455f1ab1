#include "reports/dialogs/reportdialog.h"
#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

ReportDialog::ReportDialog(const QString &name, const QString &caption) : Form(name, caption)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(14);
    m_rows = new QFormLayout;
    m_rows->setHorizontalSpacing(12);
    m_rows->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    layout->addLayout(m_rows);
    layout->addStretch();
    m_buttons = new QHBoxLayout;
    m_buttons->addStretch();
    layout->addLayout(m_buttons);
    setMinimumWidth(320);
}

void ReportDialog::addRow(const QString &label, QWidget *field, int row)
{
    QLabel *text = addLabel(("Label" + QByteArray::number(++m_labels)).constData(), label);
    text->setBuddy(field);
    m_rows->insertRow(row < 0 ? m_rows->rowCount() : row, text, field);
}

void ReportDialog::addWide(QWidget *control)
{
    m_rows->addRow(control);
}

QPushButton *ReportDialog::addButtons(const char *name, const QString &caption)
{
    QPushButton *start = addButton(name, caption);
    btnCancel = addButton("btnCancel", "Cancel");
    m_buttons->addWidget(start);
    m_buttons->addWidget(btnCancel);
    connect(btnCancel, &QPushButton::clicked, this, [this] { unload(); });
    return start;
}
