#pragma once

#include <QDateTime>

/// Stops the program's clock at a moment while this object stands; only `advance` moves it on.
class TestClock
{
public:
    /// "2011-03-30 14:05:09"
    explicit TestClock(const QString &moment);
    ~TestClock();
    TestClock(const TestClock &) = delete;
    TestClock &operator=(const TestClock &) = delete;

    void advance(double seconds);

private:
    QDateTime m_now;
};
