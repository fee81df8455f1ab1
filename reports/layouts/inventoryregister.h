#pragma once

#include "reports/layouts/layoutbuilder.h"

/// A movement register over two group levels, in two forms of which a routine suppresses one: with details (secHeads,
/// secPart, secDetail, secPartTotal: every movement with the running balance) or totals only (secTotalsHeads,
/// secTotals: one line for each warehouse and part).
Layout inventoryRegister(const QString &title, const TableGroup &outer, const QString &innerField,
                         const QString &innerHeading);

/// The columns of the form with totals only: the inner group's name, then beginning, in, out, balance, cost, value.
std::vector<Column> registerTotalColumns(const QString &innerField, const QString &innerHeading);
/// The formulas those columns and the details are made of.
std::vector<NamedFormula> registerFormulas();
/// The period's two dates, and the category where the register is limited to one.
std::vector<TextParameter> registerParameters();
QString registerSubtitle();
/// An adjustment without lines comes as one row without part and quantity: it takes no line, and no heading by itself.
void hideBareDocuments(Layout &layout);
