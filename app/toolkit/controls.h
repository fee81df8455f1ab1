#pragma once

// The controls that forms are made of; one include for form code.

#include "app/toolkit/combobox.h"
#include "app/toolkit/dtpicker.h"
#include "app/toolkit/flexgrid.h"
#include "app/toolkit/maskedbox.h"
#include "app/toolkit/textbox.h"
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
