#pragma once

#include <QMdiSubWindow>
#include <QPointer>

class Form;

/// The window around a form. It takes no focus itself: a press on its title bar, or on anything in the form that is no
/// field, leaves the focus where it is, or brings it back to the form when another was the active one. The field that
/// had the focus has it again when the window is active again or has changed its state.
class FormWindow : public QMdiSubWindow
{
    Q_OBJECT
public:
    explicit FormWindow(Form *form);

protected:
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void rememberField();
    void returnToField();

    QPointer<QWidget> m_field; ///< of the form's controls the last that held the focus
};
