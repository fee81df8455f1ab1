#pragma once

#include <QByteArrayList>
#include <QStringList>
#include <vector>

// The corpus statements.txt: "# " and the case's name, then statements, each followed by what it brings:
//   > the result's columns, or ~ some of them      | a row, in the result's order
//   + the columns of the table made                = how many rows were written
//   ! the run-time error
//   ^ the row above as a server shows it: another spelling of a group of equal texts
// Each case runs on the company of company.txt as if it were the first.
namespace corpus {

struct Step
{
    QString statement;
    QStringList expected;
};

struct Case
{
    QString name;
    int line = 0;
    std::vector<Step> steps;
};

std::vector<Case> cases(bool onServer = false);
/// What fills the company's tables, in words that SQLite and the program's own dialect have in common.
QByteArrayList companyInserts();

/// The parts of a line between its bars.
QStringList cells(const QString &line);
/// A text as a row shows it, in quotes where it would not be seen as it is.
QString shownText(const QString &text);

} // namespace corpus
