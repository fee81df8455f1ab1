#pragma once

#include "toolkit/forms/form.h"

/// The small dialog that tells what the program is.
class frmAbout : public Form
{
    Q_OBJECT
public:
    frmAbout();

private:
    void cmdOK_Click();
    void cmdSysInfo_Click();
};
