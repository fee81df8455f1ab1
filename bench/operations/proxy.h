#pragma once

#include <QString>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

/// A wire to a database server that is longer than it is: what goes through stands still for a while in either
/// direction, however much of it is under way. And it counts how often the server is asked for answers.
class Proxy
{
public:
    /// In front of the server of a URI. Ends the benchmark where that cannot be.
    Proxy(const QString &uri, std::chrono::microseconds eachWay);
    ~Proxy();

    /// The same database through this.
    QString uri() const { return m_uri; }
    /// Round trips so far, of all sessions: the points at which a session has waited for the answers to all it has
    /// sent.
    qint64 trips() const { return m_trips; }

private:
    class Session;

    void serve();

    std::chrono::microseconds m_eachWay;
    QString m_uri, m_host, m_port;
    int m_listener = -1;
    std::atomic<qint64> m_trips = 0;
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};
