#pragma once

#include <QString>
#include <QStringView>
#include <vector>

namespace jetsql {

/// The words that cannot be a bare name. Everything else, `Date` and `Memo` included, is an ordinary name.
enum class Keyword {
    None,
    All,
    And,
    As,
    Asc,
    Between,
    By,
    Create,
    Delete,
    Desc,
    Distinct,
    DistinctRow,
    Drop,
    Exists,
    False,
    From,
    Group,
    Having,
    In,
    Inner,
    Insert,
    Into,
    Is,
    Join,
    Left,
    Like,
    Mod,
    Not,
    Null,
    On,
    Or,
    Order,
    Outer,
    Right,
    Select,
    Set,
    Table,
    Top,
    True,
    Union,
    Update,
    Values,
    Where
};

/// The Bad... kinds are not raised by the lexer: a statement is blamed for the first thing the parser cannot take,
/// and an apostrophe inside a name makes an unclosed text only further on.
enum class TokenKind { Name, BracketName, Text, Number, Date, Symbol, BadText, BadDate, BadNumber, BadSymbol, End };

struct Token
{
    TokenKind kind = TokenKind::End;
    Keyword keyword = Keyword::None; ///< of a Name
    char16_t symbol = 0;             ///< of a Symbol; "<=", ">=" and "<>" are u'≤', u'≥' and u'≠'
    bool whole = false;              ///< a Number written without point and exponent, within 32 bits
    double number = 0;               ///< the Number, or the Date as a serial
    int constant = -1;               ///< of a Text, Number or Date: its place among the statement's constants
    qsizetype start = 0;             ///< half-open range in the statement
    qsizetype end = 0;
    QString text; ///< of a name, or of a Text without its delimiters
};

/// Cuts a statement into tokens, closed by an End token. Never fails.
std::vector<Token> tokensOf(const QString &sql);

/// A statement with its constants taken out. Statements of one fingerprint have the same tokens, but for the values of
/// their constants.
struct Fingerprint
{
    QString key;                  ///< empty where the statement has characters that stand for constants in a key
    std::vector<Token> constants; ///< each Text, Number and Date, in order
};

Fingerprint fingerprintOf(const QString &sql);

} // namespace jetsql
