#pragma once

#include <QMainWindow>

class Form;
class QMdiArea;
class WindowStrip;

/// The main window: the menu, the area in which the forms stand, and at its foot the strip of open windows and the
/// status line. It has no logic of its own.
class MDI : public QMainWindow
{
    Q_OBJECT
public:
    MDI();
    ~MDI() override;

    bool event(QEvent *event) override;

protected:
    void changeEvent(QEvent *event) override;
    /// Unloads the forms, each with its own unload routine, and ends the program.
    void closeEvent(QCloseEvent *event) override;

private:
    void makeMenu();
    void makeFoot();
    void host(Form *form);

    QMdiArea *m_area;
    WindowStrip *m_strip;
};
