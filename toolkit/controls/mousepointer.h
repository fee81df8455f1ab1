#pragma once

/// The screen's mouse pointer. Assignments, not counted: setting the hourglass twice and clearing it once clears it.
void setHourglass();
void setDefaultPointer();
