#pragma once

#include <QString>
#include <functional>
#include <vector>

class BareEngine;
class Meter;

/// One thing a user waits for: how the program does it and, where there is such a thing, how the bare engine would.
struct Operation
{
    QString name;
    /// Runs it with the clock on up to the moment at which its data stands.
    std::function<void(Meter &)> program;
    std::function<void(BareEngine &)> bare = {};
    /// The statement that lets it run once more on the same database, if it needs one; nobody's clock runs meanwhile.
    QString again = {};
    /// How many documents it makes.
    int documents = 1;
};

/// The report routines and the rebuild, with dates counted back from the newest invoice of the company.
std::vector<Operation> dataOperations();
/// What writes documents: the saves of orders and shipments, the invoice run.
std::vector<Operation> savingOperations();
/// The windows: opening, filling and showing them.
std::vector<Operation> windowOperations();
