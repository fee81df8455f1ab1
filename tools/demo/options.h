#pragma once

#include <QDate>

/// The size of the largest demo company: about 5,000 customers, 10,000 parts and 200,000 orders.
inline constexpr int MaximumDemoScale = 100;

struct DemoOptions
{
    int scale = 1; ///< 1 to MaximumDemoScale; 1 is about 50 customers, 120 parts and 2,000 orders
    quint64 seed = 1;
    QDate until; ///< the last day of its three years
};
