#include "data/values/textorder.h"

#include <QList>
#include <QString>
#include <algorithm>
#include <array>

namespace {

constexpr std::array<unsigned char, 256> makeLowerBytes()
{
    std::array<unsigned char, 256> table{};
    for (int i = 0; i < 256; ++i)
        table[i] = asciiLower(static_cast<unsigned char>(i));
    return table;
}
constexpr auto lowerBytes = makeLowerBytes();

std::string_view withoutBlanksAtEnd(std::string_view text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

/// The letters that Unicode does not take apart into a base letter and a mark, case folded.
QStringView baseLetters(char32_t letter)
{
    switch (letter) {
    case U'ß':
        return u"ss";
    case U'æ':
        return u"ae";
    case U'œ':
        return u"oe";
    case U'ø':
        return u"o";
    case U'þ':
        return u"th";
    case U'ð':
    case U'đ':
        return u"d";
    case U'ł':
        return u"l";
    case U'ħ':
        return u"h";
    case U'ı':
        return u"i";
    case U'ŧ':
        return u"t";
    default:
        return {};
    }
}

/// A text with letters beyond ASCII, in the two forms it is compared by.
struct Folded
{
    QList<uint> whole; ///< lower case, accents as marks of their own
    QList<uint> base;  ///< the same without accents

    explicit Folded(std::string_view text)
    {
        const QString plain = QString::fromUtf8(text.data(), qsizetype(text.size()));
        whole = plain.toLower().normalized(QString::NormalizationForm_D).toUcs4();
        base.reserve(whole.size());
        for (const uint letter : whole) {
            if (letter < 0x80) {
                base.append(letter);
            } else if (const QStringView letters = baseLetters(letter); !letters.isEmpty()) {
                for (const QChar c : letters)
                    base.append(c.unicode());
            } else if (!QChar::isMark(letter)) {
                base.append(letter);
            }
        }
    }
};

int order(const QList<uint> &a, const QList<uint> &b)
{
    const auto result = std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(), b.end());
    return result < 0 ? -1 : result > 0 ? 1 : 0;
}

int compareFolded(std::string_view a, std::string_view b)
{
    // Only where the first difference is a letter beyond ASCII, so that taking both texts apart costs little over all.
    const Folded left(a), right(b);
    const int byBase = order(left.base, right.base);
    return byBase ? byBase : order(left.whole, right.whole);
}

} // namespace

int compareTexts(std::string_view a, std::string_view b)
{
    a = withoutBlanksAtEnd(a);
    b = withoutBlanksAtEnd(b);
    const size_t common = std::min(a.size(), b.size());
    for (size_t i = 0; i < common; ++i) {
        const unsigned char x = static_cast<unsigned char>(a[i]), y = static_cast<unsigned char>(b[i]);
        if (x == y || lowerBytes[x] == lowerBytes[y])
            continue;
        // Equal so far, so a difference between two ASCII characters decides whatever follows.
        if (x < 0x80 && y < 0x80)
            return lowerBytes[x] - lowerBytes[y];
        return compareFolded(a, b);
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}
