#pragma once

#include <QMap>
#include <QSet>
#include <QStringList>

class Place;

/// What the workers promised so far, and the comparison of that with what the database holds.
class Ledger
{
public:
    /// Takes the lines of one worker. False, with a word in faults(), when two took one number.
    void add(const QStringList &lines);
    /// Compares with the database; `open` statements may have been written without the promise being heard.
    void compare(const Place &place, int open);

    const QStringList &faults() const { return m_faults; }
    int statements() const { return m_statements; }

private:
    void expect(bool good, const QString &fault);

    QSet<int> m_numbers, m_orders, m_closed;
    QMap<int, int> m_lines; ///< of each order, how many
    int m_postings = 0, m_parts = 0, m_statements = 0;
    QStringList m_faults;
};
