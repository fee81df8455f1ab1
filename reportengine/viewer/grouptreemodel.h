#pragma once

#include <QAbstractItemModel>

class ReportPages;

/// The groups of a report as a tree, in the order of printing: those that print anything, as far as the paging has
/// come.
class GroupTreeModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    explicit GroupTreeModel(QObject *parent) : QAbstractItemModel(parent) {}

    /// The pages must live as long as they are set; null empties the tree.
    void setPages(const ReportPages *pages);
    /// To be called when more pages have become known.
    void pagesChanged();

    static int level(const QModelIndex &index) { return int(index.internalId() >> 32); }
    /// The group's node on its level of the report's groups.
    int node(const QModelIndex &index) const;
    /// The entry of a group; not valid while it is not known to be printed.
    QModelIndex indexOf(int level, int node) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &) const override { return 1; }
    QVariant data(const QModelIndex &index, int role) const override;

private:
    /// Entries of a level, as places in its list of printed nodes: from `first` up to, not including, `end`.
    struct Entries
    {
        int first = 0;
        int end = 0;
    };
    Entries entriesBelow(const QModelIndex &parent) const;
    QModelIndex entry(int level, int place) const;
    static int place(const QModelIndex &index) { return int(index.internalId() & 0xffffffff); }
    /// What `level` and `place` are read from.
    static quintptr idOf(int level, int place) { return (quintptr(level) << 32) | quintptr(quint32(place)); }

    const ReportPages *m_pages = nullptr;
    std::vector<int> m_known; ///< by level, how many printed nodes the views have been told of
};
