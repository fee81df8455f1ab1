#include "reportengine/pages/sectionplacer.h"

#include "reportengine/pages/textmetrics.h"
#include "reportengine/pages/valuetext.h"

namespace {

constexpr double SmallestShrunk = 0.6; ///< of the size it should have
constexpr double InTwoLines = 0.5;     ///< two lines of which take the place of one

/// An object's text as it goes on paper.
struct Setting
{
    QStringList lines;
    TextStyle style;
    Value value;
    double height() const { return lineHeight(style.size) * double(lines.size()); }
};

Setting settingOf(const CompiledObject &compiled, const FormulaContext &context)
{
    const LayoutObject &object = *compiled.object;
    Setting setting{.lines = {}, .style = object.style, .value = {}};
    if (compiled.value)
        setting.value = compiled.value->evaluate(context);
    else
        setting.value = object.content;
    const QString text = printedValue(setting.value, object.picture);
    if (text.isEmpty())
        return setting;

    const double width = object.place.width();
    // A figure is never cut or wrapped, as half of it would be another figure.
    if (isFigure(setting.value)) {
        // A hundredth less than fits, because fonts come in twentieths of a point and may be rounded up.
        const double needed = TextMetrics::width(text, setting.style);
        if (needed > width)
            setting.style.size *= width / needed * 0.99;
        setting.lines = QStringList{text};
    } else if (object.overflow == Overflow::Wrap) {
        setting.lines = TextMetrics::wrapped(text, setting.style, width, object.maxLines);
    } else {
        const double needed = TextMetrics::width(text, setting.style);
        const bool shrinks = object.overflow == Overflow::Shrink && needed > width;
        // Any smaller, it would hardly be larger than in two lines, which hold twice as much.
        if (shrinks && needed * SmallestShrunk > width) {
            setting.style.size *= InTwoLines;
            setting.lines = TextMetrics::wrapped(text, setting.style, width, 2);
            return setting;
        }
        if (shrinks)
            setting.style.size *= width / needed * 0.99;
        setting.lines = QStringList{TextMetrics::shortened(text, setting.style, width)};
    }
    return setting;
}

/// What settingOf(...).height() gives for a wrapped object, without setting the lines where one will do.
double heightOf(const CompiledObject &compiled, const FormulaContext &context)
{
    const LayoutObject &object = *compiled.object;
    const Value value = compiled.value ? compiled.value->evaluate(context) : Value(object.content);
    if (value.isNull())
        return 0;
    if (isFigure(value))
        return lineHeight(object.style.size);
    if (value.type() != Value::Type::Text)
        return settingOf(compiled, context).height();
    const QString text = value.toText();
    if (text.isEmpty())
        return 0;
    const double width = object.place.width();
    // Nearly every text fits its line, and each row's height is asked for while the pages are counted.
    if (!text.contains('\n') && TextMetrics::width(text, object.style) <= width)
        return lineHeight(object.style.size);
    return lineHeight(object.style.size) *
           double(TextMetrics::wrapped(text, object.style, width, object.maxLines).size());
}

bool isHidden(const CompiledObject &compiled, const FormulaContext &context)
{
    return compiled.object->suppress || (compiled.suppress && compiled.suppress->holds(context));
}

/// A place that turned out higher than laid out, or stands below such a one: how much deeper than laid out it ends.
struct Growth
{
    QRectF place;
    double extra;
};

/// How far something moves down for what grew above it.
double shiftAt(double top, const std::vector<Growth> &grown)
{
    double shift = 0;
    for (const Growth &growth : grown) {
        // What touches it stands below it; the hundredth forgives sums that miss by a hair.
        if (top >= growth.place.bottom() - 0.01)
            shift = std::max(shift, growth.extra);
    }
    return shift;
}

std::vector<Growth> growths(const CompiledSection &section, const FormulaContext &context)
{
    std::vector<Growth> result;
    // Most sections hold nothing that wraps and have one height for all rows.
    if (!section.grows)
        return result;
    for (const CompiledObject &compiled : section.objects) {
        if (compiled.object->overflow != Overflow::Wrap || isHidden(compiled, context))
            continue;
        const QRectF &place = compiled.object->place;
        const double extra = heightOf(compiled, context) - place.height();
        if (extra > 0)
            result.push_back({place, extra});
    }
    // Texts that grow one under another add up.
    if (result.size() > 1) {
        std::stable_sort(result.begin(), result.end(),
                         [](const Growth &a, const Growth &b) { return a.place.top() < b.place.top(); });
        std::vector<Growth> above;
        for (Growth &growth : result) {
            growth.extra += shiftAt(growth.place.top(), above);
            above.push_back(growth);
        }
    }
    return result;
}

/// What stands below something that grew moves down; what frames it grows along.
QRectF adjusted(QRectF place, bool isFrame, const std::vector<Growth> &grown)
{
    const double shift = shiftAt(place.top(), grown);
    double stretch = 0;
    for (const Growth &growth : grown) {
        if (isFrame && place.top() <= growth.place.top() && place.bottom() >= growth.place.bottom())
            stretch = std::max(stretch, growth.extra - shift);
    }
    return place.adjusted(0, shift, 0, shift + stretch);
}

double grownHeight(const CompiledSection &section, const std::vector<Growth> &grown)
{
    double extra = 0;
    for (const Growth &growth : grown)
        extra = std::max(extra, growth.extra);
    return section.height + extra;
}

bool isSuppressed(const CompiledSection &section, const FormulaContext &context)
{
    return section.section->suppress || (section.suppress && section.suppress->holds(context));
}

void placeText(const CompiledObject &compiled, const FormulaContext &context, QPointF corner, Page &page)
{
    const LayoutObject &object = *compiled.object;
    const Setting setting = settingOf(compiled, context);
    const double high = lineHeight(setting.style.size);
    // What is set smaller on one line keeps that line's foot.
    if (setting.style.size < object.style.size && setting.lines.size() == 1)
        corner.ry() += (lineHeight(object.style.size) - high) * 0.8;
    int number = 0;
    for (const QString &line : setting.lines) {
        page.items.push_back({.kind = PageItem::Kind::Text,
                              .rect = {corner.x(), corner.y(), object.place.width(), high},
                              .text = line,
                              .style = setting.style,
                              .align = object.align,
                              .value = setting.value,
                              .picture = object.picture,
                              .object = &object,
                              .line = number++});
        corner.ry() += high;
    }
}

} // namespace

double sectionHeight(const CompiledSection &section, const FormulaContext &context)
{
    if (isSuppressed(section, context))
        return 0;
    return section.grows ? grownHeight(section, growths(section, context)) : section.height;
}

double placeSection(const CompiledSection &section, const FormulaContext &context, QPointF origin, Page &page)
{
    if (isSuppressed(section, context))
        return 0;
    const std::vector<Growth> grown = growths(section, context);
    for (const CompiledObject &compiled : section.objects) {
        const LayoutObject &object = *compiled.object;
        // Its space stays: nothing else moves up.
        if (isHidden(compiled, context))
            continue;
        const bool text = object.isText();
        const QRectF place = adjusted(object.place, !text, grown).translated(origin);
        if (text) {
            placeText(compiled, context, place.topLeft(), page);
            continue;
        }
        page.items.push_back(
            {.kind = object.kind == LayoutObject::Kind::Line ? PageItem::Kind::Line : PageItem::Kind::Box,
             .rect = place,
             .style = object.style,
             .thickness = object.thickness,
             .fill = object.fill,
             .object = &object});
    }
    return grownHeight(section, grown);
}
