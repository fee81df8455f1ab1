#include "reportengine/formula/formulalexer.h"

#include "data/values/runtimeerror.h"

void formulaError(const QString &formula, int position, const QString &reason)
{
    throw runtimeError(440, {}, QString("%1, at %2 of the formula: %3").arg(reason).arg(position + 1).arg(formula));
}

namespace {

class Lexer
{
public:
    explicit Lexer(const QString &text) : m_text(text) {}

    FormulaToken next()
    {
        skipBlanks();
        FormulaToken token;
        token.position = int(m_at);
        if (m_at == m_text.size())
            return token;
        const QChar c = m_text[m_at];
        if (c == '{')
            enclosed(token, FormulaToken::Kind::Reference, '}');
        // Either mark delimits a text, and the other may stand in it.
        else if (c == '"' || c == '\'')
            enclosed(token, FormulaToken::Kind::Text, c);
        else if (c.isDigit() || (c == '.' && m_at + 1 < m_text.size() && m_text[m_at + 1].isDigit()))
            number(token);
        else if (c.isLetter())
            word(token);
        else
            symbol(token);
        return token;
    }

private:
    /// Blanks, line ends, and comments from "//" to the end of the line.
    void skipBlanks()
    {
        while (m_at < m_text.size()) {
            if (m_text[m_at].isSpace())
                ++m_at;
            else if (m_text.mid(m_at, 2) == "//")
                while (m_at < m_text.size() && m_text[m_at] != '\n')
                    ++m_at;
            else
                return;
        }
    }

    /// The end mark doubled stands for itself inside a text.
    void enclosed(FormulaToken &token, FormulaToken::Kind kind, QChar end)
    {
        token.kind = kind;
        for (++m_at; m_at < m_text.size(); ++m_at) {
            if (m_text[m_at] != end) {
                token.text += m_text[m_at];
            } else if (kind == FormulaToken::Kind::Text && m_at + 1 < m_text.size() && m_text[m_at + 1] == end) {
                token.text += end;
                ++m_at;
            } else {
                ++m_at;
                return;
            }
        }
        formulaError(m_text, token.position, QString("The matching %1 is missing").arg(end));
    }

    void number(FormulaToken &token)
    {
        const qsizetype start = m_at;
        // All digits and points, so that "1.2.3" is one wrong number and not two right ones.
        while (m_at < m_text.size() && (m_text[m_at].isDigit() || m_text[m_at] == '.'))
            ++m_at;
        bool valid = false;
        token.kind = FormulaToken::Kind::Number;
        token.number = m_text.mid(start, m_at - start).toDouble(&valid);
        if (!valid)
            formulaError(m_text, token.position, "This is no number");
    }

    void word(FormulaToken &token)
    {
        const qsizetype start = m_at;
        while (m_at < m_text.size() && (m_text[m_at].isLetterOrNumber() || m_text[m_at] == '_'))
            ++m_at;
        token.kind = FormulaToken::Kind::Word;
        // Words are the same in any case.
        token.text = m_text.mid(start, m_at - start).toLower();
    }

    void symbol(FormulaToken &token)
    {
        // The longer ones first, or "<=" would be read as "<".
        static const QString pairs[] = {"<>", "<=", ">="};
        token.kind = FormulaToken::Kind::Symbol;
        for (const QString &pair : pairs) {
            if (m_text.mid(m_at, 2) == pair) {
                token.text = pair;
                m_at += 2;
                return;
            }
        }
        if (!QStringView(u"+-*/&=<>(),").contains(m_text[m_at]))
            formulaError(m_text, token.position, "This character means nothing here");
        token.text = m_text[m_at++];
    }

    const QString &m_text;
    qsizetype m_at = 0;
};

} // namespace

std::vector<FormulaToken> formulaTokens(const QString &text)
{
    Lexer lexer(text);
    std::vector<FormulaToken> tokens;
    do
        tokens.push_back(lexer.next());
    while (tokens.back().kind != FormulaToken::Kind::End);
    return tokens;
}
