#include "tests/support/testclock.h"

#include "data/values/clock.h"

TestClock::TestClock(const QString &moment)
    : m_now(QDateTime::fromString(moment, QStringLiteral("yyyy-MM-dd HH:mm:ss")))
{
    Clock::setSource([this] { return m_now; });
}

TestClock::~TestClock()
{
    Clock::setSource({});
}

void TestClock::advance(double seconds)
{
    m_now = m_now.addMSecs(qRound64(seconds * 1000));
}
