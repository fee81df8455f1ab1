#include "toolkit/controls/griddelegate.h"

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
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    const bool arrow = key->key() == Qt::Key_Up || key->key() == Qt::Key_Down;
    if (!enter && !arrow)
        return QStyledItemDelegate::eventFilter(editor, event);
    auto *cell = qobject_cast<QWidget *>(editor);
    emit commitData(cell); // Qt would let Enter commit some time later
    emit closeEditor(cell, NoHint);
    if (arrow) {
        QKeyEvent move(QEvent::KeyPress, key->key(), Qt::NoModifier);
        QCoreApplication::sendEvent(parent(), &move);
    }
    return true;
}
