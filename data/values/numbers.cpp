#include "data/values/numbers.h"

#include "data/values/runtimeerror.h"
#include <sstream>

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// "D" is the exponent letter of a Double in the language the texts come from, beside the usual "E".
bool isExponentLetter(QChar c)
{
    return c == u'e' || c == u'E' || c == u'd' || c == u'D';
}

/// The Double of a plain "-12.5e3"; infinite beyond the range. The machine's locale plays no part.
double parsed(const QByteArray &plain)
{
    bool inRange = false;
    double value = plain.toDouble(&inRange);
    if (inRange)
        return value;
    // Too large or too small to hold; the stream tells which, by giving the largest Double or 0.
    std::istringstream stream(plain.toStdString());
    stream.imbue(std::locale::classic());
    stream >> value;
    const bool tooLarge = std::fabs(value) == std::numeric_limits<double>::max();
    return tooLarge ? std::copysign(std::numeric_limits<double>::infinity(), value) : value;
}

/// Reads characters of a text one after the other.
class Reader
{
public:
    explicit Reader(QStringView text) : m_text(text) {}

    bool atEnd() const { return m_position >= m_text.size(); }
    QChar peek(qsizetype ahead = 0) const
    {
        return m_position + ahead < m_text.size() ? m_text[m_position + ahead] : QChar();
    }
    QChar take() { return m_text[m_position++]; }
    void skip(qsizetype count) { m_position += count; }

private:
    QStringView m_text;
    qsizetype m_position = 0;
};

/// The exponent at the reader, as "e-5"; empty, with nothing read, when digits are missing behind the letter.
QByteArray takeExponent(Reader &in)
{
    if (!isExponentLetter(in.peek()))
        return {};
    const bool sign = in.peek(1) == u'+' || in.peek(1) == u'-';
    if (!isDigit(in.peek(sign ? 2 : 1)))
        return {};
    in.take();
    QByteArray text = "e";
    if (sign)
        text += in.take().toLatin1();
    while (isDigit(in.peek()))
        text += in.take().toLatin1();
    return text;
}

/// The value of a digit in a number system, or -1.
int digitValue(QChar c, int base)
{
    const int value = QStringView(u"0123456789abcdef").indexOf(c.toLower());
    return value < base ? value : -1;
}

/// "&H..", "&O.." or "&.." at the reader. Numbers of up to 16 and 32 bits are signed ones of that width, so that
/// "&HFFFF" is -1; more bits than that are beyond the range, which infinity stands for. Nothing without digits.
std::optional<double> takeRadixNumber(Reader &in)
{
    if (in.peek() != u'&')
        return std::nullopt;
    const QChar letter = in.peek(1).toLower();
    const int base = letter == u'h' ? 16 : 8;
    // A bare "&" is octal as well.
    const int prefix = letter == u'h' || letter == u'o' ? 2 : 1;
    if (digitValue(in.peek(prefix), base) < 0)
        return std::nullopt;
    in.skip(prefix);
    constexpr quint64 Most = 0xFFFFFFFF;
    quint64 bits = 0;
    while (!in.atEnd() && digitValue(in.peek(), base) >= 0)
        bits = std::min(bits * base + digitValue(in.take(), base), Most + 1);
    if (bits > Most)
        return std::numeric_limits<double>::infinity();
    return bits <= 0xFFFF ? double(qint16(bits)) : double(qint32(quint32(bits)));
}

/// The decimal number at the reader: a sign, digits with one point, an exponent. 0 without digits.
double takeLeadingNumber(Reader &in)
{
    QByteArray number;
    if (in.peek() == u'+' || in.peek() == u'-')
        number += in.take().toLatin1();
    bool digits = false, point = false;
    while (isDigit(in.peek()) || (in.peek() == u'.' && !point)) {
        (in.peek() == u'.' ? point : digits) = true;
        number += in.take().toLatin1();
    }
    return digits ? parsed(number + takeExponent(in)) : 0;
}

/// The strict reader behind IsNumeric: signs, a dollar sign and brackets may stand on both sides of the digits.
class NumberText
{
public:
    explicit NumberText(QStringView text) : m_in(text) {}

    /// The value, infinite beyond the Double range; nothing when the text is no number.
    std::optional<double> value()
    {
        takeFront();
        if (m_in.peek() == u'&') {
            const std::optional<double> number = takeRadixNumber(m_in);
            return number && takeBack() ? number : std::nullopt;
        }
        if (!takeDigits() || !takeBack())
            return std::nullopt;
        return m_negative ? -parsed(m_number) : parsed(m_number);
    }

private:
    /// True the first time it is asked of a flag: each sign may stand there once only.
    static bool once(bool &flag)
    {
        if (flag)
            return false;
        return flag = true;
    }

    /// A sign counts as taken on whichever side of the digits it stood, so "-5-" is no number and "+5-" is -5.
    bool takeSign(QChar c)
    {
        if (c == u'+')
            return once(m_plus);
        if (c != u'-')
            return false;
        m_negative = true;
        return once(m_minus);
    }

