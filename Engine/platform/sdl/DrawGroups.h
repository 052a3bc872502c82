#pragma once

#include <span>
#include <vector>

#include "Engine/platform/GraphicsDevice.h"

namespace Engine::Platform {

/// Neighbouring runs that one call can draw: of one state, and of no more textures than are bound at once. Or one unit.
struct sDrawGroup {
    static constexpr UInt max_textures = 8;
    static constexpr UInt no_unit = 0xFFFFFFFF;

    sDrawState state;
    UInt first_run = 0;
    UInt run_count = 0;
    UInt texture_count = 0;
    UInt unit = no_unit;               ///< place of the unit among the frame's units
    UInt textures[max_textures] = {};  ///< handles; a vertex's slot is its texture's place here
};

/// The draws of one frame, in order, put together into groups.
///
/// The vertices of a group with several textures say which of them they take: fillSlots() writes that. Runs that write
/// the mask never share a group with another texture, since their vertices are drawn a second time, in another group,
/// and a vertex has one slot only.
class cDrawGroups {
public:
    /// @param most_textures  of a group; 1 to sDrawGroup::max_textures
    explicit cDrawGroups(UInt most_textures = sDrawGroup::max_textures) : m_most_textures(most_textures) {}

    void clear();
    void add(const sDrawState& state, const sDrawRun& run);
    /// @param unit  place among the frame's units
    void addUnit(const sDrawState& state, UInt texture, UInt unit);

    std::span<const sDrawGroup> getGroups() const { return m_groups; }
    std::span<const sDrawRun> getRuns(const sDrawGroup& group) const {
        return std::span(m_runs).subspan(group.first_run, group.run_count);
    }

    /// One slot for each vertex of the batch. Those of groups with one texture are left as they are.
    /// Returns whether there was any to write.
    Bool fillSlots(std::span<UInt> slots) const;

private:
    Bool joinLast(const sDrawState& state, const sDrawRun& run);

    UInt m_most_textures;
    std::vector<sDrawGroup> m_groups;
    std::vector<sDrawRun> m_runs;
};

}  // namespace Engine::Platform
