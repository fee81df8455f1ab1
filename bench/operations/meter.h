#pragma once

#include <QElapsedTimer>
#include <QStringList>
#include <functional>
#include <vector>

class Report;

/// What an operation costs while its clock runs: seconds, and round trips to a server.
class Meter
{
public:
    /// `trips` tells how many there were so far, where anybody counts them.
    explicit Meter(std::function<qint64()> trips = {}) : m_countTrips(std::move(trips)) {}

    void start();
    void stop();
    /// Stops, and has all that was written survive a power failure, which the program does when an event has ended.
    void finish();

    double seconds() const { return m_seconds; }
    /// Of them, those of `finish`.
    double syncSeconds() const { return m_syncSeconds; }
    qint64 trips() const { return m_trips; }

    /// Has the rows of reports kept: for comparing, not for measuring.
    void keepRows() { m_keepsRows = true; }
    bool keepsRows() const { return m_keepsRows; }
    void note(const Report &report);
    void note(std::vector<QStringList> rows) { m_rows = std::move(rows); }
    const std::vector<QStringList> &rows() const { return m_rows; }

private:
    qint64 tripsSoFar() const { return m_countTrips ? m_countTrips() : 0; }

    std::function<qint64()> m_countTrips;
    QElapsedTimer m_timer;
    qint64 m_tripsBefore = 0, m_trips = 0;
    double m_seconds = 0, m_syncSeconds = 0;
    bool m_keepsRows = false;
    std::vector<QStringList> m_rows;
};
