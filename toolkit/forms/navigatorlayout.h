#pragma once

#include <QSizeF>

class Form;
class QGroupBox;
class QWidget;

/// The three frames of a navigator: criteria, and below them two grids that share what is left of the window.
struct NavigatorFrames
{
    QGroupBox *criteria;
    QGroupBox *found;
    QWidget *foundGrid;
    QGroupBox *lines;
    QWidget *linesGrid;
};

/// The main window's size in twips (15 to a pixel); empty while there is none.
QSizeF mainWindowTwips();
/// Places a navigator at the top left of the main window in the given size, in twips.
void placeNavigator(Form *form, double width, double height);
/// Sizes frames and grids to the window; each only where something is left for it, and none while it is minimised.
void sizeNavigator(Form *form, const NavigatorFrames &frames);
