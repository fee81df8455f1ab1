#pragma once

#include "data/values/value.h"
#include "toolkit/controls/programfocus.h"
#include <QLineEdit>

/// A one-line text box. `change` fires on every real change of the text, by key or by assignment.
class TextBox : public QLineEdit, public FocusListener
{
    Q_OBJECT
public:
    explicit TextBox(QWidget *parent = nullptr);

    /// Selects everything each time the box gets the focus, so that typing replaces the text.
    void setSelectAllOnFocus(bool on = true);

    void focusGained() override;
    void focusLost() override;

signals:
    void change();
    void gotFocus();
    void lostFocus();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    bool m_selectAllOnFocus = false;
    bool m_pressBringsFocus = false; ///< and must not set the caret then
};
