#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// A print server of the test's own, which the program then takes for the system's: no other process knows of it, and
/// its queues print to nowhere. Without one a test's program lives on a machine where nothing was ever set up to print.
class PrivatePrintServer
{
public:
    /// `queues` is the server's own list of them; see `queue`.
    explicit PrivatePrintServer(const QString &queues);
    ~PrivatePrintServer();

    /// An entry of the list: "Office", accepting jobs or not, at work or stopped, the default queue or not.
    static QString queue(const QString &name, bool accepts = true, bool works = true, bool isDefault = false);

    /// Lets it die, as if the machine it stands on did. It stays the one the program knows.
    void stop();
    /// The file that came with a job, by the number the server gave it, from 1.
    QString jobFile(int id) const;
    /// The jobs as the server tells them, in order: "1 Office: Invoice".
    QStringList jobs() const;

private:
    QTemporaryDir m_folder;
    QProcess m_server;
};
