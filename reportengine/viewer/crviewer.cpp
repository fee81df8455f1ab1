#include "reportengine/viewer/crviewer.h"

#include "reportengine/output/exports.h"
#include "reportengine/output/printing.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/pages/textmetrics.h"
#include "reportengine/report.h"
#include "reportengine/viewer/grouptreemodel.h"
#include "reportengine/viewer/pageview.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/controls/msgbox.h"
#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QSpinBox>
#include <QSplitter>
#include <QStyle>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>

constexpr int CountingSlice = 25; ///< milliseconds of paging at a time, so that the window stays quick

CRViewer::CRViewer(QWidget *parent)
    : QWidget(parent), m_view(new PageView(this)), m_tree(new QTreeView(this)), m_groups(new GroupTreeModel(this))
{
    setObjectName("CRViewer");
    m_view->setObjectName("pageView");
    m_tree->setObjectName("groupTree");
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setModel(m_groups);
    m_tree->hide();
    connect(m_tree, &QTreeView::clicked, this, &CRViewer::goToGroup);
    connect(m_tree, &QTreeView::activated, this, &CRViewer::goToGroup);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    buildToolBar();
    auto *splitter = new QSplitter(this);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_view);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({180, 600});
    column->addWidget(splitter, 1);

    connect(m_view, &PageView::currentPageChanged, this, &CRViewer::showPageNumber);
    m_counting.setInterval(0);
    connect(&m_counting, &QTimer::timeout, this, &CRViewer::countPages);
}

CRViewer::~CRViewer()
{
    // The tree asks the pages for its rows, and they go with the report.
    m_groups->setPages(nullptr);
}

QAction *CRViewer::addAction(QToolBar *bar, const char *name, const QString &caption, const QString &tip)
{
    QAction *action = bar->addAction(caption);
    action->setObjectName(QLatin1String(name));
    action->setToolTip(tip);
    return action;
}

void CRViewer::buildToolBar()
{
    auto *bar = new QToolBar(this);
    bar->setObjectName("toolBar");
    layout()->addWidget(bar);
    connect(addAction(bar, "export", "Export", "Export to PDF, spreadsheet or CSV"), &QAction::triggered, this,
            &CRViewer::exportReport);
    QAction *print = addAction(bar, "print", "Print", "Print (Ctrl+P)");
    print->setShortcut(QKeySequence::Print);
    print->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(print, &QAction::triggered, this, &CRViewer::printReport);
    bar->addSeparator();
    m_showTree = addAction(bar, "groupTreeToggle", "Groups", "Show the groups of the report");
    m_showTree->setCheckable(true);
    connect(m_showTree, &QAction::toggled, m_tree, &QWidget::setVisible);
    bar->addSeparator();
    addNavigation(bar);
    bar->addSeparator();
    addZoom(bar);
    bar->addSeparator();
    addFind(bar);
}

void CRViewer::addNavigation(QToolBar *bar)
{
    const auto add = [&](const char *name, const QString &tip, QStyle::StandardPixmap icon, auto target) {
        QAction *action = addAction(bar, name, {}, tip);
        action->setIcon(style()->standardIcon(icon));
        connect(action, &QAction::triggered, this, [this, target] { goToPage(target()); });
    };
    add("firstPage", "First page", QStyle::SP_MediaSkipBackward, [] { return 0; });
    add("previousPage", "Previous page", QStyle::SP_MediaSeekBackward, [this] { return currentPage() - 1; });
    m_pageNumber = new QSpinBox(bar);
    m_pageNumber->setObjectName("pageNumber");
    m_pageNumber->setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_pageNumber->setKeyboardTracking(false);
    m_pageNumber->setMinimum(1);
    m_pageNumber->setAlignment(Qt::AlignRight);
    m_pageNumber->setFixedWidth(fontMetrics().horizontalAdvance("0000000") + 8);
    connect(m_pageNumber, &QSpinBox::valueChanged, this, [this](int number) { goToPage(number - 1); });
    bar->addWidget(m_pageNumber);
    m_pageTotal = new QLabel(bar);
    m_pageTotal->setObjectName("pageTotal");
    m_pageTotal->setMinimumWidth(fontMetrics().horizontalAdvance(" of 00000+ "));
    bar->addWidget(m_pageTotal);
    add("nextPage", "Next page", QStyle::SP_MediaSeekForward, [this] { return currentPage() + 1; });
    add("lastPage", "Last page", QStyle::SP_MediaSkipForward, [this] { return pageCount() - 1; });
}

void CRViewer::addZoom(QToolBar *bar)
{
    m_zoom = new QComboBox(bar);
    m_zoom->setObjectName("zoom");
    m_zoom->setToolTip("Zoom");
    m_zoom->addItem("Page Width", 0);
    m_zoom->addItem("Whole Page", -1);
    for (const int percent : {25, 50, 75, 100, 125, 150, 200, 300, 400})
        m_zoom->addItem(QString::number(percent) + "%", percent);
    connect(m_zoom, &QComboBox::currentIndexChanged, this, &CRViewer::applyZoom);
    bar->addWidget(m_zoom);
}

