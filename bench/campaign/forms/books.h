#pragma once

#include <QHash>
#include <QStringList>

/// What the clerks promised so far, and the comparison of that with what the file holds.
class Books
{
public:
    /// Takes the lines of one clerk; two that promise one number are a fault.
    void add(const QStringList &lines);
    /// Compares with the file, of which `openOrders` orders were there before. Each of `cut` clerks was killed and may
    /// have left one document behind that is not whole: a beginning of its writes, in their order.
    void compare(const QString &file, const QString &connect, int openOrders, int cut);

    /// Whether a finding of tamrick-db check is what a save that was cut off may leave: the saves write in steps. How
    /// many of those there may be, the comparison counts.
    static bool isHalfDone(const QString &finding);

    const QStringList &faults() const { return m_faults; }
    int documents() const { return m_documents; }

private:
    void expect(bool good, const QString &fault);
    /// Promised rows of a table are there, and besides them and `before` no more than `cut`.
    void compareTable(const QString &table, const QString &document, int before, int cut);
    void compareOrders(int openOrders, int cut);
    void compareShipments(int cut);
    void compareInvoices(int cut);
    void compareLedger(int cut);
    void comparePapers(int cut);

    QHash<QString, QStringList> m_promised; ///< numbers by kind of document
    int m_documents = 0;
    QStringList m_faults;
};
