#pragma once

class QApplication;

/// Gives the program its look: one style and one calm palette on every system, English (US) numbers and dates.
void setAppearance(QApplication &application);
