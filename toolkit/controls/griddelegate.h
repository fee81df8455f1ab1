#pragma once

#include <QStyledItemDelegate>

/// Edits a grid's cells in place: arrows up and down commit and move on, like Enter and Tab.
class GridDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

signals:
    /// An edit was committed; the row counts the header as 0.
    void committed(int row, int col) const;

protected:
    bool eventFilter(QObject *editor, QEvent *event) override;
};
