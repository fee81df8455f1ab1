#pragma once

#include <QObject>

/// F1, pressed in any window of the program, boxes and lists included, opens the handbook in the system's browser. It
/// lies as docs/handbook/index.html beside the program.
class HandbookKey : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
