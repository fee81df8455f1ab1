#include "bench/campaign/forms/power.h"

#include "data/values/runtimeerror.h"
#include "toolkit/forms/mainmod.h"
#include "tools/check.h"
#include <QDir>
#include <QTemporaryDir>

PowerFailures::PowerFailures(const QString &folder, const QString &connect, int openOrders, uint seed)
    : m_disk(folder), m_connect(connect), m_openOrders(openOrders), m_random(seed)
{
}

void PowerFailures::tryAll(const QString &trace, int images)
{
    const std::vector<Event> events = readTrace(trace);
    std::vector<int> moments;
    for (int image = 0; image < images; ++image)
        moments.push_back(m_random.bounded(int(events.size()) + 1));
    std::sort(moments.begin(), moments.end());
    auto moment = moments.begin();
    QByteArray said;
    for (int at = 0; at <= int(events.size()) && m_faults.size() < 10; ++at) {
        for (; moment != moments.end() && *moment == at; ++moment)
            tryOne(QString("after call %1 of %2").arg(at).arg(events.size()));
        if (at == int(events.size()))
            break;
        m_disk.apply(events[size_t(at)]);
        if (events[size_t(at)].kind == TraceHead::Said)
            m_books.add(QString::fromUtf8(events[size_t(at)].data).split('\n'));
    }
}

void PowerFailures::tryOne(const QString &moment)
{
    const auto loss = Loss(m_random.bounded(int(Loss::Blocks4096) + 1));
    const QTemporaryDir folder(QDir::tempPath() + "/power-XXXXXX");
    const QString file = folder.filePath("company.db");
    m_disk.leave(folder.path(), loss, m_random);
    Books books = m_books;
    QStringList faults;
    try {
        books.compare(file, m_connect, m_openOrders, 1);
        for (const QString &finding : checkDatabase(file))
            faults += Books::isHalfDone(finding) ? QStringList() : QStringList(finding);
    } catch (const RuntimeError &error) {
        faults += QString("%1 %2 %3").arg(error.number()).arg(error.description(), error.detail());
    }
    gDatabase.reset();
    for (const QString &fault : faults + books.faults())
        m_faults += QString("%1, loss %2: %3").arg(moment).arg(int(loss)).arg(fault);
}
