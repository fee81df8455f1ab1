#include "toolkit/controls/griddelegate.h"

#include "toolkit/controls/onelinetext.h"
#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

void GridDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    QStyledItemDelegate::setModelData(editor, model, index);
    emit committed(index.row() + 1, index.column());
}

void GridDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // A column to type in is tinted, since nothing else tells it from the others.
    if (!(index.flags() & Qt::ItemIsEditable) || option->state & QStyle::State_Selected)
        return;
    const QColor ground = option->palette.color(QPalette::Base), accent = option->palette.color(QPalette::Highlight);
    constexpr double Tint = 0.14;
    option->backgroundBrush = QColor::fromRgbF(ground.redF() + Tint * (accent.redF() - ground.redF()),
                                               ground.greenF() + Tint * (accent.greenF() - ground.greenF()),
                                               ground.blueF() + Tint * (accent.blueF() - ground.blueF()));
}

void GridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const auto *grid = static_cast<const QAbstractItemView *>(parent());
    // A list to pick from marks whole rows; where one types, the cell that a key goes to has to be seen.
    if (index != grid->currentIndex() || grid->editTriggers() == QAbstractItemView::NoEditTriggers)
        return;
    painter->save();
    painter->setPen(QPen(option.palette.color(QPalette::Text), 2));
    painter->drawRect(QRectF(option.rect).adjusted(1, 1, -1, -1));
    painter->restore();
}

QWidget *GridDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QWidget *editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto *box = qobject_cast<QLineEdit *>(editor))
        takeOneLineOnly(box);
    return editor;
}

bool GridDelegate::eventFilter(QObject *editor, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QStyledItemDelegate::eventFilter(editor, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    const bool arrow = key->key() >= Qt::Key_Left && key->key() <= Qt::Key_Down;
    if (!enter && !arrow)
        return QStyledItemDelegate::eventFilter(editor, event);
    auto *cell = qobject_cast<QWidget *>(editor);
    emit commitData(cell); // Qt would let Enter commit some time later
    emit closeEditor(cell, NoHint);
    if (arrow) {
        // Sent on to the grid, which moves by it as if nothing had been edited.
        QKeyEvent move(QEvent::KeyPress, key->key(), Qt::NoModifier);
        QCoreApplication::sendEvent(parent(), &move);
    }
    return true;
}
