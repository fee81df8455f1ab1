#include "toolkit/forms/navigatorlayout.h"

#include "toolkit/forms/form.h"
#include <QApplication>
#include <QMdiSubWindow>

namespace {
constexpr double TwipsPerPixel = 15;
constexpr int Margin = 6, GridTop = 26; // pixels

/// The window around a form, border and title included; the form itself while it has none.
QWidget *windowOf(Form *form)
{
    auto *window = qobject_cast<QMdiSubWindow *>(form->parentWidget());
    return window ? window : static_cast<QWidget *>(form);
}

int pixels(double twips)
{
    return qRound(twips / TwipsPerPixel);
}

void setWidthIfAny(QWidget *widget, double twips)
{
    if (twips > 0)
        widget->resize(pixels(twips), widget->height());
}

void setHeightIfAny(QWidget *widget, double twips)
{
    if (twips > 0)
        widget->resize(widget->width(), pixels(twips));
}
} // namespace

/// Looked for by name: the toolkit knows no main window.
QSizeF mainWindowTwips()
{
    for (const QWidget *window : QApplication::topLevelWidgets())
        if (window->objectName() == "MDI")
            return QSizeF(window->size()) * TwipsPerPixel;
    return {};
}

void placeNavigator(Form *form, double width, double height)
{
    QWidget *window = windowOf(form);
    window->move(0, 0);
    setWidthIfAny(window, width);
    setHeightIfAny(window, height);
}

void sizeNavigator(Form *form, const NavigatorFrames &frames)
{
    const QWidget *window = windowOf(form);
    if (window->isMinimized())
        return;
    const double width = window->width() * TwipsPerPixel, height = window->height() * TwipsPerPixel;

    // Placed by hand and not by a layout, since the sizes are the form's own arithmetic, in twips, and each is set only
    // where it comes out above 0.
    frames.criteria->move(Margin, 0);
    frames.criteria->resize(frames.criteria->width(), frames.criteria->sizeHint().height());
    frames.found->move(Margin, frames.criteria->geometry().bottom() + 3);
    frames.lines->move(Margin, frames.lines->y());
    frames.foundGrid->move(Margin, GridTop);
    frames.linesGrid->move(Margin, GridTop);

    setWidthIfAny(frames.criteria, width - 300);
    setWidthIfAny(frames.found, width - 300);
    setWidthIfAny(frames.lines, width - 300);
    const double gridWidth = frames.found->width() * TwipsPerPixel - 200;
    setWidthIfAny(frames.foundGrid, gridWidth);
    setWidthIfAny(frames.linesGrid, gridWidth);

    const double rest = height - frames.criteria->height() * TwipsPerPixel - 650;
    // A window too low for both grids leaves them as they are.
    if (rest <= 0)
        return;
    setHeightIfAny(frames.found, rest * 0.55);
    // What is taken off is the frame's caption and rim.
    setHeightIfAny(frames.foundGrid, rest * 0.55 - 700);
    frames.lines->move(Margin, frames.found->y() + frames.found->height() + pixels(100));
    setHeightIfAny(frames.lines, rest * 0.45);
    setHeightIfAny(frames.linesGrid, rest * 0.45 - 600);
}
