#include "reportengine/pages/compiledlayout.h"

#include "data/values/runtimeerror.h"
#include "reportengine/formula/formulanodes.h"
#include "reportengine/pages/totals.h"

namespace {

FormulaType formulaType(FieldType type)
{
    return isText(type) ? FormulaType::Text : isDate(type) ? FormulaType::Date : FormulaType::Number;
}

/// Finds a declaration by its name in any case.
template <class List> auto findNamed(const List &list, const QString &name)
{
    return std::find_if(list.begin(), list.end(),
                        [&](const auto &entry) { return entry.name.compare(name, Qt::CaseInsensitive) == 0; });
}

/// Has no value while the totals are still being taken: a total over totals, or a group on one, is an error.
class TotalFormula : public Formula
{
public:
    TotalFormula(FormulaType type, int aggregate) : Formula(type), m_aggregate(aggregate) {}
    void values(const FormulaContext &context, std::span<const int> rows, Value *out) const override
    {
        if (!context.totals)
            throw runtimeError(440, {}, "A total is taken over another total");
        std::fill_n(out, rows.size(), context.totals->total(m_aggregate, context));
    }

private:
    int m_aggregate;
};

} // namespace

CompiledLayout::CompiledLayout(const Layout &layout, const QString &table, const Dataset &dataset)
    : m_layout(layout), m_prefix(table + "."), m_dataset(dataset)
{
    for (const Group &group : layout.groups)
        m_groups.push_back(parsed(group.by));
    // Behind all groups, since a label may name any of them.
    for (size_t level = 0; level < layout.groups.size(); ++level) {
        const QString &label = layout.groups[level].label;
        m_labels.push_back(label.isEmpty() ? groupName(int(level)) : parsed(label));
    }
    // A formula nobody uses must be readable all the same.
    for (const NamedFormula &formula : layout.formulas)
        this->formula(formula.name);
    for (const RunningTotal &total : layout.runningTotals)
        m_runningTotals.push_back({parsed(total.of), total.resetAt, total.oncePer});
    for (const Section &section : layout.sections)
        m_sections[{section.kind, section.group}].push_back(compiled(section));
}

const std::vector<CompiledSection> &CompiledLayout::sections(Section::Kind kind, int group) const
{
    static const std::vector<CompiledSection> none;
    const auto found = m_sections.find({kind, group});
    return found == m_sections.end() ? none : found->second;
}

/// An empty text never hides anything and is no value: null.
FormulaPtr CompiledLayout::parsed(const QString &text)
{
    return text.trimmed().isEmpty() ? nullptr : parseFormula(text, *this);
}

CompiledSection CompiledLayout::compiled(const Section &section)
{
    CompiledSection result{&section, {}, parsed(section.suppressIf), section.height, false};
    for (const LayoutObject &object : section.objects) {
        const bool isValue = object.kind == LayoutObject::Kind::Value;
        result.objects.push_back({&object, isValue ? parsed(object.content) : nullptr, parsed(object.suppressIf)});
        result.grows = result.grows || object.overflow == Overflow::Wrap;
        // A section without a height of its own is as high as what stands lowest in it.
        if (section.height == 0)
            result.height = std::max(result.height, object.place.bottom());
    }
    return result;
}

FormulaPtr CompiledLayout::field(const QString &name)
{
    // There is only the one table, so a formula may leave its name away.
    const QString bare = name.startsWith(m_prefix, Qt::CaseInsensitive) ? name.mid(m_prefix.size()) : name;
    const auto found = findNamed(m_dataset, bare);
    if (found == m_dataset.end())
        return nullptr;
    return std::make_shared<FieldFormula>(formulaType(found->type), int(found - m_dataset.begin()));
}

FormulaPtr CompiledLayout::formula(const QString &name)
{
    const QString key = name.toLower();
    if (m_formulas.contains(key))
        return m_formulas[key];
    const auto found = findNamed(m_layout.formulas, name);
    if (found == m_layout.formulas.end() || m_beingParsed.contains(key))
        return nullptr;
    // A formula that names itself, by whatever way round, is an unknown name there and not an endless descent.
    m_beingParsed.insert(key);
    FormulaPtr result = parsed(found->text);
    if (!result)
        // An empty suppress formula never hides.
        result = std::make_shared<ConstantFormula>(FormulaType::Boolean, false);
    m_beingParsed.remove(key);
    return m_formulas[key] = result;
}

FormulaPtr CompiledLayout::runningTotal(const QString &name)
{
    const auto found = findNamed(m_layout.runningTotals, name);
    if (found == m_layout.runningTotals.end())
        return nullptr;
    return computed(FormulaType::Number,
                    [index = found - m_layout.runningTotals.begin()](const FormulaContext &context, int) {
                        // Groups and totals are taken before the first row prints, when nothing runs yet.
                        return context.running.empty() ? Value() : Value(context.running[index]);
                    });
}

FormulaPtr CompiledLayout::parameter(const QString &name)
{
    const auto found = findNamed(m_layout.parameters, name);
    if (found == m_layout.parameters.end())
        return nullptr;
    // Asked at every page, as routines set the text when the layout has long been parsed; alike for all rows, so one
    // answer serves a whole batch.
    return computed(
        FormulaType::Text,
        [&parameter = *found](const FormulaContext &, int) {
            return parameter.suppress ? Value(QString()) : Value(parameter.text);
        },
        false);
}

int CompiledLayout::groupLevel(const QString &reference)
{
    const auto bare = [this](QString text) {
        text = text.trimmed();
        return text.startsWith(m_prefix, Qt::CaseInsensitive) ? text.mid(m_prefix.size()) : text;
    };
    for (size_t level = 0; level < m_layout.groups.size(); ++level) {
        // A total names its group as the report's user would write it, with or without the table's name.
        QString by = m_layout.groups[level].by.trimmed();
        if (by.startsWith('{') && by.endsWith('}'))
            by = by.mid(1, by.size() - 2);
        if (bare(by).compare(bare(reference), Qt::CaseInsensitive) == 0)
            return int(level);
    }
    return -1;
}

FormulaPtr CompiledLayout::groupName(int level)
{
    const FormulaPtr by = m_groups[level];
    return computed(FormulaType::Text,
                    [by](const FormulaContext &context, int row) { return Value(by->value(context, row).joined()); });
}

FormulaPtr CompiledLayout::aggregate(const Aggregate &aggregate, const QString &text)
{
    if (!m_aggregateTexts.contains(text)) {
        m_aggregateTexts[text] = int(m_aggregates.size());
        m_aggregates.push_back(aggregate);
        // Two totals over one text share its formula, which is then evaluated once for both.
        for (const Aggregate &other : m_aggregates) {
            if (other.argument == aggregate.argument)
                m_aggregates.back().of = other.of;
        }
    }
    const bool keepsType = aggregate.kind == Aggregate::Kind::Minimum || aggregate.kind == Aggregate::Kind::Maximum;
    return std::make_shared<TotalFormula>(keepsType ? aggregate.of->type() : FormulaType::Number,
                                          m_aggregateTexts[text]);
}
