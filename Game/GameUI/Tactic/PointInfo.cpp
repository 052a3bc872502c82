#include "Game/GameUI/Tactic/PointInfo.h"

#include <algorithm>

#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/SavedValue.h"

namespace {

constexpr ULong smallest_arc = 12;  // bytes in a saved level: neighbour, type, length

}  // namespace

Bool hasArcPrice(Int type) {
    return type == ARC_PLAYER_FENCE || type == ARC_PLAYER_FENCE_SITE || type == ARC_PLAYER_BRIDGE ||
           type == ARC_PLAYER_BRIDGE_SITE;
}

void sPointInfo::addArc(Int point, Int type, Float length, const sResourceCargo& cargo) {
    arcs[point] = {type, length, cargo};
}

Bool sPointInfo::isWaterPoint() const {
    return std::any_of(arcs.begin(), arcs.end(), [](const auto& arc) { return arc.second.type == ARC_WATER; });
}

void sPointInfo::setArcType(Int point, Int type) {
    const auto arc = arcs.find(point);
    if (arc != arcs.end())
        arc->second.type = type;
}

Int sPointInfo::getArcType(Int point) const {
    const auto arc = arcs.find(point);
    return arc != arcs.end() ? arc->second.type : -1;
}

void sPointInfo::saveBin(Engine::iArch& arch) {
    Int count = static_cast<Int>(arcs.size());
    arch << index << pos << options << kind << count;
    for (auto& [neighbour, arc] : arcs) {
        UInt key = static_cast<UInt>(neighbour);
        arch << key << arc.type << arc.length;
        if (hasArcPrice(arc.type))
            arc.cargo.serialize(arch);
    }
}

void sPointInfo::loadBin(Engine::iArch& arch) {
    ENGINE_MARK;
    arch << index;
    serializeNumber(arch, pos);
    arch << options << kind;
    arcs.clear();
    for (Int left = readCount(arch, smallest_arc, "arcs of a point"); left > 0; --left) {
        UInt neighbour = 0;
        sArcInfo arc;
        arch << neighbour << arc.type;
        serializeNumber(arch, arc.length);
        if (arc.type < 0 || arc.type >= arc_type_count || arc.length < 0.0f)
            throw String("an arc of a point can't be");
        if (hasArcPrice(arc.type))
            arc.cargo.serialize(arch);
        arcs[static_cast<Int>(neighbour)] = arc;
    }
}
