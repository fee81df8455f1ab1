#include "bench/campaign/forms/disk.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <cstring>

namespace {

void put(QByteArray &content, qint64 offset, const QByteArray &data)
{
    if (content.size() < offset + data.size())
        content.append(offset + data.size() - content.size(), '\0');
    content.replace(offset, data.size(), data);
}

/// Writes those blocks of the data that the disk came to.
void tear(QByteArray &content, const Event &write, qint64 block, QRandomGenerator &random)
{
    const qint64 end = write.offset + write.data.size();
    for (qint64 at = write.offset; at < end;) {
        const qint64 next = std::min(end, (at / block + 1) * block);
        if (random.bounded(2))
            put(content, at, write.data.mid(at - write.offset, next - at));
        at = next;
    }
    // The new size may be there without the blocks.
    if (content.size() < end && random.bounded(2))
        content.append(end - content.size(), '\0');
}

void perform(QByteArray &content, const Event &event)
{
    if (event.kind == TraceHead::Write)
        put(content, event.offset, event.data);
    else if (content.size() > event.offset)
        content.truncate(event.offset);
    else
        content.append(event.offset - content.size(), '\0');
}

} // namespace

std::vector<Event> readTrace(const QString &path)
{
    QFile file(path);
    std::vector<Event> events;
    if (!file.open(QIODevice::ReadOnly))
        return events;
    for (TraceHead head; file.read(reinterpret_cast<char *>(&head), sizeof(head)) == sizeof(head);) {
        const QByteArray name = file.read(head.pathSize);
        events.push_back({head.kind, QString::fromUtf8(name), head.offset, file.read(head.dataSize)});
    }
    return events;
}

Disk::Disk(const QString &folder)
{
    for (const QString &name : QDir(folder).entryList(QDir::Files)) {
        QFile file(folder + '/' + name);
        if (!name.endsWith("-shm") && file.open(QIODevice::ReadOnly))
            m_now[name] = std::make_shared<File>(File{file.readAll(), {}});
    }
    m_safe = m_now;
}

void Disk::apply(const Event &event)
{
    switch (event.kind) {
    case TraceHead::Create:
        m_now[event.name] = std::make_shared<File>();
        break;
    case TraceHead::Unlink:
        m_now.remove(event.name);
        break;
    case TraceHead::Rename:
        m_now[QString::fromUtf8(event.data)] = m_now.take(event.name);
        break;
    case TraceHead::Write:
    case TraceHead::Truncate:
        m_now[event.name]->unsafe.push_back(event);
        return;
    case TraceHead::Sync: {
        File &file = *m_now[event.name];
        for (const Event &change : file.unsafe)
            perform(file.safe, change);
        file.unsafe.clear();
        return;
    }
    case TraceHead::SyncFolder:
        m_safe = m_now;
        m_unsafe.clear();
        return;
    case TraceHead::Said:
    case TraceHead::Printed:
        return;
    }
    m_unsafe.push_back(m_now);
}

void Disk::leave(const QString &folder, Loss loss, QRandomGenerator &random) const
{
    const size_t changes = loss == Loss::Nothing      ? m_unsafe.size()
                           : loss == Loss::Everything ? 0
                                                      : size_t(random.bounded(int(m_unsafe.size()) + 1));
    const Names &names = changes == 0 ? m_safe : m_unsafe[changes - 1];
    for (auto entry = names.begin(); entry != names.end(); ++entry) {
        QByteArray content = (*entry)->safe;
        for (const Event &change : (*entry)->unsafe) {
            const bool torn = loss == Loss::Blocks512 || loss == Loss::Blocks4096;
            if (torn && change.kind == TraceHead::Write)
                tear(content, change, loss == Loss::Blocks512 ? 512 : 4096, random);
            else if (loss == Loss::Nothing || (loss != Loss::Everything && random.bounded(2)))
                perform(content, change);
        }
        QFile file(folder + '/' + entry.key());
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }
}
