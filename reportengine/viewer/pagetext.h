#pragma once

#include "reportengine/pages/page.h"

// The texts of a page as its reader has them: line by line, to be found, selected and copied.

/// A place a text was found at. On paper a wrapped text has a part on each of its lines, and one that was cut with an
/// ellipsis may hold what was sought beyond its visible end: then the ellipsis stands for it.
struct FoundText
{
    std::vector<QRectF> places;
};

/// Every place at which the page's texts hold the one sought, in any case, in the order of reading. What the paper cut
/// or broke into lines counts as if it were whole.
std::vector<FoundText> findOn(const Page &page, const QString &sought);

/// The page's texts (as indices of its items) in lines from top to bottom, each from left to right.
std::vector<std::vector<int>> linesOf(const Page &page);

/// Where the characters from `from` up to, not including, `to` of a text item stand.
QRectF placeOf(const PageItem &item, qsizetype from, qsizetype to);
/// How many characters of a text item lie left of that point.
qsizetype charactersBefore(const PageItem &item, double x);
