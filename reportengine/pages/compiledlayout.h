#pragma once

#include "reportengine/formula/formulaparser.h"
#include "reportengine/pages/layout.h"
#include "reportengine/rows/dataset.h"
#include <QMap>
#include <QSet>

struct CompiledObject
{
    const LayoutObject *object;
    FormulaPtr value;    ///< of Kind::Value
    FormulaPtr suppress; ///< null: never
};

struct CompiledSection
{
    const Section *section;
    std::vector<CompiledObject> objects;
    FormulaPtr suppress;
    double height;
    bool grows; ///< holds wrapped texts, so that its height depends on the row
};

struct CompiledRunningTotal
{
    FormulaPtr of;
    int resetAt;
    int oncePer;
};

/// A layout whose formula texts have been parsed against its dataset. Refers to the layout, which must stay in place;
/// its texts and suppress switches may still change.
class CompiledLayout : private FormulaScope
{
public:
    /// Error 440 when a formula can't be read.
    CompiledLayout(const Layout &layout, const QString &table, const Dataset &dataset);

    const Layout &layout() const { return m_layout; }
    /// The sections of that kind, in the layout's order.
    const std::vector<CompiledSection> &sections(Section::Kind kind, int group = 0) const;
    const std::vector<FormulaPtr> &groups() const { return m_groups; }
    const std::vector<FormulaPtr> &groupLabels() const { return m_labels; }
    const std::vector<Aggregate> &aggregates() const { return m_aggregates; }
    const std::vector<CompiledRunningTotal> &runningTotals() const { return m_runningTotals; }

private:
    FormulaPtr field(const QString &name) override;
    FormulaPtr formula(const QString &name) override;
    FormulaPtr runningTotal(const QString &name) override;
    FormulaPtr parameter(const QString &name) override;
    int groupLevel(const QString &reference) override;
    FormulaPtr groupName(int level) override;
    FormulaPtr aggregate(const Aggregate &aggregate, const QString &text) override;

    FormulaPtr parsed(const QString &text);
    CompiledSection compiled(const Section &section);

    const Layout &m_layout;
    QString m_prefix;
    const Dataset &m_dataset;
    QMap<QString, FormulaPtr> m_formulas;
    QSet<QString> m_beingParsed;
    QMap<QString, int> m_aggregateTexts;
    std::vector<FormulaPtr> m_groups;
    std::vector<FormulaPtr> m_labels;
    std::vector<Aggregate> m_aggregates;
    std::vector<CompiledRunningTotal> m_runningTotals;
    std::map<std::pair<Section::Kind, int>, std::vector<CompiledSection>> m_sections;
};
