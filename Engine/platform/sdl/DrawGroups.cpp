#include "Engine/platform/sdl/DrawGroups.h"

#include <algorithm>

namespace Engine::Platform {

void cDrawGroups::clear() {
    m_groups.clear();
    m_runs.clear();
}

/// True if the last group can take the run; the group then knows its texture.
Bool cDrawGroups::joinLast(const sDrawState& state, const sDrawRun& run) {
    if (m_groups.empty() || m_groups.back().state != state || m_groups.back().unit != sDrawGroup::no_unit)
        return false;
    sDrawGroup& group = m_groups.back();
    const auto end = group.textures + group.texture_count;
    if (std::find(group.textures, end, run.texture) != end)
        return true;
    if (group.texture_count == m_most_textures || state.stencil == eStencil::write)
        return false;
    group.textures[group.texture_count++] = run.texture;
    return true;
}

void cDrawGroups::add(const sDrawState& state, const sDrawRun& run) {
    if (!joinLast(state, run)) {
        m_groups.push_back({.state = state, .first_run = static_cast<UInt>(m_runs.size()), .texture_count = 1});
        m_groups.back().textures[0] = run.texture;
    }
    ++m_groups.back().run_count;
    m_runs.push_back(run);
}

void cDrawGroups::addUnit(const sDrawState& state, UInt texture, UInt unit) {
    m_groups.push_back(
        {.state = state, .first_run = static_cast<UInt>(m_runs.size()), .texture_count = 1, .unit = unit});
    m_groups.back().textures[0] = texture;
}

Bool cDrawGroups::fillSlots(std::span<UInt> slots) const {
    Bool any = false;
    for (const sDrawGroup& group : m_groups) {
        if (group.texture_count == 1)
            continue;
        any = true;
        for (const sDrawRun& run : getRuns(group)) {
            const UInt* place = std::find(group.textures, group.textures + group.texture_count, run.texture);
            std::fill_n(slots.begin() + run.first_vertex, run.vertices, static_cast<UInt>(place - group.textures));
        }
    }
    return any;
}

}  // namespace Engine::Platform
