#pragma once

#include <QDate>
#include <QStringList>

/// A date while it is being typed, part by part, over a former one: "4/9/25" as well as "3-30-2011" or "3.30.2011". A
/// digit that no other can follow, as the 4 of a month, moves on to the next part by itself; a part passed over keeps
/// what the former date has there.
class DateDraft
{
public:
    static constexpr int Parts = 3; // month, day, year

    explicit DateDraft(QDate former);

    /// True for a character that types a date.
    static bool types(QChar character);
    void type(QChar character);
    /// Takes the last digit typed back; nothing where none was typed.
    void eraseDigit();
    /// Goes to a part, whose text the next digit replaces.
    void goTo(int part);

    int part() const { return m_part; }
    /// The digits typed into the part so far; 0 when the next one replaces it.
    int typed() const { return m_typed; }
    /// True when the year has got its fourth digit: the next digit begins a new date.
    bool isComplete() const { return m_complete; }

    QString text() const { return m_texts.join(u'/'); }
    /// Where the part stands in the text.
    int start() const;
    int length() const { return int(m_texts[m_part].size()); }

    /// The date the text stands for, two-digit years being those from 1930 to 2029; invalid when there is no such day.
    QDate date() const;

private:
    void typeDigit(QChar digit);
    void passSeparator();
    void beginAnew();
    bool takesNoMore() const;

    QStringList m_texts;
    QString m_formerYear;
    int m_part = 0;
    int m_typed = 0;
    bool m_movedOn = false; ///< by a digit, so that a separator typed behind it is passed already
    bool m_complete = false;
};
