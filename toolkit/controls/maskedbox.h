#pragma once

#include "toolkit/controls/textbox.h"

/// A masked edit box without a mask: holds any text as typed (`text()` is always that raw text) and, while it has
/// not the focus, paints it through its format, money by default.
class MaskEdBox : public TextBox
{
    Q_OBJECT
public:
    explicit MaskEdBox(QWidget *parent = nullptr);

    void setFormat(const QString &picture);
    const QString &format() const { return m_format; }
    /// What the box shows while it has not the focus.
    QString formattedText() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_format;
};
