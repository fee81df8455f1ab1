#include "reportengine/pages/pagemaker.h"

#include "reportengine/pages/sectionplacer.h"

using Kind = Section::Kind;

/// The making of one page, and of the endless one: where the rows have got to, and what formulas see there.
class PageRun
{
public:
    PageRun(const PageMaker &maker, const PageStart &start)
        : m_maker(maker), m_grouping(maker.m_grouping), m_position(start.position), m_step(start.step),
          m_context(maker.m_context)
    {
        m_context.groupNodes.resize(m_grouping.levels());
        m_context.running = start.running;
        m_context.running.resize(maker.m_layout.runningTotals().size());
        lookAt(m_position);
    }

    std::optional<PageStart> fill(const PageStart &start, int index, int pageCount, Page *page, PrintedGroups *printed);
    bool forEachSection(const PageMaker::Visitor &visit);
    /// Goes on over rows that print nothing, to where something stands.
    PageStart firstPrinted();
    /// The position of the last row that prints anything; -1 when none does.
    int lastPrinted();

private:
    bool atEnd() const { return m_position == m_grouping.rowCount(); }

    /// Lets formulas see that row; behind the last one they go on seeing the last.
    void lookAt(int position)
    {
        position = std::min(position, m_grouping.rowCount() - 1);
        if (position < 0)
            return;
        m_context.row = m_grouping.rowAt(position);
        for (int level = 0; level < m_grouping.levels(); ++level)
            m_context.groupNodes[level] = m_grouping.nodeAt(level, position, m_context.groupNodes[level]);
    }

    bool begins(int level) const { return m_grouping.nodes(level)[m_context.groupNodes[level]].first == m_position; }
    bool ends(int level) const { return m_grouping.nodes(level)[m_context.groupNodes[level]].end == m_position + 1; }

    /// Takes the row into the running totals.
    void countRow()
    {
        const auto &totals = m_maker.m_layout.runningTotals();
        for (size_t i = 0; i < totals.size(); ++i) {
            // Set back before the row counts, so that the group's own first row is in it.
            if (totals[i].resetAt >= 0 && begins(totals[i].resetAt))
                m_context.running[i] = 0;
            // What all rows of a group repeat, such as the freight of a shipment, counts with its first row alone.
            if (totals[i].oncePer >= 0 && !begins(totals[i].oncePer))
                continue;
            const Value value = totals[i].of->evaluate(m_context);
            if (!value.isNull())
                m_context.running[i] += value.toDouble();
        }
    }

    /// The sections the row prints: headers of the groups that begin with it, details, footers of those that end.
    const std::vector<const CompiledSection *> &sectionsOfRow()
    {
        m_sections.clear();
        const auto take = [this](const std::vector<CompiledSection> &sections) {
            for (const CompiledSection &section : sections)
                m_sections.push_back(&section);
        };
        for (int level = 0; level < m_grouping.levels(); ++level) {
            if (begins(level))
                take(*m_maker.m_headers[level]);
        }
        take(m_maker.m_details);
        for (int level = m_grouping.levels() - 1; level >= 0; --level) {
            if (ends(level))
                take(*m_maker.m_footers[level]);
        }
        return m_sections;
    }

    /// Measures the row's sections from that one on, and notes them with their heights.
    double heightOfRow(int fromStep)
    {
        double height = 0;
        const auto &sections = sectionsOfRow();
        m_heights.assign(sections.size(), 0);
        for (size_t i = fromStep; i < sections.size(); ++i)
            height += m_heights[i] = sectionHeight(*sections[i], m_context);
        return height;
    }

    double heightOf(const std::vector<CompiledSection> &sections) const
    {
        double height = 0;
        for (const CompiledSection &section : sections)
            height += sectionHeight(section, m_context);
        return height;
    }

    double place(const CompiledSection &section) { return place(section, sectionHeight(section, m_context)); }
    double place(const CompiledSection &section, double height)
    {
        // Down to the foot and never up, where something stands already.
        if (section.section->atPageBottom)
            m_y = std::max(m_y, m_bottom - height);
        // While pages are only counted nothing is placed, but everything is measured alike: a page drawn later must
        // begin at the row it was counted from.
        if (m_page)
            placeSection(section, m_context, {m_maker.m_layout.layout().margins.left() + m_x, m_y}, *m_page);
        m_y += height;
        return height;
    }
    void placeAll(const std::vector<CompiledSection> &sections)
    {
        for (const CompiledSection &section : sections)
            place(section);
    }

