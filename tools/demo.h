#pragma once

#include "tools/demo/options.h"
#include <QString>

/// Makes a database at `path` with a made-up manufacturer of pipe and hose fittings in it: masters, prices, three
/// years of orders, shipments, invoices, payments and stock movements that agree with one another. The same
/// options give the same file. An existing file is an error; a failure leaves no file behind.
void createDemo(const QString &path, const DemoOptions &options);
