#pragma once

#include "data/values/clock.h"
#include <QDateTime>

/// Stops the program's clock at a moment while this object stands; only `advance` moves it on.
class TestClock
{
public:
    /// "2011-03-30 14:05:09"
    explicit TestClock(const QString &moment) : m_now(QDateTime::fromString(moment, "yyyy-MM-dd HH:mm:ss"))
    {
        Clock::setSource([this] { return m_now; });
    }
    ~TestClock() { Clock::setSource({}); }
    TestClock(const TestClock &) = delete;
    TestClock &operator=(const TestClock &) = delete;

    void advance(double seconds) { m_now = m_now.addMSecs(qRound64(seconds * 1000)); }

private:
    QDateTime m_now;
};
