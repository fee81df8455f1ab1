#pragma once

#include "reportengine/pages/page.h"

/// What is wrong with how a page is set: texts that leave the page's margins or their place, texts over one another,
/// lines through texts. Empty when all is well.
QStringList pageFaults(const Page &page, const QMarginsF &margins);
