#pragma once

// The controls that forms are made of; one include for form code.

#include "toolkit/controls/combobox.h"
#include "toolkit/controls/dtpicker.h"
#include "toolkit/controls/flexgrid.h"
#include "toolkit/controls/maskedbox.h"
#include "toolkit/controls/textbox.h"
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
