#include "Game/GameLogic/fences/Fence.h"

namespace {

constexpr char site_tag[] = "TileFencePlace";
constexpr char standing_tag[] = "TileFence";

}  // namespace

void cPlayerFence::loadXML(const Engine::iXML* xml) {
    cPlayerBarrier::loadXML(xml);
    loadPieces(xml, site_tag, standing_tag);
}

void cEnemyFence::loadXML(const Engine::iXML* xml) {
    cBarrier::loadXML(xml);
    loadPieces(xml, site_tag, standing_tag);
}
