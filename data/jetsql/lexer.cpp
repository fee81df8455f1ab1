#include "data/jetsql/lexer.h"

#include "data/values/datetext.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace jetsql {
namespace {

struct Word
{
    QStringView text;
    Keyword keyword;
};

constexpr std::array words = {
    Word{u"ALL", Keyword::All},
    Word{u"AND", Keyword::And},
    Word{u"AS", Keyword::As},
    Word{u"ASC", Keyword::Asc},
    Word{u"BETWEEN", Keyword::Between},
    Word{u"BY", Keyword::By},
    Word{u"CREATE", Keyword::Create},
    Word{u"DELETE", Keyword::Delete},
    Word{u"DESC", Keyword::Desc},
    Word{u"DISTINCT", Keyword::Distinct},
    Word{u"DISTINCTROW", Keyword::DistinctRow},
    Word{u"DROP", Keyword::Drop},
    Word{u"EXISTS", Keyword::Exists},
    Word{u"FALSE", Keyword::False},
    Word{u"FROM", Keyword::From},
    Word{u"GROUP", Keyword::Group},
    Word{u"HAVING", Keyword::Having},
    Word{u"IN", Keyword::In},
    Word{u"INNER", Keyword::Inner},
    Word{u"INSERT", Keyword::Insert},
    Word{u"INTO", Keyword::Into},
    Word{u"IS", Keyword::Is},
    Word{u"JOIN", Keyword::Join},
    Word{u"LEFT", Keyword::Left},
    Word{u"LIKE", Keyword::Like},
    Word{u"MOD", Keyword::Mod},
    Word{u"NOT", Keyword::Not},
    Word{u"NULL", Keyword::Null},
    Word{u"ON", Keyword::On},
    Word{u"OR", Keyword::Or},
    Word{u"ORDER", Keyword::Order},
    Word{u"OUTER", Keyword::Outer},
    Word{u"RIGHT", Keyword::Right},
    Word{u"SELECT", Keyword::Select},
    Word{u"SET", Keyword::Set},
    Word{u"TABLE", Keyword::Table},
    Word{u"TOP", Keyword::Top},
    Word{u"TRUE", Keyword::True},
    Word{u"UNION", Keyword::Union},
    Word{u"UPDATE", Keyword::Update},
    Word{u"VALUES", Keyword::Values},
    Word{u"WHERE", Keyword::Where},
};

/// The words stand in order, so that each name of each statement is told in six comparisons.
Keyword keywordOf(QStringView name)
{
    const auto found = std::lower_bound(words.begin(), words.end(), name, [](const Word &word, QStringView text) {
        return word.text.compare(text, Qt::CaseInsensitive) < 0;
    });
    return found != words.end() && found->text.compare(name, Qt::CaseInsensitive) == 0 ? found->keyword : Keyword::None;
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}
bool startsName(QChar c)
{
    return c.isLetter() || c == u'_';
}
bool continuesName(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c.isSurrogate() || c.isMark();
}

enum class Wanted { AllTokens, Constants };

class Lexer
{
public:
    Lexer(const QString &sql, Wanted wanted) : m_sql(sql), m_wanted(wanted) {}

    std::vector<Token> run()
    {
        // A token has about five characters, and a statement a handful of constants.
        m_tokens.reserve(m_wanted == Wanted::Constants ? 8 : m_sql.size() / 5 + 8);
        while (skipBlanks(), m_at < m_sql.size())
            next();
        m_start = m_at;
        finish(TokenKind::End, m_at);
        return std::move(m_tokens);
    }

private:
    QChar peek(qsizetype ahead = 0) const { return m_at + ahead < m_sql.size() ? m_sql.at(m_at + ahead) : QChar(); }

    void skipBlanks()
    {
        while (m_at < m_sql.size() && m_sql.at(m_at).isSpace())
            ++m_at;
    }

    void finish(TokenKind kind, qsizetype end)
    {
        m_at = end;
        Token token = std::exchange(m_token, Token());
        const bool constant = kind == TokenKind::Text || kind == TokenKind::Number || kind == TokenKind::Date;
        if (m_wanted == Wanted::Constants && !constant)
            return;
        token.kind = kind;
        token.start = m_start;
        token.end = end;
        token.constant = constant ? m_constants++ : -1;
        m_tokens.push_back(std::move(token));
    }

    void next()
    {
        m_start = m_at;
        const QChar c = peek();
        // Decided by the first character alone; what a token turns out not to be, its own routine tells.
        if (startsName(c))
            name();
        else if (isDigit(c) || (c == u'.' && isDigit(peek(1))))
            number();
        else if (c == u'\'' || c == u'"')
            text(c);
        else if (c == u'#')
            date();
        else if (c == u'[')
            bracketName();
        else
            symbol(c);
    }

    void name()
    {
        qsizetype end = m_at;
        while (end < m_sql.size() && continuesName(m_sql.at(end)))
            ++end;
        // For a fingerprint alone names need not be told apart.
        if (m_wanted == Wanted::AllTokens) {
            const QStringView word = QStringView(m_sql).sliced(m_at, end - m_at);
            m_token.text = word.toString();
            m_token.keyword = keywordOf(word);
        }
        finish(TokenKind::Name, end);
    }

    void bracketName()
    {
        const qsizetype close = m_sql.indexOf(u']', m_at);
        // A bracket that is never closed, or holds nothing.
        if (close <= m_at + 1)
            return finish(TokenKind::BadSymbol, close < 0 ? m_sql.size() : close + 1);
        m_token.text = m_sql.sliced(m_at + 1, close - m_at - 1);
        finish(m_token.text.contains(QChar(0)) ? TokenKind::BadSymbol : TokenKind::BracketName, close + 1);
    }

