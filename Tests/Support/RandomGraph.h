#pragma once

#include <algorithm>
#include <random>
#include <vector>

#include "Game/GameUI/Tactic/PointInfo.h"

/// Joins two points by an arc as long as the way between them.
inline void addArc(POINTS& points, Int a, Int b, Int type) {
    auto& from = points[static_cast<std::size_t>(a)];
    auto& to = points[static_cast<std::size_t>(b)];
    const Float length = glm::distance(from.pos, to.pos);
    from.addArc(b, type, length, {});
    to.addArc(a, type, length, {});
}

/// A level's graph by chance: points strewn over a map, each joined to its two to four nearest, the same for one seed
/// on every machine.
/// @param draw_type  Int(std::mt19937&): the type of an arc
template <class DRAW>
POINTS makeRandomGraph(std::size_t count, std::uint32_t seed, DRAW draw_type) {
    std::mt19937 chance(seed);
    const auto draw = [&](UInt limit) { return static_cast<UInt>(chance() % limit); };
    POINTS points(count);
    for (std::size_t i = 0; i < count; ++i) {
        points[i].index = static_cast<Int>(i);
        points[i].pos = {static_cast<Float>(draw(2000)), static_cast<Float>(draw(2000))};
    }
    std::vector<Int> others(count);
    for (Int a = 0; a < static_cast<Int>(count); ++a) {
        const auto getDistance = [&](Int b) {
            return glm::distance(points[static_cast<std::size_t>(a)].pos, points[static_cast<std::size_t>(b)].pos);
        };
        for (Int b = 0; b < static_cast<Int>(count); ++b)
            others[static_cast<std::size_t>(b)] = b;
        const std::size_t wanted = std::min<std::size_t>(3 + draw(3), count);  // the point itself is the nearest
        std::partial_sort(others.begin(), others.begin() + static_cast<std::ptrdiff_t>(wanted), others.end(),
                          [&](Int p, Int q) { return std::pair(getDistance(p), p) < std::pair(getDistance(q), q); });
        for (std::size_t i = 0; i < wanted; ++i) {
            if (others[i] != a)
                addArc(points, a, others[i], draw_type(chance));
        }
    }
    return points;
}
