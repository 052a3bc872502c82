#include "Game/GameLogic/Barrier.h"

#include <algorithm>
#include <cmath>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

constexpr Float most_pieces = 200.0f;  ///< of one barrier

}  // namespace

cBarrier::cBarrier(cView* parent)
    : cLevelObject(parent),
      aTarget(static_cast<cLevelObject&>(*this)),
      m_site(new cPicture(this)),
      m_standing(new cPicture(this)) {
    setAlpha(0.0f);  // the pieces are all that is seen of it
}

void cBarrier::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cLevelObject::loadXML(xml);
    loadTargetXML(xml);
    loadUpgrades(xml);
}

void cBarrier::loadPieces(const iXML* xml, const char* site_tag, const char* standing_tag) {
    loadChild(*m_site, xml, site_tag);
    loadChild(*m_standing, xml, standing_tag);
    m_site->hide();
    m_standing->hide();
}

void cBarrier::saveBinState(iArch& arch) {
    serializeEnds(arch);
}

void cBarrier::loadBinState(iArch& arch) {
    serializeEnds(arch);
}

void cBarrier::setConnectionPoint(Int p0, Int p1) {
    setEnds(p0, p1);
    Vector2 middle;
    getPosition(middle, true);
    setPosition(middle);
    m_view_built = false;
}

Bool cBarrier::isPlayerConnected() const {
    return hasEnds() && (getMap().getPoint(getP0()).player_connected || getMap().getPoint(getP1()).player_connected);
}

void cBarrier::getPosition(Vector2& out, Bool local) const {
    out = (getMap().getPoint(getP0()).pos + getMap().getPoint(getP1()).pos) * 0.5f;
    if (local)
        out = getMap().toScreen(out);
}

void cBarrier::updateInfoTipPrice(sInfoTip& info) {
    info.cargo = getPrice().amounts;
    info.compare_global = true;
}

void cBarrier::upgrade() {
    if (!countFinishedMan())
        return;
    setLevel(getLevel() + 1);
    m_view_built = false;
    finishUpgrade();
}

Bool cBarrier::degrade(Int amount) {
    if (getUpgradeState() != idle || getLevel() < 1)
        return false;
    setLevel(std::max(getLevel() - amount, 0));
    m_view_built = false;
    return true;
}

void cBarrier::updateView(Bool hide) {
    aTarget::updateView(hide);
    if (!hasEnds() || hide)
        return this->hide();
    if (!m_view_built)
        buildPieces();
    show();
    setStatePicture(getState());
}

void cBarrier::buildPieces() {
    for (cPicture* piece : m_pieces) {
        piece->hide();
        discard(static_cast<cView*>(piece), here());
    }
    m_pieces.clear();
    m_view_built = true;
    const cPicture& proto = getLevel() > 0 ? *m_standing : *m_site;
    const Float width = proto.getSize().x;
    const Vector2 from = getMap().toScreen(getMap().getPoint(getP0()).pos);
    const Vector2 way = getMap().toScreen(getMap().getPoint(getP1()).pos) - from;
    const Float length = glm::length(way);
    if (!(width > 0.0f) || !(length > 0.0f))
        return;
    const auto count = static_cast<std::size_t>(std::clamp(std::round(length / width), 1.0f, most_pieces));
    for (std::size_t i = 0; i < count; ++i) {
        auto* piece = new cPicture(proto);
        const Float part = (static_cast<Float>(i) + 0.5f) / static_cast<Float>(count);
        const Vector2 place = from + way * part;
        piece->setPosition(place);
        piece->setDeep(proto.getDeep() + place.y);
        piece->show();
        m_pieces.push_back(piece);
    }
}
