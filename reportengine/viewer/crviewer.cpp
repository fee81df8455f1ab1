#include "reportengine/viewer/crviewer.h"

#include "reportengine/output/exports.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/report.h"
#include "reportengine/viewer/findbar.h"
#include "reportengine/viewer/grouptreemodel.h"
#include "reportengine/viewer/longjob.h"
#include "reportengine/viewer/viewerbar.h"
#include "reportengine/viewer/viewerjobs.h"
#include "toolkit/controls/mousepointer.h"
#include <QAction>
#include <QKeyEvent>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>

namespace {
constexpr int Slice = 25;      ///< milliseconds of paging or searching at a time, so that the window stays quick
constexpr int FindSlice = 150; ///< of searching before the first count is shown
} // namespace

CRViewer::CRViewer(QWidget *parent)
    : QWidget(parent), m_bar(new ViewerBar(this)), m_findBar(new FindBar(this)), m_view(new PageView(this)),
      m_tree(new QTreeView(this)), m_groups(new GroupTreeModel(this))
{
    setObjectName("CRViewer");
    m_view->setObjectName("pageView");
    m_tree->setObjectName("groupTree");
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setModel(m_groups);
    m_tree->hide();
    setFocusProxy(m_view);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_bar);
    auto *splitter = new QSplitter(this);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_view);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({180, 600});
    column->addWidget(splitter, 1);
    column->addWidget(m_findBar);

    connect(m_tree, &QTreeView::clicked, this, &CRViewer::goToGroup);
    connect(m_tree, &QTreeView::activated, this, &CRViewer::goToGroup);
    connect(m_view, &PageView::currentPageChanged, this, &CRViewer::showPageNumber);
    connect(m_view, &PageView::currentPageChanged, this, &CRViewer::followInTree);
    connect(m_view, &PageView::zoomChanged, this, [this] { m_bar->showZoom(m_view->zoom(), m_view->percent()); });
    // Whenever nothing else is to be done.
    m_idle.setInterval(0);
    connect(&m_idle, &QTimer::timeout, this, &CRViewer::goOn);
    connectBar();
    connectFindBar();
    addKeys();
    for (QWidget *field : findChildren<QWidget *>())
        field->installEventFilter(this);
    m_bar->showZoom(m_view->zoom(), m_view->percent());
}

CRViewer::~CRViewer()
{
    // The tree asks the pages for its rows, and they go with the report.
    m_groups->setPages(nullptr);
}

void CRViewer::connectBar()
{
    connect(m_bar, &ViewerBar::exportAsked, this, [this] {
        if (m_report)
            // Held for as long as the dialog stands, whatever this window is given to show meanwhile.
            exportByDialog(this, *std::shared_ptr(m_report), reportName());
    });
    connect(m_bar, &ViewerBar::printAsked, this, [this] {
        if (m_report)
            printByDialog(this, *std::shared_ptr(m_report), currentPage(), m_paper);
    });
    connect(m_bar, &ViewerBar::pageSetupAsked, this, [this] {
        if (m_report)
            m_paper = paperByDialog(this, *m_report, m_paper);
    });
    connect(m_bar, &ViewerBar::groupsToggled, m_tree, &QWidget::setVisible);
    connect(m_bar, &ViewerBar::groupsToggled, this, &CRViewer::followInTree);
    connect(m_bar, &ViewerBar::pageAsked, this, &CRViewer::goToPage);
    connect(m_bar, &ViewerBar::zoomAsked, m_view, &PageView::setZoom);
    connect(m_bar, &ViewerBar::findAsked, m_findBar, &FindBar::enter);
}

/// What the window's title says of the report and its parameters.
QString CRViewer::reportName() const
{
    const QString title = parentWidget()->windowTitle();
    return title == Caption ? m_report->layout().title : title;
}

void CRViewer::connectFindBar()
{
    connect(m_findBar, &FindBar::findAsked, this, &CRViewer::findByBar);
    connect(m_findBar, &FindBar::textChanged, this, &CRViewer::dropFind);
    connect(m_findBar, &FindBar::closed, this, &CRViewer::dropFind);
    connect(m_findBar, &FindBar::closed, m_view, qOverload<>(&QWidget::setFocus));
}

