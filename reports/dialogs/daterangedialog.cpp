#include "reports/dialogs/daterangedialog.h"
#include "app/toolkit/mousepointer.h"

DateRangeDialog::DateRangeDialog(const QString &name, const QString &caption, const char *okName, Pointer pointer,
                                 Routine routine)
    : ReportDialog(name, caption), m_routine(std::move(routine)), m_pointer(pointer)
{
    dtStart = addDate("dtStart");
    addRow("Begin Date", dtStart);
    dtEnd = addDate("dtEnd");
    addRow("End Date", dtEnd);
    btnOK = addButtons(okName, "OK");
    connect(btnOK, &QPushButton::clicked, this, &DateRangeDialog::btnOK_Click);
    setTabOrder({dtStart, dtEnd, btnOK, btnCancel});
}

void DateRangeDialog::formLoad()
{
    dtStart->setValue(Date::today());
    dtEnd->setValue(Date::today());
}

void DateRangeDialog::btnOK_Click()
{
    if (m_pointer == Pointer::Owned)
        setHourglass();
    const QString BeginDate = dtStart->value().toText();
    const QString EndDate = dtEnd->value().toText();
    m_routine(BeginDate, EndDate);
    unload();
    if (m_pointer == Pointer::Owned)
        setDefaultPointer();
}
