#pragma once

#include "data/dao/recordset.h"
#include "toolkit/forms/form.h"

/// What the two stock documents share: the number and the date, the entry of part and quantity lines into a grid,
/// and the total under it. The forms differ in their warehouses, in how a number is looked up and in the save.
class StockForm : public Form
{
    Q_OBJECT
protected:
    /// Columns of vsfgAdjustment. The cost is filled by Add, empty on reload, hidden and read by nothing.
    enum Column { PartColumn = 0, QtyColumn = 2, CostColumn = 3 };

    StockForm(const QString &name, const QString &caption, const QString &headerCaption, const QString &linesCaption);

    void formLoad() override;
    /// Fills the warehouse lists with the active warehouses.
    virtual void fillWarehouses() = 0;

    virtual void txtID_LostFocus() = 0;
    virtual void btnSave_Click() = 0;
    void btnUpdate_Click();
    void btnDelete_Click();
    void UpdateTotal();

    /// Places everything, the warehouse lists under their labels below the date, and sets the order of the focus.
    void layOut(const QList<QPair<QString, ComboBox *>> &warehouses);
    /// Opens the line entry once the warehouses are known.
    void enterLines();
    /// Replaces the grid's lines by those of a saved document: `PartNo`, `Category` and `Qty` of each row.
    void showLines(Recordset &lines);
    /// The quantity of a grid line, its leading number as the total and the ledger take it.
    double quantity(int row) const;

    QGroupBox *Frame3, *Frame2;
    TextBox *txtID;
    DTPicker *dtDate;
    ComboBox *cmbPart;
    ComboBox *cmbType, *cmbCost; ///< category and cost of each entry of cmbPart, at the same index
    TextBox *txtAdjustment;
    QPushButton *btnUpdate, *btnDelete, *btnSave, *btnExit;
    FlexGrid *vsfgAdjustment;
    QLabel *lblTotal;

private:
    void prepareGrid();
    void dressGrid();
};
