#pragma once

#include "reportengine/viewer/pageview.h"
#include <QToolBar>

class QComboBox;
class QLabel;
class QLineEdit;
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
    /// What came of a search: "3 of 17".
    void showFindResult(const QString &text);
    void enableGroups(bool enabled);
    QString soughtText() const;
    void enterFindText();

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
    void findAsked(bool forward);
    /// The text to be found has been changed, or the search given up.
    void findDropped();
    void pagesAskedBack(); ///< Esc: the focus belongs to the pages again

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAction *addButton(const char *name, const QString &caption, const QString &tip);
    QAction *addPageButton(const char *name, const QString &caption, PageIcon icon, std::function<int()> page);
    QAction *addFindButton(const char *name, const QString &caption, const QString &tip, PageIcon icon, bool forward);
    void addNavigation();
    void addZoom();
    void addFind();

    QAction *m_groups = nullptr;
    QAction *m_toStart[2] = {};
    QAction *m_toEnd[2] = {};
    QSpinBox *m_pageNumber = nullptr;
    QLabel *m_pageTotal = nullptr;
    QComboBox *m_zoom = nullptr;
    QLineEdit *m_findText = nullptr;
    QLabel *m_findResult = nullptr;
    int m_page = 0;
};
