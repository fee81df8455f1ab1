#pragma once

#include <QAbstractListModel>
#include <QStringList>

/// The entries of a combo box: a plain list of texts, quick to fill and to search with many thousands of them.
class ComboList : public QAbstractListModel
{
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    QString at(int index) const { return m_items.value(index); }
    void append(const QStringList &items);
    /// First entry of exactly that text, or that starts with it, in any case; -1 when there is none.
    int find(const QString &text) const;
    int findPrefix(const QString &prefix, int from = 0) const;

    /// The entries of most characters, at most `count` of them.
    QStringList longest(int count) const;

private:
    QStringList m_items;
};
