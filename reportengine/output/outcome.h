#pragma once

#include <QString>
#include <functional>

/// Told how far a long job has come: `done` of `total` steps, the total 0 while it is not known. False stops the job.
using Progress = std::function<bool(int done, int total)>;

/// How writing a file or printing ended.
struct [[nodiscard]] Outcome
{
    enum class State { Done, Cancelled, Failed };

    State state = State::Done;
    /// Of a failure: the words of the system that refused.
    QString reason = {};

    explicit operator bool() const { return state == State::Done; }
    static Outcome cancelled() { return {State::Cancelled, {}}; }
    static Outcome failed(const QString &reason) { return {State::Failed, reason}; }
};
