#pragma once

#include <QDate>
#include <QString>

/// The size of the largest demo company: about 5,000 customers, 10,000 parts and 200,000 orders.
inline constexpr int MaximumDemoScale = 100;

struct DemoOptions
{
    int scale = 1; ///< 1 to MaximumDemoScale; 1 is about 50 customers, 120 parts and 2,000 orders
    quint64 seed = 1;
    QDate until; ///< the last day of its three years
};

/// Makes a database at `path` with a made-up manufacturer of pipe and hose fittings in it: masters, prices, three
/// years of orders, shipments, invoices, payments and stock movements that agree with one another. The same
/// options give the same file. An existing file is an error; a failure leaves no file behind.
void createDemo(const QString &path, const DemoOptions &options);
