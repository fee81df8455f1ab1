#include "toolkit/controls/maskedbox.h"

#include "data/values/format.h"
#include <QPainter>
#include <QStyleOptionFrame>

MaskEdBox::MaskEdBox(QWidget *parent) : TextBox(parent), m_format(MoneyBoxFormat.toString())
{
    setAlignment(Qt::AlignRight);
}

void MaskEdBox::setFormat(const QString &picture)
{
    m_format = picture;
    update();
}

QString MaskEdBox::formattedText() const
{
    return m_format.isEmpty() ? text() : Format(text(), m_format);
}

void MaskEdBox::paintEvent(QPaintEvent *event)
{
    // Raw while it is typed into: the text that is edited is the text that counts.
    if (hasFocus()) {
        TextBox::paintEvent(event);
        return;
    }
    QStyleOptionFrame option;
    initStyleOption(&option);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    // The margins that the line edit keeps around its own text, so that nothing moves when the focus comes.
    constexpr QMargins ownMargins(2, 1, 2, 1);
    const QRect area = style()->subElementRect(QStyle::SE_LineEditContents, &option, this) - textMargins() - ownMargins;
    painter.setPen(palette().color(QPalette::Text));
    painter.setClipRect(area);
    painter.drawText(area, int(alignment() | Qt::AlignVCenter), formattedText());
}
