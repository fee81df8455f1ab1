#include "app/windowstrip.h"

#include "reportengine/viewer/viewer.h"
#include <QButtonGroup>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QToolButton>
#include <algorithm>

namespace {
constexpr int WidestButton = 330, NarrowestButton = 28;

/// As wide as its title if there is room; of a longer one it shows both ends, and all of it as a tip. The active
/// window's has a stripe, since pressed buttons hardly differ on a dark desktop.
class WindowButton : public QToolButton
{
public:
    explicit WindowButton(QWidget *parent) : QToolButton(parent)
    {
        setCheckable(true);
        setFocusPolicy(Qt::NoFocus);
    }

    void setTitle(const QString &title)
    {
        setText(title);
        setToolTip(title);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QToolButton::paintEvent(event);
        constexpr int Stripe = 2;
        if (isChecked())
            QPainter(this).fillRect(3, height() - Stripe, width() - 6, Stripe, palette().highlight());
    }
    void initStyleOption(QStyleOptionToolButton *option) const override
    {
        QToolButton::initStyleOption(option);
        constexpr int Margins = 12;
        option->text = fontMetrics().elidedText(text(), Qt::ElideMiddle, width() - Margins).replace('&', "&&");
    }
};
} // namespace

WindowStrip::WindowStrip(QMdiArea *area, QWidget *parent)
    : QWidget(parent), m_area(area), m_buttons(new QButtonGroup(this))
{
    setObjectName("WindowStrip");
    m_buttons->setExclusive(false); // none is pressed while no window is active
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(4, 1, 4, 1);
    row->setSpacing(3);
    row->addStretch(1);
    row->setSizeConstraint(QLayout::SetNoConstraint);
    setMinimumWidth(1); // many buttons get narrow, they never widen the window
    setFixedHeight(WindowButton(this).sizeHint().height() + 2);
}

void WindowStrip::add(QMdiSubWindow *window)
{
    auto *button = new WindowButton(this);
    button->setTitle(window->windowTitle());
    m_buttons->addButton(button);
    auto *row = static_cast<QHBoxLayout *>(layout());
    row->insertWidget(row->count() - 1, button);
    button->show();
    shareRoom();

    connect(window, &QWidget::windowTitleChanged, button, [this, button](const QString &title) {
        button->setTitle(title);
        shareRoom();
    });
    connect(window, &QObject::destroyed, button, [this, button] {
        // At once and not later, so that the room is shared among those that stay.
        delete button;
        shareRoom();
    });
    connect(m_area, &QMdiArea::subWindowActivated, button,
            [button, window](const QMdiSubWindow *active) { button->setChecked(active == window); });
    connect(button, &QToolButton::clicked, window, [this, button, window] {
        bringToFront(window);
        button->setChecked(m_area->activeSubWindow() == window);
    });
}

/// Gives each button the width of its title; when that is too much for the strip, the widest are cut, all to one
/// width.
void WindowStrip::shareRoom()
{
    QList<QAbstractButton *> buttons = m_buttons->buttons();
    std::sort(buttons.begin(), buttons.end(), [](const QAbstractButton *one, const QAbstractButton *other) {
        return one->sizeHint().width() < other->sizeHint().width();
    });
    const QMargins margins = layout()->contentsMargins();
    int room = width() - margins.left() - margins.right();
    auto left = int(buttons.size());
    for (QAbstractButton *button : std::as_const(buttons)) {
        // From the narrowest up: what a short title does not need is shared among the longer ones.
        const int share = room / left-- - layout()->spacing();
        button->setFixedWidth(std::max(NarrowestButton, std::min({button->sizeHint().width(), share, WidestButton})));
        room -= button->width() + layout()->spacing();
    }
}

void WindowStrip::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    shareRoom();
}

void WindowStrip::bringToFront(QMdiSubWindow *window)
{
    if (window->isMinimized())
        window->showNormal();
    m_area->setActiveSubWindow(window);
}

void WindowStrip::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu;
    menu.addAction("Cascade", m_area, &QMdiArea::cascadeSubWindows);
    menu.addAction("Tile", m_area, &QMdiArea::tileSubWindows);
    menu.addSeparator();
    menu.addAction("Close All Reports", this, &WindowStrip::closeReports);
    menu.exec(event->globalPos());
}

void WindowStrip::closeReports()
{
    const QList<QMdiSubWindow *> windows = m_area->subWindowList();
    for (QMdiSubWindow *window : windows)
        if (qobject_cast<Viewer *>(window->widget()))
            window->close();
}
