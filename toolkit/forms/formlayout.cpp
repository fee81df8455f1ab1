#include "toolkit/forms/formlayout.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QStyleOption>

namespace {
constexpr int ColumnGap = 24;
constexpr int ColumnsPerField = 3; // label, field, gap to the next column

/// How many captions the form has so far: they are named Label1, Label2 ... as they are added, for tests and tools.
int numberOfLabels(const QWidget *form)
{
    int count = 0;
    for (const QLabel *label : form->findChildren<QLabel *>())
        count += label->objectName().startsWith(QLatin1String("Label"));
    return count;
}

bool hasFixedWidth(const QWidget *field)
{
    return field->maximumWidth() < QWIDGETSIZE_MAX;
}

const QWidget *formOf(const QWidget *widget)
{
    while (widget->parentWidget() && !widget->isWindow())
        widget = widget->parentWidget();
    return widget;
}
} // namespace

FieldLayout::FieldLayout(QWidget *parent) : QGridLayout(parent)
{
    setHorizontalSpacing(8);
    setVerticalSpacing(6);
}

void FieldLayout::add(const QString &label, QWidget *field, int column)
{
    place(label, field, field, nullptr, column);
}

void FieldLayout::add(const QString &label, const QList<QWidget *> &fields, int column)
{
    auto *line = new QHBoxLayout;
    line->setSpacing(6);
    for (QWidget *field : fields)
        // The first field takes the room that the others leave, a city before its state and zip.
        line->addWidget(field, field == fields.first() && !hasFixedWidth(field) ? 1 : 0);
    if (std::all_of(fields.begin(), fields.end(), hasFixedWidth))
        line->addStretch(1);
    place(label, fields.first(), nullptr, line, column);
}

void FieldLayout::add(QWidget *field, int column)
{
    place({}, nullptr, field, nullptr, column);
}

void FieldLayout::place(const QString &label, QWidget *buddy, QWidget *widget, QLayout *line, int column)
{
    const int row = nextRow(column);
    const int left = column * ColumnsPerField;
    if (column > 0)
        setColumnMinimumWidth(left - 1, ColumnGap - horizontalSpacing());
    setColumnStretch(left + 1, 1);
    if (widget)
        addWidget(widget, row, left + 1, hasFixedWidth(widget) ? Qt::AlignLeft : Qt::Alignment());
    else
        addLayout(line, row, left + 1);
    if (label.isEmpty())
        return;
    auto *caption = new QLabel(label);
    addWidget(caption, row, left, Qt::AlignLeft | Qt::AlignVCenter);
    caption->setObjectName(QString("Label%1").arg(numberOfLabels(formOf(caption)) + 1));
    // So that a screen reader says the caption with the field.
    caption->setBuddy(buddy);
    if (buddy->accessibleName().isEmpty())
        buddy->setAccessibleName(label);
}

/// Columns fill by themselves, so a form adds its fields in the order in which they are read.
int FieldLayout::nextRow(int column)
{
    while (m_used.size() <= column)
        m_used.append(0);
    return m_used[column]++;
}

QHBoxLayout *buttonRow(const QList<QPushButton *> &buttons, const QList<QPushButton *> &atLeft)
{
    constexpr int LeastWidth = 88, RoomAroundCaption = 28;
    // All buttons of a row are as wide as the widest caption asks for.
    int width = LeastWidth;
    for (const QPushButton *button : atLeft + buttons)
        width = std::max(width, button->fontMetrics().horizontalAdvance(button->text()) + RoomAroundCaption);
    for (QPushButton *button : atLeft + buttons)
        button->setMinimumWidth(width);

    auto *row = new QHBoxLayout;
    row->setSpacing(8);
    for (QPushButton *button : atLeft)
        row->addWidget(button);
    row->addStretch(1);
    for (QPushButton *button : buttons)
        row->addWidget(button);
    return row;
}

void setFieldWidth(QWidget *field, int characters)
{
    constexpr int FrameAndMargins = 14;
    field->setFixedWidth(field->fontMetrics().horizontalAdvance(QString(characters, u'0')) + FrameAndMargins);
}
