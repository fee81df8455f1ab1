#include "reports/layouts/document.h"

namespace {

const TextStyle Small{.size = 8, .color = House::Faint};
const TextStyle Normal{.size = 10, .color = House::Ink};
const TextStyle Strong{.size = 10, .bold = true, .color = House::Ink};

constexpr double WindowLeft = 30; ///< with the page's margins the address stands 66 pt from the left edge and 148 pt
constexpr double WindowTop = 112; ///< from the top, in the window of a letter folded in three
constexpr double AddressHeight = 6 * 12.5;
constexpr double RightHalf = 300; ///< where the particulars and the other address begin
constexpr double CaptionWidth = 62;

void addAddress(Section &section, double x, double width, const QString &caption, const QString &address)
{
    section.objects.push_back(text({x, WindowTop - 12, width, 0}, caption, Small));
    section.objects.push_back(wrapping(value({x, WindowTop, width, AddressHeight}, address, Normal)));
}

void addLetterhead(Section &section)
{
    const Letterhead sender = letterhead();
    section.objects.push_back(text({0, 0, 320, 0}, sender.name, {.size = 18, .bold = true, .color = House::Ink}));
    double y = 24;
    for (const QString &line : sender.lines.mid(0, 5)) {
        section.objects.push_back(text({0, y, RightHalf - 10, 0}, line, {.size = 9, .color = House::Faint}));
        y += 11.5;
    }
}

} // namespace

QString addressBlock(const QString &name, const QString &address1, const QString &address2, const QString &city,
                     const QString &state, const QString &zip)
{
    const QString line = " & (if {%1} <> \"\" then \"\n\" & {%1})";
    const QString town = " & (if {%1} & {%2} & {%3} <> \"\" then \"\n\" & Trim({%1} & "
                         "(if {%1} <> \"\" and {%2} <> \"\" then \", \") & {%2} & \" \" & {%3}))";
    return "{" + name + "}" + line.arg(address1) + line.arg(address2) + town.arg(city, state, zip);
}

QString customerAddress()
{
    return addressBlock("Customer", "Address1", "Address2", "City", "State", "Zip");
}

QString shipToAddress()
{
    return addressBlock("ShipTo", "ShipToAddress1", "ShipToAddress2", "ShipToCity", "ShipToState", "ShipToZip");
}

std::vector<Section> documentHead(const DocumentHead &head, double width)
{
    Section first{.kind = Section::Kind::PageHeader, .name = "secFirstHead", .suppressIf = "PageNumber > 1"};
    addLetterhead(first);
    const double right = RightHalf;
    first.objects.push_back(text({330, 0, width - 330, 0}, head.title.toUpper(),
                                 {.size = 18, .bold = true, .color = House::Ink}, Align::Right));
    double y = 30;
    for (const Particular &particular : head.particulars) {
        const QRectF captionPlace(right, y + 1, CaptionWidth, 0);
        first.objects.push_back(particular.captionSource.isEmpty()
                                    ? text(captionPlace, particular.caption, Small)
                                    : value(captionPlace, particular.captionSource, Small));
        LayoutObject object = particular.value;
        object.place = {right + CaptionWidth, y, width - right - CaptionWidth, 12.5};
        // A long order number gets smaller rather than cut.
        object.overflow = Overflow::Shrink;
        object.style = Strong;
        object.align = Align::Right;
        first.objects.push_back(object);
        first.objects.push_back(line({right, y + 13}, {width, y + 13}, 0.4));
        y += 14;
    }
    addAddress(first, WindowLeft, 240, head.windowCaption, head.windowAddress);
    if (!head.besideAddress.isEmpty()) {
        // Below the particulars, on the line of the other address if they leave it free.
        addAddress(first, right, width - right, head.besideCaption, head.besideAddress);
        if (y > WindowTop - 14) {
            const double shift = y - (WindowTop - 14);
            for (auto object = first.objects.end() - 2; object != first.objects.end(); ++object)
                object->place.translate(0, shift);
        }
    }
    first.height = WindowTop + AddressHeight + 16;

    Section next{.kind = Section::Kind::PageHeader, .name = "secNextHead", .suppressIf = "PageNumber = 1"};
    next.objects = {text({0, 0, width / 2, 0}, letterhead().name, {.size = 11, .bold = true, .color = House::Ink}),
                    wrapping(value({width / 2, 0, width / 2, 0}, head.continuation, Strong, Align::Right))};
    next.height = 24;
    return {first, next};
}

Section documentColumns(std::vector<LayoutObject> headings, double width)
{
    Section section{.kind = Section::Kind::PageHeader, .name = "secHeads", .height = 20, .columnHeads = true};
    section.objects.push_back(box({0, 0, width, 16}, House::Tint, 0));
    for (LayoutObject &heading : headings) {
        heading.place.moveTop(2.5);
        heading.style = {.size = 8.5, .bold = true, .color = House::Ink};
        section.objects.push_back(heading);
    }
    return section;
}

void addSignature(Section &section, QPointF at, double width, const QString &caption)
{
    section.objects.push_back(line({at.x(), at.y()}, {at.x() + width, at.y()}, 0.6, House::Ink));
    section.objects.push_back(text({at.x(), at.y() + 3, width, 0}, caption, Small));
}
