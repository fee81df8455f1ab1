#pragma once

#include <QAbstractItemModel>

class ReportPages;

/// The groups of a report as a tree, read from it as they are looked at.
class GroupTreeModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    explicit GroupTreeModel(QObject *parent) : QAbstractItemModel(parent) {}

    /// The pages must live as long as they are set; null empties the tree.
    void setPages(const ReportPages *pages);
    static int level(const QModelIndex &index) { return int(index.internalId() >> 32); }
    static int node(const QModelIndex &index) { return int(index.internalId() & 0xffffffff); }

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &) const override { return 1; }
    QVariant data(const QModelIndex &index, int role) const override;

private:
    int firstChild(const QModelIndex &parent) const;
    QModelIndex indexOf(int level, int node, int row) const;

    const ReportPages *m_pages = nullptr;
};
