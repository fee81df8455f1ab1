#pragma once

#include <memory>

class MDI;

/// The program's start: settings, database, test for a previous instance, main window, in this order. Returns the
/// main window, shown; nothing when the program runs already, which the user has been told. Raises the errors of
/// ReadConfig and OpenDatabase.
std::unique_ptr<MDI> Main();
