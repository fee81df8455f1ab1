#include "bench/operations/proxy.h"

#include <QByteArray>
#include <QUrl>
#include <QUrlQuery>
#include <arpa/inet.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <fcntl.h>
#include <libpq-fe.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

using Clock = std::chrono::steady_clock;

namespace {

[[noreturn]] void fail(const char *what)
{
    std::perror(what);
    std::exit(1);
}

void makeQuick(int socket)
{
    const int yes = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes); // an error for a Unix socket, which is quick
    fcntl(socket, F_SETFL, fcntl(socket, F_GETFL) | O_NONBLOCK);
}

/// A connection to a server; a host that begins with a slash is the folder of its socket.
int connectTo(const QString &host, const QString &port)
{
    if (host.startsWith(u'/')) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray path = (host + "/.s.PGSQL." + port).toLocal8Bit();
        std::strncpy(address.sun_path, path.constData(), sizeof address.sun_path - 1);
        const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
        if (connect(socket, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0)
            fail(path.constData());
        return socket;
    }
    addrinfo hints{}, *found = nullptr;
    hints.ai_socktype = SOCK_STREAM;
    if (getaddrinfo(host.toUtf8().constData(), port.toUtf8().constData(), &hints, &found) != 0 || !found)
        fail(host.toUtf8().constData());
    const int socket = ::socket(found->ai_family, found->ai_socktype, found->ai_protocol);
    if (connect(socket, found->ai_addr, found->ai_addrlen) != 0)
        fail(host.toUtf8().constData());
    freeaddrinfo(found);
    return socket;
}

/// Tells how often a stream of messages to the server asks for answers: each Sync and each simple query does.
class Asking
{
public:
    qint64 count(const QByteArray &bytes)
    {
        qint64 asked = 0;
        for (qsizetype at = 0; at < bytes.size();) {
            if (m_body > 0) {
                const qsizetype step = std::min(m_body, bytes.size() - at);
                m_body -= step;
                at += step;
                continue;
            }
            m_head += bytes[at++];
            if (m_head.size() < m_headSize)
                continue;
            const char type = m_headSize == 5 ? m_head[0] : '\0';
            asked += type == 'S' || type == 'Q';
            quint32 length;
            std::memcpy(&length, m_head.constData() + m_headSize - 4, 4);
            m_body = qsizetype(ntohl(length)) - 4;
            m_head.clear();
            m_headSize = 5;
        }
        return asked;
    }

private:
    QByteArray m_head;
    qsizetype m_headSize = 4; ///< the first message has a length and no type
    qsizetype m_body = 0;
};

/// One direction of a session: what was read, with the moment at which it may go on.
struct Wire
{
    int from, to;
    std::deque<std::pair<Clock::time_point, QByteArray>> chunks = {};
    bool full = false; ///< the other end takes no more for now

    /// False when the end is reached.
    bool read(std::chrono::microseconds delay, QByteArray &bytes)
    {
        bytes.resize(1 << 16);
        const ssize_t got = recv(from, bytes.data(), size_t(bytes.size()), 0);
        if (got == 0 || (got < 0 && errno != EAGAIN))
            return false;
        bytes.resize(std::max<ssize_t>(got, 0));
        if (got > 0)
            chunks.emplace_back(Clock::now() + delay, bytes);
        return true;
    }
    void pass()
    {
        full = false;
        while (!chunks.empty() && chunks.front().first <= Clock::now()) {
            QByteArray &bytes = chunks.front().second;
            const ssize_t gone = send(to, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL);
            if (gone < bytes.size()) {
                bytes.remove(0, std::max<ssize_t>(gone, 0));
                full = true;
                return;
            }
            chunks.pop_front();
        }
    }
};

} // namespace

class Proxy::Session
{
public:
    Session(int client, int server) : m_up{client, server}, m_down{server, client}
    {
        makeQuick(client);
        makeQuick(server);
    }
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;
    ~Session()
    {
        close(m_up.from);
        close(m_up.to);
    }

