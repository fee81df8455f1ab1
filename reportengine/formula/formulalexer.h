#pragma once

#include <QString>
#include <vector>

struct FormulaToken
{
    enum class Kind { Number, Text, Reference, Word, Symbol, End };
    Kind kind = Kind::End;
    QString text; ///< of a reference what stands between the braces; of a word or symbol its lower case
    double number = 0;
    int position = 0;
};

/// Cuts a formula text into tokens, the last being End. Error 440 on a character that begins none.
std::vector<FormulaToken> formulaTokens(const QString &text);

/// Raises error 440 with what is wrong and where.
[[noreturn]] void formulaError(const QString &formula, int position, const QString &reason);
