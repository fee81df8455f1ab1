#pragma once

#include <QGroupBox>

/// A frame around controls. While it is disabled they take no input and Tab passes over them, but unlike Qt's group
/// box it leaves those painted as usual that are not disabled themselves: only its own caption turns grey. What a
/// control's own state is, apart from the frame's, tells `isEnabledTo(frame)`; `isEnabled()` and screen readers say
/// what the user can do.
class Frame : public QGroupBox
{
    Q_OBJECT
public:
    using QGroupBox::QGroupBox;

protected:
    void changeEvent(QEvent *event) override;

private:
    void paintContents(bool asEnabled);
};
