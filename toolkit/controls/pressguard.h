#pragma once

#include <QObject>

/// Keeps a mouse press from reaching a control that the focus did not stay on: when leaving the former control showed
/// a message box or sent the focus elsewhere, the press is no click. Presses by a button's access key move the focus
/// first and obey the same rule. Works as an event filter of the application.
class PressGuard : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override;
};
