#pragma once

#include "toolkit/forms/form.h"

class FieldLayout;

/// What the report dialogs look like: fields with their labels, and below them the button that starts the report
/// beside `btnCancel`, which in every one of them only unloads it.
class ReportDialog : public Form
{
    Q_OBJECT
protected:
    ReportDialog(const QString &name, const QString &caption, const char *startName, const QString &startCaption);

    FieldLayout *m_fields;
    QPushButton *m_start; ///< btnOK, btnOk or btnPrint
    QPushButton *btnCancel;
};
