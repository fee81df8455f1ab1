#include "reportengine/viewer/viewerbar.h"

#include "reportengine/viewer/pageicons.h"
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>

namespace {
/// One less than the largest number of seven digits, since pages are counted from 0 and shown from 1.
constexpr int BeyondAnyPage = 9999998;
/// What the zoom list keeps beside percentages.
constexpr int PageWidth = 0;
constexpr int WholePage = -1;
} // namespace

ViewerBar::ViewerBar(QWidget *parent) : QToolBar(parent)
{
    setObjectName("toolBar");
    setIconSize({16, 16});
    connect(addButton("export", "Export", "Write a PDF, spreadsheet or CSV file (Ctrl+E)"), &QAction::triggered, this,
            &ViewerBar::exportAsked);
    connect(addButton("print", "Print", "Print (Ctrl+P)"), &QAction::triggered, this, &ViewerBar::printAsked);
    connect(addButton("pageSetup", "Page Setup", "Choose the paper to print on (Ctrl+Shift+P)"), &QAction::triggered,
            this, &ViewerBar::pageSetupAsked);
    addSeparator();
    m_groups = addButton("groupTreeToggle", "Groups", "Show the groups of the report (Ctrl+G)");
    m_groups->setCheckable(true);
    connect(m_groups, &QAction::toggled, this, &ViewerBar::groupsToggled);
    addSeparator();
    addNavigation();
    addSeparator();
    addZoom();
    addSeparator();
    connect(addButton("find", "Find", "Find text (Ctrl+F)"), &QAction::triggered, this, &ViewerBar::findAsked);
}

QAction *ViewerBar::addButton(const char *name, const QString &caption, const QString &tip)
{
    QAction *action = addAction(caption);
    action->setObjectName(QLatin1String(name));
    action->setToolTip(tip);
    return action;
}

QAction *ViewerBar::addPageButton(const char *name, const QString &caption, PageIcon icon, std::function<int()> page)
{
    QAction *action = addButton(name, caption, caption);
    action->setIcon(pageIcon(icon));
    connect(action, &QAction::triggered, this, [this, page = std::move(page)] { emit pageAsked(page()); });
    return action;
}

void ViewerBar::addNavigation()
{
    m_toStart[0] = addPageButton("firstPage", "First page", PageIcon::First, [] { return 0; });
    m_toStart[1] = addPageButton("previousPage", "Previous page", PageIcon::Previous, [this] { return m_page - 1; });
    m_pageNumber = new QSpinBox(this);
    m_pageNumber->setObjectName("pageNumber");
    m_pageNumber->setAccessibleName("Page");
    m_pageNumber->setButtonSymbols(QAbstractSpinBox::NoButtons);
    // Goes there when the number is complete, not at each digit.
    m_pageNumber->setKeyboardTracking(false);
    // Any number may be typed: one beyond the end means the last page.
    m_pageNumber->setRange(1, BeyondAnyPage + 1);
    m_pageNumber->setAlignment(Qt::AlignRight);
    m_pageNumber->setFixedWidth(fontMetrics().horizontalAdvance("000000") + 8);
    connect(m_pageNumber, &QSpinBox::valueChanged, this, [this](int number) { emit pageAsked(number - 1); });
    addWidget(m_pageNumber);
    m_pageTotal = new QLabel(this);
    m_pageTotal->setObjectName("pageTotal");
    m_pageTotal->setMinimumWidth(fontMetrics().horizontalAdvance(" of 000+"));
    addWidget(m_pageTotal);
    m_toEnd[0] = addPageButton("nextPage", "Next page", PageIcon::Next, [this] { return m_page + 1; });
    m_toEnd[1] = addPageButton("lastPage", "Last page", PageIcon::Last, [] { return BeyondAnyPage; });
}

const std::vector<int> &ViewerBar::zoomSteps()
{
    static const std::vector<int> steps{25, 50, 75, 100, 125, 150, 200, 300, 400};
    return steps;
}

void ViewerBar::addZoom()
{
    m_zoom = new QComboBox(this);
    m_zoom->setObjectName("zoom");
    m_zoom->setAccessibleName("Zoom");
    // All of them, without a scroll bar.
    m_zoom->setMaxVisibleItems(20);
    m_zoom->addItem("Page Width", PageWidth);
    m_zoom->addItem("Whole Page", WholePage);
    for (const int percent : zoomSteps())
        m_zoom->addItem(QString::number(percent) + "%", percent);
    connect(m_zoom, &QComboBox::currentIndexChanged, this, [this] {
        const int wanted = m_zoom->currentData().toInt();
        emit zoomAsked(wanted == PageWidth   ? PageView::Zoom::PageWidth
                       : wanted == WholePage ? PageView::Zoom::WholePage
                                             : PageView::Zoom::Percent,
                       wanted);
    });
    addWidget(m_zoom);
}

void ViewerBar::showPage(int page, int knownPages, bool isLastKnown)
{
    m_page = page;
    // Shown, not asked for.
    const QSignalBlocker quiet(m_pageNumber);
    m_pageNumber->setValue(page + 1);
    // "3+" while the pages are still being counted.
    m_pageTotal->setText(QString(" of %1%2 ").arg(knownPages).arg(isLastKnown ? "" : "+"));
    for (QAction *action : m_toStart)
        action->setEnabled(page > 0);
    for (QAction *action : m_toEnd)
        action->setEnabled(page + 1 < knownPages || !isLastKnown);
}

void ViewerBar::showZoom(PageView::Zoom zoom, int percent)
{
    const QSignalBlocker quiet(m_zoom);
    // A percentage of the wheel's making stands in the list as long as it holds.
    for (int i = m_zoom->count() - 1; i >= 0; --i) {
        const int listed = m_zoom->itemData(i).toInt();
        if (listed > 0 && !std::ranges::binary_search(zoomSteps(), listed))
            m_zoom->removeItem(i);
    }
    const int wanted = zoom == PageView::Zoom::PageWidth   ? PageWidth
                       : zoom == PageView::Zoom::WholePage ? WholePage
                                                           : percent;
    int index = m_zoom->findData(wanted);
    if (index < 0) {
        // Among the percentages by size; the fits are below any of them and stay on top.
        for (index = 0; index < m_zoom->count() && m_zoom->itemData(index).toInt() < percent; ++index)
            ;
        m_zoom->insertItem(index, QString::number(percent) + "%", percent);
    }
    m_zoom->setCurrentIndex(index);
    m_zoom->setToolTip(QString("Zoom (now %1%)").arg(percent));
}

void ViewerBar::enableGroups(bool enabled)
{
    m_groups->setEnabled(enabled);
    if (!enabled)
        // A report without groups has no tree to show, whatever the one before had.
        m_groups->setChecked(false);
}
