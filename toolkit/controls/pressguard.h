#pragma once

#include <QObject>

class QAbstractButton;

/// Keeps a mouse press from reaching a control that the focus did not stay on: when leaving the former control showed
/// a message box or sent the focus elsewhere, the press is no click. Presses by a button's access key move the focus
/// first and obey the same rule. Works as an event filter of the application.
class PressGuard : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Stands while one event is delivered, from before the focus moves.
    class Delivery
    {
    public:
        explicit Delivery(PressGuard &guard);
        ~Delivery();
        Delivery(const Delivery &) = delete;
        Delivery &operator=(const Delivery &) = delete;

    private:
        PressGuard &m_guard;
        int m_outerBoxes;
    };

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isNoClick(QWidget *target) const;
    bool pressByAccessKey(QAbstractButton *button);

    int m_boxesBefore = 0; ///< message boxes shown before the event that is being delivered
};
