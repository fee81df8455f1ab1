#pragma once

#include "data/values/value.h"
#include "reportengine/pages/layout.h"

/// Something that stands on a page, in points from the page's top left corner.
struct PageItem
{
    enum class Kind { Text, Line, Box };

    Kind kind = Kind::Text;
    QRectF rect;       ///< of a text the place of its one line
    QString text = {}; ///< as printed: shortened where it had to be
    TextStyle style = {};
    Align align = Align::Left;
    double thickness = 0;
    QColor fill = {};
    /// What the text was printed from, for spreadsheets and tests.
    Value value = {};
    Picture picture = Picture::General;
    const LayoutObject *object = nullptr;
    int line = 0; ///< of a text broken into several
};

/// Where a group, or what goes on of it, stands first on a page: its header, or its first row.
struct GroupPlace
{
    int level;
    int node;
    double top; ///< in points from the page's top
    double bottom;
};

/// A page as it will be seen: what painter, PDF, find-text and tests read.
struct Page
{
    QSizeF size;
    std::vector<PageItem> items;
    std::vector<GroupPlace> groups = {};

    /// The texts in the order of their placing, for finding and comparing.
    QStringList texts() const;
};

/// Where a text begins inside its place, in points from the page's left edge. The closing parenthesis of a negative
/// figure hangs beside its column, so that digits stand under digits.
double textLeft(const PageItem &item);
