#include "data/values/datetext.h"

#include "data/values/clock.h"
#include "data/values/runtimeerror.h"

namespace {

/// A number, a word or a single mark of the text.
struct Token
{
    enum class Kind { Number, Word, Mark };
    Kind kind;
    QStringView text;

    bool isMark(QChar c) const { return kind == Kind::Mark && text[0] == c; }
    bool isNumber() const { return kind == Kind::Number; }
    /// Beyond every calendar when there are more digits than an int takes.
    int number() const
    {
        bool fits = false;
        const int value = text.toInt(&fits);
        return fits ? value : std::numeric_limits<int>::max();
    }
};

using Tokens = std::vector<Token>;

Token::Kind kindOf(QChar c)
{
    if (c >= u'0' && c <= u'9')
        return Token::Kind::Number;
    return c.isLetter() ? Token::Kind::Word : Token::Kind::Mark;
}

/// Numbers, words and marks; blanks only separate.
Tokens tokensOf(QStringView text)
{
    Tokens tokens;
    for (qsizetype i = 0; i < text.size();) {
        if (text[i].isSpace()) {
            ++i;
            continue;
        }
        const Token::Kind kind = kindOf(text[i]);
        qsizetype end = i + 1;
        while (kind != Token::Kind::Mark && end < text.size() && kindOf(text[end]) == kind)
            ++end;
        tokens.push_back({kind, text.mid(i, end - i)});
        i = end;
    }
    return tokens;
}

/// Takes "h:mm[:ss] [AM|PM]" out of the tokens. Midnight when there is none, nothing when it is malformed.
std::optional<QTime> takeTime(Tokens &tokens, bool &found)
{
    const auto colon = std::find_if(tokens.begin(), tokens.end(), [](const Token &t) { return t.isMark(u':'); });
    found = colon != tokens.end();
    if (!found)
        return QTime(0, 0);
    if (colon == tokens.begin() || !(colon - 1)->isNumber())
        return std::nullopt;
    const auto begin = colon - 1;
    auto end = colon;
    int parts[3] = {begin->number(), 0, 0};
    for (int part = 1; end != tokens.end() && end->isMark(u':'); ++part) {
        if (part > 2 || ++end == tokens.end() || !end->isNumber())
            return std::nullopt;
        parts[part] = end++->number();
    }
    if (end != tokens.end() && end->kind == Token::Kind::Word) {
        const bool afternoon = end->text.compare(u"PM", Qt::CaseInsensitive) == 0;
        const bool morning = end->text.compare(u"AM", Qt::CaseInsensitive) == 0;
        if (afternoon || morning) {
            // "14:05 PM" is no time, though "14:05" is one.
            if (parts[0] < 1 || parts[0] > 12)
                return std::nullopt;
            // 12 AM is midnight and 12 PM noon.
            parts[0] = parts[0] % 12 + (afternoon ? 12 : 0);
            ++end;
        }
    }
    tokens.erase(begin, end);
    const QTime time(parts[0], parts[1], parts[2]);
    return time.isValid() ? std::optional(time) : std::nullopt;
}

/// The month of a full or three-letter name, or 0.
int monthOf(QStringView word)
{
    static constexpr QStringView names[] = {u"January",   u"February", u"March",    u"April",
                                            u"May",       u"June",     u"July",     u"August",
                                            u"September", u"October",  u"November", u"December"};
    for (int i = 0; i < 12; ++i) {
        if (word.compare(names[i], Qt::CaseInsensitive) == 0 ||
            word.compare(names[i].left(3), Qt::CaseInsensitive) == 0)
            return i + 1;
    }
    return 0;
}

/// Three digits are a year as they stand.
int yearOf(const Token &token)
{
    return token.text.size() > 2 ? token.number() : Date::fullYear(token.number());
}

/// The platform's dates run from the year 100 to 9999; an invalid date stands for none.
QDate dateOf(int year, int month, int day)
{
    const QDate date(year, month, day);
    return year >= 100 && year <= 9999 ? date : QDate();
}

/// Three numbers: month first if that makes a date at all, then day first. Only a short last number may turn out
/// to be the day, and then the year is looked for in the other places.
QDate dateOfThree(const Token &a, const Token &b, const Token &c)
{
    // A first number of more than two digits is the year, and no other reading is tried.
    if (a.text.size() > 2)
        return dateOf(a.number(), b.number(), c.number());
    // So 30/3/2011 is the 30th of March, and 2/29/01, a day that 2001 does not have, the 1st of February 2029.
    QDate date = dateOf(yearOf(c), a.number(), b.number());
    if (!date.isValid())
        date = dateOf(yearOf(c), b.number(), a.number());
    if (!date.isValid() && c.text.size() <= 2)
        date = dateOf(yearOf(a), b.number(), c.number());
    if (!date.isValid() && c.text.size() <= 2)
        date = dateOf(yearOf(b), a.number(), c.number());
    return date;
}

/// Two numbers are month and day of the present year, or day and month.
QDate dateOfTwo(const Token &a, const Token &b)
{
    const int year = Clock::now().date().year();
    const QDate date = dateOf(year, a.number(), b.number());
    return date.isValid() ? date : dateOf(year, b.number(), a.number());
}

/// "3/30/2011", "2011-03-30", "3/30".
QDate dateOfNumbers(const Tokens &tokens)
{
    if (tokens.size() != 3 && tokens.size() != 5)
        return {};
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const bool separator = tokens[i].isMark(u'/') || tokens[i].isMark(u'-');
        if (i % 2 == 0 ? !tokens[i].isNumber() : !separator)
            return {};
    }
    return tokens.size() == 5 ? dateOfThree(tokens[0], tokens[2], tokens[4]) : dateOfTwo(tokens[0], tokens[2]);
}

/// "30 Mar 2011", "March 30, 2011", "30-Mar-2011", "Mar 30".
QDate dateWithMonthName(const Tokens &tokens)
{
    int month = 0;
    Tokens numbers;
    for (const Token &token : tokens) {
        if (token.kind == Token::Kind::Word) {
            // One word, and it is a month; names of weekdays are none.
            if (month != 0 || (month = monthOf(token.text)) == 0)
                return {};
        } else if (token.isNumber()) {
            numbers.push_back(token);
        } else if (!token.isMark(u',') && !token.isMark(u'-')) {
            return {};
        }
    }
    if (numbers.empty() || numbers.size() > 2)
        return {};
    const int year = numbers.size() == 2 ? yearOf(numbers[1]) : Clock::now().date().year();
    return dateOf(year, month, numbers[0].number());
}

} // namespace

std::optional<Date> dateFromText(QStringView text)
{
    Tokens tokens = tokensOf(text);
    bool hasTime = false;
    const std::optional<QTime> time = takeTime(tokens, hasTime);
    if (!time)
        return std::nullopt;
    if (tokens.empty()) {
        if (!hasTime)
            return std::nullopt;
        // A time alone is one of day 0.
        return Date(QDateTime(QDate(1899, 12, 30), *time, Qt::UTC));
    }
    const bool named =
        std::any_of(tokens.begin(), tokens.end(), [](const Token &token) { return token.kind == Token::Kind::Word; });
    const QDate date = named ? dateWithMonthName(tokens) : dateOfNumbers(tokens);
    if (!date.isValid())
        return std::nullopt;
    return Date(QDateTime(date, *time, Qt::UTC));
}

Date CDate(QStringView text)
{
    const std::optional<Date> date = dateFromText(text);
    if (!date)
        throw runtimeError(13);
    return *date;
}