/// Home and End are the report's wherever the focus is; a field would keep them for its own text.
bool CRViewer::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *press = static_cast<QKeyEvent *>(event);
        const bool isPageKey = press->key() == Qt::Key_Home || press->key() == Qt::Key_End;
        if (isPageKey && !(press->modifiers() & Qt::ShiftModifier)) {
            event->ignore();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

/// A key of the whole window, wherever in it the focus is.
void CRViewer::addKey(const QList<QKeySequence> &keys, std::function<void()> action)
{
    auto *key = new QAction(this);
    key->setShortcuts(keys);
    key->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(key, &QAction::triggered, this, std::move(action));
    parentWidget()->addAction(key);
}

void CRViewer::addKeys()
{
    addKey({Qt::CTRL | Qt::Key_F}, [this] { m_findBar->enter(); });
    addKey({Qt::Key_F3}, [this] { findByBar(true); });
    addKey({Qt::SHIFT | Qt::Key_F3}, [this] { findByBar(false); });
    addKey({Qt::CTRL | Qt::Key_E}, [this] { emit m_bar->exportAsked(); });
    addKey({Qt::CTRL | Qt::Key_P}, [this] { emit m_bar->printAsked(); });
    addKey({Qt::CTRL | Qt::SHIFT | Qt::Key_P}, [this] { emit m_bar->pageSetupAsked(); });
    addKey({Qt::CTRL | Qt::Key_G}, [this] { m_bar->findChild<QAction *>("groupTreeToggle")->toggle(); });
    addKey({Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal, Qt::CTRL | Qt::SHIFT | Qt::Key_Plus},
           [this] { zoomBy(1); });
    addKey({Qt::CTRL | Qt::Key_Minus}, [this] { zoomBy(-1); });
    addKey({Qt::CTRL | Qt::Key_0}, [this] { m_view->setZoom(PageView::Zoom::Percent, 100); });
    addKey({Qt::Key_PageUp}, [this] { m_view->scrollByWindow(-1); });
    addKey({Qt::Key_PageDown}, [this] { m_view->scrollByWindow(1); });
    addKey({Qt::Key_Home, Qt::CTRL | Qt::Key_Home}, [this] { m_view->scrollToEnd(false); });
    addKey({Qt::Key_End, Qt::CTRL | Qt::Key_End}, [this] {
        // Nothing can be scrolled to the end before all pages are known.
        goToPage(std::numeric_limits<int>::max());
        m_view->scrollToEnd(true);
    });
    addKey({Qt::CTRL | Qt::Key_C}, [this] { m_view->copySelection(); });
    addKey({Qt::CTRL | Qt::Key_A}, [this] { m_view->selectPage(); });
}

void CRViewer::setReportSource(std::shared_ptr<Report> report)
{
    // All that looks at the pages lets go of them before they go with their report.
    m_idle.stop();
    m_finder.stop();
    m_findBar->showResult({});
    m_groups->setPages(nullptr);
    m_view->setReport(nullptr);
    m_report = std::move(report);
}

void CRViewer::viewReport()
{
    ReportPages &pages = m_report->pages();
    // A short report is at its end already, so that nobody sees its number of pages grow.
    pages.advance(Slice);
    m_groups->setPages(&pages);
    m_bar->enableGroups(pages.groups().levels() > 0);
    m_view->setReport(m_report.get());
    m_view->setFocus();
    m_bar->showZoom(m_view->zoom(), m_view->percent());
    showPageNumber();
    followInTree();
    if (!pages.isComplete())
        m_idle.start();
}

/// A slice of what goes on while the user reads: the paging, then the search for the rest of a text's places.
void CRViewer::goOn()
{
    ReportPages &pages = m_report->pages();
    if (!pages.isComplete()) {
        pages.advance(Slice);
        m_view->pagesChanged();
        m_groups->pagesChanged();
        showPageNumber();
        return;
    }
    if (m_finder.current() && !m_finder.isComplete()) {
        m_finder.advance(Slice);
        showFindResult();
        return;
    }
    m_idle.stop();
}

int CRViewer::pageCount()
{
    if (!m_report)
        return 0;
    const int count = m_report->pages().pageCount();
    m_view->pagesChanged();
    m_groups->pagesChanged();
    showPageNumber();
    return count;
}

int CRViewer::currentPage() const
{
    return m_view->currentPage();
}

void CRViewer::goToPage(int page)
{
    if (!m_report)
        return;
    // A page beyond those known so far: the rest is counted now, under the hourglass.
    if (page >= m_report->pages().knownPages()) {
        const Hourglass hourglass;
        pageCount();
    }
    m_view->goToPage(std::clamp(page, 0, m_report->pages().knownPages() - 1));
    showPageNumber();
}

void CRViewer::showPageNumber()
{
    if (m_report)
        m_bar->showPage(m_view->currentPage(), m_report->pages().knownPages(), m_report->pages().isComplete());
}

/// To the next percentage of the list, from whatever the pages are shown at now.
void CRViewer::zoomBy(int steps)
{
    const std::vector<int> &list = ViewerBar::zoomSteps();
    const int now = m_view->percent();
    // Page width, whole page and the wheel leave percentages that are none of the list's.
    const auto above = std::ranges::upper_bound(list, now);
    const auto notBelow = std::ranges::lower_bound(list, now);
    if (steps > 0)
        m_view->setZoom(PageView::Zoom::Percent, above == list.end() ? list.back() : *above);
    else
        m_view->setZoom(PageView::Zoom::Percent, notBelow == list.begin() ? list.front() : *std::prev(notBelow));
}

bool CRViewer::exportTo(const QString &path)
{
    if (!m_report)
        return false;
    const Hourglass hourglass;
    return bool(::exportReport(*m_report, path));
}

bool CRViewer::find(const QString &text, bool forward)
{
    if (!m_report || text.isEmpty())
        return false;
    std::optional<Finder::Place> place;
    const Outcome outcome = runLongJob(this, "Looking for " + text, [&](const Progress &progress) {
        // The search goes round by the report's other end, for which its pages must be known.
        pageCount();
        if (m_finder.text() != text)
            m_finder.start(m_report->pages(), text);
        place = forward ? m_finder.next(currentPage(), progress) : m_finder.previous(currentPage(), progress);
        // Neither found nor searched to the end: the user gave up.
        const bool isStopped = !place && !m_finder.isComplete();
        // The place is shown at once; how many there are is counted on while the user reads.
        m_finder.advance(isStopped ? 0 : FindSlice);
        return isStopped ? Outcome::cancelled() : Outcome();
    });
    m_view->showFound(text, place ? place->page : -1, place ? place->index : -1);
    if (place && !m_finder.isComplete())
        m_idle.start();
    if (outcome)
        showFindResult();
    else
        m_findBar->showResult("Stopped");
    return place.has_value();
}

void CRViewer::findByBar(bool forward)
{
    if (m_findBar->text().isEmpty())
        m_findBar->enter();
    else
        find(m_findBar->text(), forward);
}

void CRViewer::dropFind()
{
    m_finder.stop();
    m_view->showFound({});
    m_findBar->showResult({});
}

void CRViewer::showFindResult()
{
    if (!m_finder.current())
        m_findBar->showResult("Not found");
    else if (m_finder.isComplete())
        m_findBar->showResult(QString("%1 of %2").arg(m_finder.ordinal()).arg(m_finder.count()));
    else
        m_findBar->showResult(QString("%1 or more").arg(m_finder.count()));
}

void CRViewer::goToGroup(const QModelIndex &index)
{
    const int level = GroupTreeModel::level(index);
    const int node = m_groups->node(index);
    ReportPages &pages = m_report->pages();
    const int page = pages.printedGroups().pageOf[level][node];
    for (const GroupPlace &place : pages.page(page)->groups) {
        if (place.level == level && place.node == node)
            m_view->showBand(page, place.top, place.bottom);
    }
    // Going there has let the tree follow the page's top; the entry that was picked is the one to be marked.
    m_tree->setCurrentIndex(index);
}

/// Lets the tree stand at the group that goes on or begins at the page's top, as deep as it is opened; where it stands
/// at one that begins further down the page it stays.
void CRViewer::followInTree()
{
    if (!m_report || !m_tree->isVisibleTo(this))
        return;
    ReportPages &pages = m_report->pages();
    const int page = currentPage();
    const QModelIndex at = m_tree->currentIndex();
    if (at.isValid() && pages.printedGroups().pageOf[GroupTreeModel::level(at)][m_groups->node(at)] == page)
        return;
    QModelIndex wanted;
    for (const GroupPlace &place : pages.page(page)->groups) {
        const QModelIndex group = m_groups->indexOf(place.level, place.node);
        const bool isDeeper = place.level == (wanted.isValid() ? GroupTreeModel::level(wanted) + 1 : 0);
        if (group.isValid() && isDeeper && (!wanted.isValid() || m_tree->isExpanded(wanted)))
            wanted = group;
    }
    if (wanted.isValid())
        m_tree->setCurrentIndex(wanted);
}
