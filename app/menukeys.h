#pragma once

#include <QObject>

class QAction;
class QKeyEvent;
class QMenuBar;
class QWidget;

/// The keyboard's way into a menu whose captions name no access keys: Alt alone and F10 go to the bar, and letters
/// choose by the captions' beginnings, Alt with a letter from any field. A letter that only one entry begins with
/// chooses it at once; of several it goes to the next, and Enter chooses. Access keys of a form's buttons go first.
class MenuKeys : public QObject
{
    Q_OBJECT
public:
    /// To be made when the bar has all its entries.
    explicit MenuKeys(QMenuBar *bar);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool pressedOutside(const QKeyEvent &key);
    bool pressedInside(QWidget *menu, const QKeyEvent &key);
    void enterBar();
    bool choose(QWidget *menu, QChar letter);
    void goTo(QWidget *menu, const QAction *action);

    QMenuBar *m_bar;
};
