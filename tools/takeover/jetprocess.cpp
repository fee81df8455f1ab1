#include "tools/takeover/jetprocess.h"

#include "tools/toolerror.h"
#include <QDataStream>
#include <QFile>
#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int SilenceSeconds = 60;              ///< of computing without a row: the reader walks in a circle
#ifndef __SANITIZE_ADDRESS__                    // which needs all there is
constexpr rlim_t MemoryBytes = rlim_t(4) << 30; ///< a damaged length may ask for any amount
#endif

/// What comes through the pipe: each message begins with one of these.
enum class Message : quint8 { Begin, Row, End, Failed, Done };

void write(QDataStream &out, const JetCell &cell)
{
    // One byte says what follows; the cell that cannot be read has a number that no type has.
    constexpr quint8 Unreadable = 255;
    out << (cell ? quint8(cell->type()) : Unreadable);
    if (!cell)
        return;
    switch (cell->type()) {
    case Value::Type::Null:
        break;
    case Value::Type::Boolean:
        out << cell->toBoolean();
        break;
    case Value::Type::Long:
        out << cell->toLong();
        break;
    case Value::Type::Currency:
        out << cell->toDouble();
        break;
    case Value::Type::Double:
        out << cell->toDouble();
        break;
    case Value::Type::Date:
        out << cell->toDate().serial();
        break;
    case Value::Type::Text:
        out << cell->toText();
        break;
    }
}

template <typename T> T taken(QDataStream &in)
{
    T value{};
    in >> value;
    return value;
}

JetCell readCell(QDataStream &in)
{
    switch (const auto type = taken<quint8>(in); Value::Type(type)) {
    case Value::Type::Null:
        return Value();
    case Value::Type::Boolean:
        return Value(taken<bool>(in));
    case Value::Type::Long:
        return Value(taken<qint32>(in));
    case Value::Type::Currency:
        return Value(Currency::of(taken<double>(in)));
    case Value::Type::Double:
        return Value(taken<double>(in));
    case Value::Type::Date:
        return Value(Date(taken<double>(in)));
    case Value::Type::Text:
        return Value(taken<QString>(in));
    default:
        return {};
    }
}

/// Sends what is read.
class Sender : public JetSink
{
public:
    explicit Sender(QDataStream &out) : m_out(out) { wind(); }

    void begin(const JetTable &table) override
    {
        send(Message::Begin) << table.name << table.columns << table.rows << table.linked;
    }
    void row(const std::vector<JetCell> &cells) override
    {
        send(Message::Row) << quint32(cells.size());
        for (const JetCell &cell : cells)
            write(m_out, cell);
    }
    void end(qint64 damaged) override { send(Message::End) << damaged; }
    void failed(const QString &message) { send(Message::Failed) << message; }
    void done() { send(Message::Done); }

private:
    QDataStream &send(Message message)
    {
        wind();
        return m_out << message;
    }
    /// The alarm of the reader's own computing time; waiting for the other side does not count.
    static void wind()
    {
        const itimerval limit{{0, 0}, {SilenceSeconds, 0}};
        setitimer(ITIMER_PROF, &limit, nullptr);
    }

    QDataStream &m_out;
};

/// The reading process, from its first to its last moment.
[[noreturn]] void readInto(int pipe, const QString &path, const std::function<bool(const QString &)> &wanted)
{
    // Whatever the library says about a damaged file, the other side has one line for it.
    const int nothing = ::open("/dev/null", O_WRONLY);
    ::dup2(nothing, STDOUT_FILENO);
    ::dup2(nothing, STDERR_FILENO);
#ifndef __SANITIZE_ADDRESS__
    const rlimit memory{MemoryBytes, MemoryBytes};
    setrlimit(RLIMIT_AS, &memory);
#endif
    // A crash on a damaged file is expected, and worth no gigabytes in the administrator's folder.
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    QFile file;
    if (!file.open(pipe, QIODevice::WriteOnly))
        ::_exit(1);
    QDataStream out(&file);
    Sender sender(out);
    try {
        readJet(path, wanted, sender);
        sender.done();
    } catch (const ToolError &error) {
        sender.failed(error.message);
    } catch (const std::exception &) {
        ::_exit(1); // out of memory: told like a crash
    }
    file.close();
    ::_exit(0);
}

/// The process and the pipe from it; both gone with the object.
class Reader
{
public:
    Reader(const QString &path, const std::function<bool(const QString &)> &wanted)
    {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0 || (m_process = ::fork()) < 0)
            throw ToolError{QString("cannot start another process to read '%1' in").arg(path)};
        if (m_process == 0) {
            ::close(ends[0]);
            readInto(ends[1], path, wanted);
        }
        // Or the pipe would have a writer here for ever, and reading from it no end.
        ::close(ends[1]);
        m_pipe.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    }
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;
    ~Reader()
    {
        ::kill(m_process, SIGKILL); // where what was read could not be used
        ::waitpid(m_process, nullptr, 0);
    }

    QFile &pipe() { return m_pipe; }

private:
    pid_t m_process = -1;
    QFile m_pipe;
};

/// Hands the messages on. False when they end before the last one.
bool receive(QDataStream &in, JetSink &sink)
{
    for (;;) {
        const auto message = taken<Message>(in);
        if (in.status() != QDataStream::Ok)
            return false;
        if (message == Message::Begin) {
            JetTable table;
            in >> table.name >> table.columns >> table.rows >> table.linked;
            if (in.status() == QDataStream::Ok)
                sink.begin(table);
        } else if (message == Message::Row) {
            std::vector<JetCell> cells(taken<quint32>(in));
            for (JetCell &cell : cells)
                cell = readCell(in);
            if (in.status() == QDataStream::Ok) // not the half of a row
                sink.row(cells);
        } else if (message == Message::End) {
            sink.end(taken<qint64>(in));
        } else if (message == Message::Failed) {
            throw ToolError{taken<QString>(in)};
        } else {
            return true;
        }
    }
}

} // namespace

void readJetSafely(const QString &path, const std::function<bool(const QString &table)> &wanted, JetSink &sink)
{
    Reader reader(path, wanted);
    QDataStream in(&reader.pipe());
    if (!receive(in, sink))
        throw ToolError{"it cannot be read to its end: the file is damaged"};
}
