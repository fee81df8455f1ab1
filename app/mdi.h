#pragma once

#include <QMainWindow>

class Form;
class QMdiArea;

/// The main window: the menu, and the area in which the forms stand. It has no logic of its own.
class MDI : public QMainWindow
{
    Q_OBJECT
public:
    MDI();
    ~MDI() override;

protected:
    /// Unloads the forms, each with its own unload routine, and ends the program.
    void closeEvent(QCloseEvent *event) override;

private:
    void makeMenu();
    void host(Form *form);

    QMdiArea *m_area;
};
