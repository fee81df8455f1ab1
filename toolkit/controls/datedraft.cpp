#include "toolkit/controls/datedraft.h"

#include "data/values/date.h"

namespace {
enum Part { Month, Day, Year };
} // namespace

DateDraft::DateDraft(QDate former)
    : m_texts{QString::number(former.month()), QString::number(former.day()), QString::number(former.year())},
      m_formerYear(m_texts[Year])
{
}

bool DateDraft::types(QChar character)
{
    return (character >= u'0' && character <= u'9') || character == u'/' || character == u'-' || character == u'.';
}

void DateDraft::type(QChar character)
{
    if (character.isDigit())
        typeDigit(character);
    else
        passSeparator();
}

void DateDraft::typeDigit(QChar digit)
{
    m_complete = false;
    // The first digit takes the place of what stood in the part.
    m_texts[m_part] = m_typed > 0 ? m_texts[m_part] + digit : QString(digit);
    ++m_typed;
    m_movedOn = takesNoMore();
    if (!m_movedOn)
        return;
    m_complete = m_part == Year;
    m_part = (m_part + 1) % Parts;
    m_typed = 0;
}

/// A first digit that begins no two-digit month or day completes its part: 4 is April, 1 waits.
bool DateDraft::takesNoMore() const
{
    static constexpr int digits[Parts] = {2, 2, 4}, largestFirst[Parts] = {1, 3, 9};
    return m_typed == digits[m_part] || (m_typed == 1 && m_texts[m_part].toInt() > largestFirst[m_part]);
}

void DateDraft::passSeparator()
{
    if (m_part == Year || m_complete) {
        beginAnew();
        return;
    }
    // A separator behind a part that was completed by itself only confirms it.
    if (!std::exchange(m_movedOn, false))
        goTo(m_part + 1);
}

/// Nothing stands behind the year: what was typed there last is the month of a date typed once more.
void DateDraft::beginAnew()
{
    const int ofMonth = m_complete ? 2 : m_typed == 3 ? 1 : m_typed;
    QString &year = m_texts[Year];
    if (ofMonth > 0)
        m_texts[Month] = year.right(ofMonth);
    year.chop(ofMonth);
    if (year.isEmpty())
        year = m_formerYear;
    goTo(ofMonth > 0 ? Day : Year);
}

void DateDraft::eraseDigit()
{
    if (m_typed == 0)
        return;
    m_texts[m_part].chop(1);
    --m_typed;
}

void DateDraft::goTo(int part)
{
    m_part = part;
    m_typed = 0;
    m_movedOn = m_complete = false;
}

int DateDraft::start() const
{
    int position = 0;
    for (int part = 0; part < m_part; ++part)
        position += int(m_texts[part].size()) + 1;
    return position;
}

QDate DateDraft::date() const
{
    const int year = m_texts[Year].toInt();
    // 11 is 2011; three digits are no year anybody means, and four are taken as they stand.
    const bool inShort = m_texts[Year].size() <= 2;
    return m_texts.contains(QString())
               ? QDate()
               : QDate(inShort ? Date::fullYear(year) : year, m_texts[Month].toInt(), m_texts[Day].toInt());
}
