#include "reports/layouts/controlreport.h"

void addSignatures(Layout &layout, const QStringList &captions)
{
    Section section{.kind = Section::Kind::ReportFooter, .name = "secSignatures", .height = 70, .atPageBottom = true};
    const double gap = 18;
    const double width = (layout.width() - gap * double(captions.size() - 1)) / double(captions.size());
    for (int i = 0; i < captions.size(); ++i) {
        const double x = i * (width + gap);
        section.objects.push_back(line({x, 48}, {x + width, 48}, 0.75, House::Ink));
        section.objects.push_back(text({x, 51, width, 0}, captions[i], {.size = 8, .color = House::Faint}));
    }
    layout.sections.insert(layout.sections.end() - 1, section);
}

void addBlanks(Layout &layout, const QString &heading)
{
    const std::vector<LayoutObject> &heads = sectionNamed(layout, "secHeads").objects;
    const auto head =
        std::find_if(heads.begin(), heads.end(), [&](const LayoutObject &object) { return object.content == heading; });
    Q_ASSERT(head != heads.end());
    Section &detail = sectionNamed(layout, "secDetail");
    detail.height += 3;
    for (LayoutObject &object : detail.objects)
        object.place.translate(0, 3);
    const double y = detail.height - 1;
    detail.objects.push_back(line({head->place.left(), y}, {head->place.right(), y}));
}

void addFacts(Layout &layout, const std::vector<std::pair<QString, QString>> &facts)
{
    Section &title = sectionNamed(layout, "secTitle");
    const double half = layout.width() / 2;
    const double high = lineHeight(9.5) + 2;
    const double captionWidth = 92;
    double y = title.height;
    for (size_t i = 0; i < facts.size(); ++i) {
        const double x = i % 2 ? half : 0;
        title.objects.push_back(text({x, y, captionWidth, high}, facts[i].first, {.size = 9.5, .color = House::Faint}));
        title.objects.push_back(wrapping(value({x + captionWidth, y, half - captionWidth - 8, high}, facts[i].second,
                                               {.size = 9.5, .bold = true, .color = House::Ink})));
        if (i % 2 || i + 1 == facts.size())
            y += high;
    }
    title.height = y + 8;
}
