#include "toolkit/controls/dtpicker.h"

#include "data/values/runtimeerror.h"
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

DTPicker::DTPicker(QWidget *parent) : QDateEdit(parent)
{
    setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    setDisplayFormat(QStringLiteral("M/d/yyyy"));
    setCalendarPopup(true);
    setDateRange(QDate(1601, 1, 1), QDate(9999, 12, 31));
    setDate(Date::today().date());
    setFocusPolicy(Qt::StrongFocus);
    lineEdit()->installEventFilter(this);
    connect(this, &QDateEdit::dateChanged, this, [this] { m_timePart = 0; });
}

Date DTPicker::value() const
{
    return Date(Date(date()).serial() + m_timePart);
}

void DTPicker::setValue(const Value &value)
{
    if (value.isNull())
        throw runtimeError(35787);
    const Date assigned = value.toDate();
    const QDate day = assigned.date();
    if (day < minimumDate() || day > maximumDate())
        throw runtimeError(380);
    setDate(day);
    m_timePart = assigned.serial() - Date(day).serial();
}

void DTPicker::keyPressEvent(QKeyEvent *event)
{
    const int part = currentSectionIndex();
    if (event->text() == QLatin1String("/")) {
        // Behind a digit that completes its part, as the 4 of "4/30/2010" does, the slash is passed already.
        if (!std::exchange(m_movedOn, false) && part + 1 < sectionCount())
            setSelectedSection(sectionAt(part + 1));
        return;
    }
    QDateEdit::keyPressEvent(event);
    const bool digit = !event->text().isEmpty() && event->text()[0].isDigit();
    m_movedOn = digit && currentSectionIndex() != part;
    if (m_movedOn || event->key() == Qt::Key_Home || event->key() == Qt::Key_End)
        setSelectedSection(currentSection());
}

void DTPicker::focusInEvent(QFocusEvent *event)
{
    m_movedOn = false;
    QDateEdit::focusInEvent(event);
}

void DTPicker::wheelEvent(QWheelEvent *event)
{
    // The wheel belongs to the control that has the focus, not to the one that lies under the mouse.
    if (hasFocus())
        QDateEdit::wheelEvent(event);
    else
        event->ignore();
}

bool DTPicker::focusNextPrevChild(bool next)
{
    // Tab leaves the picker at once, not by way of month, day and year.
    return QWidget::focusNextPrevChild(next);
}

bool DTPicker::eventFilter(QObject *watched, QEvent *event)
{
    // A click selects the part of the date under the mouse, so that digits replace it.
    if (watched == lineEdit() && event->type() == QEvent::MouseButtonRelease && !lineEdit()->hasSelectedText()) {
        m_movedOn = false;
        setSelectedSection(currentSection());
    }
    return QDateEdit::eventFilter(watched, event);
}
