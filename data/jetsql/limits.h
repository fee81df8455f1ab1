#pragma once

#include <cstddef>

/// How much one statement may hold; what goes beyond is error 3360. All of it is far more than the program's own
/// statements need, and keeps whatever else is handed in to a time that its length explains.
namespace jetsql::Limits {

/// Brackets and signs in one another. The parser descends once for each, and SQLite's own stands at a fixed depth.
inline constexpr int Depth = 20;
/// Links of one chain of conditions, sums or texts.
inline constexpr size_t Chain = 99;
/// Levels of chains in chains: every pass walks down by recursion, and SQLite refuses a tree of 1,000 levels.
inline constexpr int Height = 250;
/// Tables of one FROM clause, and keys of one GROUP BY or ORDER BY: all are compared with all.
inline constexpr size_t Tables = 32, Keys = 64;
/// Times that passes come by one expression. TOPs nested in ORDER BY are written three times a level; the program's
/// own statements come to 20.
inline constexpr int Visits = 100;
/// Of a function in SQLite.
inline constexpr size_t Arguments = 100;
/// Constants that become parameters; statements with more of them are hardly alike, and keep the rest as they are.
inline constexpr int Parameters = 100;

} // namespace jetsql::Limits
