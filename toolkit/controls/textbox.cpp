#include "toolkit/controls/textbox.h"

#include "toolkit/controls/onelinetext.h"

TextBox::TextBox(QWidget *parent) : QLineEdit(parent)
{
    takeOneLineOnly(this);
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

/// Caret and selection go with the program's focus, not with Qt's, which selects all on Tab and deselects whenever it
/// leaves, also to come back at once.
void TextBox::focusInEvent(QFocusEvent *event)
{
    const int position = cursorPosition();
    const bool selected = hasSelectedText();
    QLineEdit::focusInEvent(event);
    if (!selected)
        setCursorPosition(position);
    m_pressBringsFocus = event->reason() == Qt::MouseFocusReason;
}

void TextBox::focusOutEvent(QFocusEvent *event)
{
    m_pressBringsFocus = false;
    const int start = selectionStart(), length = selectionLength();
    QLineEdit::focusOutEvent(event);
    if (length > 0)
        setSelection(start, length);
}

void TextBox::focusGained()
{
    if (m_selectAllOnFocus)
        selectAll();
    emit gotFocus();
}

void TextBox::focusLost()
{
    deselect();
    emit lostFocus();
}

void TextBox::mousePressEvent(QMouseEvent *event)
{
    QLineEdit::mousePressEvent(event);
    // The press that brought the focus would set the caret and undo the selection; a second one may.
    if (std::exchange(m_pressBringsFocus, false) && m_selectAllOnFocus)
        selectAll();
}
