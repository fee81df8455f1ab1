#pragma once

#include "bench/campaign/recorder/trace.h"
#include <QByteArray>
#include <QMap>
#include <QString>
#include <memory>
#include <vector>

class QRandomGenerator;

/// One system call of a trace.
struct Event
{
    TraceHead::Kind kind;
    QString name;
    qint64 offset = 0;
    QByteArray data;
};

std::vector<Event> readTrace(const QString &path);

/// What a power failure does with the writes that were not synced yet: each is kept or dropped whole, or block by
/// block.
enum class Loss { Nothing, Everything, Writes, Blocks512, Blocks4096 };

/// A disk of the least that is promised: a sync makes the contents of one file safe, and a sync of the folder the
/// names in it; of the rest a power failure leaves any part, but for names, which are lost from the latest on.
class Disk
{
public:
    /// Takes the files of a folder as they are, all of them safe.
    explicit Disk(const QString &folder);

    void apply(const Event &event);
    /// Writes what a power failure now may leave into an empty folder.
    void leave(const QString &folder, Loss loss, QRandomGenerator &random) const;

private:
    struct File
    {
        QByteArray safe;
        std::vector<Event> unsafe;
    };
    using Names = QMap<QString, std::shared_ptr<File>>;

    Names m_now;
    Names m_safe;
    std::vector<Names> m_unsafe; ///< the names as they were after each change since the folder was synced
};
