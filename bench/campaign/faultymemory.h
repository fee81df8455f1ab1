#pragma once

/// SQLite's memory, of which an allocation fails. To be made before SQLite is first used, and once in a program.
namespace FaultyMemory {

/// Puts it in SQLite's place of its own. False when SQLite has begun to work already.
bool install();
/// Lets that many allocations pass and fails the next, or from it on all when that is `lasting`.
void failAfter(int allocations, bool lasting);
/// Everything works again. True when an allocation had failed.
bool heal();
/// How many allocations passed since failAfter.
int passed();

} // namespace FaultyMemory
