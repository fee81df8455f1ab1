#include "toolkit/controls/textbox.h"

#include "toolkit/controls/focusevents.h"

TextBox::TextBox(QWidget *parent) : QLineEdit(parent)
{
    // A text that the program puts in shows from its beginning, however long it is.
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!hasFocus())
            setCursorPosition(0);
    });
    connect(this, &QLineEdit::textChanged, this, &TextBox::change);
}

void TextBox::setSelectAllOnFocus(bool on)
{
    m_selectAllOnFocus = on;
}

void TextBox::focusInEvent(QFocusEvent *event)
{
    const int position = cursorPosition();
    QLineEdit::focusInEvent(event);
    if (!FocusEvents::gained(this, *event))
        return;
    if (m_selectAllOnFocus) {
        selectAll();
        m_pressKeepsSelection = event->reason() == Qt::MouseFocusReason;
    } else {
        setCursorPosition(position); // Qt selects all on Tab; a plain box doesn't
    }
    emit gotFocus();
}

void TextBox::focusOutEvent(QFocusEvent *event)
{
    m_pressKeepsSelection = false;
    QLineEdit::focusOutEvent(event);
    FocusEvents::raiseLostFocus(this, *event);
}

void TextBox::mousePressEvent(QMouseEvent *event)
{
    QLineEdit::mousePressEvent(event);
    if (std::exchange(m_pressKeepsSelection, false))
        selectAll();
}
