#pragma once

#include "app/mdi.h"
#include "app/previousinstance.h"
#include <memory>

/// What lives as long as the program runs.
struct Program
{
    std::unique_ptr<PreviousInstance> mark;
    std::unique_ptr<MDI> window; ///< none when the program runs already
};

/// The program's start: settings, database, test for a previous instance, main window, in this order. Shows the main
/// window; when the program runs already it tells the user so and makes none. Raises the errors of ReadConfig and
/// OpenDatabase.
Program Main(const QString &programFolder);
