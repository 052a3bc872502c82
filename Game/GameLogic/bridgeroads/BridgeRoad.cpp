#include "Game/GameLogic/bridgeroads/BridgeRoad.h"

namespace {

constexpr char site_tag[] = "TileBridgePlace";
constexpr char standing_tag[] = "TileBridge";

}  // namespace

void cPlayerBridgeRoad::loadXML(const Engine::iXML* xml) {
    cBarrier::loadXML(xml);
    loadPieces(xml, site_tag, standing_tag);
}

void cEnemyBridgeRoad::loadXML(const Engine::iXML* xml) {
    cBarrier::loadXML(xml);
    loadPieces(xml, site_tag, standing_tag);
}
