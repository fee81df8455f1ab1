#include "reports/layouts/layoutbuilder.h"

#include "reports/layouts/letterhead.h"

namespace {

bool isNumber(Picture picture)
{
    switch (picture) {
    case Picture::General:
    case Picture::Date:
    case Picture::DateTime:
        return false;
    default:
        return true;
    }
}

Align alignOf(const Column &column)
{
    return column.align.value_or(isNumber(column.picture) ? Align::Right : Align::Left);
}

/// The space between a column and the next. Where figures end and words begin it takes more to tell them apart.
double gapBehind(const TableReport &report, size_t column)
{
    if (column + 1 == report.columns.size())
        return 0;
    const bool meets =
        alignOf(report.columns[column]) == Align::Right && alignOf(report.columns[column + 1]) == Align::Left;
    return meets ? report.gap * 2 : report.gap;
}

/// Where each column stands: left edge and width.
std::vector<QRectF> columnPlaces(const TableReport &report, double width)
{
    double wanted = 0;
    double gaps = 0;
    for (size_t i = 0; i < report.columns.size(); ++i) {
        wanted += report.columns[i].width;
        gaps += gapBehind(report, i);
    }
    // Widths are shares of what the page has, so a column can be added without reckoning the others anew.
    const double stretch = (width - gaps) / wanted;
    std::vector<QRectF> places;
    double x = 0;
    for (size_t i = 0; i < report.columns.size(); ++i) {
        const double wide = report.columns[i].width * stretch;
        places.emplace_back(x, 0, wide, 0);
        x += wide + gapBehind(report, i);
    }
    return places;
}

Section titleSection(const TableReport &report, double width)
{
    Section section{.kind = Section::Kind::PageHeader, .name = "secTitle"};
    section.objects = {
        text({0, 0, width * 0.6, 0}, report.title, {.size = 15, .bold = true, .color = House::Ink}),
        text({width * 0.6, 3, width * 0.4, 0}, letterhead().name, {.size = 10, .color = House::Faint}, Align::Right)};
    if (!report.subtitle.isEmpty())
        section.objects.push_back(
            wrapping(value({0, 20, width, 0}, report.subtitle, {.size = 9, .color = House::Faint})));
    section.height = report.subtitle.isEmpty() ? 28 : 40;
    return section;
}

/// The second headings, each over the columns that share it.
std::vector<LayoutObject> overHeads(const TableReport &report, const std::vector<QRectF> &places,
                                    const TextStyle &style)
{
    std::vector<LayoutObject> objects;
    for (size_t first = 0; first < places.size();) {
        const QString &over = report.columns[first].over;
        size_t behind = first + 1;
        while (behind < places.size() && report.columns[behind].over == over)
            ++behind;
        if (!over.isEmpty()) {
            const double left = places[first].x();
            const double right = places[behind - 1].right();
            const double high = lineHeight(style.size);
            objects.push_back(text({left, 2.5, right - left, high}, over, style, Align::Center));
            objects.push_back(line({left + 4, high + 3}, {right, high + 3}));
        }
        first = behind;
    }
    return objects;
}

Section headsSection(const TableReport &report, const std::vector<QRectF> &places, double width)
{
    Section section{.kind = Section::Kind::PageHeader, .name = "secHeads", .columnHeads = true};
    const TextStyle style{.size = report.textSize, .bold = true, .color = House::Ink};
    const double high = lineHeight(style.size);
    qsizetype lines = 1;
    for (const Column &column : report.columns)
        lines = std::max(lines, column.heading.count('\n') + 1);
    const std::vector<LayoutObject> overs = overHeads(report, places, style);
    const double top = overs.empty() ? 0 : high + 2;
    section.objects.push_back(box({0, 0, width, top + high * double(lines) + 5}, House::Tint, 0));
    section.objects.insert(section.objects.end(), overs.begin(), overs.end());
    for (size_t i = 0; i < places.size(); ++i) {
        // Headings of several lines stand on the bottom line.
        const QStringList words = report.columns[i].heading.split('\n');
        double y = top + 2.5 + high * double(lines - words.size());
        for (const QString &word : words) {
            section.objects.push_back(
                text({places[i].x(), y, places[i].width(), high}, word, style, alignOf(report.columns[i])));
            y += high;
        }
    }
    section.height = top + high * double(lines) + 7;
    return section;
}

LayoutObject cell(const Column &column, QRectF place, double y, const QString &source, const TextStyle &style)
{
    const LayoutObject object = value({place.x(), y, place.width(), 0}, source, style, alignOf(column), column.picture);
    // Words wrap, figures shrink: half a figure is a wrong one.
    return column.picture == Picture::General ? wrapping(object) : object;
}

bool hasTotal(const Column &column)
{
    return column.total || !column.totalSource.isEmpty();
}

/// A formula text over the whole report or, with a group's field, over the group.
QString within(const QString &groupBy, const QString &source)
{
    return QString(source).replace("%1", groupBy.isEmpty() ? QString() : ", " + groupBy);
}

LayoutObject totalCell(const Column &column, QRectF place, const QString &groupBy, const TextStyle &style)
{
    const QString source = column.totalSource.isEmpty() ? "Sum(" + column.source + "%1)" : column.totalSource;
    LayoutObject object = cell(column, place, 2.5, within(groupBy, source), style);
    object.suppressIf = within(groupBy, column.blankTotalIf);
    return object;
}

/// A line of totals under rules: the caption left of the first summed column, the sums in their columns.
std::vector<LayoutObject> totalLine(const TableReport &report, const std::vector<QRectF> &places,
                                    const QString &caption, const QString &groupBy, double thickness)
{
    const TextStyle style{.size = report.textSize, .bold = true, .color = House::Ink};
    std::vector<LayoutObject> objects;
    double firstTotal = places.empty() ? 0 : places.back().right();
    for (size_t i = 0; i < places.size(); ++i) {
        if (!hasTotal(report.columns[i]))
            continue;
        firstTotal = std::min(firstTotal, places[i].x());
        objects.push_back(line({places[i].x(), 1}, {places[i].right(), 1}, thickness));
        objects.push_back(totalCell(report.columns[i], places[i], groupBy, style));
    }
    objects.push_back(wrapping(value({0, 2.5, std::max(0.0, firstTotal - report.gap), 0}, caption, style)));
    return objects;
}

bool anyTotal(const TableReport &report)
{
    return std::any_of(report.columns.begin(), report.columns.end(), hasTotal);
}

/// Heading lines of the same weight, told apart by size; the outer one of several is underlined.
Section groupHeader(const TableReport &report, int level, double width)
{
    const TableGroup &group = report.groups[level];
    const bool isOuter = level + 1 < int(report.groups.size());
    const TextStyle style{.size = report.textSize + (isOuter ? 2.0 : 0.5), .bold = true, .color = House::Ink};
    const double wide = group.beside.isEmpty() ? width : width * 0.55;
    Section section{.kind = Section::Kind::GroupHeader,
                    .group = level,
                    .name = "secGroupHeader" + QString::number(level + 1),
                    .height = lineHeight(style.size) + (isOuter ? 7 : 4)};
    section.objects = {
        wrapping(value({0, 3, wide, 0}, group.heading + " & (if InRepeatedGroupHeader then \" (continued)\")", style))};
    if (!group.beside.isEmpty())
        section.objects.push_back(wrapping(value({wide, 3.5, width - wide, 0}, group.beside,
                                                 {.size = report.textSize, .color = House::Faint}, Align::Right)));
    if (isOuter)
        section.objects.push_back(line({0, section.height - 2.5}, {width, section.height - 2.5}));
    return section;
}

/// The groups with all that was left to be filled in, and the formulas that takes.
void complete(TableReport &report)
{
    for (size_t level = 0; level < report.groups.size(); ++level) {
        TableGroup &group = report.groups[level];
        QString name = "ToText(" + group.by + ")";
        if (!group.none.isEmpty()) {
            const QString formula = "Group" + QString::number(level + 1);
            report.formulas.push_back({formula, "Trim(" + group.by + ")"});
            // Null and empty texts are one group with a name of its own, and so are texts with blanks around them.
            group.by = "{@" + formula + "}";
            name = "(if " + group.by + " = \"\" then \"" + group.none + "\" else " + group.by + ")";
            group.label = name;
        }
        if (group.heading.isEmpty())
            group.heading = name;
        if (!group.counted.isEmpty())
            group.footing = name + " & \": \" & " + countOf("Count(" + group.by + ", " + group.by + ")", group.counted);
        else if (group.footing.isEmpty() && anyTotal(report))
            group.footing = "\"Total \" & " + name;
    }
}

void addGroup(Layout &layout, const TableReport &report, const std::vector<QRectF> &places, int level)
{
    const TableGroup &group = report.groups[level];
    layout.groups.push_back({.by = group.by,
                             .label = group.label,
                             .newPageBefore = group.newPageBefore,
                             .keepTogether = group.keepTogether});
    const QString number = QString::number(level + 1);
    if (group.header)
        layout.sections.push_back(groupHeader(report, level, layout.columnWidth()));
    if (group.footer && !group.footing.isEmpty()) {
        Section section{.kind = Section::Kind::GroupFooter, .group = level, .name = "secGroupFooter" + number};
        section.objects = totalLine(report, places, group.footing, group.by, 0.5);
        section.height = lineHeight(report.textSize) + 7;
        layout.sections.push_back(section);
    }
}

} // namespace

