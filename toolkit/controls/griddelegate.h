#pragma once

#include <QStyledItemDelegate>

/// Edits a grid's cells in place: the arrows commit and move on, like Enter and Tab. Shows where one can type:
/// the editable column is tinted, and a grid that has one frames its current cell.
class GridDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

signals:
    /// An edit was committed; the row counts the header as 0.
    void committed(int row, int col) const;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
    bool eventFilter(QObject *editor, QEvent *event) override;
};
