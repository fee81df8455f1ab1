#pragma once

class QApplication;
class QPalette;

/// Gives the program its look: one style on every system, English (US) numbers and dates, and the desktop's palette.
void setAppearance(QApplication &application);

/// Takes over the desktop's palette. To be called again when the desktop has changed its colours.
void followDesktopPalette();

/// The program's palette on a desktop with that one: a dark or high-contrast desktop's own, else a calm one. Locked
/// fields can be read in each.
QPalette programPalette(const QPalette &desktop);
