#pragma once

#include "reportengine/pages/layout.h"
#include <optional>

// Short ways to declare layouts. Everything here returns plain layout data that may be changed afterwards.

namespace House {
// The colours all printed matter shares.
inline const QColor Ink{0x1f, 0x2a, 0x37};
inline const QColor Faint{0x6b, 0x72, 0x80};
inline const QColor Rule{0x9c, 0xa3, 0xaf};
inline const QColor Hair{0xd9, 0xdd, 0xe3};
inline const QColor Tint{0xee, 0xf1, 0xf5};
} // namespace House

/// One line of words; a height of 0 in `place` becomes a line's height.
LayoutObject text(QRectF place, const QString &words, const TextStyle &style = {}, Align align = Align::Left);
/// What a formula text yields.
LayoutObject value(QRectF place, const QString &source, const TextStyle &style = {}, Align align = Align::Left,
                   Picture picture = Picture::General);
LayoutObject line(QPointF from, QPointF to, double thickness = 0.5, const QColor &color = House::Rule);
LayoutObject box(QRectF place, const QColor &fill = {}, double thickness = 0.5, const QColor &color = House::Rule);
/// More lines than the longest text of a column takes, so that nobody meets an ellipsis: two numbers that begin alike
/// must stay apart. Only a memo can be longer.
constexpr int AllLines = 24;

/// The same object, its text broken into lines where it is too long for one.
LayoutObject wrapping(LayoutObject object, int maxLines = AllLines);

/// Formula text of a number of things: "1 part", "12 parts".
QString countOf(const QString &count, const QString &thing);

/// What stands in place of the rows where there are none.
Section nothingSection(double width, const QString &words = "There is nothing in this selection.");

/// Printed on the left the document's title and the moment of printing, on the right "Page n of m".
Section pageFooter(double width, const QString &title);

/// A column of a tabular report. Words too long for it go on below.
struct Column
{
    QString heading;
    QString source;    ///< a formula text: "{Customer}", "{Qty} * {Cost}"
    double width = 60; ///< in points; all columns are stretched evenly to fill the table
    Picture picture = Picture::General;
    std::optional<Align> align = {}; ///< unset: right for numbers by picture, left for the rest
    /// Its sum stands in group footers and in the grand total.
    bool total = false;
    /// In place of the sum: a formula text in which each "%1" becomes ", {group field}" in a group footer and nothing
    /// in the grand total, as in "Sum({Sales}%1) - Sum({Cost}%1)".
    QString totalSource = {};
    /// Leaves the cell of a detail row empty where it yields True.
    QString blankIf = {};
    /// The same for the total, with "%1" as in `totalSource`.
    QString blankTotalIf = {};
    /// A second heading above; neighbouring columns with the same one share it, centred over a rule.
    QString over = {};
};

/// A group of a tabular report: a heading line above its rows and a line of totals below.
struct TableGroup
{
    QString by;
    /// What to call the group of the rows without a text in the field `by`, be it Null or blank: "No territory".
    /// Unset, each of these makes a group of its own without a name.
    QString none = {};
    QString heading = {}; ///< formula text of the heading; empty: the group's name
    QString beside = {};  ///< formula text that stands small at the right end of the heading line
    /// Formula text of the total line's caption; empty: "Total " and the group's name, if any column has a total.
    QString footing = {};
    /// What the rows are, for a line that counts them in place of totals: "part" gives "Active: 12 parts".
    QString counted = {};
    QString label = {}; ///< formula text for the group tree; empty: the value of `by`
    bool header = true;
    bool footer = true;
    bool newPageBefore = false;
    bool keepTogether = false;
};

/// A ledger-like report: title, house and parameter line on every page, repeated column heads, groups with totals, a
/// grand total, page footer. Without any rows it says so.
struct TableReport
{
    QString title;
    QString subtitle = {}; ///< formula text of the line under the title
    bool landscape = false;
    std::vector<TextParameter> parameters = {};
    std::vector<NamedFormula> formulas = {};
    std::vector<RunningTotal> runningTotals = {};
    std::vector<TableGroup> groups = {};
    std::vector<Column> columns = {};
    /// Hides the detail row where it yields True.
    QString suppressDetail = {};
    QString grandTotal = "\"Grand total\""; ///< formula text of the caption; empty: no grand total line
    double textSize = 8.5;
    double width = 0;   ///< of the table where few columns would stand too far apart; 0: as wide as the page
    int across = 1;     ///< how many times the table stands side by side on the page, filled one after the other
    double gap = 6;     ///< between columns
    bool ruled = false; ///< a hairline under each row leads the eye along many columns
    bool exportAsTable = false;
};

/// The layout of such a report. Its sections are named secTitle, secHeads, secDetail, secGrandTotal, secGroupHeader1...
/// and secGroupFooter1... for routines and for later changes.
Layout tableLayout(TableReport report);

/// A section of the layout by name. A missing one is a programming error.
Section &sectionNamed(Layout &layout, const QString &name);