    void beginPage(int index);
    void placeHeads();
    bool nextColumn();
    void repeatHeaders();
    void noteGroups(PrintedGroups &printed, int index) const;
    void noteGroupPlaces(const CompiledSection &section, double top);
    bool breaksBefore(double height) const;
    bool groupDoesNotFit() const;
    bool strandsReportFooter(double height) const;
    bool fillRows(int index, PrintedGroups *printed);
    bool fillReportFooter();
    bool visit(const std::vector<CompiledSection> &sections, const PageMaker::Visitor &visitor);
    bool visit(const CompiledSection &section, const PageMaker::Visitor &visitor);

    const PageMaker &m_maker;
    const Grouping &m_grouping;
    int m_position;
    int m_step;
    FormulaContext m_context;
    std::vector<double> m_runningBefore;             ///< running totals before the row that did not fit
    std::vector<const CompiledSection *> m_sections; ///< of the row
    std::vector<double> m_heights;                   ///< theirs
    Page *m_page = nullptr;
    double m_top = 0; ///< below the page header
    double m_y = 0;
    double m_x = 0; ///< of the column that is being filled
    int m_column = 0;
    double m_bottom = 0;
    bool m_fresh = true; ///< no row stands in the column yet
    bool m_newPageDue = false;
    bool m_restartDue = false;
};

void PageRun::beginPage(int index)
{
    const Layout &layout = m_maker.m_layout.layout();
    m_y = layout.margins.top();
    // The foot is set aside before any row is placed, measured with the page's first row in view: which one will be the
    // last is not known yet.
    m_bottom =
        layout.pageSize().height() - layout.margins.bottom() - heightOf(m_maker.m_layout.sections(Kind::PageFooter));
    if (index == 0)
        placeAll(m_maker.m_layout.sections(Kind::ReportHeader));
    placeHeads();
    m_top = m_y;
    if (!atEnd())
        repeatHeaders();
}

/// The page's head, in it the column heads over each column.
void PageRun::placeHeads()
{
    const Layout &layout = m_maker.m_layout.layout();
    for (const CompiledSection &section : m_maker.m_layout.sections(Kind::PageHeader)) {
        const double top = m_y;
        place(section);
        for (int column = 1; section.section->columnHeads && column < layout.columns; ++column) {
            m_y = top;
            m_x = column * (layout.columnWidth() + layout.columnGap);
            place(section);
        }
        m_x = 0;
    }
}

/// Goes on at the top of the page's next column; false in the last one.
bool PageRun::nextColumn()
{
    const Layout &layout = m_maker.m_layout.layout();
    // A group that wants a page is not content with a column.
    if (m_column + 1 >= layout.columns || m_newPageDue)
        return false;
    m_x = ++m_column * (layout.columnWidth() + layout.columnGap);
    m_y = m_top;
    m_fresh = true;
    if (!atEnd())
        repeatHeaders();
    return true;
}

/// The headers of groups that go on from the page or column before.
void PageRun::repeatHeaders()
{
    // Formulas see it as InRepeatedGroupHeader, to add "(continued)" or to leave a line out.
    m_context.repeatedHeader = true;
    int stepsBefore = 0;
    for (int level = 0; level < m_grouping.levels(); ++level) {
        if (begins(level))
            stepsBefore += int(m_maker.m_headers[level]->size());
        // A group that begins with this row goes on here too if its header stands on the page before.
        const bool isOpen = !begins(level) || (m_step > 0 && m_step >= stepsBefore);
        if (isOpen && m_maker.m_layout.layout().groups[level].repeatHeader)
            placeAll(*m_maker.m_headers[level]);
    }
    m_context.repeatedHeader = false;
}

void PageRun::noteGroups(PrintedGroups &printed, int index) const
{
    for (int level = 0; level < m_grouping.levels(); ++level)
        printed.note(level, m_context.groupNodes[level], index);
}

