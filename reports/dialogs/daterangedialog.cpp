#include "reports/dialogs/daterangedialog.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/forms/formlayout.h"

DateRangeDialog::DateRangeDialog(const QString &name, const QString &caption, const char *okName, Pointer pointer,
                                 Routine routine)
    : ReportDialog(name, caption, okName, "OK"), m_routine(std::move(routine)), m_pointer(pointer)
{
    dtStart = addDate("dtStart");
    dtEnd = addDate("dtEnd");
    connect(m_start, &QPushButton::clicked, this, &DateRangeDialog::btnOK_Click);
}

void DateRangeDialog::placeControls()
{
    m_fields->add("Begin Date", dtStart);
    m_fields->add("End Date", dtEnd);
    setTabOrder({dtStart, dtEnd, m_start, btnCancel});
}

void DateRangeDialog::formLoad()
{
    // Not in the constructor: a dialog with more controls has yet to make them then.
    placeControls();
    dtStart->setValue(Date::today());
    dtEnd->setValue(Date::today());
}

void DateRangeDialog::btnOK_Click()
{
    std::optional<Hourglass> hourglass;
    if (m_pointer == Pointer::Owned)
        hourglass.emplace();
    // Handed on as they stand, a begin behind the end too: the period is empty then, and nobody is told.
    const QString BeginDate = dtStart->value().toText();
    const QString EndDate = dtEnd->value().toText();
    m_routine(BeginDate, EndDate);
    unload();
}
