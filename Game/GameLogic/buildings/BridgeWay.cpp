#include "Game/GameLogic/buildings/BridgeWay.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/graphics/Graphics.h"

using namespace Engine;

namespace {

constexpr Float most_tiles = 200.0f;  ///< of one bridge

template <class T>
T* makeChild(cView& owner, const iXML* xml, const char* name) {
    iXML* tag = nullptr;
    if (!xml->get(name, tag))
        return nullptr;
    auto* child = new T(&owner);
    child->loadXML(tag);
    return child;
}

}  // namespace

void cBridgeWay::loadXML(const iXML* xml) {
    ENGINE_MARK;
    m_proto = makeChild<cOverlayButton>(m_owner, xml, "BridgeTile");
    m_left = makeChild<cOverlayButton>(m_owner, xml, "BridgeLeft");
    m_right = makeChild<cPicture>(m_owner, xml, "BridgeRight");
    m_base = makeChild<cScaleOscillator<cPicture>>(m_owner, xml, "BridgeBase");
    if (m_left)
        m_left->disable();
    show(false);
}

void cBridgeWay::lay(const Vector2& gate, Float angle, Float left, Float right, Float margin) {
    const Vector2 direction(std::cos(angle), std::sin(angle));
    const auto height = static_cast<Float>(cGraphics::getInstance()->getHeight());
    const Float length = getDistanceToEdge(gate, direction, {left, 0.0f}, {right, height}) + margin;
    m_way = direction * length;
    for (cOverlayButton* tile : m_tiles)
        discard(static_cast<cView*>(tile), here());
    m_tiles.clear();
    m_listens = false;
    if (!m_proto || !(m_proto->getSize().x > 0.0f))
        return;
    m_proto->hide();
    m_proto->disable();
    const Float step = m_proto->getSize().x;
    const auto count = static_cast<std::size_t>(std::min(most_tiles, std::max(0.0f, std::ceil(length / step))));
    for (std::size_t i = 0; i < count; ++i) {
        auto* tile = new cOverlayButton(*m_proto);
        tile->setAngle(-angle);
        tile->setPosition(gate + direction * (step * (static_cast<Float>(i) + 0.5f)));
        m_tiles.push_back(tile);
    }
}

void cBridgeWay::show(Bool show) {
    m_is_shown = show;
    const auto show_part = [](cView* part, Bool is_shown) {
        if (part)
            part->setShown(is_shown);
    };
    for (cOverlayButton* tile : m_tiles)
        show_part(tile, show);
    show_part(m_left, show);
    show_part(m_right, show);
    show_part(m_base, show && m_listens);
}

void cBridgeWay::setTileLook(const cState& look) {
    for (cOverlayButton* tile : m_tiles) {
        tile->cState::operator=(look);
        tile->setDirty();
    }
}

void cBridgeWay::listen(cButtonPrototype::CALLBACK on_click, cButtonPrototype::CALLBACK on_hover,
                        cButtonPrototype::CALLBACK on_unhover) {
    std::vector<cOverlayButton*> planks = m_tiles;
    if (m_left)
        planks.push_back(m_left);
    for (cOverlayButton* plank : planks) {
        plank->setOnClick(on_click);
        plank->setOnHover(on_hover);
        plank->setOnUnhover(on_unhover);
        plank->enable();
    }
    m_listens = true;
    show(m_is_shown);
}

void cBridgeWay::hover(eButtonState state) {
    for (cOverlayButton* tile : m_tiles)
        tile->setStatePicture(state);
    if (m_left)
        m_left->setStatePicture(state);
}

void cBridgeWay::pulse() {
    if (m_base)
        m_base->setOscillating(true);
}

Float getDistanceToEdge(const Vector2& from, const Vector2& direction, const Vector2& low, const Vector2& high) {
    Float res = std::numeric_limits<Float>::max();
    for (Int axis = 0; axis < 2; ++axis) {
        if (direction[axis] == 0.0f)
            continue;
        const Float edge = direction[axis] > 0.0f ? high[axis] : low[axis];
        res = std::min(res, std::max(0.0f, (edge - from[axis]) / direction[axis]));
    }
    return res == std::numeric_limits<Float>::max() ? 0.0f : res;
}
