#pragma once

#include "bench/campaign/forms/books.h"
#include "bench/campaign/forms/disk.h"
#include <QRandomGenerator>

/// Power failures at any moment of a recorded run of the program, on the disk as the recorded system calls allow it to
/// be left.
class PowerFailures
{
public:
    /// `folder` holds nothing but the database, before the run; `openOrders` stand in it already.
    PowerFailures(const QString &folder, const QString &connect, int openOrders, uint seed);

    /// Tries that many disks, left at moments spread over the trace; each is opened by the program, and compared with
    /// what the clerk had said, and had on paper in the folder `printed`, by then.
    void tryAll(const QString &trace, const QString &printed, int images);

    int promises() const { return m_books.documents(); }
    int papers() const { return m_papers; }
    const QStringList &faults() const { return m_faults; }

private:
    void takePaper(const QString &path);
    void tryOne(const QString &moment);

    Disk m_disk;
    Books m_books;
    QString m_connect;
    int m_openOrders;
    int m_papers = 0;
    QRandomGenerator m_random;
    QStringList m_faults;
};
