#pragma once

#include "reportengine/viewer/finder.h"
#include <QPageLayout>
#include <QTimer>
#include <QWidget>
#include <memory>

class FindBar;
class GroupTreeModel;
class PageView;
class QTreeView;
class Report;
class ViewerBar;

/// The viewer control: a report's pages under a toolbar with export, print, page navigation, zoom, find and group tree.
class CRViewer : public QWidget
{
    Q_OBJECT
public:
    /// The title of the window around as long as nobody gives it one that tells the report.
    static constexpr const char *Caption = "Report Viewer";

    explicit CRViewer(QWidget *parent);
    ~CRViewer() override;

    void setReportSource(std::shared_ptr<Report> report);
    const std::shared_ptr<Report> &reportSource() const { return m_report; }
    /// Shows the first page at once; the others are counted while the user reads.
    void viewReport();

    /// The number of pages, all of them counted.
    Q_INVOKABLE int pageCount();
    /// Writes the report by the path's suffix: .pdf, .xlsx or .csv. False for another or when it can't be written.
    Q_INVOKABLE bool exportTo(const QString &path);

    /// Index of the page in view.
    int currentPage() const;
    /// Goes to a page, or to the nearest there is.
    void goToPage(int page);
    /// The next place (or the one before) after the last one found that holds the text, in any case, from the page in
    /// view on and round by the report's other end. False when the report does not hold it.
    bool findNext(const QString &text) { return find(text, true); }
    bool findPrevious(const QString &text) { return find(text, false); }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void connectBar();
    void connectFindBar();
    void addKeys();
    void addKey(const QList<QKeySequence> &keys, std::function<void()> action);
    QString reportName() const;
    void goOn();
    void showPageNumber();
    void zoomBy(int steps);
    bool find(const QString &text, bool forward);
    void findByBar(bool forward);
    void dropFind();
    void showFindResult();
    void goToGroup(const QModelIndex &index);
    void followInTree();

    std::shared_ptr<Report> m_report;
    ViewerBar *m_bar;
    FindBar *m_findBar;
    PageView *m_view;
    QTreeView *m_tree;
    GroupTreeModel *m_groups;
    Finder m_finder;
    QPageLayout m_paper; ///< chosen to print on; not valid: the report's own
    QTimer m_idle;       ///< counts and searches while nothing else is to be done
};