    /// Blanks, signs, dollar sign and bracket in front of the digits, in any mix.
    void takeFront()
    {
        while (!m_in.atEnd()) {
            const QChar c = m_in.peek();
            if (!c.isSpace() && !takeSign(c) && !(c == u'$' && once(m_dollar)) && !(c == u'(' && once(m_open)))
                return;
            m_in.take();
        }
    }

    /// The digits with point and exponent into `m_number`; false when there is none. An amount of money has no
    /// exponent.
    bool takeDigits()
    {
        bool digits = false, point = false;
        while (!m_in.atEnd()) {
            const QChar c = m_in.peek();
            if (isDigit(c))
                digits = true;
            else if (c == u'.' && !point)
                point = true;
            else if (c != u',' || !digits) // commas count for nothing, wherever they stand behind a digit
                break;
            m_in.take();
            if (c != u',')
                m_number += c.toLatin1();
        }
        if (digits && !m_dollar)
            m_number += takeExponent(m_in);
        return digits;
    }

    /// Signs, bracket and dollar sign behind the digits; false when anything else stands there.
    bool takeBack()
    {
        bool closed = false, dollarBehind = false;
        while (!m_in.atEnd()) {
            const QChar c = m_in.take();
            const bool closes = c == u')' && m_open && once(closed);
            if (!c.isSpace() && !takeSign(c) && !closes && !(c == u'$' && once(dollarBehind)))
                return false;
        }
        m_negative = m_negative || closed;
        return m_open == closed;
    }

    Reader m_in;
    QByteArray m_number;
    bool m_plus = false, m_minus = false, m_dollar = false, m_open = false, m_negative = false;
};

/// The nearest whole number of a type, halves to even, by way of the default rounding mode.
template <typename Integer> Integer rounded(double number)
{
    const double whole = std::nearbyint(number);
    if (!(whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max()))
        throw runtimeError(6);
    return Integer(whole);
}

} // namespace

double Val(QStringView text)
{
    // Blanks count for nothing even inside a number: a street address gives its digits up to the first letter.
    QString packed;
    for (const QChar c : text) {
        if (c != u' ' && c != u'\t' && c != u'\n')
            packed += c;
    }
    Reader in(packed);
    const double value = in.peek() == u'&' ? takeRadixNumber(in).value_or(0) : takeLeadingNumber(in);
    if (std::isinf(value))
        throw runtimeError(6);
    return value;
}

std::optional<double> numberFromText(QStringView text)
{
    const std::optional<double> value = NumberText(text).value();
    return value && std::isinf(*value) ? std::nullopt : value;
}

bool IsNumeric(QStringView text)
{
    return numberFromText(text).has_value();
}

double CDbl(QStringView text)
{
    const std::optional<double> value = NumberText(text).value();
    if (!value)
        throw runtimeError(13);
    if (std::isinf(*value))
        throw runtimeError(6);
    return *value;
}

qint16 CInt(double number)
{
    return rounded<qint16>(number);
}

qint32 CLng(double number)
{
    return rounded<qint32>(number);
}

qint16 CInt(QStringView text)
{
    return CInt(CDbl(text));
}

qint32 CLng(QStringView text)
{
    return CLng(CDbl(text));
}

QString textOf(double number)
{
    constexpr int Significant = 15;
    // 15 digits, so that a sum of thirds that misses a whole number by a hair prints as that number.
    const QByteArray scientific = QByteArray::number(std::fabs(number), 'e', Significant - 1);
    const qsizetype letter = scientific.indexOf('e');
    if (letter < 0)
        return QString::fromLatin1(scientific); // infinity, which no conversion here lets through
    const int exponent = scientific.mid(letter + 1).toInt();
    QByteArray digits = scientific.left(letter);
    digits.remove(1, 1);
    while (digits.size() > 1 && digits.endsWith('0'))
        digits.chop(1);

    QByteArray text;
    // A fraction stays in fixed notation as long as it needs no more places than a Double has digits.
    const int decimals = int(digits.size()) - 1 - exponent;
    if (exponent >= Significant || (exponent < 0 && decimals > Significant)) {
        text = digits.left(1) + (digits.size() > 1 ? "." + digits.mid(1) : QByteArray());
        text += (exponent < 0 ? "E-" : "E+") + QByteArray::number(std::abs(exponent)).rightJustified(2, '0');
    } else if (exponent < 0) {
        text = "0." + QByteArray(-exponent - 1, '0') + digits;
    } else {
        digits = digits.leftJustified(exponent + 1, '0');
        text = digits.left(exponent + 1) + (digits.size() > exponent + 1 ? "." + digits.mid(exponent + 1) : "");
    }
    return QString::fromLatin1(number < 0 ? "-" + text : text);
}

QString textOf(bool value)
{
    return value ? "True" : "False";
}

double roundTo2(double number)
{
    // It is the product that is rounded, not the decimal text: 1.005 * 100 lies below the tie and gives 1.
    return std::nearbyint(number * 100.0) / 100.0;
}
