#pragma once

class ComboBox;

/// Search by typed prefix in a combo box: characters typed within `seconds` of one another in one box are collected,
/// and the first entry that starts with them is selected. Always swallows the key (sets it to 0).
void ComboTypeAhead(ComboBox &combo, int &keyAscii, double seconds);
