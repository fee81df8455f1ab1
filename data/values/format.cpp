#include "data/values/format.h"

#include "data/values/numbers.h"
namespace {

/// One section of a picture: the digits' places and what stands before and behind them.
struct Section
{
    explicit Section(QStringView picture)
    {
        const auto isPlace = [](QChar c) { return QStringView(u"0#,.").contains(c); };
        const auto first = std::find_if(picture.begin(), picture.end(), isPlace);
        const auto end = std::find_if(picture.rbegin(), picture.rend(), isPlace).base();
        if (first == picture.end()) {
            before = picture.toString();
            return;
        }
        before = picture.left(first - picture.begin()).toString();
        behind = picture.mid(end - picture.begin()).toString();
        bool zeroSeen = false;
        for (const QChar c : picture.mid(first - picture.begin(), end - first)) {
            hasPlaces = true;
            if (c == u'.') {
                hasPoint = true;
            } else if (c == u',') {
                grouped = true;
            } else if (hasPoint) {
                ++decimals;
                if (c == u'0')
                    leastDecimals = decimals;
            } else {
                // Places behind the first 0 always print: "##,##0" prints 0 as "0", "#,###" as nothing.
                zeroSeen = zeroSeen || c == u'0';
                leastWhole += zeroSeen;
            }
        }
    }

    QString before, behind;
    bool hasPlaces = false, hasPoint = false, grouped = false;
    int leastWhole = 0, decimals = 0, leastDecimals = 0;
};

/// A number as decimal digits with a fixed number of decimals, halves rounded away from zero. It is the 15 digits
/// that get rounded, not the binary value: 1.005 becomes 1.01.
class Digits
{
public:
    Digits(double magnitude, int decimals)
    {
        // One digit, a point, 14 digits and the exponent.
        const QByteArray scientific = QByteArray::number(magnitude, 'e', 14);
        const qsizetype letter = scientific.indexOf('e');
        QByteArray digits = scientific.left(letter);
        digits.remove(1, 1);
        const int exponent = scientific.mid(letter + 1).toInt();
        const int kept = exponent + 1 + decimals; // digits that stay, counted from the first
        if (kept < 0)
            digits = "0";
        else
            digits = roundedTo(digits, kept);
        // Now `digits` without a point counts units of the last decimal.
        digits = digits.rightJustified(decimals + 1, '0');
        whole = digits.left(digits.size() - decimals);
        fraction = digits.right(decimals);
        while (whole.startsWith('0'))
            whole.remove(0, 1);
    }

    QByteArray whole, fraction;

private:
    /// The first `kept` of the digits, rounded, with a leading zero that takes the carry of a row of nines.
    static QByteArray roundedTo(const QByteArray &digits, int kept)
    {
        if (kept >= digits.size())
            return digits.leftJustified(kept, '0');
        QByteArray result = "0" + digits.left(kept);
        if (digits[kept] >= '5') {
            qsizetype i = result.size() - 1;
            while (result[i] == '9')
                result[i--] = '0';
            ++result[i];
        }
        return result;
    }
};

/// A number without its sign, by one section.
QString printed(double magnitude, const Section &section)
{
    // A section without places is a text to print as it stands.
    if (!section.hasPlaces)
        return section.before;
    Digits digits(magnitude, section.decimals);
    digits.whole = digits.whole.rightJustified(section.leastWhole, '0');
    while (digits.fraction.size() > section.leastDecimals && digits.fraction.endsWith('0'))
        digits.fraction.chop(1);
    if (section.grouped) {
        // From the point leftwards, the zeros put in front included.
        for (qsizetype i = digits.whole.size() - 3; i > 0; i -= 3)
            digits.whole.insert(i, ',');
    }
    QString text = section.before + QLatin1String(digits.whole);
    // The point is printed also when no digit follows it.
    if (section.hasPoint)
        text += u'.' + QString::fromLatin1(digits.fraction);
    return text + section.behind;
}

} // namespace

QString Format(double number, QStringView picture)
{
    const qsizetype split = picture.indexOf(u';');
    const QStringView first = split < 0 ? picture : picture.left(split);
    // The sign decides before rounding, so a tiny negative residue prints as a negative zero.
    if (number >= 0)
        return printed(number, Section(first));
    if (split >= 0)
        return printed(-number, Section(picture.mid(split + 1)));
    return u'-' + printed(-number, Section(first));
}

QString Format(const QString &text, QStringView picture)
{
    const std::optional<double> number = numberFromText(text);
    return number ? Format(*number, picture) : text;
}
