#include "Game/GameUI/Tactic/PointInfo.h"

#include <algorithm>

#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"

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
    Int count = 0;
    arch << index << pos << options << kind << count;
    const ULong left = arch.getSize() - static_cast<ULong>(arch.getPos());
    if (count < 0 || static_cast<ULong>(count) > left / smallest_arc)
        throw String("sPointInfo::loadBin(): point " + std::to_string(index) + " has " + std::to_string(count) +
                     " arcs, which can't be");
    arcs.clear();
    for (Int i = 0; i < count; ++i) {
        UInt neighbour = 0;
        sArcInfo arc;
        arch << neighbour << arc.type << arc.length;
        if (arc.type < 0 || arc.type >= arc_type_count)
            throw String("sPointInfo::loadBin(): point " + std::to_string(index) + " has an arc of type " +
                         std::to_string(arc.type) + ", which can't be");
        if (hasArcPrice(arc.type))
            arc.cargo.serialize(arch);
        arcs[static_cast<Int>(neighbour)] = arc;
    }
}
