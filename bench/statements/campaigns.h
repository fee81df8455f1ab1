#pragma once

#include <QStringList>

/// How often a campaign tries, and what its random choices begin with.
struct Extent
{
    int count = 0;
    unsigned seed = 0;
};

// Each gives the faults it found, and tells on stdout what it tried.

/// Statements changed at random: none may reach SQLite unparsed, none may end in anything but a run-time error.
QStringList mutations(Extent extent);
/// What the fuzzer has kept since it reached something new.
QStringList formerFuzzing();
/// The corpus with other constants: translations that statements share must be the same for all of them.
QStringList constants(Extent extent);
/// Random statements over random untidy rows, on a file and on a server at once.
QStringList differences(Extent extent);
/// Companies of random untidy keys, joined with indexes and without.
QStringList joins(Extent extent);
/// Random texts, which must stand in an order, ASCII in the engine's own.
QStringList textOrder(Extent extent);
