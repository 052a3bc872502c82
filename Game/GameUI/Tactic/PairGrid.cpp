#include "Game/GameUI/Tactic/PairGrid.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace {

constexpr UInt least_buckets = 64;
constexpr UInt no_bucket = 0xffffffff;
/// Of a cell to the distance: what is just too far but passes by the rounding of the test still has a neighbour's cell.
constexpr Double margin = 1.0001;

/// The cell along one axis, rounded down.
UInt toIndex(Float coordinate, Double cells_per_unit) {
    constexpr Double largest = 1e9;  // further out all points share the last cell
    const Double place = std::clamp(static_cast<Double>(coordinate) * cells_per_unit, -largest, largest);
    const auto index = static_cast<Int>(place);
    return static_cast<UInt>(place < index ? index - 1 : index);
}

/// From a row to the next one: about 0.618 of the ring, so that the runs of three rows in a row don't overlap.
UInt getRowStep(UInt mask) {
    return (mask / 8 * 5) | 1;
}

}  // namespace

void cPairGrid::shareOut(const std::vector<Vector2>& points, Float distance) {
    m_mask = std::bit_ceil(std::max(least_buckets, static_cast<UInt>(points.size()) * 2)) - 1;
    const UInt row_step = getRowStep(m_mask);
    const Double scale = 1.0 / (static_cast<Double>(distance) * margin);
    m_buckets.clear();
    m_ends.assign(m_mask + 2, 0);
    for (const Vector2& p : points) {
        const Bool is_number = !std::isnan(p.x) && !std::isnan(p.y);
        if (!is_number) {
            m_buckets.push_back(no_bucket);
            continue;
        }
        m_buckets.push_back((toIndex(p.y, scale) * row_step + toIndex(p.x, scale)) & m_mask);
        ++m_ends[m_buckets.back()];
    }
    UInt end = 0;
    for (UInt& count : m_ends)
        count = end += count;
    m_entries.resize(end);
    // Filled from the back: each end walks down to the bucket's beginning.
    for (std::size_t i = points.size(); i-- > 0;) {
        if (m_buckets[i] != no_bucket)
            m_entries[--m_ends[m_buckets[i]]] = {points[i], static_cast<UInt>(i)};
    }
}

/// Those behind the point in the order of the points.
void cPairGrid::findPartners(UInt point, Vector2 place, Float limit, Float least) {
    const auto first_pair = static_cast<std::ptrdiff_t>(m_pairs.size());
    const auto compare = [this, point, place, limit, least](UInt from, UInt to) {
        const sEntry* const end = m_entries.data() + m_ends[to];
        for (const sEntry* entry = m_entries.data() + m_ends[from]; entry != end; ++entry) {
            const Vector2 way = entry->place - place;
            const Float distance = glm::dot(way, way);
            if (entry->point > point && distance < limit && distance > least)
                m_pairs.emplace_back(point, entry->point);
        }
    };
    const UInt row_step = getRowStep(m_mask);
    for (UInt row = 0; row < 3; ++row) {
        const UInt left = (m_buckets[point] + (row - 1) * row_step - 1) & m_mask;
        const UInt right = left + 3;
        compare(left, std::min(right, m_mask + 1));
        if (right > m_mask + 1)
            compare(0, right - m_mask - 1);
    }
    if (m_pairs.end() - m_pairs.begin() > first_pair + 1)
        std::sort(m_pairs.begin() + first_pair, m_pairs.end());
}

const cPairGrid::PAIRS& cPairGrid::findPairs(const std::vector<Vector2>& points, Float limit, Float least) {
    m_pairs.clear();
    shareOut(points, std::sqrt(limit));
    for (UInt i = 0; i < points.size(); ++i) {
        if (m_buckets[i] != no_bucket)
            findPartners(i, points[i], limit, least);
    }
    return m_pairs;
}
