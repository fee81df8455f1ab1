#pragma once

/// Makes every form of the program known under its name.
void registerForms();
