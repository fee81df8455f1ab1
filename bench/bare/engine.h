#pragma once

#include <QByteArray>
#include <QStringList>
#include <memory>
#include <sqlite3.h>
#include <vector>

/// A bare connection to the same file, set up as the program sets up its own: what an operation costs without any of
/// our layers. Errors end the benchmark.
class BareEngine
{
public:
    explicit BareEngine(const QString &path);

    /// Runs statements and throws their rows away, every column read.
    void run(const QByteArray &sql);
    /// From here on the rows of the last SELECT that was run are kept: for comparing, not for measuring.
    void keepRows() { m_keepsRows = true; }
    const std::vector<QStringList> &rows() const { return m_rows; }

    /// One prepared statement, for operations that run one many times.
    class Statement
    {
    public:
        Statement(BareEngine &engine, const QByteArray &sql);
        Statement &bind(int parameter, qint64 value);
        Statement &bind(int parameter, double value);
        Statement &bind(int parameter, const QByteArray &value);
        bool step();
        void reset();
        QByteArray text(int column) const { return view(column).toByteArray(); }
        /// As long as the row stands.
        QByteArrayView view(int column) const;
        double number(int column) const;
        bool isNull(int column) const;

    private:
        struct Finalizer
        {
            void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
        };
        std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
    };

private:
    friend class Statement;
    void keep(sqlite3_stmt *statement);

    struct Closer
    {
        void operator()(sqlite3 *connection) const { sqlite3_close_v2(connection); }
    };
    std::unique_ptr<sqlite3, Closer> m_connection;
    bool m_keepsRows = false;
    std::vector<QStringList> m_rows;
};
