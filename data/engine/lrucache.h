#pragma once

#include <QHash>
#include <list>
#include <utility>

/// Keeps up to `capacity` values by key; the one unused for longest goes first.
template <typename Key, typename T> class LruCache
{
public:
    explicit LruCache(qsizetype capacity) : m_capacity(capacity) {}

    /// The value, now the most recently used, or nullptr. Valid until the next insert.
    T *find(const Key &key)
    {
        const auto found = m_index.constFind(key);
        if (found == m_index.cend())
            return nullptr;
        m_entries.splice(m_entries.begin(), m_entries, *found);
        return &m_entries.front().second;
    }

    /// The value, which leaves the cache; an empty one when there is none.
    T take(const Key &key)
    {
        const auto found = m_index.constFind(key);
        if (found == m_index.cend())
            return {};
        T value = std::move((*found)->second);
        m_entries.erase(*found);
        m_index.erase(found);
        return value;
    }

    T &insert(const Key &key, T value)
    {
        take(key);
        m_entries.emplace_front(key, std::move(value));
        m_index.insert(key, m_entries.begin());
        if (m_index.size() > m_capacity) {
            m_index.remove(m_entries.back().first);
            m_entries.pop_back();
        }
        return m_entries.front().second;
    }

    void clear()
    {
        m_index.clear();
        m_entries.clear();
    }

private:
    using Entries = std::list<std::pair<Key, T>>;
    qsizetype m_capacity;
    Entries m_entries; ///< the most recently used first
    QHash<Key, typename Entries::iterator> m_index;
};
