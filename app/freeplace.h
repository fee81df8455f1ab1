#pragma once

#include <QRect>

class QMdiArea;

/// Where a new window shows whole and hides nothing of the other windows' title bars that can be seen, or the least of
/// them: at the top left, else some steps lower and to the right, else on a like diagonal further right. It may
/// become smaller than its size, down to the least one, so as to show whole.
QRect freePlace(const QMdiArea *area, QSize size, QSize least);
