#pragma once

#include <QWidget>

class QButtonGroup;
class QMdiArea;
class QMdiSubWindow;

/// The strip at the foot of the main window: a button for each window that is open in the area, in the order they
/// were opened, the active one pressed. A click brings the window to the front, out of its icon if it has become
/// one. Its context menu puts the windows in order and closes the reports.
class WindowStrip : public QWidget
{
    Q_OBJECT
public:
    explicit WindowStrip(QMdiArea *area, QWidget *parent = nullptr);

    /// Gives a window that was added to the area its button, which goes with it.
    void add(QMdiSubWindow *window);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void shareRoom();
    void bringToFront(QMdiSubWindow *window);
    void closeReports();

    QMdiArea *m_area;
    QButtonGroup *m_buttons;
};
