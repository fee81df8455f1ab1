#include "inventory/stockform.h"

#include "data/values/numbers.h"
#include "toolkit/controls/formatgrid.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/forms/formlayout.h"
#include "toolkit/forms/mainmod.h"

StockForm::StockForm(const QString &name, const QString &caption, const QString &headerCaption,
                     const QString &linesCaption)
    : Form(name, caption), Frame3(addFrame("Frame3", headerCaption)), Frame2(addFrame("Frame2", linesCaption)),
      txtID(add<TextBox>("txtID")), dtDate(addDate("dtDate")), cmbPart(addList("cmbPart")),
      cmbType(addHiddenList("cmbType")), cmbCost(addHiddenList("cmbCost")),
      txtAdjustment(add<TextBox>("txtAdjustment")), btnUpdate(addButton("btnUpdate", "Add")),
      btnDelete(addButton("btnDelete", "Delete")), btnSave(addButton("btnSave", "Save and Close")),
      btnExit(addButton("btnExit", "Exit")), vsfgAdjustment(addGrid("vsfgAdjustment")), lblTotal(addLabel("lblTotal"))
{
    setTypeAhead(cmbPart);
    connect(txtID, &TextBox::lostFocus, this, &StockForm::txtID_LostFocus);
    connect(btnUpdate, &QPushButton::clicked, this, &StockForm::btnUpdate_Click);
    connect(btnDelete, &QPushButton::clicked, this, &StockForm::btnDelete_Click);
    connect(btnSave, &QPushButton::clicked, this, &StockForm::btnSave_Click);
    connect(btnExit, &QPushButton::clicked, this, &StockForm::unload);
}

/// Parts, their categories and their costs stand in three lists with one index. Null in any of them is error 94:
/// categories are required, and costs have a default of 0.
void StockForm::formLoad()
{
    const Hourglass hourglass;
    dtDate->setValue(Date::today());
    fillWarehouses();
    Recordset parts = gDatabase->OpenRecordset("SELECT * FROM Part Where Status = 'Active' ORDER BY PartNo");
    while (!parts.Eof()) {
        cmbPart->addItem(parts.Fields("PartNo").value());
        cmbType->addItem(parts.Fields("Category").value());
        cmbCost->addItem(parts.Fields("Cost").value());
        parts.MoveNext();
    }
    parts.Close();
    prepareGrid();
    Frame2->setEnabled(false);
}

/// Always a new line: a part may stand on several, and whether the quantity is a number is found out when it is saved.
void StockForm::btnUpdate_Click()
{
    if (cmbPart->text().isEmpty() || txtAdjustment->text().isEmpty())
        return;
    const int index = cmbPart->listIndex();
    vsfgAdjustment->addItem(cmbPart->text() + '\t' + cmbType->list(index) + '\t' + txtAdjustment->text() + '\t' +
                            cmbCost->list(index));
    dressGrid();
    txtAdjustment->clear();
    setFocusTo(cmbPart);
    UpdateTotal();
}

/// A saved document keeps what this line has done to the ledger.
void StockForm::btnDelete_Click()
{
    if (vsfgAdjustment->row() < 1)
        return;
    vsfgAdjustment->removeItem(vsfgAdjustment->row());
    UpdateTotal();
}

void StockForm::UpdateTotal()
{
    double total = 0;
    for (int row = 1; row < vsfgAdjustment->rows(); ++row)
        total += quantity(row);
    lblTotal->setText(textOf(total));
}

void StockForm::enterLines()
{
    Frame2->setEnabled(true);
    setFocusTo(cmbPart);
}

/// Lines come without their cost, which nothing reads. A header without lines gives one blank line, as the outer join
/// has one row of Nulls.
void StockForm::showLines(Recordset &lines)
{
    prepareGrid();
    while (!lines.Eof()) {
        vsfgAdjustment->addItem(lines.Fields("AdjustmentDetail.PartNo").joined() + '\t' +
                                lines.Fields("Category").joined() + '\t' + lines.Fields("Qty").joined());
        lines.MoveNext();
    }
    dressGrid();
    UpdateTotal();
    Frame2->setEnabled(true);
}

double StockForm::quantity(int row) const
{
    return Val(vsfgAdjustment->textMatrix(row, QtyColumn));
}

void StockForm::prepareGrid()
{
    vsfgAdjustment->setRows(0);
    vsfgAdjustment->setCols(4);
    vsfgAdjustment->addItem("Part No.\tCategory\tAdj. Qty\tCost");
    dressGrid();
}

void StockForm::dressGrid()
{
    formatGrid(vsfgAdjustment, {CostColumn});
    vsfgAdjustment->setColHidden(CostColumn);
}

void StockForm::layOut(const QList<QPair<QString, ComboBox *>> &warehouses)
{
    auto *header = new FieldLayout(Frame3);
    header->add("ID", txtID);
    header->add("Date", dtDate);
    for (const auto &[label, warehouse] : warehouses)
        header->add(label, warehouse, 1);
    setFieldWidth(txtID, 12);
    setFieldWidth(dtDate, 12);

    auto *entry = new QVBoxLayout(Frame2);
    auto *line = new QHBoxLayout;
    entry->addLayout(line);
    auto *fields = new FieldLayout;
    line->addLayout(fields, 1);
    fields->add("Part No.", cmbPart);
    fields->add("Adjustment", txtAdjustment, 1);
    line->addWidget(btnUpdate);
    line->addWidget(btnDelete);
    setFieldWidth(txtAdjustment, 10);
    entry->addWidget(vsfgAdjustment, 1);
    auto *foot = new QHBoxLayout;
    foot->addStretch(1);
    auto *total = new FieldLayout;
    foot->addLayout(total);
    entry->addLayout(foot);
    total->add("Total Adj. Qty.", lblTotal);
    lblTotal->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setFieldWidth(lblTotal, 12);

    auto *form = new QVBoxLayout(this);
    form->addWidget(Frame3);
    form->addWidget(Frame2, 1);
    form->addLayout(buttonRow({btnSave, btnExit}));

    // The tab order is the same for both forms but for the warehouses in the middle.
    QList<QWidget *> order{txtID, dtDate};
    for (const auto &entry : warehouses)
        order += entry.second;
    setTabOrder(order +
                QList<QWidget *>{cmbPart, txtAdjustment, btnUpdate, btnDelete, vsfgAdjustment, btnSave, btnExit});
    resize(680, 540);
}