/// Notes the groups that have not stood on the page before this section of theirs. A header belongs to its own group
/// and those around it, everything else of a row to all its groups.
void PageRun::noteGroupPlaces(const CompiledSection &section, double top)
{
    if (!m_page || m_y == top)
        return;
    const bool isHeader = section.section->kind == Kind::GroupHeader;
    const int end = isHeader ? section.section->group + 1 : m_grouping.levels();
    std::vector<GroupPlace> &places = m_page->groups;
    for (int level = 0; level < end; ++level) {
        const auto known =
            std::find_if(places.rbegin(), places.rend(), [&](const GroupPlace &place) { return place.level == level; });
        if (known == places.rend() || known->node != m_context.groupNodes[level])
            places.push_back({level, m_context.groupNodes[level], top, m_y});
        else if (isHeader && level == section.section->group)
            known->bottom = m_y; // a further line of the same header
    }
}

/// Whether a group that begins here wants to stay in one piece and has to go to a new page for it.
bool PageRun::groupDoesNotFit() const
{
    const double room = m_bottom - m_top;
    for (int level = 0; level < m_grouping.levels(); ++level) {
        if (!m_maker.m_layout.layout().groups[level].keepTogether || !begins(level))
            continue;
        // A copy looks ahead, since what formulas see moves along with it.
        PageRun ahead = *this;
        const int end = m_grouping.nodes(level)[m_context.groupNodes[level]].end;
        double height = 0;
        for (; ahead.m_position < end && height <= room; ++ahead.m_position) {
            ahead.lookAt(ahead.m_position);
            height += ahead.heightOfRow(0);
        }
        // A group higher than any page breaks where it stands; going to a new page would only leave a hole behind.
        if (height > m_bottom - m_y && height <= room)
            return true;
    }
    return false;
}

bool PageRun::breaksBefore(double height) const
{
    // Where no row stands yet the next one goes, however high it is. Otherwise a row higher than the page would make
    // pages without end.
    if (m_fresh || height == 0)
        return false;
    return m_newPageDue || m_y + height > m_bottom || groupDoesNotFit();
}

/// Whether the last row would stay on this page and the report's end stand on the next without any row. A row that
/// goes over with the footer must find room for both there, or nothing is won.
bool PageRun::strandsReportFooter(double height) const
{
    if (m_fresh || m_position != m_maker.m_lastPrinted)
        return false;
    const double both = height + heightOf(m_maker.m_layout.sections(Kind::ReportFooter));
    return m_y + both > m_bottom && both <= m_bottom - m_top;
}

/// True when the page is full before the rows are at their end.
bool PageRun::fillRows(int index, PrintedGroups *printed)
{
    for (; !atEnd(); ++m_position, m_step = 0) {
        lookAt(m_position);
        m_runningBefore = m_context.running;
        // A row that goes on from the page before was counted, and its groups asked, there.
        if (m_step == 0) {
            countRow();
            for (int level = 0; level < m_grouping.levels(); ++level) {
                const Group &group = m_maker.m_layout.layout().groups[level];
                // Due until a row prints: one that prints nothing neither makes an empty page nor takes the break away.
                m_newPageDue = m_newPageDue || (group.newPageBefore && begins(level));
                m_restartDue = m_restartDue || (group.restartPageCount && begins(level));
            }
        }
        const double height = heightOfRow(m_step);
        if ((breaksBefore(height) || (height > 0 && strandsReportFooter(height))) && !nextColumn())
            return true;
        // It prints nothing, so none of its groups begins here.
        if (height == 0)
            continue;
        if (printed && m_step == 0)
            noteGroups(*printed, index);
        // A row's sections stay together; those of one that is higher than a page go on as far as they fit.
        for (; m_step < int(m_sections.size()); ++m_step) {
            if (!m_fresh && m_y + m_heights[m_step] > m_bottom && !nextColumn()) {
                // The row is counted already, and will not be where it goes on.
                m_runningBefore = m_context.running;
                return true;
            }
            const double top = m_y;
            // A hidden section leaves a page as fresh as it was.
            m_fresh = place(*m_sections[m_step], m_heights[m_step]) == 0 && m_fresh;
            noteGroupPlaces(*m_sections[m_step], top);
        }
        m_fresh = m_newPageDue = m_restartDue = false;
    }
    return false;
}

/// The report's end may itself go over several pages, section by section.
bool PageRun::fillReportFooter()
{
    const auto &sections = m_maker.m_layout.sections(Kind::ReportFooter);
    for (; m_step < int(sections.size()); ++m_step) {
        if (!m_fresh && m_y + sectionHeight(sections[m_step], m_context) > m_bottom && !nextColumn())
            return true;
        place(sections[m_step]);
        m_fresh = false;
    }
    return false;
}

