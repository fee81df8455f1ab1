#include "app/mdi.h"

#include "app/menu.h"
#include "toolkit/controls/focusevents.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/form.h"
#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>

namespace {
constexpr QSize UsualSize(1280, 860);

/// The entry's action in its menu: a submenu's own for a group.
QAction *makeAction(QWidget *parent, const MenuEntry &entry)
{
    auto *action = new QAction(QString::fromLatin1(entry.caption), parent);
    switch (entry.kind) {
    case MenuEntry::Kind::Group:
        break;
    case MenuEntry::Kind::Form:
        action->setEnabled(Forms::knows(entry.form));
        QObject::connect(action, &QAction::triggered, parent, [form = entry.form] { Load(form); });
        break;
    case MenuEntry::Kind::Routine:
    case MenuEntry::Kind::SwitchedOff:
        action->setEnabled(entry.kind == MenuEntry::Kind::Routine && entry.routine);
        if (entry.routine)
            QObject::connect(action, &QAction::triggered, parent, [routine = entry.routine] { routine(); });
        break;
    }
    action->setObjectName(QLatin1String(entry.name));
    return action;
}
} // namespace

MDI::MDI() : m_area(new QMdiArea)
{
    setObjectName(QStringLiteral("MDI"));
    setWindowTitle(QLatin1String(ProgramTitle));
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setBackground(QColor(0x9f, 0xac, 0xb6));
    setCentralWidget(m_area);
    makeMenu();
    resize(UsualSize.boundedTo(screen()->availableSize()));
    Forms::setHost([this](Form *form) { host(form); });
}

MDI::~MDI()
{
    Forms::setHost({});
}

void MDI::makeMenu()
{
    std::vector<QMenu *> open; // the menu of each level that the next entry may stand in
    for (const MenuEntry &entry : menuEntries()) {
        open.resize(entry.level);
        QAction *action = makeAction(this, entry);
        if (open.empty())
            menuBar()->addAction(action);
        else
            open.back()->addAction(action);
        if (entry.kind == MenuEntry::Kind::Group) {
            auto *menu = new QMenu(this);
            action->setMenu(menu);
            open.push_back(menu);
        }
    }
}

void MDI::host(Form *form)
{
    const bool sized = form->testAttribute(Qt::WA_Resized);
    const bool placed = form->testAttribute(Qt::WA_Moved);
    const QRect wanted = form->geometry();

    auto *window = new QMdiSubWindow;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWidget(form);
    m_area->addSubWindow(window);
    // A step lower and to the right for each window that is open, so that every title bar shows; never out of sight.
    const QSize room = m_area->viewport()->size();
    const int step = window->style()->pixelMetric(QStyle::PM_TitleBarHeight) + 4;
    const int stepsThatFit = 6;
    const int offset = step * (int(m_area->subWindowList().size() - 1) % stepsThatFit);
    if (sized)
        window->resize(placed ? wanted.size() : wanted.size().boundedTo(room - QSize(offset, offset)));
    window->move(placed ? wanted.topLeft() : QPoint(offset, offset));
    FocusEvents::passToWindow([window] { window->show(); });
}

void MDI::closeEvent(QCloseEvent *event)
{
    Forms::unloadAll();
    event->accept();
    QApplication::quit();
}
