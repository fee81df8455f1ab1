#pragma once

#include "data/values/date.h"
#include "data/values/value.h"
#include "toolkit/controls/datedraft.h"
#include "toolkit/controls/programfocus.h"
#include <QDateEdit>
#include <optional>

/// A date field in the short US form with a calendar to pick from, which F4 and Alt+Down open. Always holds a date,
/// with no time part after a user's pick. Month, day and year are typed one behind the other over the old ones; a date
/// that does not exist is refused when it is complete or left, and the former one stays.
class DTPicker : public QDateEdit, public FocusListener
{
    Q_OBJECT
public:
    explicit DTPicker(QWidget *parent = nullptr);

    /// The date held. Assigned with a time part it keeps that until the user picks another day.
    Date value() const;
    /// Null is error 35787; a date before 1601 or after 9999 is error 380.
    void setValue(const Value &value);

    /// Selects the month, so that typing begins there however the focus came.
    void focusGained() override;
    void focusLost() override { emit lostFocus(); }
    void stepBy(int steps) override;

signals:
    void gotFocus();
    void lostFocus();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool handleKey(const QKeyEvent &event);
    void type(QChar character);
    void showDraft();
    void endDraft();
    void goTo(int part);
    void read(const QString &text);
    void openCalendar();
    bool isInRange(QDate day) const;
    int partAtCaret() const;

    double m_timePart = 0;
    std::optional<DateDraft> m_draft; ///< while a date is being typed
    Date m_former;                    ///< the date before that
    bool m_pressBringsFocus = false;  ///< and must leave the month selected then
};
