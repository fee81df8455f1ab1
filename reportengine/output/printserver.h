#pragma once

#include <QByteArray>
#include <QString>
#include <memory>
#include <vector>

struct _http_s;

/// The system's print server, which keeps the queues that stand for printers. Connected for as long as one print takes.
class PrintServer
{
public:
    /// A job's attributes by name, as the server knows them: {"media", "Letter"}.
    using Options = std::vector<std::pair<QByteArray, QByteArray>>;

    struct Job
    {
        int id = 0; ///< 0: the server did not take it
        QString queue = {};
        bool waits = false;  ///< the queue is stopped: the job is safe there, and comes out when it goes on
        QString reason = {}; ///< why it was not taken
    };

    PrintServer();

    /// True where nothing was ever set up to print: the server knows no printer, or this machine has no server.
    /// A server that can't be reached says nothing about its printers: false.
    bool hasNoPrinterAtAll() const;

    /// Hands over a finished PDF file, and comes back when the server has all of it. An empty name means the default
    /// queue, which there need not be.
    Job submit(const QString &queue, const QString &pdfPath, const QString &title, int copies,
               const Options &options = {}) const;

private:
    struct Closer
    {
        void operator()(_http_s *connection) const;
    };
    std::unique_ptr<_http_s, Closer> m_connection;
    QString m_failure;
};