    /// A delimiter doubled inside the text stands for itself.
    void text(QChar delimiter)
    {
        qsizetype at = m_at + 1;
        for (;;) {
            const qsizetype close = m_sql.indexOf(delimiter, at);
            if (close < 0)
                return finish(TokenKind::BadText, m_sql.size());
            m_token.text += QStringView(m_sql).sliced(at, close - at);
            at = close + 1;
            if (at >= m_sql.size() || m_sql.at(at) != delimiter)
                break;
            m_token.text += delimiter;
            ++at;
        }
        // The engine underneath ends its text at a null character.
        finish(m_token.text.contains(QChar(0)) ? TokenKind::BadText : TokenKind::Text, at);
    }

    void date()
    {
        const qsizetype close = m_sql.indexOf(u'#', m_at + 1);
        if (close < 0)
            return finish(TokenKind::BadDate, m_sql.size());
        const QStringView inside = QStringView(m_sql).sliced(m_at + 1, close - m_at - 1).trimmed();
        const std::optional<Date> date = dateFromLiteral(inside);
        if (date)
            m_token.number = date->serial();
        finish(date ? TokenKind::Date : TokenKind::BadDate, close + 1);
    }

    /// Free text is read month first, falling back to day first; but behind a leading year only month and day
    /// may follow, in this order.
    static std::optional<Date> dateFromLiteral(QStringView inside)
    {
        qsizetype digits = 0;
        while (digits < inside.size() && isDigit(inside.at(digits)))
            ++digits;
        // "2011/20/12" with the day in the middle is an error, though free text would take it.
        if (digits == 4 && digits < inside.size() && (inside.at(4) == u'/' || inside.at(4) == u'-')) {
            const QStringView rest = inside.sliced(5);
            qsizetype month = 0;
            while (month < rest.size() && isDigit(rest.at(month)))
                ++month;
            if (month == 0 || month > 2 || rest.first(month).toInt() > 12)
                return {};
        }
        return dateFromText(inside);
    }

    void number()
    {
        qsizetype end = digitsFrom(m_at);
        bool whole = true;
        if (end < m_sql.size() && m_sql.at(end) == u'.') {
            whole = false;
            end = digitsFrom(end + 1);
        }
        if (end < m_sql.size() && m_sql.at(end).toUpper() == u'E') {
            qsizetype exponent = end + 1;
            if (exponent < m_sql.size() && (m_sql.at(exponent) == u'+' || m_sql.at(exponent) == u'-'))
                ++exponent;
            const qsizetype last = digitsFrom(exponent);
            if (last > exponent) {
                whole = false;
                end = last;
            }
        }
        // "1E" without digits behind it is the number 1 and a name.
        m_token.number = QStringView(m_sql).sliced(m_at, end - m_at).toDouble();
        m_token.whole = whole && m_token.number <= std::numeric_limits<qint32>::max();
        // "1.2.3" is a bad number, not two.
        const bool secondPoint = end < m_sql.size() && m_sql.at(end) == u'.';
        finish(secondPoint || !std::isfinite(m_token.number) ? TokenKind::BadNumber : TokenKind::Number, end);
    }

    qsizetype digitsFrom(qsizetype at) const
    {
        while (at < m_sql.size() && isDigit(m_sql.at(at)))
            ++at;
        return at;
    }

    void symbol(QChar c)
    {
        const QChar after = peek(1);
        char16_t joined = 0;
        if (c == u'<')
            joined = after == u'=' ? u'≤' : after == u'>' ? u'≠' : 0;
        else if (c == u'>')
            joined = after == u'=' ? u'≥' : 0;
        // Two characters as one, so that the parser asks for one and the same kind of sign everywhere.
        m_token.symbol = joined ? joined : c.unicode();
        const bool known = joined || QStringView(u"=<>+-*/\\^&(),.;!").contains(c);
        finish(known ? TokenKind::Symbol : TokenKind::BadSymbol, m_at + (joined ? 2 : 1));
    }

    const QString &m_sql;
    Wanted m_wanted;
    std::vector<Token> m_tokens;
    Token m_token; ///< being read; empty in between
    qsizetype m_at = 0;
    qsizetype m_start = 0;
    int m_constants = 0;
};

/// What a constant becomes in a fingerprint. Unicode promises that these characters stand for nothing.
char16_t standIn(const Token &constant)
{
    switch (constant.kind) {
    case TokenKind::Text:
        return u'\uFDD0';
    case TokenKind::Date:
        return u'\uFDD1';
    default:
        return constant.whole ? u'\uFDD2' : u'\uFDD3';
    }
}

} // namespace

std::vector<Token> tokensOf(const QString &sql)
{
    return Lexer(sql, Wanted::AllTokens).run();
}

Fingerprint fingerprintOf(const QString &sql)
{
    Fingerprint fingerprint;
    fingerprint.constants = Lexer(sql, Wanted::Constants).run();
    // A text that holds a stand-in itself would pass for another statement; it is translated each time.
    if (std::any_of(sql.begin(), sql.end(), [](QChar c) { return c >= u'\uFDD0' && c <= u'\uFDD3'; }))
        return fingerprint;
    fingerprint.key.reserve(sql.size());
    qsizetype at = 0;
    for (const Token &constant : fingerprint.constants) {
        fingerprint.key += QStringView(sql).sliced(at, constant.start - at);
        fingerprint.key += QChar(standIn(constant));
        at = constant.end;
    }
    fingerprint.key += QStringView(sql).sliced(at);
    return fingerprint;
}

} // namespace jetsql
