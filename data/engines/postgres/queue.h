#pragma once

#include "data/engines/postgres/errors.h"
#include "data/engines/postgres/session.h"
#include <deque>
#include <functional>

namespace postgres {

/// A value as a statement's parameter: text, or nothing for Null. Error 3421 for a text with a NUL in it, which the
/// server cannot hold.
std::optional<QByteArray> parameterOf(const Value &value);
using Parameters = std::vector<std::optional<QByteArray>>;

/// A walk over rows that are still coming in.
class Walk
{
public:
    /// Reads what is left; the current row stays where it is.
    virtual void readAhead() = 0;

protected:
    ~Walk() = default;
};

/// Sends statements to the server and takes its answers, in order.
///
/// What returns nothing is sent without being waited for. The server stops at the first failure and passes over
/// everything behind it up to the next point at which answers are asked for; so what it then holds is exactly what
/// statement by statement would have left, only the error comes later. Whatever needs an answer is sent behind the
/// queue and answered in the same round trip.
///
/// A failure that passes when tried again, a deadlock or tables that were changed meanwhile, has the transaction that
/// met it sent once more, and all that stood behind it.
class Queue
{
public:
    /// Writes a statement of the dialect above for the tables as they are now.
    using Rewrite = std::function<std::pair<QByteArray, Parameters>(const QString &statement)>;

    Queue(PGconn *connection, const Uri &uri) : m_connection(connection), m_uri(uri) {}
    Queue(const Queue &) = delete;
    Queue &operator=(const Queue &) = delete;

    void setRewrite(Rewrite rewrite) { m_rewrite = std::move(rewrite); }

    /// Sends a statement behind the others. `written`: it was written from context.statement.
    void send(const QByteArray &sql, const Parameters &parameters, const ErrorContext &context, bool written = false);
    /// The same, and waits for all answers; gives the statement's own.
    Result ask(const QByteArray &sql, const Parameters &parameters, const ErrorContext &context);
    /// Waits for the answers to everything sent. Raises the first failure, behind which nothing was done.
    void flush();
    bool isEmpty() const { return m_expected.empty(); }

    /// Sends a SELECT behind the others, whose rows are then fetched one by one until there is none. Nothing else may
    /// be sent in between.
    void walk(const QByteArray &sql, const Parameters &parameters, const ErrorContext &context);
    /// The next row, or nothing behind the last.
    Result fetch();
    /// The walk under way, if there is one.
    void setWalking(Walk *walk) { m_walking = walk; }
    bool isWalking() const { return m_walking; }
    /// Makes way for another statement: what the walk under way has left is read into memory.
    void release()
    {
        if (m_walking)
            m_walking->readAhead();
    }
    /// Throws away the rows that are left.
    void endWalk();
    /// Whether the latest failure was one of the statement sent last, for tables that are not as it was written for.
    bool failedForOtherTables() const { return m_failedForOtherTables; }

    /// To be called when tables have changed: statements are prepared anew.
    void forgetStatements() { m_forget = true; }
    /// How often a failure has ended what was being done, an open transaction included.
    int failures() const { return m_failures; }
    /// Round trips so far: how often the server was waited for.
    qint64 trips() const { return m_trips; }

private:
    struct Sent
    {
        QByteArray sql;
        Parameters parameters;
        ErrorContext context;
        bool written = false;
    };
    /// What the server will answer to: a statement sent, or a point at which answers were asked for behind it.
    struct Expected
    {
        size_t statement = 0;
        bool sync = false;
    };

    void enter();
    void post(const Sent &statement);
    QByteArray prepared(const QByteArray &sql);
    const ErrorContext &context(const Expected &expected) const { return m_sent[expected.statement].context; }
    void sync();
    void push();
    void takeArrived();
    Result next();
    void takeAnswer();
    void takeAnswers();
    void note(Result result);
    bool redo();
    std::optional<size_t> failedTransaction() const;
    bool passes(Sent &failed, RuntimeError &failure);
    void giveUpTransaction();
    [[noreturn]] void raise();
    [[noreturn]] void raiseLost(const ErrorContext &context);
    [[noreturn]] void raiseLost(const RuntimeError &loss);

    PGconn *m_connection;
    Uri m_uri;
    Walk *m_walking = nullptr;
    Rewrite m_rewrite;
    std::vector<Sent> m_sent; ///< since everything was last answered
    std::deque<Expected> m_expected;
    bool m_inTransaction = false;          ///< whether one stood open when the first of m_sent was sent
    QHash<QByteArray, QByteArray> m_names; ///< of prepared statements, by their texts
    int m_lastName = 0;
    bool m_forget = false;
    Result m_answer; ///< the latest statement's
    std::optional<RuntimeError> m_failure;
    Failure m_kind = Failure::Final; ///< of m_failure
    size_t m_failed = 0;             ///< the statement that met it
    int m_attempts = 0;              ///< at one and the same transaction
    bool m_failedForOtherTables = false;
    int m_failures = 0;
    qint64 m_trips = 0;
};

} // namespace postgres
