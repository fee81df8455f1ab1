#pragma once

class QLineEdit;

/// Lets a box take over pasted and dropped text up to its first line end, as its one line has room for no more. Qt
/// would keep the line ends inside the text, where nobody sees them.
void takeOneLineOnly(QLineEdit *box);
