#include "reportengine/output/sheetcolumns.h"

namespace {

double common(double left, double right, double otherLeft, double otherRight)
{
    return std::min(right, otherRight) - std::max(left, otherLeft);
}

} // namespace

SheetColumns::SheetColumns(const Layout &layout)
{
    std::vector<Span> spans;
    const int innermost = int(layout.groups.size()) - 1;
    // The columns are those of the rows; heads and totals find their places among them.
    const std::array<std::function<bool(const Section &)>, 3> choices{
        [](const Section &section) { return section.kind == Section::Kind::Detail && !section.suppress; },
        // Without details the totals of the innermost group are the rows.
        [&](const Section &section) {
            return section.kind == Section::Kind::GroupFooter && section.group == innermost && !section.suppress;
        },
        [](const Section &) { return true; }};
    for (const auto &isChosen : choices) {
        for (const Section &section : layout.sections) {
            if (!isChosen(section))
                continue;
            for (const LayoutObject &object : section.objects) {
                if (object.isText() && object.place.width() > 0)
                    spans.push_back({object.place.left(), object.place.right()});
            }
        }
        if (!spans.empty())
            break;
    }
    std::sort(spans.begin(), spans.end(), [](const Span &a, const Span &b) { return a.left < b.left; });
    for (const Span &span : spans) {
        // Lines of one row, one under the other, share columns.
        if (!m_columns.empty() && common(m_columns.back().left, m_columns.back().right, span.left, span.right) >
                                      0.3 * (span.right - span.left))
            m_columns.back().right = std::max(m_columns.back().right, span.right);
        else
            m_columns.push_back(span);
    }
    if (m_columns.empty())
        m_columns.push_back({0, layout.width()});
}

int SheetColumns::columnAt(double left, double right, Align align) const
{
    // By the edge that its column shares, so that heads stand over their figures.
    const double edge = align == Align::Right ? right : left;
    int best = 0;
    double bestDistance = 1e9;
    for (int i = 0; i < count(); ++i) {
        const double distance = std::abs(edge - (align == Align::Right ? m_columns[i].right : m_columns[i].left));
        if (distance < bestDistance) {
            bestDistance = distance;
            best = i;
        }
    }
    return best;
}
