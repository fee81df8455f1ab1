#pragma once

#include <QByteArrayList>
#include <QStringList>
#include <vector>

// The corpus statements.txt: "# " and the case's name, then statements, each followed by what it brings:
//   > the result's columns, or ~ some of them      | a row, in the result's order
//   + the columns of the table made                = how many rows are other than before
//   ! the run-time error
//   ^ the row above as a server shows it: another spelling of a group of equal texts
//   % what its translation for a file holds        ? the same where constants are bound
// Each case runs on the company of company.txt as if it were the first.
namespace corpus {

struct Step
{
    QString statement;
    QStringList expected;
    QStringList translated; ///< the lines % and ?
};

struct Case
{
    QString name;
    int line = 0;
    std::vector<Step> steps;
};

std::vector<Case> cases(bool onServer = false);
/// All statements, without what they bring.
QStringList statements();
/// What fills the company's tables.
QStringList companyInserts();

/// The parts of a line between its bars.
QStringList cells(const QString &line);
/// A text as a row shows it, in quotes where it would not be seen as it is.
QString shownText(const QString &text);

} // namespace corpus
