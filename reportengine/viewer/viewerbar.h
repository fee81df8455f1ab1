#pragma once

#include "reportengine/viewer/pageview.h"
#include <QToolBar>

class QComboBox;
class QLabel;
class QSpinBox;
enum class PageIcon;

/// The viewer's toolbar. Knows no report: it says what the user asks for, and shows what it is told.
class ViewerBar : public QToolBar
{
    Q_OBJECT
public:
    explicit ViewerBar(QWidget *parent);

    void showPage(int page, int knownPages, bool isLastKnown);
    void showZoom(PageView::Zoom zoom, int percent);
    void enableGroups(bool enabled);

    /// The percentages of the zoom list, ascending.
    static const std::vector<int> &zoomSteps();

signals:
    void exportAsked();
    void printAsked();
    void pageSetupAsked();
    void groupsToggled(bool shown);
    /// An index from 0, which may lie beyond the last page.
    void pageAsked(int page);
    void zoomAsked(PageView::Zoom zoom, int percent);
    void findAsked();

private:
    QAction *addButton(const char *name, const QString &caption, const QString &tip);
    QAction *addPageButton(const char *name, const QString &caption, PageIcon icon, std::function<int()> page);
    void addNavigation();
    void addZoom();

    QAction *m_groups = nullptr;
    QAction *m_toStart[2] = {};
    QAction *m_toEnd[2] = {};
    QSpinBox *m_pageNumber = nullptr;
    QLabel *m_pageTotal = nullptr;
    QComboBox *m_zoom = nullptr;
    int m_page = 0;
};