std::optional<PageStart> PageRun::fill(const PageStart &start, int index, int pageCount, Page *page,
                                       PrintedGroups *printed)
{
    m_page = page;
    m_context.pageNumber = index - start.countBase + 1;
    m_context.pageCount = pageCount;
    beginPage(index);
    const bool isFull = fillRows(index, printed) || fillReportFooter();
    // Noted before the foot looks back. A document that begins on the next page counts its pages from there.
    const PageStart next{m_position, m_step, m_restartDue ? index + 1 : start.countBase,
                         isFull ? m_runningBefore : m_context.running};
    // The page footer belongs to the last row on the page, not to the first of the next.
    lookAt(isFull && !atEnd() && m_step == 0 ? std::max(m_position - 1, start.position) : m_position);
    m_y = m_bottom;
    m_x = 0;
    placeAll(m_maker.m_layout.sections(Kind::PageFooter));
    return isFull ? std::optional(next) : std::nullopt;
}

bool PageRun::visit(const std::vector<CompiledSection> &sections, const PageMaker::Visitor &visitor)
{
    return std::ranges::all_of(sections, [&](const CompiledSection &section) { return visit(section, visitor); });
}

bool PageRun::visit(const CompiledSection &section, const PageMaker::Visitor &visitor)
{
    Page items;
    return placeSection(section, m_context, {}, items) == 0 || visitor(section, items, m_position);
}

bool PageRun::forEachSection(const PageMaker::Visitor &visitor)
{
    // A spreadsheet has one endless page.
    m_context.pageNumber = m_context.pageCount = 1;
    if (!visit(m_maker.m_layout.sections(Kind::ReportHeader), visitor) ||
        !visit(m_maker.m_layout.sections(Kind::PageHeader), visitor))
        return false;
    for (; !atEnd(); ++m_position) {
        lookAt(m_position);
        countRow();
        for (const CompiledSection *section : sectionsOfRow()) {
            if (!visit(*section, visitor))
                return false;
        }
    }
    // A page without end has no foot.
    return visit(m_maker.m_layout.sections(Kind::ReportFooter), visitor);
}

/// The head of the first page speaks of the first row, which must be one that the reader sees.
PageStart PageRun::firstPrinted()
{
    for (; !atEnd(); ++m_position) {
        lookAt(m_position);
        m_runningBefore = m_context.running;
        countRow();
        if (heightOfRow(0) > 0)
            return {m_position, 0, 0, m_runningBefore};
    }
    return {m_position, 0, 0, m_context.running};
}

/// From the end, since mostly the last row is the one.
int PageRun::lastPrinted()
{
    for (m_position = m_grouping.rowCount() - 1; m_position >= 0; --m_position) {
        lookAt(m_position);
        if (heightOfRow(0) > 0)
            break;
    }
    return m_position;
}

PageMaker::PageMaker(const CompiledLayout &layout, const Grouping &grouping, const Totals &totals,
                     const FormulaContext &context)
    : m_layout(layout), m_grouping(grouping), m_context(context), m_details(layout.sections(Kind::Detail))
{
    m_context.totals = &totals;
    for (int level = 0; level < grouping.levels(); ++level) {
        m_headers.push_back(&layout.sections(Kind::GroupHeader, level));
        m_footers.push_back(&layout.sections(Kind::GroupFooter, level));
    }
    m_lastPrinted = PageRun(*this, {}).lastPrinted();
}

PageStart PageMaker::firstStart() const
{
    return PageRun(*this, {}).firstPrinted();
}

std::optional<PageStart> PageMaker::make(const PageStart &start, int index, int pageCount, Page *page,
                                         PrintedGroups *printed) const
{
    if (page) {
        page->size = m_layout.layout().pageSize();
        page->items.clear();
    }
    return PageRun(*this, start).fill(start, index, pageCount, page, printed);
}

bool PageMaker::forEachSection(const Visitor &visit) const
{
    return PageRun(*this, {}).forEachSection(visit);
}

QString PageMaker::groupLabel(int level, int node) const
{
    FormulaContext context = m_context;
    const int position = m_grouping.nodes(level)[node].first;
    for (int above = 0; above < m_grouping.levels(); ++above)
        context.groupNodes.push_back(m_grouping.nodeAt(above, position));
    context.row = m_grouping.rowAt(position);
    const Value label = m_layout.groupLabels()[level]->evaluate(context);
    return label.isNull() ? QString() : label.toText();
}
