#pragma once

#include "data/values/date.h"
#include "data/values/value.h"
#include "toolkit/controls/programfocus.h"
#include <QDateEdit>

/// A date field in the short US form with a calendar to pick from. Always holds a date, with no time part after
/// a user's pick. Month, day and year are typed separately, each over the old one.
class DTPicker : public QDateEdit, public FocusListener
{
    Q_OBJECT
public:
    explicit DTPicker(QWidget *parent = nullptr);

    /// The date held. Assigned with a time part it keeps that until the user picks another day.
    Date value() const;
    /// Null is error 35787; a date before 1601 or after 9999 is error 380.
    void setValue(const Value &value);

    void focusGained() override { emit gotFocus(); }
    void focusLost() override { emit lostFocus(); }

signals:
    void gotFocus();
    void lostFocus();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    double m_timePart = 0;
    bool m_movedOn = false; ///< the last digit completed its part, and the cursor went on to the next by itself
};
