#pragma once

/// To be called when a test lets an error go on through Qt's own functions, where the program would end. They know no
/// exceptions and leave behind what they hold, so this process says nothing about leaks any more.
void noteUnwindingThroughQt();