LayoutObject text(QRectF place, const QString &words, const TextStyle &style, Align align)
{
    if (place.height() == 0)
        place.setHeight(lineHeight(style.size));
    return {.kind = LayoutObject::Kind::Text, .place = place, .content = words, .style = style, .align = align};
}

LayoutObject value(QRectF place, const QString &source, const TextStyle &style, Align align, Picture picture)
{
    LayoutObject object = text(place, source, style, align);
    object.kind = LayoutObject::Kind::Value;
    object.picture = picture;
    return object;
}

LayoutObject line(QPointF from, QPointF to, double thickness, const QColor &color)
{
    return {
        .kind = LayoutObject::Kind::Line, .place = QRectF(from, to), .style = {.color = color}, .thickness = thickness};
}

LayoutObject box(QRectF place, const QColor &fill, double thickness, const QColor &color)
{
    return {.kind = LayoutObject::Kind::Box,
            .place = place,
            .style = {.color = color},
            .thickness = thickness,
            .fill = fill};
}

LayoutObject wrapping(LayoutObject object, int maxLines)
{
    object.overflow = Overflow::Wrap;
    object.maxLines = maxLines;
    return object;
}

QString countOf(const QString &count, const QString &thing)
{
    return "ToText(" + count + ", 0) & (if " + count + " = 1 then \" " + thing + "\" else \" " + thing + "s\")";
}

