#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>

class GroupTreeModel;
class PageView;
class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;
class QToolBar;
class QTreeView;
class Report;

/// The viewer control: a report's pages under a toolbar with export, print, page navigation, zoom, find and group tree.
class CRViewer : public QWidget
{
    Q_OBJECT
public:
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
    void goToPage(int page);
    /// The next place after the last one found that holds the text, in any case, from the page in view on and round
    /// by the first page. False when the report does not hold it.
    bool findNext(const QString &text);

private:
    void buildToolBar();
    void addNavigation(QToolBar *bar);
    void addZoom(QToolBar *bar);
    void addFind(QToolBar *bar);
    QAction *addAction(QToolBar *bar, const char *name, const QString &caption, const QString &tip);
    void countPages();
    void showPageNumber();
    void applyZoom();
    void exportReport();
    void printReport();
    void find();
    void goToGroup(const QModelIndex &index);

    std::shared_ptr<Report> m_report;
    PageView *m_view;
    QTreeView *m_tree;
    GroupTreeModel *m_groups;
    QAction *m_showTree = nullptr;
    QSpinBox *m_pageNumber = nullptr;
    QLabel *m_pageTotal = nullptr;
    QComboBox *m_zoom = nullptr;
    QLineEdit *m_findText = nullptr;
    QTimer m_counting;
    int m_foundPage = -1;
    int m_foundItem = -1;
};
