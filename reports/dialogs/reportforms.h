#pragma once

#include "toolkit/forms/form.h"
#include "toolkit/forms/forms.h"
#include <utility>
#include <vector>

/// The report dialogs by form name, and the shared viewer window of the old reports, for the shell's list of forms.
std::vector<std::pair<QString, Forms::Factory>> reportForms();
