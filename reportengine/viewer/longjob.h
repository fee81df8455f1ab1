#pragma once

#include "reportengine/output/outcome.h"

class QWidget;

/// Runs a job under the hourglass, and under a progress window once it has become a long one, where it can be stopped.
/// The window is modal to the program, so that nothing else happens meanwhile.
Outcome runLongJob(QWidget *parent, const QString &caption, const std::function<Outcome(const Progress &)> &job);
