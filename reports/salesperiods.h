#pragma once

#include <QString>

/// The year texts and last-year dates that the comparison reports take out of the two date texts.
struct SalesPeriods
{
    QString EndYear;       ///< of this year to date
    QString LastYear;      ///< of both last-year periods: the end date's year less one
    QString LastYearBegin; ///< "2/28/2003"
    QString LastYearEnd;
};

/// Takes the texts, "month/day/year", apart at the slashes. The last year comes from the end date alone, so a period
/// over the turn of a year begins after it ends there; a 29 February moves to the 28th when the last two digits of the
/// last year can't be divided by 4, and never the other way. Text of another form gives
/// dates that the engine refuses.
SalesPeriods salesPeriods(const QString &BeginDate, const QString &EndDate);