Section nothingSection(double width, const QString &words)
{
    return {.kind = Section::Kind::ReportFooter,
            .name = "secNothing",
            .height = 24,
            .objects = {text({0, 6, width, 0}, words, {.size = 9, .italic = true, .color = House::Faint})},
            .suppressIf = "RecordCount > 0"};
}

Section pageFooter(double width, const QString &title)
{
    const TextStyle style{.size = 8, .color = House::Faint};
    return {.kind = Section::Kind::PageFooter,
            .name = "secPageFooter",
            .height = 20,
            .objects = {line({0, 5}, {width, 5}),
                        value({0, 8, width * 0.7, 0},
                              "\"" + title + "  |  printed \" & ToText(PrintDate) & \" \" & ToText(PrintTime)", style),
                        value({width * 0.7, 8, width * 0.3, 0}, "PageNofM", style, Align::Right)}};
}

Layout tableLayout(TableReport report)
{
    complete(report);
    Layout layout{.title = report.title,
                  .landscape = report.landscape,
                  .columns = report.across,
                  .parameters = report.parameters,
                  .formulas = report.formulas,
                  .runningTotals = report.runningTotals,
                  .exportAsTable = report.exportAsTable};
    const double width = report.width > 0 ? report.width : layout.columnWidth();
    const std::vector<QRectF> places = columnPlaces(report, width);
    layout.sections.push_back(titleSection(report, layout.width()));
    layout.sections.push_back(headsSection(report, places, width));

    Section detail{.kind = Section::Kind::Detail, .name = "secDetail", .suppressIf = report.suppressDetail};
    for (size_t i = 0; i < places.size(); ++i) {
        detail.objects.push_back(cell(report.columns[i], places[i], 1, report.columns[i].source,
                                      {.size = report.textSize, .color = House::Ink}));
        detail.objects.back().suppressIf = report.columns[i].blankIf;
    }
    detail.height = lineHeight(report.textSize) + 2.5;
    if (report.ruled)
        detail.objects.push_back(line({0, detail.height}, {width, detail.height}, 0.3, House::Hair));
    layout.sections.push_back(detail);

    for (int level = 0; level < int(report.groups.size()); ++level)
        addGroup(layout, report, places, level);
    layout.sections.push_back(nothingSection(width));
    if (!report.grandTotal.isEmpty()) {
        Section total{.kind = Section::Kind::ReportFooter, .name = "secGrandTotal"};
        total.objects = totalLine(report, places, report.grandTotal, {}, 1);
        // The tint first, so that the figures stand on it.
        total.objects.insert(total.objects.begin(),
                             box({0, 1.5, width, lineHeight(report.textSize) + 3}, House::Tint, 0));
        total.height = lineHeight(report.textSize) + 8;
        layout.sections.push_back(total);
    }
    layout.sections.push_back(pageFooter(layout.width(), report.title));
    return layout;
}

Section &sectionNamed(Layout &layout, const QString &name)
{
    const auto found = std::find_if(layout.sections.begin(), layout.sections.end(),
                                    [&](const Section &section) { return section.name == name; });
    Q_ASSERT(found != layout.sections.end());
    return *found;
}
