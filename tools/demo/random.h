#pragma once

#include <QtGlobal>
#include <vector>

namespace demo {

/// Numbers that depend on the seed alone, on every machine and with every compiler. std::mt19937_64 has a fixed
/// sequence as well, but another one: the company of a seed is to stay the one that pictures, measurements and tests
/// know.
class Random
{
public:
    explicit Random(quint64 seed) : m_state(seed * 0x9E3779B97F4A7C15u + 1) {}

    quint64 next()
    {
        quint64 z = m_state += 0x9E3779B97F4A7C15u;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    /// From 0 up to but not including `limit`.
    int below(int limit) { return int(next() % quint64(limit)); }
    /// Both ends included.
    int between(int low, int high) { return low + below(high - low + 1); }
    /// True in that many cases of a thousand.
    bool perMille(int cases) { return below(1000) < cases; }

    template <typename List> const auto &pick(const List &list) { return list[size_t(below(int(std::size(list))))]; }

    template <typename T> void shuffle(std::vector<T> &list)
    {
        for (size_t i = list.size(); i > 1; --i)
            std::swap(list[i - 1], list[size_t(below(int(i)))]);
    }

private:
    quint64 m_state;
};

/// Picks positions of a list, each as often as its weight says.
class WeightedPick
{
public:
    void add(int weight) { m_cumulative.push_back((m_cumulative.empty() ? 0 : m_cumulative.back()) + weight); }
    int operator()(Random &random) const
    {
        const qint64 at = qint64(random.next() % quint64(m_cumulative.back()));
        return int(std::upper_bound(m_cumulative.begin(), m_cumulative.end(), at) - m_cumulative.begin());
    }

private:
    std::vector<qint64> m_cumulative;
};

} // namespace demo
