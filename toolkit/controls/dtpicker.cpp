#include "toolkit/controls/dtpicker.h"

#include "data/values/datetext.h"
#include "data/values/runtimeerror.h"
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

DTPicker::DTPicker(QWidget *parent) : QDateEdit(parent)
{
    setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    setDisplayFormat("M/d/yyyy");
    setCalendarPopup(true);
    // The range of the platform's picker.
    setDateRange(QDate(1601, 1, 1), QDate(9999, 12, 31));
    setDate(Date::today().date());
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::PreventContextMenu); // its Cut, Delete and Paste would leave half a date
    lineEdit()->setAcceptDrops(false);
    // The mouse goes to the line edit inside, which would put a caret between two digits.
    lineEdit()->installEventFilter(this);
    // A time of day that was assigned lasts until the user picks another day.
    connect(this, &QDateEdit::dateChanged, this, [this] { m_timePart = 0; });
}

Date DTPicker::value() const
{
    return Date(Date(date()).serial() + m_timePart);
}

void DTPicker::setValue(const Value &value)
{
    if (value.isNull())
        // A picker without a check box holds no Null.
        throw runtimeError(35787);
    const Date assigned = value.toDate();
    const QDate day = assigned.date();
    if (!isInRange(day))
        throw runtimeError(380);
    // What a routine sets counts, whatever was being typed.
    m_draft.reset();
    setDate(day);
    m_timePart = assigned.serial() - Date(day).serial();
}

void DTPicker::keyPressEvent(QKeyEvent *event)
{
    if (handleKey(*event))
        event->accept();
    else
        event->ignore();
}

/// Qt's own handling of typed texts completes them as it sees fit, so none of it is used.
bool DTPicker::handleKey(const QKeyEvent &event)
{
    const bool alt = event.modifiers() & Qt::AltModifier;
    const bool plain = !(event.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier));
    if (event.matches(QKeySequence::Copy))
        QApplication::clipboard()->setText(text());
    else if (event.matches(QKeySequence::Paste))
        read(QApplication::clipboard()->text());
    else if (event.key() == Qt::Key_F4 || (alt && event.key() == Qt::Key_Down))
        openCalendar();
    else if (plain && event.text().size() == 1 && DateDraft::types(event.text()[0]))
        type(event.text()[0]);
    else if (!plain)
        return false;
    else
        switch (event.key()) {
        case Qt::Key_Left:
            goTo(std::max(partAtCaret() - 1, 0));
            break;
        case Qt::Key_Right:
            goTo(std::min(partAtCaret() + 1, DateDraft::Parts - 1));
            break;
        case Qt::Key_Home:
            goTo(0);
            break;
        case Qt::Key_End:
            goTo(DateDraft::Parts - 1);
            break;
        case Qt::Key_Up:
            stepBy(1);
            break;
        case Qt::Key_Down:
            stepBy(-1);
            break;
        case Qt::Key_Backspace:
            if (m_draft) {
                m_draft->eraseDigit();
                showDraft();
            }
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            endDraft();
            return false;
        default:
            return false;
        }
    return true;
}

void DTPicker::type(QChar character)
{
    if (m_draft && m_draft->isComplete() && character.isDigit())
        endDraft();
    if (!m_draft) {
        m_former = value();
        m_draft.emplace(date());
        m_draft->goTo(partAtCaret());
    }
    m_draft->type(character);
    showDraft();
    if (m_draft->isComplete() && !m_draft->date().isValid())
        endDraft();
}

/// Holds the date typed so far wherever it is one, and shows the typed text, the part that the next digit replaces
/// selected.
void DTPicker::showDraft()
{
    const DateDraft draft = *m_draft;
    const QDate day = draft.date();
    setDate(isInRange(day) ? day : m_former.date());
    const QSignalBlocker shownOnly(lineEdit());
    lineEdit()->setText(draft.text());
    if (draft.typed() > 0)
        lineEdit()->setCursorPosition(draft.start() + draft.length());
    else
        lineEdit()->setSelection(draft.start(), draft.length());
}

/// Keeps what was typed if there is such a day, else the date before that.
void DTPicker::endDraft()
{
    if (!m_draft)
        return;
    const QDate day = std::exchange(m_draft, std::nullopt)->date();
    const bool refused = !isInRange(day);
    const int part = partAtCaret();
    if (refused)
        QApplication::beep();
    if (refused || day == m_former.date())
        setValue(m_former);
    else
        setDate(day);
    {
        const QSignalBlocker shownOnly(lineEdit());
        lineEdit()->setText(textFromDateTime(dateTime()));
    }
    goTo(refused ? 0 : part); // heard by the base class, which steps the part it last heard of
}

bool DTPicker::isInRange(QDate day) const
{
    return day >= minimumDate() && day <= maximumDate(); // an invalid one is before all others
}

int DTPicker::partAtCaret() const
{
    return int(lineEdit()->text().left(lineEdit()->cursorPosition()).count(u'/'));
}

void DTPicker::goTo(int part)
{
    if (m_draft) {
        m_draft->goTo(part);
        showDraft();
    } else {
        setSelectedSection(sectionAt(part));
    }
}

/// Takes over a date that was copied elsewhere; of what is no date nothing.
void DTPicker::read(const QString &text)
{
    endDraft();
    static const QRegularExpression asTyped("^\\d{1,2}[-/.]\\d{1,2}[-/.](\\d{1,2}|\\d{4})$");
    const QString line = text.trimmed();
    if (asTyped.match(line).hasMatch()) {
        for (const QChar character : line)
            type(character);
        endDraft();
    } else if (const std::optional<Date> day = dateFromText(line); day && isInRange(day->date())) {
        setDate(day->date());
    } else {
        QApplication::beep();
    }
    goTo(0);
}

void DTPicker::stepBy(int steps)
{
    endDraft();
    setCurrentSectionIndex(partAtCaret());
    QDateEdit::stepBy(steps);
}

/// Qt opens the calendar for a press on the arrow only.
void DTPicker::openCalendar()
{
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.editable = true;
    option.subControls = QStyle::SC_All;
    const QRect arrow = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
    const QPointF place = arrow.center();
    QMouseEvent press(QEvent::MouseButtonPress, place, mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    mousePressEvent(&press);
}

void DTPicker::mousePressEvent(QMouseEvent *event)
{
    m_pressBringsFocus = false;
    endDraft();
    QDateEdit::mousePressEvent(event);
}

void DTPicker::focusGained()
{
    goTo(0);
    emit gotFocus();
}

void DTPicker::focusInEvent(QFocusEvent *event)
{
    QDateEdit::focusInEvent(event);
    m_pressBringsFocus = event->reason() == Qt::MouseFocusReason;
}

void DTPicker::focusOutEvent(QFocusEvent *event)
{
    endDraft();
    QDateEdit::focusOutEvent(event);
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
    if (watched != lineEdit())
        return QDateEdit::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (!m_pressBringsFocus)
            endDraft();
        return m_pressBringsFocus;
    case QEvent::MouseMove:
        return true;                 // no selection across the parts
    case QEvent::MouseButtonRelease: // a click selects the part under the mouse, so that digits replace it
        if (!std::exchange(m_pressBringsFocus, false))
            goTo(partAtCaret());
        return true;
    default:
        return QDateEdit::eventFilter(watched, event);
    }
}
