#include "app/mdi.h"

#include "app/appearance.h"
#include "app/formwindow.h"
#include "app/freeplace.h"
#include "app/menu.h"
#include "app/menukeys.h"
#include "app/windowstrip.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/controls/statusline.h"
#include "toolkit/forms/form.h"
#include "toolkit/forms/forms.h"
#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <QMdiArea>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>

namespace {
constexpr QSize UsualSize(1280, 860); // of the window while it is not maximised

/// The entry's action in its menu: a submenu's own for a group.
QAction *makeAction(QWidget *parent, const MenuEntry &entry)
{
    auto *action = new QAction(QString::fromLatin1(entry.caption), parent);
    switch (entry.kind) {
    case MenuEntry::Kind::Group:
        break;
    case MenuEntry::Kind::Form:
        // An entry whose form the program lacks is greyed.
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

MDI::MDI() : m_area(new QMdiArea), m_strip(new WindowStrip(m_area))
{
    setObjectName("MDI");
    setWindowTitle(QLatin1String(ProgramTitle));
    // A form may be drawn wider than the window, or lie outside once that has become smaller.
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setBackground(palette().dark());
    // Else a small dialog would open maximised over a maximised form.
    m_area->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    setCentralWidget(m_area);
    makeMenu();
    makeFoot();
    resize(UsualSize.boundedTo(screen()->availableSize()));
    Forms::setHost([this](Form *form) { host(form); });
    setStatusPlace([this](const QString &text) { statusBar()->showMessage(text); });
}

MDI::~MDI()
{
    Forms::setHost({});
    setStatusPlace({});
}

bool MDI::event(QEvent *event)
{
    if (event->type() == QEvent::ThemeChange)
        followDesktopPalette();
    // A menu entry under the mouse would wipe the status line with the tip it doesn't have.
    return event->type() == QEvent::StatusTip || QMainWindow::event(event);
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
    new MenuKeys(menuBar());
}

void MDI::makeFoot()
{
    auto *bar = new QToolBar;
    bar->setObjectName("Foot");
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu); // the strip has its own
    bar->layout()->setContentsMargins(0, 0, 0, 0);
    bar->addWidget(m_strip);
    addToolBar(Qt::BottomToolBarArea, bar);
    statusBar()->setSizeGripEnabled(false);
}

void MDI::host(Form *form)
{
    // Whether the form gave itself a size and a place while it was loading.
    const bool sized = form->testAttribute(Qt::WA_Resized), placed = form->testAttribute(Qt::WA_Moved);
    const QRect wanted = form->geometry();
    const QList<QMdiSubWindow *> others = m_area->subWindowList();
    const bool maximised = form->isResizable() && std::any_of(others.begin(), others.end(), [](const auto *other) {
                               return other->isVisible() && other->isMaximized();
                           });

    auto *window = new FormWindow(form);
    m_area->addSubWindow(window, window->windowFlags());
    m_strip->add(window);
    const QSize size = sized ? wanted.size() : window->sizeHint();
    const QSize least = form->isResizable() ? window->minimumSizeHint() : size;
    window->setGeometry(placed ? QRect(wanted.topLeft(), size) : freePlace(m_area, size, least));
    // Before it shows, so that no other control has the focus for a moment and raises its events.
    form->focusFirst();
    maximised ? window->showMaximized() : window->show();
}

void MDI::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        m_area->setBackground(palette().dark());
}

void MDI::closeEvent(QCloseEvent *event)
{
    // Each form's own unload routine runs, then the program ends, whatever windows may be left.
    Forms::unloadAll();
    event->accept();
    QApplication::quit();
}
