#include "data/engines/sqlite/likepattern.h"

#include "data/values/textorder.h"
#include <algorithm>

namespace {

char32_t folded(char32_t c)
{
    if (c < 0x80)
        return asciiLower(c);
    return QChar::toCaseFolded(c);
}

/// The character at a position of a UTF-8 text, folded; moves the position behind it. Bytes that are no UTF-8 stand
/// for themselves.
char32_t next(std::string_view text, size_t &at)
{
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at++);
    if (lead < 0x80)
        return folded(lead);
    const size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    if (more == 0 || at + more > text.size())
        return lead;
    char32_t character = lead & (0x3F >> more);
    for (size_t i = 0; i < more; ++i)
        character = (character << 6) | (byte(at + i) & 0x3F);
    at += more;
    return folded(character);
}

} // namespace

LikePattern::LikePattern(std::string_view pattern)
{
    const QList<uint> characters = QString::fromUtf8(pattern.data(), qsizetype(pattern.size())).toUcs4();
    for (qsizetype at = 0; m_valid && at < characters.size(); ++at) {
        switch (characters[at]) {
        case U'*':
            if (m_parts.empty() || m_parts.back().kind != Part::AnyRun)
                m_parts.push_back({Part::AnyRun});
            break;
        case U'?':
            m_parts.push_back({Part::AnyOne});
            break;
        case U'#':
            m_parts.push_back({Part::Digit});
            break;
        case U'[':
            m_valid = addGroup(characters, at);
            break;
        default:
            m_parts.push_back({Part::Character, folded(characters[at])});
        }
    }
}

/// Reads the group whose bracket is at hand and leaves `at` on its closing bracket. An empty group stands for
/// nothing; a hyphen that opens or closes the group, and "!" alone, stand for themselves.
bool LikePattern::addGroup(const QList<uint> &pattern, qsizetype &at)
{
    const qsizetype close = pattern.indexOf(U']', at + 1);
    if (close < 0)
        return false;
    QList<uint> inside = pattern.sliced(at + 1, close - at - 1);
    at = close;
    if (inside.isEmpty())
        return true;
    Part part{Part::OneOf};
    if (inside.first() == U'!' && inside.size() > 1) {
        part.kind = Part::NoneOf;
        inside.removeFirst();
    }
    for (qsizetype i = 0; i < inside.size(); ++i) {
        const char32_t first = folded(inside[i]);
        char32_t last = first;
        if (i + 2 < inside.size() && inside[i + 1] == U'-') {
            last = folded(inside[i + 2]);
            i += 2;
        }
        // "[z-a]" is no pattern, and none that matches nothing.
        if (last < first)
            return false;
        part.ranges.push_back({first, last});
    }
    m_parts.push_back(std::move(part));
    return true;
}

bool LikePattern::fits(const Part &part, char32_t c)
{
    switch (part.kind) {
    case Part::Character:
        return c == part.character;
    case Part::Digit:
        return c >= U'0' && c <= U'9';
    case Part::OneOf:
    case Part::NoneOf: {
        const bool found = std::any_of(part.ranges.begin(), part.ranges.end(),
                                       [c](const Range &range) { return c >= range.first && c <= range.last; });
        return found == (part.kind == Part::OneOf);
    }
    default:
        return true;
    }
}

/// Greedy with one point to fall back to: the latest `*` swallows one character more at each mismatch.
bool LikePattern::matches(std::string_view text) const
{
    size_t part = 0, at = 0;
    size_t runPart = std::string_view::npos, runAt = 0;
    while (at < text.size()) {
        if (part < m_parts.size() && m_parts[part].kind == Part::AnyRun) {
            runPart = ++part;
            runAt = at;
            continue;
        }
        size_t behind = at;
        const char32_t character = next(text, behind);
        if (part < m_parts.size() && fits(m_parts[part], character)) {
            ++part;
            at = behind;
        } else if (runPart != std::string_view::npos) {
            next(text, runAt);
            at = runAt;
            part = runPart;
        } else {
            return false;
        }
    }
    while (part < m_parts.size() && m_parts[part].kind == Part::AnyRun)
        ++part;
    return part == m_parts.size();
}
