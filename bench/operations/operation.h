#pragma once

#include <QString>
#include <functional>
#include <vector>

class BareEngine;

/// One thing a user waits for: how the program does it and, where there is such a thing, how the bare engine would.
struct Operation
{
    QString name;
    /// Runs it up to the moment at which its data stands, and returns the seconds that took.
    std::function<double()> program;
    std::function<void(BareEngine &)> bare = {};
    /// The statement that lets it run once more on the same file, if it needs one; nobody's clock runs meanwhile.
    QString again = {};
};

/// The report routines and the rebuild, with dates counted back from the newest invoice of the company.
std::vector<Operation> dataOperations();
/// What writes documents: the save of a shipment, the invoice run.
std::vector<Operation> savingOperations();
/// The windows: opening, filling and showing them.
std::vector<Operation> windowOperations();
