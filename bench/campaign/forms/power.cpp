#include "bench/campaign/forms/power.h"

#include "data/values/runtimeerror.h"
#include "toolkit/forms/mainmod.h"
#include "tools/check.h"
#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

/// What a printed document promises: a slip its shipment, an invoice its number. Empty when it is neither.
QString promiseOn(const QString &path)
{
    QProcess reader;
    reader.start("pdftotext", {"-layout", path, "-"});
    reader.waitForFinished(-1);
    const QString text = QString::fromUtf8(reader.readAllStandardOutput());
    const std::pair<const char *, const char *> documents[] = {{"slip ", "^ *Packing Slip.*?\\bShipment +(\\d+)"},
                                                               {"paper ", "\\bInvoice number +(\\d+)"}};
    for (const auto &[kind, pattern] : documents) {
        const auto match = QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption |
                                                           QRegularExpression::MultilineOption)
                               .match(text);
        if (match.hasMatch())
            return kind + match.captured(1);
    }
    return {};
}

} // namespace

PowerFailures::PowerFailures(const QString &folder, const QString &connect, int openOrders, uint seed)
    : m_disk(folder), m_connect(connect), m_openOrders(openOrders), m_random(seed)
{
}

void PowerFailures::tryAll(const QString &trace, const QString &printed, int images)
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
        const Event &event = events[size_t(at)];
        m_disk.apply(event);
        if (event.kind == TraceHead::Said)
            m_books.add(QString::fromUtf8(event.data).split('\n'));
        if (event.kind == TraceHead::Printed)
            takePaper(printed + '/' + event.name);
    }
}

void PowerFailures::takePaper(const QString &path)
{
    const QString promise = promiseOn(path);
    if (promise.isEmpty())
        m_faults += "printed, and neither a slip nor an invoice: " + path;
    m_books.add({promise});
    ++m_papers;
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
