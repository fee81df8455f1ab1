#pragma once

#include <QIcon>

/// The viewer's drawn buttons. Drawn anew for every size, scale and palette, so that they stay sharp and read in dark
/// colours too.
enum class PageIcon { First, Previous, Next, Last, Up, Down, Close };

QIcon pageIcon(PageIcon icon);
