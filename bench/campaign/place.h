#pragma once

#include <QStringList>

/// Where the database of a campaign stands, looked at by a connection of its own that knows nothing of the program.
class Place
{
public:
    /// A file's path, or the URI of a database on a server.
    explicit Place(QString name) : m_name(std::move(name)) {}
    /// A database that is not there yet, on the server that scripts/testserver has started under that link.
    static Place onServer(const QString &link);

    const QString &name() const { return m_name; }
    bool isOnServer() const { return m_name.startsWith(u"postgresql:"); }
    /// The rows of a query that both engines understand, columns joined by "|"; or the error. A server runs any other
    /// statement too, and gives none.
    QStringList rows(const QByteArray &sql) const;
    /// Waits until the server has done what killed processes had sent, and forgotten them.
    void waitUntilLeft() const;

private:
    QString m_name;
};
