#pragma once

#include <QColor>
#include <QMarginsF>
#include <QRectF>
#include <QString>
#include <vector>

// What a report looks like, as plain data. All measures are points (1/72 inch) from the top left corner of the
// section; the page is US Letter. Conditions and sources are texts of the report formula language, in which a dataset
// field reads {Name_ttx.Field} or shortly {Field}, a formula {@Name}, a running total {#Name}, and the text of a named
// text object {?Name}.

enum class Align { Left, Center, Right };

/// How a value is printed, negative figures in parentheses. Money has two decimals; Quantity shows decimals only where
/// there are any; Price is Money with up to four decimals; Percent takes the ratio (0.25 prints "25.0%").
enum class Picture { General, Whole, Quantity, Money, Price, Dollars, Percent, Date, DateTime };

/// What happens to a text wider than its place: cut with an ellipsis, or broken into lines that push the section's
/// lower part down, or set smaller and at last in two lines before it is cut. Numbers and dates are never cut, they are
/// always set smaller.
enum class Overflow { Shorten, Wrap, Shrink };

struct TextStyle
{
    double size = 9;
    bool bold = false;
    bool italic = false;
    QColor color = Qt::black;
    bool operator==(const TextStyle &) const = default;
};

/// Something placed in a section.
struct LayoutObject
{
    enum class Kind { Text, Value, Line, Box };

    Kind kind = Kind::Text;
    /// By which routines reach it (`SetText`, `setSuppress`); most objects need none.
    QString name = {};
    QRectF place = {};
    /// Text: the words. Value: a formula text, be it a field, a formula or a summary such as "Sum({Amount})".
    QString content = {};
    TextStyle style = {};
    Align align = Align::Left;
    Picture picture = Picture::General;
    Overflow overflow = Overflow::Shorten;
    int maxLines = 4; ///< of a wrapped text; what is beyond ends in an ellipsis
    /// Line and Box: thickness and, for a box, what it is filled with.
    double thickness = 0.5;
    QColor fill = {};
    bool suppress = false;
    /// Hides the object where it yields True. Its space stays.
    QString suppressIf = {};

    bool isText() const { return kind == Kind::Text || kind == Kind::Value; }
};

struct Section
{
    enum class Kind { ReportHeader, PageHeader, GroupHeader, Detail, GroupFooter, ReportFooter, PageFooter };

    Kind kind = Kind::Detail;
    int group = 0; ///< of a group header or footer: index of its group, 0 being the outermost
    QString name = {};
    double height = 0; ///< 0: as high as its objects need
    std::vector<LayoutObject> objects = {};
    bool suppress = false;
    /// Takes the section off the page, space and all, where it yields True. Its rows still feed the totals.
    QString suppressIf = {};
    bool atPageBottom = false; ///< sits just above the page footer, whatever space is left above it
    bool columnHeads = false;  ///< the heading row of a spreadsheet export; stands over each of several columns
};

/// Rows that belong together, in ascending order of `by`, without regard to case; inside a group rows keep the
/// order in which the dataset gave them.
struct Group
{
    QString by;         ///< a formula text, mostly a field
    QString label = {}; ///< what the group tree shows; empty: the value of `by`
    bool newPageBefore = false;
    bool repeatHeader = true;      ///< the group's header stands again on each page that continues it
    bool keepTogether = false;     ///< begins a new page rather than break, when it fits on one
    bool restartPageCount = false; ///< "page n of m" counts within the group; use with newPageBefore
};

struct NamedFormula
{
    QString name;
    QString text;
};

/// A total that grows row by row in printing order and starts anew with each group of `resetAt` (-1: never).
struct RunningTotal
{
    QString name;
    QString of;
    int resetAt = -1;
    /// A group level: only the first row of each of its groups counts, for what all rows of a group repeat (-1: every
    /// row).
    int oncePer = -1;
};

/// A text object without a place of its own, shown by formulas as {?Name}.
struct TextParameter
{
    QString name;
    QString text = {};
    bool suppress = false;
};

struct Layout
{
    QString title; ///< "Pick Ticket"; also names the document in files and print queues
    bool landscape = false;
    QMarginsF margins{36, 36, 36, 36};
    /// The rows run down the page in that many columns side by side, as in a newspaper; the sections that belong to
    /// them are laid out in one column's width.
    int columns = 1;
    double columnGap = 24;
    std::vector<TextParameter> parameters = {};
    std::vector<NamedFormula> formulas = {}; ///< in the order by which routines number them, from 1
    std::vector<RunningTotal> runningTotals = {};
    std::vector<Group> groups = {};
    std::vector<Section> sections = {}; ///< in printing order within each kind; any number of each
    bool nullsAsDefaults = true;        ///< in formulas Null counts as 0 or "", except under IsNull
    bool exportAsTable = false;         ///< a spreadsheet export is the heading row and one row per record, no more

    QSizeF pageSize() const { return landscape ? QSizeF(792, 612) : QSizeF(612, 792); }
    /// Width between the margins.
    double width() const { return pageSize().width() - margins.left() - margins.right(); }
    double columnWidth() const { return (width() - columnGap * (columns - 1)) / columns; }
};

/// Height of one line of text of that size, both in points.
constexpr double lineHeight(double size)
{
    return size * 1.25;
}
