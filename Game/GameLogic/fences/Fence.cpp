#include "Game/GameLogic/fences/Fence.h"

void cFence::loadXML(const Engine::iXML* xml) {
    cBarrier::loadXML(xml);
    loadPieces(xml, "TileFencePlace", "TileFence");
}
