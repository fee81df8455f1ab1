#pragma once

#include <QList>
#include <QString>
#include <string_view>
#include <vector>

/// A pattern of LIKE: `*` any run of characters, `?` one, `#` one digit, `[a-z]` one of these, `[!a-z]` one of the
/// others, everything else itself. Case-blind for all letters; `%` and `_` are ordinary characters.
class LikePattern
{
public:
    explicit LikePattern(std::string_view pattern);

    /// False when a bracket is not closed or a range runs backwards.
    bool isValid() const { return m_valid; }
    bool matches(std::string_view text) const;

private:
    struct Range
    {
        char32_t first, last;
    };
    struct Part
    {
        enum Kind { Character, AnyRun, AnyOne, Digit, OneOf, NoneOf } kind;
        char32_t character = 0;
        std::vector<Range> ranges = {};
    };

    bool addGroup(const QList<uint> &pattern, qsizetype &at);
    static bool fits(const Part &part, char32_t character);

    std::vector<Part> m_parts;
    bool m_valid = true;
};
