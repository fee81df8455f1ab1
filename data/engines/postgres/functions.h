#pragma once

#include <QByteArray>

namespace postgres {

/// The functions that translated statements call, as SQL that installs them.
QByteArray functions();
/// Changes whenever they do, or the tables' shape: a program works with databases of its own version alone.
constexpr int FunctionsVersion = 2;

} // namespace postgres