void CRViewer::addFind(QToolBar *bar)
{
    m_findText = new QLineEdit(bar);
    m_findText->setObjectName("findText");
    m_findText->setPlaceholderText("Find text");
    m_findText->setClearButtonEnabled(true);
    m_findText->setMaximumWidth(180);
    connect(m_findText, &QLineEdit::returnPressed, this, &CRViewer::find);
    bar->addWidget(m_findText);
    QAction *find = addAction(bar, "findNext", "Find Next", "Find the next place (F3)");
    find->setShortcut(Qt::Key_F3);
    find->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(find, &QAction::triggered, this, &CRViewer::find);
    auto *focusFind = new QAction(this);
    focusFind->setShortcut(QKeySequence::Find);
    focusFind->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(focusFind, &QAction::triggered, this, [this] {
        m_findText->setFocus();
        m_findText->selectAll();
    });
    QWidget::addAction(focusFind);
}

void CRViewer::setReportSource(std::shared_ptr<Report> report)
{
    m_counting.stop();
    m_groups->setPages(nullptr);
    m_view->setReport(nullptr);
    m_report = std::move(report);
    m_foundPage = m_foundItem = -1;
}

void CRViewer::viewReport()
{
    ReportPages &pages = m_report->pages();
    pages.advance(CountingSlice);
    m_groups->setPages(&pages);
    m_showTree->setEnabled(pages.groups().levels() > 0);
    if (!m_showTree->isEnabled())
        m_showTree->setChecked(false);
    m_view->setReport(m_report.get());
    m_view->setFocus();
    showPageNumber();
    if (!pages.isComplete())
        m_counting.start();
}

void CRViewer::countPages()
{
    if (m_report->pages().advance(CountingSlice))
        m_counting.stop();
    m_view->pagesChanged();
    showPageNumber();
}

int CRViewer::pageCount()
{
    if (!m_report)
        return 0;
    const int count = m_report->pages().pageCount();
    m_counting.stop();
    m_view->pagesChanged();
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
    if (page >= m_report->pages().knownPages())
        pageCount();
    m_view->goToPage(std::clamp(page, 0, m_report->pages().knownPages() - 1));
}

void CRViewer::showPageNumber()
{
    if (!m_report)
        return;
    const ReportPages &pages = m_report->pages();
    // Until the last page is known the box takes any number; going there counts on.
    const QSignalBlocker quiet(m_pageNumber);
    m_pageNumber->setMaximum(pages.isComplete() ? pages.knownPages() : 999999);
    m_pageNumber->setValue(m_view->currentPage() + 1);
    m_pageTotal->setText(QString(" of %1%2 ").arg(pages.knownPages()).arg(pages.isComplete() ? "" : "+"));
}

void CRViewer::applyZoom()
{
    const int percent = m_zoom->currentData().toInt();
    m_view->setZoom(percent == 0    ? PageView::Zoom::PageWidth
                    : percent == -1 ? PageView::Zoom::WholePage
                                    : PageView::Zoom::Percent,
                    percent);
}

bool CRViewer::exportTo(const QString &path)
{
    if (!m_report)
        return false;
    setHourglass();
    const Outcome outcome = ::exportReport(*m_report, path);
    setDefaultPointer();
    return bool(outcome);
}

void CRViewer::exportReport()
{
    if (!m_report)
        return;
    static const QString kinds = "PDF document (*.pdf);;Spreadsheet (*.xlsx);;Comma-separated data (*.csv)";
    QString kind;
    QString path = QFileDialog::getSaveFileName(this, "Export", m_report->layout().title, kinds, &kind);
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += kind.mid(kind.indexOf("*.") + 1).chopped(1);
    if (!exportTo(path))
        MsgBox("The report could not be written to " + path + ".", "Export");
}

void CRViewer::printReport()
{
    if (!m_report)
        return;
    const int pages = pageCount();
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(m_report->layout().title);
    QPrintDialog dialog(&printer, this);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, pages);
    dialog.setFromTo(1, pages);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const bool isRange = dialog.printRange() == QAbstractPrintDialog::PageRange;
    setHourglass();
    const Outcome printed =
        printPages(*m_report, printer, isRange ? dialog.fromPage() - 1 : 0, isRange ? dialog.toPage() - 1 : pages - 1);
    setDefaultPointer();
    if (!printed)
        MsgBox("The report could not be printed.", "Print");
}

bool CRViewer::findNext(const QString &text)
{
    if (!m_report || text.isEmpty())
        return false;
    const int pages = pageCount();
    const bool isNew = m_foundPage < 0;
    const int start = isNew ? currentPage() : m_foundPage;
    // The page of the last place comes twice: its rest first, its beginning at the end of the round.
    for (int step = 0; step <= pages; ++step) {
        const int index = (start + step) % pages;
        const std::shared_ptr<const Page> page = m_report->pages().page(index);
        for (int item = step == 0 && !isNew ? m_foundItem + 1 : 0; item < int(page->items.size()); ++item) {
            if (!page->items[item].text.contains(text, Qt::CaseInsensitive))
                continue;
            m_foundPage = index;
            m_foundItem = item;
            m_view->mark(index, page->items[item].rect);
            return true;
        }
    }
    m_foundPage = m_foundItem = -1;
    m_view->mark(-1, {});
    return false;
}

void CRViewer::find()
{
    setHourglass();
    const bool found = findNext(m_findText->text());
    setDefaultPointer();
    if (!found && !m_findText->text().isEmpty())
        MsgBox("\"" + m_findText->text() + "\" does not occur in the report.", "Find");
}

void CRViewer::goToGroup(const QModelIndex &index)
{
    // A group's page is known once the paging has got there.
    pageCount();
    goToPage(m_report->pages().pageOfGroup(GroupTreeModel::level(index), GroupTreeModel::node(index)));
}