    /// Adds what is waited for, and tells until when at most.
    void prepare(fd_set &reads, fd_set &writes, int &highest, Clock::time_point &until) const
    {
        for (const Wire *wire : {&m_up, &m_down}) {
            FD_SET(wire->from, &reads);
            if (wire->full)
                FD_SET(wire->to, &writes);
            else if (!wire->chunks.empty())
                until = std::min(until, wire->chunks.front().first);
            highest = std::max({highest, wire->from, wire->to});
        }
    }

    /// Takes and passes on what there is; false when either end has gone. Adds to `trips`.
    bool serve(const fd_set &reads, std::chrono::microseconds delay, std::atomic<qint64> &trips)
    {
        QByteArray bytes;
        for (Wire *wire : {&m_up, &m_down}) {
            if (FD_ISSET(wire->from, &reads)) {
                if (!wire->read(delay, bytes))
                    return false;
                if (wire == &m_up)
                    trips += m_asking.count(bytes);
            }
            wire->pass();
        }
        return true;
    }

private:
    Wire m_up, m_down;
    Asking m_asking;
};

Proxy::Proxy(const QString &uri, std::chrono::microseconds eachWay) : m_eachWay(eachWay)
{
    const std::unique_ptr<PGconn, void (*)(PGconn *)> connection(PQconnectdb(uri.toUtf8().constData()), PQfinish);
    if (PQstatus(connection.get()) != CONNECTION_OK) {
        std::fputs(PQerrorMessage(connection.get()), stderr);
        std::exit(1);
    }
    m_host = QString::fromUtf8(PQhost(connection.get()));
    m_port = QString::fromUtf8(PQport(connection.get()));

    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    m_listener = socket(AF_INET, SOCK_STREAM, 0);
    if (bind(m_listener, reinterpret_cast<sockaddr *>(&address), size) != 0 || listen(m_listener, 8) != 0 ||
        getsockname(m_listener, reinterpret_cast<sockaddr *>(&address), &size) != 0)
        fail("proxy");

    QUrlQuery query;
    query.addQueryItem("user", QString::fromUtf8(PQuser(connection.get())));
    query.addQueryItem("password", QString::fromUtf8(PQpass(connection.get())));
    query.addQueryItem("sslmode", "disable"); // the messages are read on their way
    query.addQueryItem("gssencmode", "disable");
    m_uri = QStringLiteral("postgresql://127.0.0.1:%1/%2?")
                .arg(ntohs(address.sin_port))
                .arg(QString::fromUtf8(QUrl::toPercentEncoding(QString::fromUtf8(PQdb(connection.get()))))) +
            query.toString(QUrl::FullyEncoded);
    m_thread = std::thread([this] { serve(); });
}

Proxy::~Proxy()
{
    m_ends = true;
    m_thread.join();
    close(m_listener);
}

void Proxy::serve()
{
    std::vector<std::unique_ptr<Session>> sessions;
    while (!m_ends) {
        fd_set reads, writes;
        FD_ZERO(&reads);
        FD_ZERO(&writes);
        FD_SET(m_listener, &reads);
        int highest = m_listener;
        Clock::time_point until = Clock::now() + std::chrono::milliseconds(100); // looks whether it is to end
        for (const auto &session : sessions)
            session->prepare(reads, writes, highest, until);
        const auto wait = std::chrono::duration_cast<std::chrono::microseconds>(
            std::max(until - Clock::now(), Clock::duration::zero()));
        timeval timeout{0, suseconds_t(wait.count())};
        if (select(highest + 1, &reads, &writes, nullptr, &timeout) < 0)
            continue;
        std::erase_if(sessions, [&](const auto &session) { return !session->serve(reads, m_eachWay, m_trips); });
        if (FD_ISSET(m_listener, &reads))
            sessions.push_back(
                std::make_unique<Session>(accept(m_listener, nullptr, nullptr), connectTo(m_host, m_port)));
    }
}
