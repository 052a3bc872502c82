#pragma once

#include <utility>
#include <vector>

#include "Game/Types.h"

/// Finds all pairs of points that are near each other, without looking at all pairs: the points are shared out among
/// square cells as wide as the distance asked for, and each is compared with those of its own and the neighbouring
/// cells.
///
/// The cells are kept in a ring of buckets, twice as many as there are points, so that it does not matter how far the
/// points lie apart. Neighbours in a row are neighbours in the ring. Nothing is allocated once it has seen as many
/// points and pairs.
class cPairGrid {
public:
    using PAIRS = std::vector<std::pair<UInt, UInt>>;

    /// The pairs (a, b), a before b, of points whose squared distance lies between two limits, which are not part of
    /// it, in the order of a, then b. Points that are no numbers are near nothing.
    /// @param limit  squared units, above 0
    /// @param least  squared units; below 0 for those who are at one place too
    const PAIRS& findPairs(const std::vector<Vector2>& points, Float limit, Float least = -1.0f);

private:
    struct sEntry {
        Vector2 place;
        UInt point;
    };

    void shareOut(const std::vector<Vector2>& points, Float distance);
    void findPartners(UInt point, Vector2 place, Float limit, Float least);

    UInt m_mask = 0;                ///< number of buckets less 1
    std::vector<UInt> m_buckets;    ///< of each point
    std::vector<UInt> m_ends;       ///< of each bucket: where it begins in m_entries; one more for the end
    std::vector<sEntry> m_entries;  ///< by bucket, then by point
    PAIRS m_pairs;
};
