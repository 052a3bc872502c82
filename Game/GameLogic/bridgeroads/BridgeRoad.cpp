#include "Game/GameLogic/bridgeroads/BridgeRoad.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"

using namespace Engine;

cBridgeRoad::cBridgeRoad(cView* parent) : cBarrier(parent), m_site(new cPicture(this)), m_standing(new cPicture(this)) {
}

void cBridgeRoad::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBarrier::loadXML(xml);
    loadChild(*m_site, xml, "TileBridgePlace");
    loadChild(*m_standing, xml, "TileBridge");
    m_site->hide();
    m_standing->hide();
}

void cBridgeRoad::updateView(Bool hide) {
    aTarget::updateView(hide);
    if (!hasEnds() || hide)
        return this->hide();
    if (!isViewBuilt())
        buildPieces();
    show();
    setStatePicture(getState());
}

void cBridgeRoad::buildPieces() {
    for (cPicture* piece : m_pieces) {
        piece->hide();
        discard(static_cast<cView*>(piece), here());
    }
    m_pieces.clear();
    setViewBuilt(true);
    const cPicture& proto = getLevel() > 0 ? *m_standing : *m_site;
    for (const Vector2& place : layPieces(proto.getSize().x, 0.0f, 0.0f)) {
        auto* piece = new cPicture(proto);
        piece->setPosition(place);
        piece->setDeep(proto.getDeep() + place.y);
        piece->show();
        m_pieces.push_back(piece);
    }
}
