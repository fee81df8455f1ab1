#pragma once

#include "reportengine/formula/formula.h"

/// Where a formula text finds what it names. Each returns null (or -1) for an unknown name.
class FormulaScope
{
public:
    virtual ~FormulaScope() = default;
    virtual FormulaPtr field(const QString &name) = 0;
    virtual FormulaPtr formula(const QString &name) = 0;
    virtual FormulaPtr runningTotal(const QString &name) = 0;
    virtual FormulaPtr parameter(const QString &name) = 0;
    /// The level of the group over this reference ("{t.PartNo}", "{@Month}").
    virtual int groupLevel(const QString &reference) = 0;
    /// The printed name of the group of that level.
    virtual FormulaPtr groupName(int level) = 0;
    /// `text` is how the source names the total: equal texts share one computation.
    virtual FormulaPtr aggregate(const Aggregate &aggregate, const QString &text) = 0;
};

/// Parses a formula text. Error 440, the reason in its detail.
FormulaPtr parseFormula(const QString &text, FormulaScope &scope);
