#include "app/toolkit/griddelegate.h"

#include <QCoreApplication>
#include <QKeyEvent>

void GridDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    QStyledItemDelegate::setModelData(editor, model, index);
    emit committed(index.row() + 1, index.column());
}

bool GridDelegate::eventFilter(QObject *editor, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QStyledItemDelegate::eventFilter(editor, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_Up && key->key() != Qt::Key_Down)
        return QStyledItemDelegate::eventFilter(editor, event);
    auto *cell = qobject_cast<QWidget *>(editor);
    emit commitData(cell);
    emit closeEditor(cell, NoHint);
    QKeyEvent move(QEvent::KeyPress, key->key(), Qt::NoModifier);
    QCoreApplication::sendEvent(parent(), &move);
    return true;
}
