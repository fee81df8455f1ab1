#pragma once

/// What the engine's types take at most: characters of a Text column, which is as long where nothing is declared;
/// columns of a table or a result; and the first whole amount on either side of 0 that is too much for money.
inline constexpr int LongestText = 255, MostColumns = 255;
inline constexpr double BeyondMoney = 922337203685477.0;
